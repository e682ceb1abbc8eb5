// Printers and their drivers, as the system's spooler records them.
//
// On Linux the printers are entries of the key store, in the registry's own layout:
// HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\NAME and
// ...\Print\Environments\Linux x64\Drivers\Version-3\DRIVER.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ostvt::platform {

// An open printer; null is none.
using PrinterHandle = void*;

inline constexpr uint32_t kPrinterAccessUse = 8;
inline constexpr uint32_t kPrinterAllAccess = 0xF000C;

// "" opens nothing. Null on failure. Close with ClosePrinter.
PrinterHandle OpenPrinter(const char16_t* name, uint32_t access);
void ClosePrinter(PrinterHandle printer);  // null is allowed

struct PrinterRecord {
  std::u16string Name;  // with "\\server\" in front where the printer is remote
  std::u16string ServerName;
  std::u16string ShareName;
  std::u16string PortName;
  std::u16string DriverName;
  std::u16string Comment;
  std::u16string Location;
  std::u16string SepFile;
  std::u16string PrintProcessor;
  std::u16string Datatype;
  std::u16string Parameters;
  uint32_t Attributes = 0;
  // The stored default device mode, whole as stored; empty when there is none. Its header fields
  // are not checked against the length.
  std::vector<uint8_t> DevMode;
};

struct DriverRecord {
  uint32_t Version = 0;
  std::u16string Name;
  std::u16string Environment;
  // Full paths, as the spooler gives them.
  std::u16string DriverPath;
  std::u16string DataFile;
  std::u16string ConfigFile;
  std::u16string HelpFile;
  std::vector<std::u16string> DependentFiles;
  std::u16string MonitorName;
  std::u16string DefaultDataType;
  // From level 6 only; empty otherwise.
  std::u16string MfgName;
  std::u16string HardwareId;
  std::u16string Provider;
};

// False, as for a null printer, leaves the record empty. The driver is asked at level 6, then 3.
bool GetPrinterRecord(PrinterHandle printer, PrinterRecord* record);
bool GetDriverRecord(PrinterHandle printer, DriverRecord* record);

// Replaces the printer's default device mode and keeps the rest of its record. False when the
// block's own header names more than `size` bytes, or the printer was opened for use only.
bool SetPrinterDevMode(PrinterHandle printer, const void* devMode, uint32_t size);
bool SetPrinterData(PrinterHandle printer, const char16_t* name, uint32_t type, const void* data,
                    uint32_t size);

// Names of the printers of this machine and of its connections.
std::vector<std::u16string> EnumeratePrinters();

struct NewPrinter {
  std::u16string Name;
  std::u16string DriverName;
  std::u16string PortName;
  std::u16string ShareName;
};
// Adds a printer to the list. The driver must be known to the spooler. False if it is not, if the
// name is empty or has more than 220 units, or if there is such a printer already. On Linux
// whatever lies at the printer's place without being a printer is removed.
bool AddPrinter(const NewPrinter& printer);
// On Linux the printer goes with all that lies below it, or stays as it was.
bool DeletePrinter(const char16_t* name);
// Makes a driver known (or changes its record). False on an empty name or path.
bool AddDriver(const DriverRecord& driver);

// This computer's own name.
std::u16string ComputerName();

}  // namespace ostvt::platform
