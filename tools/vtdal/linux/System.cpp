#include "tools/vtdal/System.h"

#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>

#include "platform/linux/Utf8.h"
#include "store/ORegistry.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

ostvt::OString DriverKey(const std::u16string& name) {
  return "PRINT:Environments/Linux x64/Drivers/Version-3/" +
         ostvt::ORegistry::Escape(ostvt::OString(name.c_str()));
}

}  // namespace

const char16_t kSeparator = u'/';
const char16_t kModuleName[] = u"libostvt.so";
const char16_t kInstalledPlace[] = u"../lib/ostvt/3/";
const bool kSpoolerTellsDrivers = false;

std::u16string EnvironmentValue(const char* name) {
  const char* value = getenv(name);
  return value ? ostvt::platform::FromUtf8(value) : std::u16string();
}

bool FileExists(const std::u16string& path) { return access(ToUtf8(path).c_str(), R_OK) == 0; }

uint32_t ProcessNumber() { return static_cast<uint32_t>(getpid()); }

std::u16string AbsolutePath(const std::u16string& path) {
  char* resolved = realpath(ToUtf8(path).c_str(), nullptr);
  std::u16string result = resolved ? ostvt::platform::FromUtf8(resolved) : path;
  free(resolved);
  return result;
}

std::string PortProblem(const std::u16string& port) {
  auto begins = [&port](std::u16string_view head) {
    return port.size() > head.size() && port.compare(0, head.size(), head) == 0;
  };
  if (begins(u"cups:") || begins(u"file:")) return "";
  constexpr std::u16string_view kSocket = u"socket://";
  if (begins(kSocket)) {
    size_t colon = port.rfind(u':');
    std::u16string_view number = std::u16string_view(port).substr(colon + 1);
    uint32_t value = 0;
    for (char16_t digit : number) {
      if (digit < u'0' || digit > u'9' || value > 65535) number = {};
      value = value * 10 + (digit - u'0');
    }
    if (colon > kSocket.size() && !number.empty() && value > 0 && value <= 65535) return "";
  }
  return "'" + Printable(port) + "' is no port: cups:QUEUE, socket://HOST:PORT or file:PATH";
}

bool IsDriverKnown(const std::u16string& name) {
  return !name.empty() && ostvt::ORegistry().GetKeyInfo(DriverKey(name), nullptr, nullptr);
}

void ForgetDriver(const std::u16string& name) {
  if (!name.empty()) ostvt::ORegistry().Delete(DriverKey(name), true);
}

std::string RefusalReason(const ostvt::platform::NewPrinter& printer) {
  return "can't add '" + Printable(printer.Name) +
         "': the name is no printer's name, or the store can't be written";
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
