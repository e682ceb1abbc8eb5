// One code page of ICU's, under ICU's own name for it.
#pragma once

#include <unicode/ucnv.h>

#include <cstddef>

namespace ostvt::platform {

class IcuConverter {
 public:
  // A null or unknown `name` leaves it closed.
  explicit IcuConverter(const char* name);
  ~IcuConverter();
  IcuConverter(const IcuConverter&) = delete;
  IcuConverter& operator=(const IcuConverter&) = delete;

  bool IsOpen() const { return Handle != nullptr; }

  // The units (bytes) written for exactly this character, or 0 when it has no counterpart. `target`
  // has room for two units (four bytes).
  size_t ToWide(const char* bytes, size_t size, char16_t* target);
  size_t ToNarrow(char16_t unit, char* target);

  // NUL-terminated to NUL-terminated. What is written, terminator included, or 0 if it does not
  // fit. Malformed input becomes the page's own sign for that.
  int TextToWide(const char* source, char16_t* target, int capacity);
  int TextToNarrow(const char16_t* source, char* target, int capacity);

 private:
  void StopAtErrors();

  UConverter* Handle = nullptr;
};

}  // namespace ostvt::platform
