#include "store/BranchText.h"

#include <cstring>

#include "core/HexDigit.h"
#include "platform/KeyStore.h"
#include "store/ORegistry.h"

namespace ostvt {
namespace {

constexpr std::u16string_view kTrimmedLeft = u" \t";
constexpr std::u16string_view kTrimmedRight = u" \t\r\n\\";
constexpr auto kNowhere = std::u16string_view::npos;

// A line longer than this takes no more bytes.
constexpr size_t kLongestLine = 76;

constexpr std::u16string_view kDword = u"DWORD:";
constexpr std::u16string_view kHex = u"HEX";
constexpr std::u16string_view kHexMultiString = u"HEX(7)";

OString ToOString(std::u16string_view text) { return OString(std::u16string(text).c_str()); }

// `upper` is ASCII in capitals.
bool StartsWith(std::u16string_view text, std::u16string_view upper) {
  if (text.size() < upper.size()) return false;
  for (size_t i = 0; i < upper.size(); ++i) {
    const char16_t unit = text[i];
    const bool isLower = unit >= u'a' && unit <= u'z';
    if ((isLower ? static_cast<char16_t>(unit - 0x20) : unit) != upper[i]) return false;
  }
  return true;
}

std::u16string Quoted(std::u16string_view text) {
  std::u16string quoted = u"\"";
  for (const char16_t unit : text) {
    if (unit == u'\\' || unit == u'"') quoted += u'\\';
    quoted += unit;
  }
  return quoted + u'"';
}

// The inside of a quoted text.
std::u16string Unescaped(std::u16string_view text) {
  std::u16string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool isEscape =
        text[i] == u'\\' && i + 1 < text.size() && (text[i + 1] == u'\\' || text[i + 1] == u'"');
    if (isEscape) ++i;
    plain += text[i];
  }
  return plain;
}

// One quote at each end, and no more: the next may be the text's own.
std::u16string_view WithoutQuotes(std::u16string_view text) {
  if (text.starts_with(u'"')) text.remove_prefix(1);
  if (text.ends_with(u'"')) text.remove_suffix(1);
  return text;
}

// Where the quote stands that ends the name, with "=" behind it. The quote that opens a name is not
// it, so that a name can begin with "=".
size_t FindNameEnd(std::u16string_view line) {
  for (size_t i = line.starts_with(u'"') ? 1 : 0; i + 1 < line.size(); ++i) {
    if (line[i] == u'\\') {
      ++i;
    } else if (line[i] == u'"' && line[i + 1] == u'=') {
      return i;
    }
  }
  return kNowhere;
}

char16_t HexDigit(uint32_t value) {
  return static_cast<char16_t>(value < 10 ? u'0' + value : u'a' + value - 10);
}

// The byte of a digit pair; a digit that is missing is 0.
uint8_t ParsePair(std::u16string_view text, size_t at) {
  uint32_t byte = 0;
  for (size_t i = at; i < at + 2; ++i) {
    const char16_t unit = i < text.size() ? text[i] : u'0';
    byte = 16 * byte + LaxHexDigit(unit);
  }
  return static_cast<uint8_t>(byte);
}

std::vector<uint8_t> ParseBytes(std::u16string_view text) {
  std::vector<uint8_t> bytes;
  while (!text.empty()) {
    const size_t end = text.find(u',');
    bytes.push_back(ParsePair(text.substr(0, end), 0));
    text.remove_prefix(end == kNowhere ? text.size() : end + 1);
  }
  return bytes;
}

std::vector<uint8_t> BytesOf(std::u16string_view text) {
  std::vector<uint8_t> bytes(text.size() * sizeof(char16_t));
  memcpy(bytes.data(), text.data(), bytes.size());
  return bytes;
}

// Up to a NUL, or to the last whole unit.
std::u16string TextOf(const std::vector<uint8_t>& bytes) {
  std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
  if (!text.empty()) memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  return text.substr(0, text.find(u'\0'));
}

std::vector<uint8_t> NormalList(const std::vector<uint8_t>& block) {
  OStringArray list;
  list.SplitBlockWide(block.data(), static_cast<uint32_t>(block.size()), BlockMode::kTerminated);
  Buffer joined;
  list.JoinBlockWide(&joined, BlockMode::kTerminated);
  return {joined.Data, joined.Data + joined.Size};
}

std::u16string DwordText(const std::vector<uint8_t>& data) {
  std::u16string text = u"dword:";
  for (size_t i = data.size(); i-- > 0;) {
    text += HexDigit(data[i] >> 4u);
    text += HexDigit(data[i] & 15u);
  }
  return text;
}

// `line` already holds what stands before the bytes.
void AppendBytes(std::u16string line, const std::vector<uint8_t>& bytes, OStringArray* lines) {
  for (const uint8_t byte : bytes) {
    if (line.size() > kLongestLine) {
      lines->Add((line + u'\\').c_str());
      line = u"  ";
    }
    line += HexDigit(byte >> 4u);
    line += HexDigit(byte & 15u);
    line += u',';
  }
  if (!bytes.empty()) line.pop_back();
  lines->Add(line.c_str());
}

}  // namespace

BranchLine::BranchLine(const OString& line) : Text(line.GetWide()) {
  Text.remove_prefix(std::min(Text.find_first_not_of(kTrimmedLeft), Text.size()));
  const size_t end = Text.find_last_not_of(kTrimmedRight) + 1;
  IsBroken = Text.find(u'\\', end) != kNowhere;
  Text = Text.substr(0, end);
}

OString MakeBranchHeader(const OString& key, bool isDeletion) {
  return OString(isDeletion ? "[-" : "[") + ORegistry::ToDisplayForm(key) + "]";
}

bool ParseBranchHeader(std::u16string_view line, BranchHeader* header) {
  if (!line.starts_with(u'[')) return false;
  // One bracket at each end: the name of a key may end in another.
  line.remove_prefix(1);
  if (line.ends_with(u']')) line.remove_suffix(1);
  header->IsDeletion = line.starts_with(u'-');
  if (header->IsDeletion) {
    line.remove_prefix(std::min(line.find_first_not_of(u'-'), line.size()));
  }
  header->Key = ORegistry::FromDisplayForm(ToOString(line));
  return true;
}

void AppendBranchValue(const BranchValue& value, OStringArray* lines) {
  const std::u16string line = Quoted(value.Name.GetWide()) + u'=';
  switch (value.Type) {
    case platform::kValueString:
      lines->Add((line + Quoted(TextOf(value.Data))).c_str());
      break;
    case platform::kValueDword:
      lines->Add((line + DwordText(value.Data)).c_str());
      break;
    case platform::kValueMultiString:
      AppendBytes(line + u"hex(7):", NormalList(value.Data), lines);
      break;
    case platform::kValueBinary:
      AppendBytes(line + u"hex:", value.Data, lines);
      break;
    default: {
      OString type;
      type.Format(u"hex(%u):", value.Type);
      AppendBytes(line + type.GetWide(), value.Data, lines);
    }
  }
}

bool BeginsValue(std::u16string_view line) { return FindNameEnd(line) != kNowhere; }

bool IsBytesValue(std::u16string_view line) {
  const size_t end = FindNameEnd(line);
  return end != kNowhere && StartsWith(line.substr(end + 2), kHex);
}

bool ParseBranchValue(std::u16string_view line, BranchValue* value) {
  const size_t end = FindNameEnd(line);
  if (end == kNowhere) return false;
  std::u16string_view name = line.substr(0, end);
  if (name.starts_with(u'"')) name.remove_prefix(1);
  value->Name = ToOString(Unescaped(name));
  const std::u16string_view text = line.substr(end + 2);
  if (text.starts_with(u'"')) {
    value->Type = platform::kValueString;
    value->Data = BytesOf(Unescaped(WithoutQuotes(text)) + u'\0');
  } else if (StartsWith(text, kDword)) {
    value->Type = platform::kValueDword;
    value->Data.clear();
    for (size_t pair = 4; pair-- > 0;)
      value->Data.push_back(ParsePair(text, kDword.size() + 2 * pair));
  } else if (StartsWith(text, kHex)) {
    const size_t colon = text.find(u':');
    if (colon == kNowhere) return false;
    const bool isList = StartsWith(text, kHexMultiString);
    value->Type = isList ? platform::kValueMultiString : platform::kValueBinary;
    value->Data = ParseBytes(text.substr(colon + 1));
    if (isList) value->Data = NormalList(value->Data);
  } else {
    return false;
  }
  return true;
}

}  // namespace ostvt
