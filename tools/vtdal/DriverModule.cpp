#include "tools/vtdal/DriverModule.h"

#include "platform/Libraries.h"
#include "platform/Module.h"
#include "platform/Spooler.h"
#include "tools/vtdal/System.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

namespace platform = ostvt::platform;

// More than any device mode of ours; a module that asks for more is not believed.
constexpr int32_t kLongestDevMode = 64 * 1024;

std::u16string DirectoryOf(const std::u16string& path) {
  size_t cut = path.find_last_of(u"/\\");
  return cut == std::u16string::npos ? std::u16string() : path.substr(0, cut);
}

// What the user named, or "".
std::u16string NamedModule(const Arguments& arguments) {
  std::u16string path = arguments.Value("--module");
  return path.empty() ? EnvironmentValue("OSTVT_MODULE") : path;
}

// Beside this program, else where an installation keeps it.
std::u16string OwnModule() {
  const std::u16string directory = DirectoryOf(platform::ProcessPath()) + kSeparator;
  const std::u16string beside = directory + kModuleName;
  return FileExists(beside) ? beside : AbsolutePath(directory + kInstalledPlace + kModuleName);
}

std::u16string InstalledModule(const std::u16string& printer) {
  platform::PrinterHandle handle =
      platform::OpenPrinter(printer.c_str(), platform::kPrinterAccessUse);
  platform::DriverRecord driver;
  platform::GetDriverRecord(handle, &driver);
  platform::ClosePrinter(handle);
  return driver.ConfigFile;
}

}  // namespace

std::u16string ChosenModulePath(const Arguments& arguments) {
  std::u16string named = NamedModule(arguments);
  return AbsolutePath(named.empty() ? OwnModule() : named);
}

bool RequirePrinter(const std::u16string& name) {
  platform::PrinterHandle handle = platform::OpenPrinter(name.c_str(), platform::kPrinterAccessUse);
  if (!handle) PrintError("no printer named '" + Printable(name) + "'");
  platform::ClosePrinter(handle);
  return handle != nullptr;
}

DriverModule::~DriverModule() { platform::CloseLibrary(Library); }

bool DriverModule::Load(const Arguments& arguments, const std::u16string& printer,
                        std::string* error) {
  std::u16string named = NamedModule(arguments);
  if (!named.empty()) return TryLoad(AbsolutePath(named), error);
  std::string ignored;
  return TryLoad(InstalledModule(printer), &ignored) || TryLoad(OwnModule(), error);
}

bool DriverModule::TryLoad(const std::u16string& path, std::string* error) {
  if (!FileExists(path)) {
    *error = "no module at '" + Printable(path) + "'";
    return false;
  }
  void* library = platform::OpenLibrary(path.c_str());
  if (!library) {
    *error = "can't load the driver's module '" + Printable(path) + "'";
    return false;
  }
  Capabilities = reinterpret_cast<decltype(Capabilities)>(
      platform::FindSymbol(library, "DrvDeviceCapabilities"));
  DocumentSheets = reinterpret_cast<decltype(DocumentSheets)>(
      platform::FindSymbol(library, "DrvDocumentPropertySheets"));
  OpenSession =
      reinterpret_cast<decltype(OpenSession)>(platform::FindSymbol(library, "DAL_Printer_Open"));
  CloseSession =
      reinterpret_cast<decltype(CloseSession)>(platform::FindSymbol(library, "DAL_Printer_Close"));
  Reset = reinterpret_cast<decltype(Reset)>(platform::FindSymbol(library, "DAL_Settings_Reset"));
  // Other makers' drivers have the first two as well.
  const bool isOurs = OpenSession && CloseSession && Reset;
  if (!Capabilities || !DocumentSheets || !isOurs) {
    platform::CloseLibrary(library);
    *error = "'" + Printable(path) + "' is not this driver's module";
    return false;
  }
  PrinterEvent =
      reinterpret_cast<decltype(PrinterEvent)>(platform::FindSymbol(library, "DrvPrinterEvent"));
  Library = library;
  ModulePath = path;
  return true;
}

void DriverModule::PrinterCreated(const std::u16string& printer) {
  constexpr int32_t kInitialize = 3;
  if (PrinterEvent) PrinterEvent(printer.c_str(), kInitialize, 0, 0);
}

int32_t DriverModule::Capability(const std::u16string& printer, int index, void* output) {
  return static_cast<int32_t>(
      Capabilities(nullptr, printer.c_str(), static_cast<uint16_t>(index), output, nullptr));
}

bool DriverModule::ResetSettings(const std::u16string& printer, uint32_t sections) {
  platform::PrinterHandle handle =
      platform::OpenPrinter(printer.c_str(), platform::kPrinterAccessUse);
  void* session = handle ? OpenSession(handle) : nullptr;
  if (session) Reset(session, sections);
  if (session) CloseSession(session);
  platform::ClosePrinter(handle);
  return session != nullptr;
}

std::vector<uint8_t> DriverModule::DevMode(const std::u16string& printer) {
  ostvt::DocumentPropertyHeader header = {};
  header.cbSize = sizeof header;
  header.pszPrinterName = printer.c_str();
  int32_t size = DocumentSheets(nullptr, reinterpret_cast<intptr_t>(&header));
  if (size <= 0 || size > kLongestDevMode) return {};
  std::vector<uint8_t> block(static_cast<size_t>(size));
  header.pdmOut = block.data();
  header.cbOut = static_cast<uint32_t>(size);
  header.fMode = ostvt::kModeCopy;
  if (DocumentSheets(nullptr, reinterpret_cast<intptr_t>(&header)) <= 0) return {};
  return block;
}

}  // namespace vtdal
