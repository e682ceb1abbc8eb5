// The spooler's list of printers.
#include <algorithm>

#include "platform/Spooler.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/System.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

namespace platform = ostvt::platform;

constexpr size_t kLongestName = 220;
constexpr int kResolutionsIndex = 13;

constexpr const char* kPrintersHelp =
    "Usage: vtdal printers\n"
    "\n"
    "Lists the printers of this machine and its connections, with driver and port.\n";

constexpr const char* kAddHelp =
    "Usage: vtdal add NAME --driver MODEL --port PORT [--share NAME] [--directory DIR]\n"
    "                 [--module FILE]\n"
    "\n"
    "Adds a printer.\n"
    "\n"
    "  --driver MODEL   the driver, by the printer model's name, as \"Ostrel D4-203\"\n"
    "  --port PORT      where jobs go; on Linux cups:QUEUE, socket://HOST:PORT or file:PATH\n"
    "  --share NAME     the name under which others use it\n"
    "\n"
    "On Linux a driver that isn't known yet is made known, with its files (definition archives,\n"
    "data file) in the module's directory.\n"
    "\n"
    "  --directory DIR  the files' directory, where it is another one\n"
    "  --module FILE    the driver's module (else OSTVT_MODULE, else the one beside vtdal)\n";

constexpr const char* kRemoveHelp =
    "Usage: vtdal remove NAME\n"
    "\n"
    "Removes a printer with all its settings.\n";

int RunPrinters(const Arguments&) {
  std::vector<platform::PrinterRecord> records;
  for (const std::u16string& name : platform::EnumeratePrinters()) {
    platform::PrinterHandle printer =
        platform::OpenPrinter(name.c_str(), platform::kPrinterAccessUse);
    platform::PrinterRecord record;
    if (!platform::GetPrinterRecord(printer, &record)) record.Name = name;
    platform::ClosePrinter(printer);
    records.push_back(record);
  }
  std::vector<std::string> rows[3];
  for (const platform::PrinterRecord& record : records) {
    rows[0].push_back(Printable(record.Name));
    rows[1].push_back(Printable(record.DriverName));
    rows[2].push_back(Printable(record.PortName));
  }
  if (!records.empty()) PrintColumns({"Printer", "Driver", "Port"}, {rows[0], rows[1], rows[2]});
  return kDone;
}

// "" or what is wrong with the name of a new printer.
std::string NameProblem(const std::u16string& name) {
  if (name.empty()) return "a printer needs a name";
  if (name.size() > kLongestName)
    return "the name has " + std::to_string(name.size()) + " characters; " +
           std::to_string(kLongestName) + " are allowed";
  platform::PrinterHandle existing =
      platform::OpenPrinter(name.c_str(), platform::kPrinterAccessUse);
  platform::ClosePrinter(existing);
  if (existing) return "there is a printer named '" + Printable(name) + "' already";
  return "";
}

// "" or why the driver can't be made known.
std::string MakeDriverKnown(const Arguments& arguments, const std::u16string& driver) {
  std::u16string directory = arguments.Value("--directory");
  if (directory.empty()) {
    std::u16string module = ChosenModulePath(arguments);
    if (!FileExists(module)) return "no module at '" + Printable(module) + "'; name it by --module";
    directory = module.substr(0, module.find_last_of(u"/\\"));
  }
  std::string error;
  return RegisterDriver(driver, AbsolutePath(directory), &error) ? "" : error;
}

// "" or why the new printer's driver is none: its module knows no model of that name.
std::string ModelProblem(const Arguments& arguments, const platform::NewPrinter& printer) {
  std::string error;
  DriverModule module;
  if (!module.Load(arguments, printer.Name, &error)) return error;
  // Every model has a resolution.
  if (module.Capability(printer.Name, kResolutionsIndex, nullptr) > 0) return "";
  return "no model named '" + Printable(printer.DriverName) + "'";
}

void TellDriver(const Arguments& arguments, const std::u16string& printer) {
  std::string ignored;
  DriverModule module;
  if (module.Load(arguments, printer, &ignored)) module.PrinterCreated(printer);
}

int RunAdd(const Arguments& arguments) {
  platform::NewPrinter printer;
  printer.Name = arguments.Words()[0];
  printer.DriverName = arguments.Value("--driver");
  printer.PortName = arguments.Value("--port");
  printer.ShareName = arguments.Value("--share");
  if (printer.DriverName.empty()) return UsageError("add", "--driver is missing");
  if (printer.PortName.empty()) return UsageError("add", "--port is missing");
  std::string problem = NameProblem(printer.Name);
  if (problem.empty()) problem = PortProblem(printer.PortName);
  bool isNewDriver = problem.empty() && !IsDriverKnown(printer.DriverName);
  if (isNewDriver) problem = MakeDriverKnown(arguments, printer.DriverName);
  if (problem.empty()) {
    if (!platform::AddPrinter(printer)) {
      problem = RefusalReason(printer);
    } else if (isNewDriver) {
      problem = ModelProblem(arguments, printer);
      if (!problem.empty()) platform::DeletePrinter(printer.Name.c_str());
    }
    if (isNewDriver && !problem.empty()) ForgetDriver(printer.DriverName);
  }
  if (problem.empty()) {
    if (!kSpoolerTellsDrivers) TellDriver(arguments, printer.Name);
    return kDone;
  }
  PrintError(problem);
  return kFailed;
}

int RunRemove(const Arguments& arguments) {
  const std::u16string& name = arguments.Words()[0];
  if (!RequirePrinter(name)) return kFailed;
  if (platform::DeletePrinter(name.c_str())) return kDone;
  PrintError("can't remove '" + Printable(name) + "'");
  return kFailed;
}

}  // namespace

std::vector<Command> PrinterCommands() {
  return {{"printers", kPrintersHelp, 0, 0, {}, RunPrinters},
          {"add",
           kAddHelp,
           1,
           1,
           {{"--driver", true},
            {"--port", true},
            {"--share", true},
            {"--directory", true},
            {"--module", true}},
           RunAdd},
          {"remove", kRemoveHelp, 1, 1, {}, RunRemove}};
}

}  // namespace vtdal
