#include "tools/vtdal/System.h"

#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>

#include "platform/Spooler.h"
#include "platform/linux/Utf8.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

const char16_t kSeparator = u'/';
const char16_t kModuleName[] = u"libostvt.so";

std::u16string EnvironmentValue(const char* name) {
  const char* value = getenv(name);
  return value ? ostvt::platform::FromUtf8(value) : std::u16string();
}

bool FileExists(const std::u16string& path) { return access(ToUtf8(path).c_str(), R_OK) == 0; }

std::u16string AbsolutePath(const std::u16string& path) {
  char* resolved = realpath(ToUtf8(path).c_str(), nullptr);
  std::u16string result = resolved ? ostvt::platform::FromUtf8(resolved) : path;
  free(resolved);
  return result;
}

bool RegisterDriver(const std::u16string& name, const std::u16string& directory,
                    std::string* error) {
  ostvt::platform::DriverRecord driver;
  driver.Name = name;
  driver.DriverPath = directory + u"/" + kModuleName;
  driver.ConfigFile = driver.DriverPath;
  driver.DataFile = directory + u"/ostvt.dat";
  driver.MfgName = u"Vantrel";
  driver.Provider = u"Vantrel";
  for (const char16_t* archive : {u"/vt#base.ddz", u"/vt#ost.ddz"}) {
    if (FileExists(directory + archive)) driver.DependentFiles.push_back(directory + archive);
  }
  if (ostvt::platform::AddDriver(driver)) return true;
  *error = "can't make the driver '" + Printable(name) +
           "' known: the store can't be written, or " + "the name is no driver's name";
  return false;
}

}  // namespace vtdal
