// Attributes of a record's opening line: the value is a part of the line, between quotes.
#include <cstdlib>
#include <string>

#include "model/ModelAttributes.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  ostvt::OString line;
  line.SetCodePage(ostvt::kCodePageUtf8);
  line = text.c_str();
  const std::u16string wide = line.GetWide();
  for (const char* name : {"model", "driver", "type", "default", "="}) {
    const ostvt::OString value = ostvt::GetAttribute(line, name);
    if (value.IsEmpty()) continue;
    const std::u16string quoted = u'\'' + std::u16string(value.GetWide()) + u'\'';
    if (wide.find(quoted) == std::u16string::npos) abort();
    if (quoted.find(u'\'', 1) != quoted.size() - 1) abort();
  }
  ostvt::MatchesModelAttributes(line, "Ostrel D4-203", "ost");
  return 0;
}
