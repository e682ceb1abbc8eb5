// Where the key store holds printers and drivers, and how their values are read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/KeyStore.h"
#include "platform/Spooler.h"

namespace ostvt::platform {

// The most that a value of a printer or driver may have, in bytes; a larger one counts as absent.
inline constexpr uint32_t kLongestValue = 1 << 20;

// A key by hive and path.
struct PrinterPlace {
  Hive Root = Hive::kLocalMachine;
  std::u16string Key;
  std::u16string
      Server;  // of a connection, without leading "\\"; empty for a printer of this machine
};

// An open key for the length of a block.
class OpenKeyScope {
 public:
  OpenKeyScope(const PrinterPlace& place, bool create)
      : Key(OpenKey(place.Root, place.Key.c_str(), create)) {}
  ~OpenKeyScope() { CloseKey(Key); }
  OpenKeyScope(const OpenKeyScope&) = delete;
  OpenKeyScope& operator=(const OpenKeyScope&) = delete;
  KeyHandle Get() const { return Key; }

 private:
  KeyHandle Key;
};

// Printers of this machine lie under their names, connections ("\\server\name") under the user's
// connections as ",,server,name". False for a null or empty name, and for one with a "\" elsewhere.
bool PlaceOfPrinter(const char16_t* name, PrinterPlace* place);
// The keys that hold the printers' keys.
std::vector<PrinterPlace> PrinterRoots();
std::vector<std::u16string> SubKeysOf(const PrinterPlace& place);
// The key and all below it.
bool DeleteTree(const PrinterPlace& place);

// Empty (0) where the value is absent.
std::vector<uint8_t> ReadBytes(KeyHandle key, const char16_t* name);
std::u16string ReadText(KeyHandle key, const char16_t* name);
std::vector<std::u16string> ReadTexts(KeyHandle key, const char16_t* name);
uint32_t ReadNumber(KeyHandle key, const char16_t* name);

bool WriteBytes(KeyHandle key, const char16_t* name, const void* data, uint32_t size,
                uint32_t type);
bool WriteText(KeyHandle key, const char16_t* name, const std::u16string& text);
bool WriteTexts(KeyHandle key, const char16_t* name, const std::vector<std::u16string>& texts);

// By name, in any case of letters. False leaves the record empty.
bool ReadDriver(const std::u16string& name, DriverRecord* record);
bool WriteDriver(const DriverRecord& driver);

}  // namespace ostvt::platform
