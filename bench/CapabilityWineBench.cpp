// What a warm capability call costs beside the platform calls that it must make, each made once,
// and what loading costs beside the system's own PostScript driver. Prints a table.
//
//   CapabilityWineBench MODULE PRINTER           the table
//   CapabilityWineBench first MODULE PRINTER     one number: the first call of this process
//   CapabilityWineBench floor MODULE PRINTER     one number: what a first call can't do without

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using CapabilitiesCall = DWORD(WINAPI*)(HANDLE, const wchar_t*, WORD, void*, DEVMODEW*);

double Microseconds() {
  LARGE_INTEGER now;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

// The median of `rounds` single runs: a spooler call now and then waits for something else.
template <typename Work>
double MedianOf(int rounds, Work work) {
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i) {
    double start = Microseconds();
    work();
    times.push_back(Microseconds() - start);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// The calls that any answer needs: who the printer is, which driver it has, whether its settings
// are shadowed, and whether the records in memory are still current.
void PlatformCalls(const wchar_t* printer) {
  HANDLE handle = nullptr;
  PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ACCESS_USE};
  if (!OpenPrinterW(const_cast<wchar_t*>(printer), &handle, &defaults)) return;
  DWORD needed = 0;
  static BYTE record[8192];
  GetPrinterW(handle, 2, record, sizeof(record), &needed);
  GetPrinterDriverW(handle, nullptr, 6, record, sizeof(record), &needed);
  ClosePrinter(handle);
  wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1];
  DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
  GetComputerNameW(computer, &length);

  auto read = [](HKEY hive, const std::wstring& path, const wchar_t* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(hive, path.c_str(), 0, 0x2001F, &key) != ERROR_SUCCESS &&
        RegOpenKeyExW(hive, path.c_str(), 0, 0x20019, &key) != ERROR_SUCCESS) {
      return;
    }
    BYTE data[8192];
    DWORD size = sizeof(data);
    DWORD type = 0;
    RegQueryValueExW(key, name, nullptr, &type, data, &size);
    RegCloseKey(key);
  };
  read(HKEY_LOCAL_MACHINE, std::wstring(L"SOFTWARE\\Vantrel\\Drivers\\Printers\\") + printer,
       L"Shadow");
  read(HKEY_LOCAL_MACHINE,
       std::wstring(L"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\") + printer +
           L"\\PrinterDriverData\\Model",
       L"Synchronization");
}

double LoadTime(const wchar_t* path, int rounds) {
  return MedianOf(rounds, [path] {
    HMODULE module = LoadLibraryW(path);
    if (module) FreeLibrary(module);
  });
}

double FileKilobytes(const wchar_t* path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  GetFileAttributesExW(path, GetFileExInfoStandard, &data);
  return static_cast<double>(data.nFileSizeLow) / 1024.0;
}

// The first call of a process: load the module and ask once.
double FirstCall(const wchar_t* path, const wchar_t* printer) {
  double start = Microseconds();
  HMODULE module = LoadLibraryW(path);
  if (!module) return 0;
  auto ask = reinterpret_cast<CapabilitiesCall>(
      reinterpret_cast<void*>(GetProcAddress(module, "DrvDeviceCapabilities")));
  if (ask) ask(nullptr, printer, DC_COPIES, nullptr, nullptr);
  return Microseconds() - start;
}

void ReadWhole(const std::wstring& path) {
  static BYTE content[65536];
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  DWORD done = 0;
  ReadFile(file, content, sizeof(content), &done, nullptr);
  CloseHandle(file);
}

// The same without the module's own work: it is loaded, the platform is asked, the archives are
// read.
double FirstFloor(const wchar_t* path, const wchar_t* printer) {
  const std::wstring module = path;
  const std::wstring directory = module.substr(0, module.find_last_of(L'\\') + 1);
  double start = Microseconds();
  if (!LoadLibraryW(path)) return 0;
  PlatformCalls(printer);
  ReadWhole(directory + L"vt#base.ddz");
  ReadWhole(directory + L"vt#ost.ddz");
  return Microseconds() - start;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count == 4 && std::wstring(arguments[1]) == L"first") {
    std::printf("%.0f\n", FirstCall(arguments[2], arguments[3]));
    return 0;
  }
  if (count == 4 && std::wstring(arguments[1]) == L"floor") {
    std::printf("%.0f\n", FirstFloor(arguments[2], arguments[3]));
    return 0;
  }
  if (count != 3) {
    std::fprintf(stderr, "Usage: CapabilityWineBench [first|floor] MODULE PRINTER\n");
    return 2;
  }
  const wchar_t* path = arguments[1];
  const wchar_t* printer = arguments[2];
  // The driver was installed with the system's PostScript driver as its rendering half.
  wchar_t postScript[MAX_PATH];
  wcscpy(postScript, path);
  wchar_t* name = wcsrchr(postScript, L'\\');
  wcscpy(name ? name + 1 : postScript, L"wineps.drv");

  HMODULE module = LoadLibraryW(path);
  if (!module) {
    std::fprintf(stderr, "CapabilityWineBench: the module does not load\n");
    return 1;
  }
  auto ask = reinterpret_cast<CapabilitiesCall>(
      reinterpret_cast<void*>(GetProcAddress(module, "DrvDeviceCapabilities")));
  if (!ask) return 1;
  constexpr int kRounds = 400;
  double platform = MedianOf(kRounds, [printer] { PlatformCalls(printer); });
  double whole = MedianOf(kRounds, [&] { ask(nullptr, printer, DC_COPIES, nullptr, nullptr); });
  std::printf("%-44s %12.1f us\n", "platform calls that an answer needs", platform);
  std::printf("%-44s %12.1f us   %.2f times, limit 1.25\n", "warm capability call", whole,
              whole / platform);
  // Both references go, so that each round of the next measure really loads.
  while (GetModuleHandleW(path)) FreeLibrary(module);
  while (HMODULE other = GetModuleHandleW(postScript)) FreeLibrary(other);

  double ours = LoadTime(path, kRounds);
  double theirs = LoadTime(postScript, kRounds);
  std::printf("%-44s %12.1f us   %.2f times the system's, limit 1\n", "load and unload, ours", ours,
              ours / theirs);
  std::printf("%-44s %12.1f us\n", "load and unload, system's PostScript driver", theirs);
  std::printf("%-44s %12.0f KB   limit 1536 KB\n", "size of the file, ours", FileKilobytes(path));
  std::printf("%-44s %12.0f KB\n", "size of the file, system's", FileKilobytes(postScript));
  return 0;
}
