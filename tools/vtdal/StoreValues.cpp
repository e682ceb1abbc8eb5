#include "tools/vtdal/StoreValues.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/KeyStore.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

namespace platform = ostvt::platform;

struct NamedType {
  const char* Name;
  ValueType Type;
};
constexpr NamedType kTypes[] = {
    {"string", ValueType::kString}, {"dword", ValueType::kDword}, {"int", ValueType::kInt},
    {"byte", ValueType::kByte},     {"multi", ValueType::kMulti}, {"hex", ValueType::kHex},
};

ValueType TypeOfStored(uint32_t type) {
  switch (type) {
    case platform::kValueString:
      return ValueType::kString;
    case platform::kValueDword:
      return ValueType::kDword;
    case platform::kValueMultiString:
      return ValueType::kMulti;
    default:
      return ValueType::kHex;
  }
}

std::u16string UnitsOf(const std::vector<uint8_t>& bytes) {
  std::u16string units(bytes.size() / 2, u'\0');
  if (!units.empty()) memcpy(units.data(), bytes.data(), units.size() * 2);
  return units;
}

std::string HexOf(const std::vector<uint8_t>& bytes) {
  std::string text;
  for (uint8_t byte : bytes) text += Format(text.empty() ? "%02x" : " %02x", byte);
  return text;
}

std::string PartsOf(const std::vector<uint8_t>& bytes, const char* separator) {
  std::u16string units = UnitsOf(bytes);
  std::string text;
  for (size_t start = 0; start < units.size();) {
    size_t end = std::min(units.find(u'\0', start), units.size());
    if (end == start) break;
    if (start > 0) text += separator;
    text += Printable(std::u16string_view(units).substr(start, end - start));
    start = end + 1;
  }
  return text;
}

void Append(const void* bytes, size_t size, StoredValue* value) {
  auto* first = static_cast<const uint8_t*>(bytes);
  value->Bytes.insert(value->Bytes.end(), first, first + size);
}

bool ParseHex(const std::u16string& word, std::vector<uint8_t>* bytes) {
  std::string digits;
  for (char c : ToUtf8(word)) {
    if (c != ' ' && c != ',' && c != '\t' && c != '\n') digits += c;
  }
  if (digits.size() % 2 != 0 ||
      digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
    return false;
  for (size_t i = 0; i < digits.size(); i += 2)
    bytes->push_back(static_cast<uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
  return true;
}

bool MakeNumber(const std::u16string& word, ValueType type, StoredValue* value,
                std::string* error) {
  int64_t least = 0;
  int64_t most = std::numeric_limits<uint32_t>::max();
  if (type == ValueType::kByte) most = std::numeric_limits<uint8_t>::max();
  // Numbers of type int have a sign; hexadecimal ones may name all their bits.
  if (type == ValueType::kInt) {
    least = std::numeric_limits<int32_t>::min();
    if (word.compare(0, 2, u"0x") != 0 && word.compare(0, 2, u"0X") != 0)
      most = std::numeric_limits<int32_t>::max();
  }
  int64_t number = 0;
  if (!ParseNumber(word, least, most, &number)) {
    *error = "'" + Printable(word) + "' is no number of type " + TypeName(type);
    return false;
  }
  uint32_t bits = static_cast<uint32_t>(number);
  value->Type = type == ValueType::kDword ? platform::kValueDword : platform::kValueBinary;
  Append(&bits, type == ValueType::kByte ? 1 : 4, value);
  return true;
}

}  // namespace

bool ParseNumber(const std::u16string& word, int64_t least, int64_t most, int64_t* number) {
  std::string text = ToUtf8(word);
  bool isNegative = !text.empty() && text[0] == '-';
  if (isNegative) text.erase(0, 1);
  bool isHex = text.compare(0, 2, "0x") == 0 || text.compare(0, 2, "0X") == 0;
  const char* allowed = isHex ? "0123456789abcdefABCDEF" : "0123456789";
  std::string digits = isHex ? text.substr(2) : text;
  constexpr size_t kMostDigits = 15;
  if (digits.empty() || digits.size() > kMostDigits ||
      digits.find_first_not_of(allowed) != std::string::npos)
    return false;
  *number = std::stoll(digits, nullptr, isHex ? 16 : 10);
  if (isNegative) *number = -*number;
  return *number >= least && *number <= most;
}

bool ParseType(const std::string& name, ValueType* type) {
  for (const NamedType& named : kTypes) {
    if (name != named.Name) continue;
    *type = named.Type;
    return true;
  }
  return false;
}

const char* TypeName(ValueType type) {
  for (const NamedType& named : kTypes) {
    if (type == named.Type) return named.Name;
  }
  return "value";
}

std::string StoredTypeName(uint32_t type) {
  if (type == platform::kValueBinary) return "binary";
  ValueType known = TypeOfStored(type);
  return known == ValueType::kHex ? Format("type %u", type) : TypeName(known);
}

bool ReadStored(const ostvt::ORegistry& registry, const ostvt::OString& keyPath,
                const char16_t* name, StoredValue* value) {
  platform::KeyHandle key = registry.OpenKey(keyPath, false);
  if (!key) return false;
  int size = 0;
  bool isRead = platform::GetValueSize(key, name, &size) && size >= 0;
  if (isRead) {
    value->Bytes.resize(static_cast<size_t>(size));
    uint8_t none = 0;
    int got =
        platform::ReadValue(key, name, size > 0 ? value->Bytes.data() : &none, size, &value->Type);
    isRead = got >= 0 && got <= size;
    if (isRead) value->Bytes.resize(static_cast<size_t>(got));
  }
  platform::CloseKey(key);
  return isRead;
}

bool ShowValue(const StoredValue& value, ValueType type, const char* separator, std::string* text) {
  if (type == ValueType::kAsStored) {
    type = TypeOfStored(value.Type);
    // A number of another size was stored by somebody else; its bytes are shown.
    if (type == ValueType::kDword && value.Bytes.size() != 4) type = ValueType::kHex;
  }
  uint32_t number = 0;
  bool isNumber = type == ValueType::kDword || type == ValueType::kInt || type == ValueType::kByte;
  if (isNumber) {
    size_t size = type == ValueType::kByte ? 1 : 4;
    if (value.Bytes.size() != size) return false;
    memcpy(&number, value.Bytes.data(), size);
  }
  switch (type) {
    case ValueType::kString: {
      std::u16string units = UnitsOf(value.Bytes);
      *text = Printable(std::u16string_view(units).substr(0, units.find(u'\0')));
      break;
    }
    case ValueType::kMulti:
      *text = PartsOf(value.Bytes, separator);
      break;
    case ValueType::kInt:
      *text = std::to_string(static_cast<int32_t>(number));
      break;
    case ValueType::kDword:
    case ValueType::kByte:
      *text = std::to_string(number);
      break;
    default:
      *text = HexOf(value.Bytes);
      break;
  }
  return true;
}

bool ShowInLine(const StoredValue& value, std::string* text) {
  constexpr size_t kMostBytes = 24;
  if (TypeOfStored(value.Type) != ValueType::kHex || value.Bytes.size() <= kMostBytes)
    return ShowValue(value, ValueType::kAsStored, ", ", text);
  *text = HexOf({value.Bytes.begin(), value.Bytes.begin() + kMostBytes}) + " ... (" +
          std::to_string(value.Bytes.size()) + " bytes)";
  return true;
}

bool MakeValue(const std::vector<std::u16string>& words, ValueType type, StoredValue* value,
               std::string* error) {
  switch (type) {
    case ValueType::kMulti:
      value->Type = platform::kValueMultiString;
      for (const std::u16string& word : words) {
        // An empty part would end the list for whoever reads it.
        if (!word.empty()) Append(word.c_str(), (word.size() + 1) * 2, value);
      }
      Append(u"", 2, value);
      return true;
    case ValueType::kHex:
      value->Type = platform::kValueBinary;
      if (ParseHex(words[0], &value->Bytes)) return true;
      *error = "'" + Printable(words[0]) + "' is no row of hexadecimal bytes";
      return false;
    case ValueType::kDword:
    case ValueType::kInt:
    case ValueType::kByte:
      return MakeNumber(words[0], type, value, error);
    default:
      value->Type = platform::kValueString;
      Append(words[0].c_str(), (words[0].size() + 1) * 2, value);
      return true;
  }
}

std::string PathElement(const char16_t* name) {
  std::string text;
  for (char c : ToUtf8(ostvt::ORegistry::Escape(ostvt::OString(name)).GetWide())) {
    unsigned byte = static_cast<unsigned char>(c);
    text += byte < 0x20 || byte == 0x7F ? Format("%%%02X", byte) : std::string(1, c);
  }
  return text;
}

bool ParseFlag(const std::u16string& word, int32_t* value, std::string* error) {
  const ostvt::OString text(word.c_str());
  for (const char* on : {"on", "true", "yes", "1"}) {
    if (text.CompareNoCase(on) == 0) {
      *value = 1;
      return true;
    }
  }
  *value = 0;
  for (const char* off : {"off", "false", "no", "0"}) {
    if (text.CompareNoCase(off) == 0) return true;
  }
  *error = "'" + Printable(word) + "' is neither on nor off";
  return false;
}

bool ParseInteger(const std::u16string& word, int32_t* value, std::string* error) {
  StoredValue stored;
  if (!MakeValue({word}, ValueType::kInt, &stored, error)) {
    *error = "'" + Printable(word) + "' is no number";
    return false;
  }
  memcpy(value, stored.Bytes.data(), sizeof(*value));
  if (*value >= -ostvt::kNumberLimit && *value <= ostvt::kNumberLimit) return true;
  *error = "the number '" + Printable(word) + "' is too large";
  return false;
}

}  // namespace vtdal
