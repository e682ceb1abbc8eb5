// An ordinary print client: installs the driver and a printer, and shows what the spooler's calls
// answer for it, as a program with a print dialog would ask them.

#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <string>
#include <vector>

#include "SpoolerInstall.h"

namespace {

std::string ToUtf8(const std::wstring& text) {
  int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return std::string();
  std::string bytes(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes.data(), size, nullptr, nullptr);
  bytes.pop_back();
  return bytes;
}

int Fail(const char* what, unsigned long error) {
  std::fprintf(stderr, "spooldemo: %s: error %lu\n", what, error);
  return 1;
}

struct Capability {
  WORD Index;
  const char* Name;
};
constexpr Capability kCapabilities[] = {
    {DC_FIELDS, "fields"},
    {DC_PAPERS, "papers"},
    {DC_PAPERSIZE, "paper sizes"},
    {DC_MINEXTENT, "smallest label"},
    {DC_MAXEXTENT, "largest label"},
    {DC_BINS, "bins"},
    {DC_DUPLEX, "duplex"},
    {DC_SIZE, "public device mode"},
    {DC_EXTRA, "private device mode"},
    {DC_VERSION, "device mode version"},
    {DC_DRIVER, "driver version"},
    {DC_BINNAMES, "bin names"},
    {DC_ENUMRESOLUTIONS, "resolutions"},
    {DC_FILEDEPENDENCIES, "dependent files"},
    {DC_TRUETYPE, "TrueType"},
    {DC_PAPERNAMES, "paper names"},
    {DC_ORIENTATION, "landscape angle"},
    {DC_COPIES, "copies"},
    {DC_BINADJUST, "bin adjust"},
    {DC_EMF_COMPLIANT, "EMF"},
    {DC_COLLATE, "collate"},
    {DC_PERSONALITY, "personality"},
    {DC_STAPLE, "staple"},
    {DC_COLORDEVICE, "colour"},
    {DC_NUP, "pages per sheet"},
};

// Entry `index` of a list of fixed slots; a name that fills its slot has no terminator.
std::string SlotName(const std::vector<BYTE>& output, size_t index, size_t units) {
  const wchar_t* slot = reinterpret_cast<const wchar_t*>(output.data()) + index * units;
  size_t length = 0;
  while (length < units && slot[length]) ++length;
  return ToUtf8(std::wstring(slot, length));
}

std::string DescribeAnswer(WORD index, int answer, const std::vector<BYTE>& output) {
  char text[64];
  std::string all;
  auto add = [&all](const std::string& part) { all += (all.empty() ? "" : ", ") + part; };
  switch (index) {
    case DC_MINEXTENT:
    case DC_MAXEXTENT:
      std::snprintf(text, sizeof(text), "%.1f x %.1f mm", LOWORD(answer) / 10.0,
                    HIWORD(answer) / 10.0);
      return text;
    case DC_FIELDS:
      std::snprintf(text, sizeof(text), "0x%X", static_cast<unsigned>(answer));
      return text;
    case DC_PAPERS:
    case DC_BINS:
      for (int i = 0; i < answer; ++i) {
        add(std::to_string(reinterpret_cast<const WORD*>(output.data())[i]));
      }
      return all;
    case DC_PAPERSIZE:
      for (int i = 0; i < answer; ++i) {
        const POINT& size = reinterpret_cast<const POINT*>(output.data())[i];
        std::snprintf(text, sizeof(text), "%.1f x %.1f mm", static_cast<double>(size.x) / 10.0,
                      static_cast<double>(size.y) / 10.0);
        add(text);
      }
      return all;
    case DC_ENUMRESOLUTIONS:
      for (int i = 0; i < answer; ++i) {
        const LONG* pair = reinterpret_cast<const LONG*>(output.data()) + 2 * i;
        std::snprintf(text, sizeof(text), "%ld x %ld dpi", pair[0], pair[1]);
        add(text);
      }
      return all;
    case DC_BINNAMES:
      for (int i = 0; i < answer; ++i) add(SlotName(output, static_cast<size_t>(i), 24));
      return all;
    case DC_PERSONALITY:
      for (int i = 0; i < answer; ++i) add(SlotName(output, static_cast<size_t>(i), 32));
      return all;
    case DC_PAPERNAMES:
    case DC_FILEDEPENDENCIES:
      for (int i = 0; i < answer; ++i) add(SlotName(output, static_cast<size_t>(i), 64));
      return all;
    default:
      return std::string();
  }
}

// Bytes that one entry of a list answer takes; 0 for an answer that is a number only.
size_t EntrySize(WORD index) {
  switch (index) {
    case DC_PAPERS:
    case DC_BINS:
      return sizeof(WORD);
    case DC_PAPERSIZE:
    case DC_ENUMRESOLUTIONS:
      return sizeof(POINT);
    case DC_BINNAMES:
      return 24 * sizeof(wchar_t);
    case DC_PERSONALITY:
      return 32 * sizeof(wchar_t);
    case DC_PAPERNAMES:
    case DC_FILEDEPENDENCIES:
      return 64 * sizeof(wchar_t);
    case DC_NUP:
      return sizeof(DWORD);
    default:
      return 0;
  }
}

void ShowCapabilities(const std::wstring& printer, const std::wstring& port) {
  std::printf("  %-3s %-20s %10s  %s\n", "DC", "capability", "answer", "");
  for (const Capability& capability : kCapabilities) {
    int answer = static_cast<int>(
        DeviceCapabilitiesW(printer.c_str(), port.c_str(), capability.Index, nullptr, nullptr));
    std::vector<BYTE> output;
    size_t entry = EntrySize(capability.Index);
    if (entry && answer > 0) {
      output.resize(entry * static_cast<size_t>(answer));
      answer =
          static_cast<int>(DeviceCapabilitiesW(printer.c_str(), port.c_str(), capability.Index,
                                               reinterpret_cast<wchar_t*>(output.data()), nullptr));
    }
    std::printf("  %-3u %-20s %10d  %s\n", capability.Index, capability.Name, answer,
                DescribeAnswer(capability.Index, answer, output).c_str());
  }
}

int ShowDevMode(const std::wstring& printer, HANDLE handle) {
  wchar_t* name = const_cast<wchar_t*>(printer.c_str());
  LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
  if (size <= 0) return Fail("DocumentProperties has no size", GetLastError());
  std::vector<BYTE> block(static_cast<size_t>(size));
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(block.data());
  if (DocumentPropertiesW(nullptr, handle, name, mode, nullptr, DM_OUT_BUFFER) != IDOK) {
    return Fail("DocumentProperties gives no device mode", GetLastError());
  }
  std::printf("\n  Device mode: %ld bytes (public %u, private %u)\n", size, mode->dmSize,
              mode->dmDriverExtra);
  std::printf("  device       %s\n", ToUtf8(mode->dmDeviceName).c_str());
  std::printf("  fields       0x%08lX\n", mode->dmFields);
  std::printf("  paper        %d, %.1f x %.1f mm %s\n", mode->dmPaperSize,
              mode->dmPaperWidth / 10.0, mode->dmPaperLength / 10.0,
              ToUtf8(mode->dmFormName).c_str());
  std::printf("  orientation  %s\n",
              mode->dmOrientation == DMORIENT_LANDSCAPE ? "landscape" : "portrait");
  std::printf("  resolution   %d x %d dpi\n", mode->dmPrintQuality, mode->dmYResolution);
  std::printf("  copies       %d\n", mode->dmCopies);
  std::printf("  colour       %s\n", mode->dmColor == DMCOLOR_COLOR ? "colour" : "monochrome");

  // A careless caller's wishes come back as what the printer can do.
  mode->dmFields |= DM_COPIES | DM_ORIENTATION | DM_PRINTQUALITY;
  mode->dmCopies = 3;
  mode->dmOrientation = DMORIENT_LANDSCAPE;
  mode->dmPrintQuality = 1200;
  mode->dmScale = 250;
  std::vector<BYTE> validated(static_cast<size_t>(size));
  DEVMODEW* answer = reinterpret_cast<DEVMODEW*>(validated.data());
  if (DocumentPropertiesW(nullptr, handle, name, answer, mode, DM_IN_BUFFER | DM_OUT_BUFFER) !=
      IDOK) {
    return Fail("DocumentProperties validates nothing", GetLastError());
  }
  std::printf(
      "\n  Asked for 3 copies, landscape, 1200 dpi, scale 250: got %d copies, %s, %d dpi, scale "
      "%d\n",
      answer->dmCopies, answer->dmOrientation == DMORIENT_LANDSCAPE ? "landscape" : "portrait",
      answer->dmPrintQuality, answer->dmScale);
  return 0;
}

int Show(const std::wstring& printer) {
  HANDLE handle = nullptr;
  if (!OpenPrinterW(const_cast<wchar_t*>(printer.c_str()), &handle, nullptr)) {
    return Fail(("no printer named \"" + ToUtf8(printer) + "\"").c_str(), GetLastError());
  }
  DWORD needed = 0;
  GetPrinterW(handle, 2, nullptr, 0, &needed);
  std::vector<BYTE> record(needed);
  std::wstring port;
  if (needed && GetPrinterW(handle, 2, record.data(), needed, &needed)) {
    const PRINTER_INFO_2W* info = reinterpret_cast<const PRINTER_INFO_2W*>(record.data());
    port = info->pPortName;
    std::printf("  driver \"%s\", port %s\n\n", ToUtf8(info->pDriverName).c_str(),
                ToUtf8(port).c_str());
  }
  ShowCapabilities(printer, port);
  int result = ShowDevMode(printer, handle);
  ClosePrinter(handle);
  return result;
}

int Preferences(const std::wstring& printer) {
  wchar_t* name = const_cast<wchar_t*>(printer.c_str());
  HANDLE handle = nullptr;
  if (!OpenPrinterW(name, &handle, nullptr)) {
    return Fail(("no printer named \"" + ToUtf8(printer) + "\"").c_str(), GetLastError());
  }
  LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
  std::vector<BYTE> block(size > 0 ? static_cast<size_t>(size) : sizeof(DEVMODEW));
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(block.data());
  LONG result =
      DocumentPropertiesW(nullptr, handle, name, mode, nullptr, DM_IN_PROMPT | DM_OUT_BUFFER);
  ClosePrinter(handle);
  if (result < 0) return Fail("the preferences could not be shown", GetLastError());
  if (result == IDOK) {
    std::printf("  Chosen: %s, %s\n", ToUtf8(mode->dmFormName).c_str(),
                mode->dmOrientation == DMORIENT_LANDSCAPE ? "landscape" : "portrait");
  }
  return 0;
}

int Install(const std::wstring& directory, const std::wstring& driver,
            const std::wstring& printer) {
  wchar_t full[MAX_PATH] = {};
  GetFullPathNameW(directory.c_str(), MAX_PATH, full, nullptr);
  if (unsigned long error = spooldemo::InstallDriver(full, driver)) {
    return Fail("the driver could not be installed", error);
  }
  spooldemo::RemovePrinter(printer);
  if (unsigned long error = spooldemo::InstallPrinter(printer, driver, L"FILE:")) {
    return Fail("the printer could not be added", error);
  }
  // Wine's spooler tells the driver nothing of a new printer, as the system's does.
  const std::wstring module = spooldemo::DriverDirectory() + L"\\3\\ostvt.dll";
  using PrinterEvent = BOOL(WINAPI*)(const wchar_t*, int, DWORD, LPARAM);
  HMODULE library = LoadLibraryW(module.c_str());
  auto event = reinterpret_cast<PrinterEvent>(
      reinterpret_cast<void*>(library ? GetProcAddress(library, "DrvPrinterEvent") : nullptr));
  constexpr int kCreated = 3;
  if (!event || !event(printer.c_str(), kCreated, 0, 0)) {
    return Fail("the driver did not take the printer", GetLastError());
  }
  FreeLibrary(library);
  std::printf("  installed \"%s\" with driver \"%s\" in %s\n", ToUtf8(printer).c_str(),
              ToUtf8(driver).c_str(), ToUtf8(spooldemo::DriverDirectory()).c_str());
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  SetConsoleOutputCP(CP_UTF8);
  std::wstring command = count > 1 ? arguments[1] : L"";
  if (command == L"install" && count == 5) return Install(arguments[2], arguments[3], arguments[4]);
  if (command == L"show" && count == 3) return Show(arguments[2]);
  if (command == L"preferences" && count == 3) return Preferences(arguments[2]);
  if (command == L"remove" && count == 3) {
    unsigned long error = spooldemo::RemovePrinter(arguments[2]);
    return error ? Fail("the printer could not be removed", error) : 0;
  }
  std::fprintf(stderr,
               "Usage: spooldemo install DIRECTORY DRIVER PRINTER\n"
               "       spooldemo show PRINTER\n"
               "       spooldemo preferences PRINTER\n"
               "       spooldemo remove PRINTER\n");
  return 2;
}
