#include "platform/Spooler.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/windows/Winspool.h"

namespace ostvt::platform {
namespace {

// A record that grows between asking for its size and fetching it is asked for again so often.
constexpr int kTries = 4;
// No record or list is as long as this; a spooler that asks for more is not obeyed.
constexpr DWORD kLongestBlock = 1 << 20;
// Most records fit this, so that one call gets them; a spooler call is a trip to another process.
constexpr DWORD kUsualBlock = 8192;

wchar_t* Mutable(const char16_t* text) { return const_cast<wchar_t*>(AsWide(text)); }

// What one call of the spooler filled: a record, and behind it what its pointers lead to.
class SpoolerBlock {
 public:
  // `get(buffer, size, needed)` is the call. False leaves the block empty.
  template <typename Get>
  bool Fill(Get get) {
    Bytes.assign(kUsualBlock, 0);
    for (int i = 0; i < kTries; i++) {
      DWORD needed = 0;
      if (get(Bytes.data(), static_cast<DWORD>(Bytes.size()), &needed)) {
        // What lies behind the record is none of it; pointers into the block stay good.
        if (needed < Bytes.size()) Bytes.resize(needed);
        return needed > 0;
      }
      if (needed <= Bytes.size() || needed > kLongestBlock ||
          GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        break;
      Bytes.assign(needed, 0);
    }
    Bytes.clear();
    return false;
  }

  // Null when the block is shorter than the record.
  template <typename Record>
  const Record* As() const {
    return Bytes.size() >= sizeof(Record) ? reinterpret_cast<const Record*>(Bytes.data()) : nullptr;
  }

  // Bytes from `place` to the block's end; 0 when it doesn't lie in the block.
  size_t RoomAt(const void* place) const {
    auto* byte = static_cast<const uint8_t*>(place);
    if (!byte || byte < Bytes.data() || byte >= Bytes.data() + Bytes.size()) return 0;
    return static_cast<size_t>(Bytes.data() + Bytes.size() - byte);
  }

  std::u16string Text(const wchar_t* text) const {
    size_t units = RoomAt(text) / sizeof(wchar_t);
    size_t length = 0;
    while (length < units && text[length]) length++;
    return length ? std::u16string(AsUnits(text), length) : std::u16string();
  }

  std::vector<std::u16string> Texts(const wchar_t* list) const {
    std::vector<std::u16string> texts;
    while (RoomAt(list) >= sizeof(wchar_t) && *list) {
      texts.push_back(Text(list));
      list += texts.back().size() + 1;
    }
    return texts;
  }

  std::vector<uint8_t> DevModeAt(const DEVMODEW* devMode) const {
    size_t room = RoomAt(devMode);
    if (room < offsetof(DEVMODEW, dmFields)) return {};
    size_t size = static_cast<size_t>(devMode->dmSize) + devMode->dmDriverExtra;
    size = std::min(size, room);
    auto* bytes = reinterpret_cast<const uint8_t*>(devMode);
    return {bytes, bytes + size};
  }

 private:
  std::vector<uint8_t> Bytes;
};

bool FillPrinter(PrinterHandle printer, SpoolerBlock* block) {
  return printer && block->Fill([&](uint8_t* buffer, DWORD size, DWORD* needed) {
    return GetPrinterW(printer, 2, buffer, size, needed);
  });
}

bool FillDriver(PrinterHandle printer, DWORD level, SpoolerBlock* block) {
  return block->Fill([&](uint8_t* buffer, DWORD size, DWORD* needed) {
    return GetPrinterDriverW(printer, nullptr, level, buffer, size, needed);
  });
}

// Levels 3 and 6 begin alike.
template <typename Info>
void CopyDriver(const SpoolerBlock& block, const Info& info, DriverRecord* record) {
  record->Version = info.cVersion;
  record->Name = block.Text(info.pName);
  record->Environment = block.Text(info.pEnvironment);
  record->DriverPath = block.Text(info.pDriverPath);
  record->DataFile = block.Text(info.pDataFile);
  record->ConfigFile = block.Text(info.pConfigFile);
  record->HelpFile = block.Text(info.pHelpFile);
  record->DependentFiles = block.Texts(info.pDependentFiles);
  record->MonitorName = block.Text(info.pMonitorName);
  record->DefaultDataType = block.Text(info.pDefaultDataType);
}

}  // namespace

PrinterHandle OpenPrinter(const char16_t* name, uint32_t access) {
  // The spooler takes an empty name for the print server itself.
  if (!name || !*name) return nullptr;
  PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
  HANDLE printer = nullptr;
  return OpenPrinterW(Mutable(name), &printer, &defaults) ? printer : nullptr;
}

void ClosePrinter(PrinterHandle printer) {
  if (printer) ::ClosePrinter(printer);
}

bool GetPrinterRecord(PrinterHandle printer, PrinterRecord* record) {
  *record = {};
  SpoolerBlock block;
  if (!FillPrinter(printer, &block)) return false;
  auto* info = block.As<PRINTER_INFO_2W>();
  if (!info) return false;
  record->Name = block.Text(info->pPrinterName);
  record->ServerName = block.Text(info->pServerName);
  record->ShareName = block.Text(info->pShareName);
  record->PortName = block.Text(info->pPortName);
  record->DriverName = block.Text(info->pDriverName);
  record->Comment = block.Text(info->pComment);
  record->Location = block.Text(info->pLocation);
  record->SepFile = block.Text(info->pSepFile);
  record->PrintProcessor = block.Text(info->pPrintProcessor);
  record->Datatype = block.Text(info->pDatatype);
  record->Parameters = block.Text(info->pParameters);
  record->Attributes = info->Attributes;
  record->DevMode = block.DevModeAt(info->pDevMode);
  return true;
}

bool GetDriverRecord(PrinterHandle printer, DriverRecord* record) {
  *record = {};
  if (!printer) return false;
  SpoolerBlock block;
  if (FillDriver(printer, 6, &block)) {
    auto* info = block.As<DRIVER_INFO_6W>();
    if (!info) return false;
    CopyDriver(block, *info, record);
    record->MfgName = block.Text(info->pszMfgName);
    record->HardwareId = block.Text(info->pszHardwareID);
    record->Provider = block.Text(info->pszProvider);
    return true;
  }
  if (!FillDriver(printer, 3, &block)) return false;
  auto* info = block.As<DRIVER_INFO_3W>();
  if (!info) return false;
  CopyDriver(block, *info, record);
  return true;
}

bool SetPrinterDevMode(PrinterHandle printer, const void* devMode, uint32_t size) {
  if (!devMode || size < offsetof(DEVMODEW, dmFields)) return false;
  std::vector<uint8_t> copy(static_cast<const uint8_t*>(devMode),
                            static_cast<const uint8_t*>(devMode) + size);
  auto* header = reinterpret_cast<DEVMODEW*>(copy.data());
  // The spooler copies as much as the header names.
  if (static_cast<uint32_t>(header->dmSize) + header->dmDriverExtra > size) return false;
  SpoolerBlock block;
  if (!FillPrinter(printer, &block)) return false;
  auto* stored = block.As<PRINTER_INFO_2W>();
  if (!stored) return false;
  PRINTER_INFO_2W info = *stored;
  info.pDevMode = header;
  info.pSecurityDescriptor = nullptr;  // stays as it is
  return SetPrinterW(printer, 2, reinterpret_cast<BYTE*>(&info), 0);
}

bool SetPrinterData(PrinterHandle printer, const char16_t* name, uint32_t type, const void* data,
                    uint32_t size) {
  if (!printer || !name || (!data && size > 0)) return false;
  return SetPrinterDataW(printer, Mutable(name), type, static_cast<BYTE*>(const_cast<void*>(data)),
                         size) == ERROR_SUCCESS;
}

std::vector<std::u16string> EnumeratePrinters() {
  std::vector<std::u16string> names;
  SpoolerBlock block;
  DWORD count = 0;
  bool filled = block.Fill([&](uint8_t* buffer, DWORD size, DWORD* needed) {
    return EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, buffer, size,
                         needed, &count);
  });
  auto* list = filled ? block.As<PRINTER_INFO_4W>() : nullptr;
  if (!list) return names;
  count = std::min<DWORD>(count, static_cast<DWORD>(block.RoomAt(list) / sizeof(PRINTER_INFO_4W)));
  for (DWORD i = 0; i < count; i++) {
    std::u16string name = block.Text(list[i].pPrinterName);
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

bool AddPrinter(const NewPrinter& printer) {
  constexpr size_t kLongestName = 220;
  if (printer.Name.empty() || printer.Name.size() > kLongestName || printer.DriverName.empty())
    return false;
  // Not every spooler refuses a second printer of the name.
  if (PrinterHandle existing = OpenPrinter(printer.Name.c_str(), kPrinterAccessUse)) {
    ClosePrinter(existing);
    return false;
  }
  PRINTER_INFO_2W info = {};
  info.pPrinterName = Mutable(printer.Name.c_str());
  info.pDriverName = Mutable(printer.DriverName.c_str());
  info.pPortName = Mutable(printer.PortName.c_str());
  info.pShareName = Mutable(printer.ShareName.c_str());
  info.pPrintProcessor = const_cast<wchar_t*>(L"winprint");
  info.pDatatype = const_cast<wchar_t*>(L"RAW");
  if (!printer.ShareName.empty()) info.Attributes = PRINTER_ATTRIBUTE_SHARED;
  HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
  ClosePrinter(handle);
  return handle != nullptr;
}

bool DeletePrinter(const char16_t* name) {
  PrinterHandle printer = OpenPrinter(name, kPrinterAllAccess);
  if (!printer) return false;
  bool deleted = ::DeletePrinter(printer);
  ClosePrinter(printer);
  return deleted;
}

bool AddDriver(const DriverRecord& driver) {
  if (driver.Name.empty() || driver.DriverPath.empty()) return false;
  std::u16string dependentFiles;
  for (const std::u16string& file : driver.DependentFiles) {
    if (!file.empty()) dependentFiles += file + u'\0';
  }
  dependentFiles += u'\0';
  DRIVER_INFO_6W info = {};
  info.cVersion = driver.Version ? driver.Version : 3;
  info.pName = Mutable(driver.Name.c_str());
  info.pEnvironment = driver.Environment.empty() ? nullptr : Mutable(driver.Environment.c_str());
  info.pDriverPath = Mutable(driver.DriverPath.c_str());
  info.pDataFile = Mutable(driver.DataFile.c_str());
  info.pConfigFile = Mutable(driver.ConfigFile.c_str());
  info.pHelpFile = Mutable(driver.HelpFile.c_str());
  info.pDependentFiles = Mutable(dependentFiles.c_str());
  info.pMonitorName = driver.MonitorName.empty() ? nullptr : Mutable(driver.MonitorName.c_str());
  info.pDefaultDataType = Mutable(driver.DefaultDataType.c_str());
  info.pszMfgName = Mutable(driver.MfgName.c_str());
  info.pszHardwareID = Mutable(driver.HardwareId.c_str());
  info.pszProvider = Mutable(driver.Provider.c_str());
  constexpr DWORD kFlags = APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY;
  auto* bytes = reinterpret_cast<BYTE*>(&info);
  // A record of level 3 is the beginning of one of level 6.
  static_assert(offsetof(DRIVER_INFO_6W, ftDriverDate) >=
                offsetof(DRIVER_INFO_3W, pDefaultDataType));
  return AddPrinterDriverExW(nullptr, 6, bytes, kFlags) ||
         AddPrinterDriverExW(nullptr, 3, bytes, kFlags);
}

std::u16string ComputerName() {
  char16_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD units = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(AsWide(name), &units) ? std::u16string(name) : std::u16string();
}

}  // namespace ostvt::platform
