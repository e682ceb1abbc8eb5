#include "model/EncodingName.h"

#include <string_view>

#include "core/CodePageTables.h"

namespace ostvt {
namespace {

constexpr std::string_view kIsoPartPrefix = "ISO-8859-";
constexpr std::string_view kIsoNumberPrefix = "ISO-";
constexpr std::string_view kUnicodePrefix = "UTF-";
constexpr uint8_t kUnicodeCharset = 1;

// The number behind `prefix`, if nothing but digits stands there.
bool NumberBehind(const OString& name, std::string_view prefix, uint32_t* number) {
  if (!name.StartsWithNoCase(prefix.data())) return false;
  const OString digits = name.Mid(static_cast<int>(prefix.size()));
  const std::u16string_view text = digits.GetWide();
  if (text.empty() || text.find_first_not_of(u"0123456789") != text.npos) return false;
  *number = static_cast<uint32_t>(digits.ToInt());
  return true;
}

}  // namespace

EncodingName ParseEncodingName(const OString& name) {
  uint32_t number = 0;
  if (NumberBehind(name, "", &number)) return {EncodingKind::kCodePage, number};
  if (name.CompareNoCase("UTF-8") == 0) return {EncodingKind::kUtf8, 0};
  if (name.CompareNoCase("UTF-16") == 0) return {EncodingKind::kUtf16, 0};
  if (NumberBehind(name, kIsoPartPrefix, &number)) return {EncodingKind::kIsoPart, number};
  if (NumberBehind(name, kIsoNumberPrefix, &number)) return {EncodingKind::kIsoNumber, number};
  return {EncodingKind::kNamed, 0};
}

int CharsetOfEncoding(const EncodingName& parsed, const OString& name) {
  switch (parsed.Kind) {
    case EncodingKind::kCodePage: {
      const int charset = CharsetOfWindowsCodePage(parsed.Number);
      return charset >= 0 ? charset : CharsetOfDosCodePage(parsed.Number);
    }
    case EncodingKind::kIsoPart:
      return CharsetOfIsoPart(parsed.Number);
    case EncodingKind::kIsoNumber:
      return CharsetOfIsoNumber(parsed.Number);
    default:
      return CharsetOfName(name);
  }
}

void CharsetsOfEncodings(const OStringArray& encodings, ByteArray* charsets) {
  charsets->SetSize(0);
  for (int32_t i = 0; i < encodings.Count; ++i) {
    if (encodings[i].StartsWithNoCase(kUnicodePrefix.data())) {
      charsets->SetSize(0);
      charsets->Add(kUnicodeCharset);
      return;
    }
    const int charset = CharsetOfEncoding(ParseEncodingName(encodings[i]), encodings[i]);
    if (charset < 0) continue;
    const uint8_t value = static_cast<uint8_t>(charset);
    if (charsets->Find(value) < 0) charsets->Add(value);
  }
}

}  // namespace ostvt
