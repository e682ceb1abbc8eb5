#include "SpoolerInstall.h"

#include <windows.h>
#include <winspool.h>

namespace spooldemo {
namespace {

constexpr wchar_t kEnvironment[] = L"Windows x64";

std::wstring SystemFile(const wchar_t* name) {
  wchar_t directory[MAX_PATH] = {};
  GetSystemDirectoryW(directory, MAX_PATH);
  return std::wstring(directory) + L"\\" + name;
}

bool FileExists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

std::wstring DriverDirectory() {
  wchar_t directory[MAX_PATH] = {};
  DWORD needed = 0;
  if (!GetPrinterDriverDirectoryW(nullptr, const_cast<wchar_t*>(kEnvironment), 1,
                                  reinterpret_cast<BYTE*>(directory), sizeof(directory), &needed)) {
    return std::wstring();
  }
  return directory;
}

unsigned long InstallDriver(const std::wstring& sourceDirectory, const std::wstring& driverName) {
  std::wstring module = sourceDirectory + L"\\ostvt.dll";
  std::wstring dataFile = sourceDirectory + L"\\ostvt.dat";
  std::wstring renderingHalf = SystemFile(L"wineps.drv");
  std::wstring dependent;
  for (const wchar_t* name : {L"vt#base.ddz", L"vt#ost.ddz"}) {
    std::wstring path = sourceDirectory + L"\\" + name;
    if (!FileExists(path)) return ERROR_FILE_NOT_FOUND;
    dependent += path + L'\0';
  }
  // The driver works without these.
  for (const wchar_t* name : {L"Defaults.sds", L"ostenu.chm", L"ostdeu.chm"}) {
    std::wstring path = sourceDirectory + L"\\" + name;
    if (FileExists(path)) dependent += path + L'\0';
  }
  dependent += L'\0';

  DRIVER_INFO_6W driver = {};
  driver.cVersion = 3;
  driver.pName = const_cast<wchar_t*>(driverName.c_str());
  driver.pEnvironment = const_cast<wchar_t*>(kEnvironment);
  driver.pDriverPath = renderingHalf.data();
  driver.pDataFile = dataFile.data();
  driver.pConfigFile = module.data();
  driver.pDependentFiles = dependent.data();
  driver.pszMfgName = const_cast<wchar_t*>(L"Vantrel");
  driver.pszProvider = const_cast<wchar_t*>(L"Vantrel");
  constexpr DWORD kCopy = APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY;
  if (AddPrinterDriverExW(nullptr, 6, reinterpret_cast<BYTE*>(&driver), kCopy)) return 0;
  // A spooler that knows no level 6 takes the first fields of the record at level 3.
  if (AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), kCopy)) return 0;
  return GetLastError();
}

unsigned long RemoveDriver(const std::wstring& driverName) {
  if (DeletePrinterDriverExW(nullptr, const_cast<wchar_t*>(kEnvironment),
                             const_cast<wchar_t*>(driverName.c_str()), 0, 0)) {
    return 0;
  }
  return GetLastError();
}

unsigned long InstallPrinter(const std::wstring& printerName, const std::wstring& driverName,
                             const std::wstring& port) {
  PRINTER_INFO_2W printer = {};
  printer.pPrinterName = const_cast<wchar_t*>(printerName.c_str());
  printer.pDriverName = const_cast<wchar_t*>(driverName.c_str());
  printer.pPortName = const_cast<wchar_t*>(port.c_str());
  printer.pPrintProcessor = const_cast<wchar_t*>(L"winprint");
  printer.pDatatype = const_cast<wchar_t*>(L"RAW");
  HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
  if (!handle) return GetLastError();
  ClosePrinter(handle);
  return 0;
}

unsigned long RemovePrinter(const std::wstring& printerName) {
  PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  HANDLE handle = nullptr;
  if (!OpenPrinterW(const_cast<wchar_t*>(printerName.c_str()), &handle, &defaults)) {
    return GetLastError();
  }
  DWORD error = DeletePrinter(handle) ? 0 : GetLastError();
  ClosePrinter(handle);
  return error;
}

}  // namespace spooldemo
