// Records that pass between a session, its pages and its family.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"

namespace ostvt {

#pragma pack(push, 1)
struct CacheStorage {
  uint32_t Location;  // a storage location code
  uint32_t Flags;
  uint8_t reserved[8];
};

// The printer's storages that are used as a cache; all zero: there is none.
struct CacheInfo {
  int32_t count;  // 0 to 9
  CacheStorage storages[9];
  uint8_t reserved[4];
};
#pragma pack(pop)

static_assert(sizeof(CacheStorage) == 16);
static_assert(sizeof(CacheInfo) == 152);
static_assert(offsetof(CacheInfo, storages) == 4);
static_assert(offsetof(CacheInfo, reserved) == 148);

// What the family asks of the name of a file, and of a font, kept in the printer.
struct NameRules {
  bool required = false;
  bool upperCase = false;
  int32_t maxLength = 0;
  OString allowed;    // characters; empty: any
  OString forbidden;  // characters
  // For fonts.
  bool hasFileNames = false;
  bool hasFontIds = false;
  DwordArray locations;  // storage location codes
  uint32_t defaultLocation = 0;
  bool makeFileId = false;
  bool makeNameFromFace = false;
  int32_t fileNameLimit = 0;
};

// A name to be checked against the rules; message and caption say why it was refused.
struct NameRequest {
  OString value;
  OString result;
  OString message;
  OString caption;
};

class DriverSession;

// Where an action runs.
struct ActionContext {
  DriverSession* Session = nullptr;
  void* Owner = nullptr;  // the window that owns what the action opens; may be null
};

}  // namespace ostvt
