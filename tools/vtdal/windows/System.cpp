#include "tools/vtdal/System.h"

#include <cstring>

#include "platform/Errors.h"
#include "platform/windows/Win32.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

using ostvt::platform::AsWide;

const char16_t kSeparator = u'\\';
const char16_t kModuleName[] = u"ostvt.dll";
const char16_t kInstalledPlace[] = u"";
const bool kSpoolerTellsDrivers = true;

std::u16string EnvironmentValue(const char* name) {
  std::u16string wideName(name, name + strlen(name));
  std::u16string value(32768, u'\0');
  DWORD length = GetEnvironmentVariableW(AsWide(wideName.c_str()), AsWide(value.data()),
                                         static_cast<DWORD>(value.size()));
  value.resize(length < value.size() ? length : 0);
  return value;
}

bool FileExists(const std::u16string& path) {
  DWORD attributes = GetFileAttributesW(AsWide(path.c_str()));
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

uint32_t ProcessNumber() { return GetCurrentProcessId(); }

std::u16string AbsolutePath(const std::u16string& path) {
  std::u16string result(32768, u'\0');
  DWORD length = GetFullPathNameW(AsWide(path.c_str()), static_cast<DWORD>(result.size()),
                                  AsWide(result.data()), nullptr);
  if (length == 0 || length >= result.size()) return path;
  result.resize(length);
  return result;
}

// The spooler has ports of many kinds and says itself which it doesn't know.
std::string PortProblem(const std::u16string&) { return ""; }

// Drivers come to the spooler by their own installation, which copies their files; it says itself
// which it doesn't know.
bool IsDriverKnown(const std::u16string&) { return true; }
bool RegisterDriver(const std::u16string&, const std::u16string&, std::string*) { return false; }
void ForgetDriver(const std::u16string&) {}

std::string RefusalReason(const ostvt::platform::NewPrinter& printer) {
  uint32_t number = ostvt::platform::LastErrorNumber();
  switch (number) {
    case ERROR_UNKNOWN_PRINTER_DRIVER:
      return "the driver '" + Printable(printer.DriverName) + "' is not installed";
    case ERROR_UNKNOWN_PORT:
      return "there is no port '" + Printable(printer.PortName) + "'";
    case ERROR_ACCESS_DENIED:
      return "can't add '" + Printable(printer.Name) + "': access is denied";
    case ERROR_INVALID_PRINTER_NAME:
      return "'" + Printable(printer.Name) + "' is no printer's name";
    case ERROR_PRINTER_ALREADY_EXISTS:
      return "there is a printer named '" + Printable(printer.Name) + "' already";
    default:
      return "can't add '" + Printable(printer.Name) + "': the spooler's error is " +
             std::to_string(number);
  }
}

}  // namespace vtdal
