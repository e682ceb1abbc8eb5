#include "platform/linux/SpoolerKeys.h"

#include <algorithm>
#include <cstring>

namespace ostvt::platform {
namespace {

constexpr char16_t kPrinters[] = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers";
constexpr char16_t kConnections[] = u"Printers\\Connections";
constexpr char16_t kDrivers[] =
    u"SYSTEM\\CurrentControlSet\\Control\\Print\\Environments\\Linux x64\\Drivers\\Version-3";
constexpr char16_t kEnvironment[] = u"Linux x64";
constexpr uint32_t kDriverVersion = 3;

// A value that grows between asking for its size and reading it is asked for again so often.
constexpr int kReadTries = 4;

constexpr size_t kLongestKeyName = 255;

bool IsKeyName(const std::u16string& name) {
  return !name.empty() && name.size() <= kLongestKeyName &&
         name.find(u'\\') == std::u16string::npos;
}

}  // namespace

bool PlaceOfPrinter(const char16_t* name, PrinterPlace* place) {
  *place = {};
  if (!name) return false;
  std::u16string text = name;
  if (text.compare(0, 2, u"\\\\") != 0) {
    place->Key = std::u16string(kPrinters) + u"\\" + text;
    return IsKeyName(text);
  }
  size_t end = text.find(u'\\', 2);
  if (end == std::u16string::npos) return false;
  place->Server = text.substr(2, end - 2);
  std::u16string share = text.substr(end + 1);
  // A comma in the server's name would make two connections one key.
  if (place->Server.empty() || place->Server.find(u',') != std::u16string::npos || share.empty())
    return false;
  std::u16string keyName = u",," + place->Server + u"," + share;
  place->Root = Hive::kCurrentUser;
  place->Key = std::u16string(kConnections) + u"\\" + keyName;
  return IsKeyName(keyName);
}

std::vector<PrinterPlace> PrinterRoots() {
  return {{Hive::kLocalMachine, kPrinters, u""}, {Hive::kCurrentUser, kConnections, u""}};
}

std::vector<std::u16string> SubKeysOf(const PrinterPlace& place) {
  std::vector<std::u16string> names;
  OpenKeyScope key(place, false);
  if (!key.Get()) return names;
  char16_t name[kNameUnits];
  for (int i = 0; EnumerateKey(key.Get(), i, name); i++) names.emplace_back(name);
  return names;
}

bool DeleteTree(const PrinterPlace& place) {
  for (const std::u16string& name : SubKeysOf(place)) {
    PrinterPlace child = place;
    child.Key += u"\\" + name;
    if (!DeleteTree(child)) return false;
  }
  size_t cut = place.Key.rfind(u'\\');
  if (cut == std::u16string::npos) return false;
  PrinterPlace parent = place;
  parent.Key.resize(cut);
  OpenKeyScope key(parent, false);
  return key.Get() && DeleteKey(key.Get(), place.Key.c_str() + cut + 1);
}

std::vector<uint8_t> ReadBytes(KeyHandle key, const char16_t* name) {
  // Nearly every value fits here and takes one look.
  uint8_t room[2048];
  int fits = ReadValue(key, name, room, sizeof room, nullptr);
  if (fits >= 0) return {room, room + fits};
  std::vector<uint8_t> bytes;
  for (int i = 0; i < kReadTries; i++) {
    int size = 0;
    if (!GetValueSize(key, name, &size) || size <= 0 || size > static_cast<int>(kLongestValue))
      return {};
    bytes.resize(static_cast<size_t>(size));
    int got = ReadValue(key, name, bytes.data(), size, nullptr);
    if (got < 0 || got > size) continue;
    bytes.resize(static_cast<size_t>(got));
    return bytes;
  }
  return {};
}

std::vector<std::u16string> ReadTexts(KeyHandle key, const char16_t* name) {
  std::vector<uint8_t> bytes = ReadBytes(key, name);
  std::u16string all(bytes.size() / 2, u'\0');
  if (!all.empty()) memcpy(all.data(), bytes.data(), all.size() * 2);
  std::vector<std::u16string> texts;
  for (size_t start = 0; start < all.size();) {
    size_t end = std::min(all.find(u'\0', start), all.size());
    if (end == start) break;
    texts.push_back(all.substr(start, end - start));
    start = end + 1;
  }
  return texts;
}

std::u16string ReadText(KeyHandle key, const char16_t* name) {
  std::vector<std::u16string> texts = ReadTexts(key, name);
  return texts.empty() ? std::u16string() : texts[0];
}

uint32_t ReadNumber(KeyHandle key, const char16_t* name) {
  uint32_t number = 0;
  return ReadValue(key, name, &number, sizeof number, nullptr) == sizeof number ? number : 0;
}

bool WriteBytes(KeyHandle key, const char16_t* name, const void* data, uint32_t size,
                uint32_t type) {
  return size <= kLongestValue &&
         WriteValue(key, name, data, static_cast<int>(size), type) == static_cast<int>(size);
}

bool WriteText(KeyHandle key, const char16_t* name, const std::u16string& text) {
  if (text.size() >= kLongestValue / 2) return false;
  return WriteBytes(key, name, text.c_str(), static_cast<uint32_t>((text.size() + 1) * 2),
                    kValueString);
}

bool WriteTexts(KeyHandle key, const char16_t* name, const std::vector<std::u16string>& texts) {
  std::u16string all;
  for (const std::u16string& text : texts) {
    if (!text.empty()) all += text + u'\0';
  }
  if (all.size() >= kLongestValue / 2) return false;
  return WriteBytes(key, name, all.c_str(), static_cast<uint32_t>((all.size() + 1) * 2),
                    kValueMultiString);
}

bool ReadDriver(const std::u16string& name, DriverRecord* record) {
  *record = {};
  if (!IsKeyName(name)) return false;
  const KeyStoreTransaction together(Hive::kLocalMachine, KeyStoreTransaction::Purpose::kRead);
  OpenKeyScope scope({Hive::kLocalMachine, std::u16string(kDrivers) + u"\\" + name, u""}, false);
  KeyHandle key = scope.Get();
  if (!key) return false;
  record->Name = ReadText(key, u"Name");
  record->DriverPath = ReadText(key, u"Driver");
  if (record->Name.empty() || record->DriverPath.empty()) {
    *record = {};
    return false;
  }
  record->Version = ReadNumber(key, u"Version");
  record->Environment = kEnvironment;
  record->DataFile = ReadText(key, u"Data File");
  record->ConfigFile = ReadText(key, u"Configuration File");
  record->HelpFile = ReadText(key, u"Help File");
  record->DependentFiles = ReadTexts(key, u"Dependent Files");
  record->MonitorName = ReadText(key, u"Monitor");
  record->DefaultDataType = ReadText(key, u"Datatype");
  record->MfgName = ReadText(key, u"Manufacturer");
  record->HardwareId = ReadText(key, u"HardwareID");
  record->Provider = ReadText(key, u"Provider");
  return true;
}

bool WriteDriver(const DriverRecord& driver) {
  if (!IsKeyName(driver.Name) || driver.DriverPath.empty()) return false;
  KeyStoreTransaction together(Hive::kLocalMachine, KeyStoreTransaction::Purpose::kWrite);
  if (!together.IsOpen()) return false;
  OpenKeyScope scope({Hive::kLocalMachine, std::u16string(kDrivers) + u"\\" + driver.Name, u""},
                     true);
  KeyHandle key = scope.Get();
  if (!key) return false;
  uint32_t version = driver.Version ? driver.Version : kDriverVersion;
  return WriteBytes(key, u"Version", &version, sizeof version, kValueDword) &&
         WriteText(key, u"Driver", driver.DriverPath) &&
         WriteText(key, u"Data File", driver.DataFile) &&
         WriteText(key, u"Configuration File", driver.ConfigFile) &&
         WriteText(key, u"Help File", driver.HelpFile) &&
         WriteTexts(key, u"Dependent Files", driver.DependentFiles) &&
         WriteText(key, u"Monitor", driver.MonitorName) &&
         WriteText(key, u"Datatype", driver.DefaultDataType) &&
         WriteText(key, u"Manufacturer", driver.MfgName) &&
         WriteText(key, u"HardwareID", driver.HardwareId) &&
         WriteText(key, u"Provider", driver.Provider) && WriteText(key, u"Name", driver.Name) &&
         together.Commit();
}

}  // namespace ostvt::platform
