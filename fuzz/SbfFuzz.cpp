// Files of bar codes of the older kind: nothing behind the file's end is read, and what is taken in
// has a blob of its own size, at the model's resolution.
#include <cstdlib>
#include <string>

#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fuzz/FuzzModel.h"
#include "fuzz/MemoryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ostvt;
  DataFontTable table;
  fuzz::MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
  const int32_t count = table.ReadBinary(file, fuzz::TheModel());
  if (count < table.GetCount()) abort();
  // The least record has 74 bytes.
  if (count > 0 && size < 8 + static_cast<size_t>(count) * 74) abort();
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const auto& font = static_cast<const BarCodeFont&>(*table.GetAt(i));
    if (font.IsRfid() || font.Header.Resolution != 203) abort();
    if (!font.IsValidFor(fuzz::TheModel())) abort();
    if (table.Find(font.GetName()) != &font) abort();
  }
  return 0;
}
