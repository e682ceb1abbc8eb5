#include "entry/PrinterFiles.h"

#include <memory>
#include <string>

#include "core/ArchiveReader.h"
#include "core/DriverPath.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "platform/KeyStore.h"
#include "platform/Module.h"
#include "platform/Process.h"
#include "settings/DriverSession.h"
#include "settings/SettingsSections.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kFactorySettings[] = "Defaults.sds";
constexpr char kColorProfile[] = "sRGB Color Space Profile.icm";
constexpr uint16_t kAnyColor = 0xFF;

// The access companion, registered with the system, and where it finds this module.
constexpr char16_t kRegisterAccess[] = u"regsvr32.exe /s /c vtdal.dll";
constexpr char16_t kModulePathValue[] = u"DAL Interface";
constexpr char16_t kInstallPortMonitor[] = u"rundll32.exe vttcpmon.d64,Install";

// Lays down the members of one model's archives.
class Companions {
 public:
  explicit Companions(PrinterModel* model)
      : Archive(model->GetDefinition().GetArchive()),
        System(platform::SystemDirectory()),
        Windows(platform::WindowsDirectory()) {}

  bool ToSystem(const char* member, const char* name) { return Extract(member, System, name); }
  bool ToSystem(const char* member) { return ToSystem(member, member); }
  bool ToWindows(const char* member, const char* name) { return Extract(member, Windows, name); }
  // In the system's directory, where the libraries that they are given lie.
  void Start(const char16_t* commandLine) {
    platform::StartProgram(commandLine, platform::kShowHidden, System.c_str());
  }

 private:
  bool Extract(const char* member, const std::u16string& directory, const char* name) {
    if (!Archive || directory.empty()) return false;
    const OString target = OString(directory.c_str()) + "\\" + name;
    return Archive->ExtractMember(member, target, kExtractIfNewer);
  }

  ArchiveReader* Archive;
  std::u16string System;
  std::u16string Windows;
};

void ImportFactorySettings(DriverSession* session) {
  const OString directory = platform::ModuleDirectory().c_str();
  session->ImportSettings(directory + "\\" + kFactorySettings, kAllSections, nullptr);
  session->Save();
}

// The 16-bit side's spooler takes a printer's colour profile from its driver data.
void DeclareColorProfile(PrinterRegistry* store) {
  store->WriteString("DATA:ICMProfile", kColorProfile);
  OStringArray files;
  const bool isRead = store->ReadMultiString("DATA:Files", &files);
  // A list too long to be read is not to be lost, and a second installation adds nothing.
  if (!isRead && store->GetValueSize("DATA:Files") > 0) return;
  if (files.Find(kColorProfile) >= 0) return;
  files.Add(kColorProfile);
  store->WriteMultiString("DATA:Files", files);
}

void TellModulePath(platform::PrinterHandle printer) {
  const std::u16string path = platform::ModulePath();
  const size_t size = (path.size() + 1) * sizeof(char16_t);
  platform::SetPrinterData(printer, kModulePathValue, platform::kValueString, path.c_str(),
                           static_cast<uint32_t>(size));
}

bool KnowsManifests(const platform::SystemVersion& system) {
  return system.Major > 5 || (system.Major == 5 && system.Minor != 0);
}

void LayDownCompanions(PrinterModel* model, platform::PrinterHandle printer,
                       const platform::SystemVersion& system) {
  Companions companions(model);
  companions.ToSystem("vtnetmon.ddz");
  if (companions.ToSystem("vtdal.dll.x64", "vtdal.dll")) {
    companions.Start(kRegisterAccess);
    companions.ToWindows("vtdal.exe.x64", "vtdal.exe");
    TellModulePath(printer);
  }
  if (companions.ToSystem("vttcpmon.d64")) {
    companions.Start(kInstallPortMonitor);
    companions.ToSystem("vttcpmon.ddz");
  }
  if (KnowsManifests(system)) companions.ToSystem("Vantrel.Drivers.manifest");
}

void Install(DriverSession* session, const platform::SystemVersion& system) {
  PrinterModel* model = session->Model;
  model->Invalidate();
  ImportFactorySettings(session);
  if (platform::SystemDirectory().empty()) return;
  if (!DriverOnNtPath && model->HasColor(kAnyColor)) DeclareColorProfile(&model->GetStore());
  LayDownCompanions(model, session->PrinterHandle, system);
  if (model->GetStatusMonitorDefault()) {
    session->LaunchStatusMonitor("open", platform::kShowHidden);
  }
}

}  // namespace

void InstallPrinterFiles(platform::PrinterHandle printer, const platform::SystemVersion& system) {
  std::unique_ptr<DriverSession> session(CreateDriverSession());
  if (!session) return;
  // Without windows: the spooler's process has nobody to ask about a monitor that is missed.
  session->Initialize(printer, nullptr, 0);
  if (session->Model) Install(session.get(), system);
  session->Reserved0();
}

}  // namespace ostvt
