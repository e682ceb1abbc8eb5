// The driver's module, loaded as the spooler loads it, and the exports that are asked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/Exports.h"
#include "tools/vtdal/Arguments.h"

namespace vtdal {

// One loaded module. Looked for in this order: the option --module, the environment's OSTVT_MODULE,
// the file that the printer's driver record names, and the one beside this program.
class DriverModule {
 public:
  DriverModule() = default;
  ~DriverModule();
  DriverModule(const DriverModule&) = delete;
  DriverModule& operator=(const DriverModule&) = delete;

  // False with the reason in `error`.
  bool Load(const Arguments& arguments, const std::u16string& printer, std::string* error);
  const std::u16string& Path() const { return ModulePath; }

  // The answer, -1 for a question that the driver doesn't know.
  int32_t Capability(const std::u16string& printer, int index, void* output);
  // The printer's default device mode; empty when the driver has none.
  std::vector<uint8_t> DevMode(const std::u16string& printer);

 private:
  bool TryLoad(const std::u16string& path, std::string* error);

  void* Library = nullptr;
  std::u16string ModulePath;
  decltype(&DrvDeviceCapabilities) Capabilities = nullptr;
  decltype(&DrvDocumentPropertySheets) DocumentSheets = nullptr;
};

// Where a module would be taken from if no printer had a say.
std::u16string ChosenModulePath(const Arguments& arguments);

// Whether the spooler knows the printer; prints an error if not.
bool RequirePrinter(const std::u16string& name);

}  // namespace vtdal
