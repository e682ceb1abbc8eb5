#include "HostEnvironment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "SpoolerInstall.h"

namespace host {
namespace {

class InstalledDriver : public testing::Environment {
 public:
  void SetUp() override {
    const wchar_t* files = _wgetenv(L"OSTVT_TEST_FILES");
    ASSERT_NE(files, nullptr) << "OSTVT_TEST_FILES names no directory";
    std::wstring source = std::wstring(files) + L"\\windows";
    ASSERT_EQ(spooldemo::InstallDriver(source, kDriverName), 0u);
    ASSERT_EQ(spooldemo::InstallDriver(source, L"Ostrel C4 Colour"), 0u);
  }
  void TearDown() override {
    spooldemo::RemoveDriver(kDriverName);
    spooldemo::RemoveDriver(L"Ostrel C4 Colour");
  }
};

const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new InstalledDriver);

void CollectValues(HKEY parent, const std::wstring& path, std::vector<StoredValue>* values) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  values->push_back({path, L"", REG_NONE, {}});
  for (DWORD index = 0;; ++index) {
    wchar_t name[1024];
    DWORD nameLength = 1024;
    std::vector<BYTE> data(65536);
    DWORD size = static_cast<DWORD>(data.size());
    DWORD type = 0;
    LONG result = RegEnumValueW(key, index, name, &nameLength, nullptr, &type, data.data(), &size);
    if (result != ERROR_SUCCESS) break;
    data.resize(size);
    values->push_back({path, name, type, data});
  }
  for (DWORD index = 0;; ++index) {
    wchar_t name[300];
    if (RegEnumKeyW(key, index, name, 300) != ERROR_SUCCESS) break;
    CollectValues(parent, path + L"\\" + name, values);
  }
  RegCloseKey(key);
}

std::string Narrowed(const std::wstring& text) {
  std::string bytes;
  char unit[8];
  for (wchar_t c : text) {
    std::snprintf(unit, sizeof(unit), c < 0x7F ? "%c" : "\\u%04x", c);
    bytes += unit;
  }
  return bytes;
}

}  // namespace

HostPrinter::HostPrinter(const std::wstring& name, const std::wstring& driver) : PrinterName(name) {
  spooldemo::RemovePrinter(name);
  unsigned long error = spooldemo::InstallPrinter(name, driver, L"FILE:");
  if (error) {
    std::fprintf(stderr, "AddPrinter failed: %lu\n", error);
    return;
  }
  PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  OpenPrinterW(PrinterName.data(), &Handle, &defaults);
}

HostPrinter::~HostPrinter() {
  if (Handle) ClosePrinter(Handle);
  spooldemo::RemovePrinter(PrinterName);
}

GuardedBlock::GuardedBlock(size_t size, BYTE fill) : Bytes(size + 2 * kGuard, 0xCC) {
  std::fill(Bytes.begin() + kGuard, Bytes.end() - kGuard, fill);
}

bool GuardedBlock::GuardsAreWhole() const {
  auto whole = [](BYTE byte) { return byte == 0xCC; };
  return std::all_of(Bytes.begin(), Bytes.begin() + kGuard, whole) &&
         std::all_of(Bytes.end() - kGuard, Bytes.end(), whole);
}

std::vector<BYTE> GuardedBlock::Copy() const {
  return std::vector<BYTE>(Bytes.begin() + kGuard, Bytes.end() - kGuard);
}

int Capability(const std::wstring& printer, WORD index, void* output, const DEVMODEW* mode) {
  return static_cast<int>(
      DeviceCapabilitiesW(printer.c_str(), L"FILE:", index, static_cast<wchar_t*>(output), mode));
}

LONG Properties(HostPrinter& printer, DEVMODEW* output, const DEVMODEW* input, DWORD flags) {
  return DocumentPropertiesW(nullptr, printer.Get(), const_cast<wchar_t*>(printer.Name().c_str()),
                             output, const_cast<DEVMODEW*>(input), flags);
}

std::vector<BYTE> DefaultDevMode(HostPrinter& printer) {
  std::vector<BYTE> block(kDevModeSize);
  EXPECT_EQ(Properties(printer, reinterpret_cast<DEVMODEW*>(block.data()), nullptr, DM_OUT_BUFFER),
            IDOK);
  return block;
}

std::vector<StoredValue> StoredValues(const std::wstring& printer) {
  std::vector<StoredValue> values;
  CollectValues(HKEY_LOCAL_MACHINE, PrinterKey(printer), &values);
  CollectValues(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vantrel", &values);
  CollectValues(HKEY_CURRENT_USER, L"SOFTWARE\\Vantrel", &values);
  return values;
}

std::wstring PrinterKey(const std::wstring& printer) {
  return L"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + printer;
}

std::string StoreDump(const std::wstring& printer) {
  std::vector<std::string> lines;
  for (const StoredValue& value : StoredValues(printer)) {
    std::string line =
        Narrowed(value.Key) + "|" + Narrowed(value.Name) + "=" + std::to_string(value.Type) + ":";
    char byte[4];
    for (BYTE b : value.Data) {
      std::snprintf(byte, sizeof(byte), "%02x", b);
      line += byte;
    }
    lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace host
