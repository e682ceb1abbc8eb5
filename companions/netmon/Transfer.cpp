#include "companions/netmon/Transfer.h"

#include "core/Base64.h"
#include "core/Buffer.h"
#include "core/LZ77.h"

namespace ostvt::netmon {
namespace {

using Codec = bool (*)(Buffer*);

// `codec` on the bytes.
bool Convert(Codec codec, std::string* bytes) {
  Buffer buffer;
  buffer.Resize(static_cast<uint32_t>(bytes->size()));
  CopyBytes(buffer.Data, bytes->data(), bytes->size());
  if (!codec(&buffer)) return false;
  bytes->assign(reinterpret_cast<const char*>(buffer.Data), buffer.Size);
  return true;
}

void EncodeBase64(std::string* bytes) {
  std::string text((bytes->size() + 2) / 3 * 4, '\0');
  uint32_t length = 0;
  Base64::Encode(bytes->data(), static_cast<uint32_t>(bytes->size()), text.data(), &length);
  text.resize(length);
  bytes->swap(text);
}

void DecodeBase64(std::string* text) {
  std::string bytes((text->size() + 3) / 4 * 3, '\0');
  uint32_t length = 0;
  Base64::Decode(text->data(), static_cast<uint32_t>(text->size()), bytes.data(), &length);
  bytes.resize(length);
  text->swap(bytes);
}

}  // namespace

bool Encode(std::string_view filters, std::string* bytes) {
  while (!filters.empty()) {
    const size_t separator = filters.rfind(';');
    const bool isLast = separator == std::string_view::npos;
    const std::string_view filter = isLast ? filters : filters.substr(separator + 1);
    filters = isLast ? std::string_view() : filters.substr(0, separator);
    if (filter == "base64") {
      EncodeBase64(bytes);
    } else if (filter != "lz77" || !Convert(LZ77::EncodeInPlace, bytes)) {
      return false;
    }
  }
  return true;
}

bool Decode(std::string_view filters, std::string* bytes) {
  while (!filters.empty()) {
    const size_t separator = filters.find(';');
    const std::string_view filter = filters.substr(0, separator);
    filters.remove_prefix(separator == std::string_view::npos ? filters.size() : separator + 1);
    if (filter == "base64") {
      DecodeBase64(bytes);
    } else if (filter != "lz77" || !Convert(LZ77::DecodeInPlace, bytes)) {
      return false;
    }
  }
  return true;
}

}  // namespace ostvt::netmon
