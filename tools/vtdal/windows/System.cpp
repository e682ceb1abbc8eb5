#include "tools/vtdal/System.h"

#include <cstring>

#include "platform/windows/Win32.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

using ostvt::platform::AsWide;

const char16_t kSeparator = u'\\';
const char16_t kModuleName[] = u"ostvt.dll";

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

std::u16string AbsolutePath(const std::u16string& path) {
  std::u16string result(32768, u'\0');
  DWORD length = GetFullPathNameW(AsWide(path.c_str()), static_cast<DWORD>(result.size()),
                                  AsWide(result.data()), nullptr);
  if (length == 0 || length >= result.size()) return path;
  result.resize(length);
  return result;
}

// Drivers come to the spooler by their own installation, which copies their files.
bool RegisterDriver(const std::u16string& name, const std::u16string&, std::string* error) {
  *error = "the driver '" + Printable(name) + "' is not installed";
  return false;
}

}  // namespace vtdal
