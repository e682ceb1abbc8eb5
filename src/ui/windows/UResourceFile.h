// A resource module on disk. It is loaded at the first look-up, as data: no code of it runs.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

// Types of resources, by the system's numbers.
inline constexpr uint16_t kResourceBitmap = 2;
inline constexpr uint16_t kResourceMenu = 4;
inline constexpr uint16_t kResourceDialog = 5;
inline constexpr uint16_t kResourceStrings = 6;

class UResourceFile {
 public:
  // The file is deleted at the end if `deleteOnClose`.
  UResourceFile(const OString& path, bool deleteOnClose);
  // A module that is loaded already and stays its owner's.
  explicit UResourceFile(HMODULE module);
  UResourceFile(const UResourceFile&) = delete;
  UResourceFile& operator=(const UResourceFile&) = delete;
  virtual ~UResourceFile();

  // `name` as the system takes it: a text, or a number below 65536 in the place of a pointer. 0
  // when the module or the item isn't there.
  virtual uint32_t GetSize(uint16_t type, const char16_t* name);
  // Valid as long as this object. Null likewise.
  virtual const uint8_t* GetData(uint16_t type, const char16_t* name);

 private:
  HRSRC Find(uint16_t type, const char16_t* name);

  OString Path;
  HMODULE Module = nullptr;
  bool OwnsModule = false;
  bool DeleteOnClose = false;
  bool LoadTried = false;
};

// A number as a resource's name.
inline const char16_t* ResourceNumber(uint16_t number) {
  return reinterpret_cast<const char16_t*>(static_cast<uintptr_t>(number));
}

}  // namespace ostvt
