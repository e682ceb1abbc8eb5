#include "platform/Spooler.h"

#include <unistd.h>

#include <cstring>

#include "platform/linux/SpoolerKeys.h"
#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

// A printer of this list that was found when it was opened. It may be deleted meanwhile; reads fail
// then.
struct OpenedPrinter {
  PrinterPlace Place;
  uint32_t Access;
};

const OpenedPrinter* Opened(PrinterHandle printer) {
  return static_cast<const OpenedPrinter*>(printer);
}

constexpr uint32_t kAttributeShared = 0x8;
constexpr uint32_t kAttributeNetwork = 0x10;
constexpr uint32_t kAttributeLocal = 0x40;
constexpr uint32_t kAttributeBidi = 0x800;
// What a printer must have been opened with to be changed.
constexpr uint32_t kAccessAdminister = 4;

constexpr size_t kLongestPrinterName = 220;

// Where a device mode names its own length: public part, then what the driver put behind it.
constexpr size_t kDevModeSizeOffset = 68;
constexpr size_t kDevModeExtraOffset = 70;
constexpr uint32_t kDevModeHeader = 72;

using Purpose = KeyStoreTransaction::Purpose;

bool FitsItsHeader(const void* devMode, uint32_t size) {
  if (size < kDevModeHeader || size > kLongestValue) return false;
  uint16_t named[2];
  static_assert(kDevModeExtraOffset == kDevModeSizeOffset + sizeof named[0]);
  memcpy(named, static_cast<const uint8_t*>(devMode) + kDevModeSizeOffset, sizeof named);
  return uint32_t{named[0]} + named[1] <= size;
}

// Settings may be left, or be written, where no printer is; a printer has a name.
bool IsPrinter(KeyHandle key) { return key && !ReadText(key, u"Name").empty(); }

// A new printer inherits nothing. False if there is a printer already.
bool ClearForPrinter(const PrinterPlace& place) {
  OpenKeyScope key(place, false);
  return !key.Get() || (!IsPrinter(key.Get()) && DeleteTree(place));
}

}  // namespace

PrinterHandle OpenPrinter(const char16_t* name, uint32_t access) {
  PrinterPlace place;
  if (!PlaceOfPrinter(name, &place)) return nullptr;
  OpenKeyScope key(place, false);
  if (!IsPrinter(key.Get())) return nullptr;
  return new OpenedPrinter{place, access};
}

void ClosePrinter(PrinterHandle printer) { delete static_cast<OpenedPrinter*>(printer); }

bool GetPrinterRecord(PrinterHandle printer, PrinterRecord* record) {
  *record = {};
  if (!printer) return false;
  const PrinterPlace& place = Opened(printer)->Place;
  const KeyStoreTransaction together(place.Root, Purpose::kRead);
  OpenKeyScope scope(place, false);
  KeyHandle key = scope.Get();
  if (!key) return false;
  std::u16string name = ReadText(key, u"Name");
  if (name.empty()) return false;
  record->Name = name;
  record->ServerName = place.Server.empty() ? u"" : u"\\\\" + place.Server;
  record->ShareName = ReadText(key, u"Share Name");
  record->PortName = ReadText(key, u"Port");
  record->DriverName = ReadText(key, u"Printer Driver");
  record->Comment = ReadText(key, u"Description");
  record->Location = ReadText(key, u"Location");
  record->SepFile = ReadText(key, u"Separator File");
  record->PrintProcessor = ReadText(key, u"Print Processor");
  record->Datatype = ReadText(key, u"Datatype");
  record->Parameters = ReadText(key, u"Parameters");
  record->Attributes = ReadNumber(key, u"Attributes");
  record->DevMode = ReadBytes(key, u"Default DevMode");
  return true;
}

bool GetDriverRecord(PrinterHandle printer, DriverRecord* record) {
  *record = {};
  if (!printer) return false;
  const PrinterPlace& place = Opened(printer)->Place;
  const KeyStoreTransaction together(place.Root, Purpose::kRead);
  OpenKeyScope key(place, false);
  return IsPrinter(key.Get()) && ReadDriver(ReadText(key.Get(), u"Printer Driver"), record);
}

bool SetPrinterDevMode(PrinterHandle printer, const void* devMode, uint32_t size) {
  if (!printer || !devMode || !FitsItsHeader(devMode, size)) return false;
  if (!(Opened(printer)->Access & kAccessAdminister)) return false;
  OpenKeyScope key(Opened(printer)->Place, false);
  return IsPrinter(key.Get()) &&
         WriteBytes(key.Get(), u"Default DevMode", devMode, size, kValueBinary);
}

bool SetPrinterData(PrinterHandle printer, const char16_t* name, uint32_t type, const void* data,
                    uint32_t size) {
  if (!printer || !name || (!data && size > 0) || size > kLongestValue) return false;
  if (!(Opened(printer)->Access & kAccessAdminister)) return false;
  PrinterPlace place = Opened(printer)->Place;
  KeyStoreTransaction together(place.Root, Purpose::kWrite);
  if (!together.IsOpen()) return false;
  OpenKeyScope printerKey(place, false);
  if (!IsPrinter(printerKey.Get())) return false;
  place.Key += u"\\PrinterDriverData";
  OpenKeyScope key(place, true);
  return key.Get() && WriteBytes(key.Get(), name, data, size, type) && together.Commit();
}

std::vector<std::u16string> EnumeratePrinters() {
  std::vector<std::u16string> names;
  for (const PrinterPlace& root : PrinterRoots()) {
    const KeyStoreTransaction together(root.Root, Purpose::kRead);
    for (const std::u16string& keyName : SubKeysOf(root)) {
      PrinterPlace place = root;
      place.Key += u"\\" + keyName;
      OpenKeyScope key(place, false);
      std::u16string name = key.Get() ? ReadText(key.Get(), u"Name") : std::u16string();
      if (!name.empty()) names.push_back(name);
    }
  }
  return names;
}

bool AddPrinter(const NewPrinter& printer) {
  PrinterPlace place;
  DriverRecord driver;
  if (printer.Name.size() > kLongestPrinterName || !PlaceOfPrinter(printer.Name.c_str(), &place) ||
      !ReadDriver(printer.DriverName, &driver))
    return false;
  // From the look whether there is one to the last value: another process may add the same.
  KeyStoreTransaction together(place.Root, Purpose::kWrite);
  if (!together.IsOpen() || !ClearForPrinter(place)) return false;
  OpenKeyScope scope(place, true);
  KeyHandle key = scope.Get();
  if (!key) return false;
  uint32_t attributes = place.Server.empty() ? kAttributeLocal : kAttributeNetwork;
  if (!printer.ShareName.empty()) attributes |= kAttributeShared;
  if (!driver.MonitorName.empty()) attributes |= kAttributeBidi;
  return WriteText(key, u"Share Name", printer.ShareName) &&
         WriteText(key, u"Port", printer.PortName) &&
         WriteText(key, u"Printer Driver", driver.Name) &&
         WriteText(key, u"Print Processor", u"winprint") && WriteText(key, u"Datatype", u"RAW") &&
         WriteBytes(key, u"Attributes", &attributes, sizeof attributes, kValueDword) &&
         WriteText(key, u"Name", printer.Name) && together.Commit();
}

bool DeletePrinter(const char16_t* name) {
  PrinterPlace place;
  if (!PlaceOfPrinter(name, &place)) return false;
  KeyStoreTransaction together(place.Root, Purpose::kWrite);
  if (!together.IsOpen()) return false;
  OpenKeyScope key(place, false);
  return IsPrinter(key.Get()) && DeleteTree(place) && together.Commit();
}

bool AddDriver(const DriverRecord& driver) { return WriteDriver(driver); }

std::u16string ComputerName() {
  char name[256] = {};
  if (gethostname(name, sizeof name - 1) != 0) return {};
  return FromUtf8(name);
}

}  // namespace ostvt::platform
