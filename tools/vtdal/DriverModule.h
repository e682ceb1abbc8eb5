// The driver's module, loaded as the spooler loads it, and the exports that are asked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/Exports.h"
#include "tools/vtdal/Arguments.h"

namespace vtdal {

// One loaded module. Looked for in this order: the option --module, the environment's OSTVT_MODULE,
// the file that the printer's driver record names, and this program's own: the one beside it, else
// the installed one.
class DriverModule {
 public:
  DriverModule() = default;
  ~DriverModule();
  DriverModule(const DriverModule&) = delete;
  DriverModule& operator=(const DriverModule&) = delete;

  // False with the reason in `error`.
  bool Load(const Arguments& arguments, const std::u16string& printer, std::string* error);
  const std::u16string& Path() const { return ModulePath; }

  // Tells the driver of a new printer, for which it then lays down what belongs to it.
  void PrinterCreated(const std::u16string& printer);
  // The answer, -1 for a question that the driver doesn't know.
  int32_t Capability(const std::u16string& printer, int index, void* output);
  // The printer's default device mode; empty when the driver has none.
  std::vector<uint8_t> DevMode(const std::u16string& printer);
  // Brings a printer's settings back to the factory's; `sections` as kSectionStock and others.
  // False if the printer can't be opened.
  bool ResetSettings(const std::u16string& printer, uint32_t sections);

 private:
  bool TryLoad(const std::u16string& path, std::string* error);

  void* Library = nullptr;
  std::u16string ModulePath;
  decltype(&DrvDeviceCapabilities) Capabilities = nullptr;
  decltype(&DrvDocumentPropertySheets) DocumentSheets = nullptr;
  decltype(&DrvPrinterEvent) PrinterEvent = nullptr;  // may stay null
  decltype(&DAL_Printer_Open) OpenSession = nullptr;
  decltype(&DAL_Printer_Close) CloseSession = nullptr;
  decltype(&DAL_Settings_Reset) Reset = nullptr;
};

// Where a module would be taken from if no printer had a say.
std::u16string ChosenModulePath(const Arguments& arguments);

// Whether the spooler knows the printer; prints an error if not.
bool RequirePrinter(const std::u16string& name);

}  // namespace vtdal
