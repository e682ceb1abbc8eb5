#include "platform/linux/Johab.h"

namespace ostvt::platform {
namespace {

const auto kNone = reinterpret_cast<iconv_t>(-1);

// The bytes written for the whole of `source`, or 0.
size_t Convert(iconv_t handle, const void* source, size_t size, void* target, size_t room) {
  char* in = static_cast<char*>(const_cast<void*>(source));
  auto* out = static_cast<char*>(target);
  size_t left = room;
  if (iconv(handle, &in, &size, &out, &left) == 0 && size == 0) return room - left;
  iconv(handle, nullptr, nullptr, nullptr, nullptr);
  return 0;
}

}  // namespace

Johab::Johab()
    : Decoder(iconv_open("UTF-16LE", "JOHAB")), Encoder(iconv_open("JOHAB", "UTF-16LE")) {}

Johab::~Johab() {
  if (Decoder != kNone) iconv_close(Decoder);
  if (Encoder != kNone) iconv_close(Encoder);
}

bool Johab::IsOpen() const { return Decoder != kNone && Encoder != kNone; }

size_t Johab::ToWide(const char* bytes, size_t size, char16_t* target) {
  // Its single bytes above ASCII are none, though iconv knows some.
  if (size < 2) return 0;
  return Convert(Decoder, bytes, size, target, 2 * sizeof(*target)) / sizeof(*target);
}

size_t Johab::ToNarrow(char16_t unit, char* target) {
  return Convert(Encoder, &unit, sizeof(unit), target, 4);
}

}  // namespace ostvt::platform
