#include "tools/vtdal/ModuleMonitor.h"

#include "platform/Libraries.h"
#include "platform/Spooler.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/System.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

namespace platform = ostvt::platform;

// The monitor's file beside `module`; "" where that has no directory.
std::u16string Beside(const std::u16string& module) {
  const size_t cut = module.find_last_of(u"/\\");
  if (cut == std::u16string::npos) return {};
  return module.substr(0, cut + 1) + ostvt::kMonitorFileName;
}

}  // namespace

ModuleMonitor::ModuleMonitor(const Arguments& arguments, const std::u16string& printer) {
  if (arguments.Has("--module") || !EnvironmentValue("OSTVT_MODULE").empty()) {
    Named = Beside(ChosenModulePath(arguments));
    return;
  }
  platform::PrinterHandle handle =
      platform::OpenPrinter(printer.c_str(), platform::kPrinterAccessUse);
  platform::DriverRecord driver;
  if (platform::GetDriverRecord(handle, &driver)) Installed = Beside(driver.ConfigFile);
  platform::ClosePrinter(handle);
}

void* ModuleMonitor::Open() {
  if (!Named.empty()) return platform::OpenLibrary(Named.c_str());
  void* file = Installed.empty() ? nullptr : platform::OpenLibrary(Installed.c_str());
  return file ? file : MonitorLoader::Open();
}

void TellMonitorMissed(const ostvt::OString& printer, bool isClient) {
  PrintError(std::string("the port monitor ") + (isClient ? "of the print server " : "") +
             "doesn't answer for '" + Printable(printer.GetWide()) +
             "'; going on with this machine's settings");
}

ostvt::MonitorFailureAnswer TellMonitorFailure(ostvt::DriverSession* session, bool isClient) {
  TellMonitorMissed(session->PrinterName, isClient);
  return ostvt::MonitorFailureAnswer::kNotShown;
}

}  // namespace vtdal
