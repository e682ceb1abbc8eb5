// Puts the driver and a printer into the system's spooler with the ordinary calls, and takes them
// out again. Each gives 0 or the system's error number.
#pragma once

#include <string>

namespace spooldemo {

// `sourceDirectory` holds ostvt.dll, ostvt.dat and the archives. The rendering half is the
// system's PostScript driver, the configuration half is ours.
unsigned long InstallDriver(const std::wstring& sourceDirectory, const std::wstring& driverName);
unsigned long RemoveDriver(const std::wstring& driverName);
unsigned long InstallPrinter(const std::wstring& printerName, const std::wstring& driverName,
                             const std::wstring& port);
unsigned long RemovePrinter(const std::wstring& printerName);

// The spooler's directory for 64-bit drivers, without a separator behind it; empty on failure.
std::wstring DriverDirectory();

}  // namespace spooldemo
