// Commands for the printer as users type them.
#include <string>
#include <string_view>

#include "core/HexDigit.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

// What stands at the head of `text` means one byte: how many units it has. 0: it means itself.
size_t TakeEscape(std::u16string_view text, uint8_t* byte) {
  if (text.size() < 2 || text[0] != u'\\') return 0;
  switch (text[1]) {
    case u'r':
      *byte = '\r';
      return 2;
    case u'n':
      *byte = '\n';
      return 2;
    case u't':
      *byte = '\t';
      return 2;
    case u'e':
      *byte = 27;
      return 2;
    case u'\\':
      *byte = '\\';
      return 2;
    case u'x': {
      if (text.size() < 4) return 0;
      const int high = HexDigit(text[2]);
      const int low = HexDigit(text[3]);
      if (high < 0 || low < 0) return 0;
      *byte = static_cast<uint8_t>(high * 16 + low);
      return 4;
    }
    default:
      return 0;
  }
}

}  // namespace

// On the wide form: in a code page of several bytes a character a byte may look like "\".
void PrinterModel::ExpandCommandText(const OString& text, Buffer* bytes) {
  std::string out;
  std::u16string plain;
  const auto putPlain = [&out, &plain] {
    if (!plain.empty()) out += OString(plain.c_str()).GetNarrow();
    plain.clear();
  };
  std::u16string_view rest = text.GetWide();
  while (!rest.empty()) {
    uint8_t byte = 0;
    const size_t taken = TakeEscape(rest, &byte);
    if (taken > 0) {
      putPlain();
      out += static_cast<char>(byte);
    } else {
      plain += rest[0];
    }
    rest.remove_prefix(taken > 0 ? taken : 1);
  }
  putPlain();
  bytes->Resize(static_cast<uint32_t>(out.size()));
  CopyBytes(bytes->Data, out.data(), out.size());
}

}  // namespace ostvt
