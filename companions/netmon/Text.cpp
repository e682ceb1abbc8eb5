#include "companions/netmon/Text.h"

#include "core/Utf8.h"

namespace ostvt::netmon {

std::string ToUtf8(const std::u16string& text) {
  std::string bytes(text.size() * 3 + 1, '\0');
  EncodeUtf8(text.c_str(), bytes.data());
  bytes.resize(bytes.find('\0'));
  return bytes;
}

std::u16string FromUtf8(const std::string& text) {
  std::u16string units(text.size() + 1, u'\0');
  DecodeUtf8(text.c_str(), units.data());
  units.resize(units.find(u'\0'));
  return units;
}

}  // namespace ostvt::netmon
