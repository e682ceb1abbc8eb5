// The driver in the real spooler, for the tests of this folder: installed once for the whole
// program from the files that the build left, with one printer; removed at the end.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <string>
#include <vector>

namespace host {

inline constexpr wchar_t kDriverName[] = L"Ostrel D4-203";
inline constexpr wchar_t kPrinterName[] = L"Host Test Printer";
inline constexpr int kDevModeSize = 1516;
inline constexpr int kPublicSize = 220;
inline constexpr int kPrivateSize = 1296;

// A printer that lives as long as the object.
class HostPrinter {
 public:
  explicit HostPrinter(const std::wstring& name, const std::wstring& driver = kDriverName);
  ~HostPrinter();
  HostPrinter(const HostPrinter&) = delete;
  HostPrinter& operator=(const HostPrinter&) = delete;

  bool IsReady() const { return Handle != nullptr; }
  const std::wstring& Name() const { return PrinterName; }
  HANDLE Get() const { return Handle; }

 private:
  std::wstring PrinterName;
  HANDLE Handle = nullptr;
};

// A block with `guard` bytes of 0xCC before and behind it, to see who writes there.
class GuardedBlock {
 public:
  explicit GuardedBlock(size_t size, BYTE fill = 0xCC);
  BYTE* Data() { return Bytes.data() + kGuard; }
  DEVMODEW* Mode() { return reinterpret_cast<DEVMODEW*>(Data()); }
  size_t Size() const { return Bytes.size() - 2 * kGuard; }
  bool GuardsAreWhole() const;
  std::vector<BYTE> Copy() const;

 private:
  static constexpr size_t kGuard = 4096;
  std::vector<BYTE> Bytes;
};

int Capability(const std::wstring& printer, WORD index, void* output = nullptr,
               const DEVMODEW* mode = nullptr);

// The result of DocumentPropertiesW.
LONG Properties(HostPrinter& printer, DEVMODEW* output, const DEVMODEW* input, DWORD flags);

// The printer's default device mode, 1516 bytes.
std::vector<BYTE> DefaultDevMode(HostPrinter& printer);

// The printer's key below HKEY_LOCAL_MACHINE.
std::wstring PrinterKey(const std::wstring& printer);

struct StoredValue {
  std::wstring Key;
  std::wstring Name;  // empty for the key itself, which comes before its values
  DWORD Type;
  std::vector<BYTE> Data;
};

// Every value below the driver's and the printer's keys.
std::vector<StoredValue> StoredValues(const std::wstring& printer);

// The same as text, for comparison.
std::string StoreDump(const std::wstring& printer);

}  // namespace host
