#include "settings/DriverSession.h"

#include "core/Crc.h"
#include "core/DriverPath.h"
#include "core/Memory.h"
#include "model/PrinterModel.h"
#include "platform/VersionResource.h"
#include "settings/AccessLevels.h"
#include "settings/InitialDevMode.h"
#include "settings/StockPapers.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kDefaultDevMode[] = "DATA:Default DevMode";  // the narrow form: 16-bit path

OString VersionTextOf(const char16_t* name) { return platform::VersionText(name).c_str(); }

}  // namespace

DriverSession::~DriverSession() {
  if (AtEnd) AtEnd(this);
  if (Model) {
    if (!NoShadowPush) MonitorFailureDialog();
    Link.SetShadowBlocked(false);
    if (!NoShadowPush) Link.PushShadow();
  }
  Link.Known = nullptr;
  delete Model;
  FreeCounted(PageHandles);
}

void DriverSession::Initialize(platform::PrinterHandle printerHandle, const DevMode* inputDevMode,
                               uint32_t flags, const OString& printerName) {
  SessionFlags = flags;
  PrinterHandle = printerHandle;
  PrinterId printer(printerHandle, printerName);
  PrinterName = printer.GetFullName();
  Model = CreatePrinterModel(printer);
  if (!Model) return;
  if (Windows) Resources = Windows->OpenResources(this);
  DevModeBuffer.Allocate();
  LoadDefaultDevMode();
  Link.PrinterName = PrinterName;
  Link.Known = &Model->GetStore();
  MonitorFailureDialog();
  Link.SetShadowBlocked(false);
  Link.PullShadow();
  // Later sources win: the spooler's stored device mode, then the caller's. Their papers are looked
  // up in a list of their own, since the session's follows only what is edited in it.
  StockPapers papers(Model);
  if (DriverOnNtPath) {
    const Buffer& stored = printer.Printer().DevMode;
    DevModeBuffer.Merge(DevMode(stored.Data, stored.Size), Model, &papers);
  } else {
    DevModeBuffer.Validate(Model, &papers);
  }
  if ((flags & kSessionMerge) != 0 && inputDevMode) {
    DevModeBuffer.Merge(*inputDevMode, Model, &papers);
  }
  LoadSettings();
}

void DriverSession::LoadSettings() {
  if (!DevModeBuffer.IsEmpty()) {
    DevModeCrc = CRC32(DevModeBuffer.GetBlock(), DevModeBuffer.GetSize(), 0);
    if (SavedDevMode.IsEmpty()) SavedDevMode.Assign(DevModeBuffer);
  }
  DownloadedFonts.Load(Model);
  DataFonts.Load(Model);
  FontMappings.Load(Model);
  OptionalFonts.Load(Model);
  FontEncodings.Load(Model);
}

bool DriverSession::Save() {
  if (!Model) return false;
  bool done = true;
  // These tell whether they wrote; one that was refused is as changed as before.
  if (PresetsLoaded) {
    Presets.Save(Model);
    done &= !Presets.HasChanged();
  }
  if (StockLoaded) {
    Stock.Save(Model);
    done &= !Stock.HasChanged();
  }
  done &= DownloadedFonts.Save(Model);
  done &= DataFonts.Save(Model);
  done &= FontMappings.Save(Model);
  OptionalFonts.Save(Model);
  done &= !OptionalFonts.HasChanged();
  done &= StoreDefaultDevMode();
  if (!NoShadowPush) Link.PushShadow();
  return done;
}

void DriverSession::Reload() {
  if (!Model) return;
  Link.PullShadow();
  Presets.Load(Model);
  PresetsLoaded = true;
  BuiltInPresetsAdded = false;
  Stock.Load(Model);
  StockLoaded = true;
  DownloadedFonts.Load(Model);
  DataFonts.Load(Model);
  FontMappings.Load(Model);
}

StockList& DriverSession::GetStock() {
  if (!StockLoaded) {
    Stock.Load(Model);
    StockLoaded = true;
  }
  return Stock;
}

bool DriverSession::LoadDefaultDevMode() {
  if (DriverOnNtPath ? LoadInitialDevMode(Model, &DevModeBuffer) : LoadNarrowDevMode()) return true;
  DevModeBuffer.SetDefaults(Model);
  return false;
}

bool DriverSession::LoadNarrowDevMode() {
  uint8_t narrow[kNarrowDevModeSize];
  const int32_t read = Model->GetStore().ReadBinary(kDefaultDevMode, narrow, sizeof(narrow));
  if (read != static_cast<int32_t>(sizeof(narrow))) return false;
  const DevModeHeader header = ReadNarrowHeader(narrow, sizeof(narrow));
  if (header.Size != kNarrowSize || header.DriverExtra != kModelRecordSize) return false;
  DevModeBuffer.SetDefaults(Model);
  DevModeBuffer.ImportNarrow(narrow, sizeof(narrow));
  return true;
}

bool DriverSession::StoreDefaultDevMode() {
  PrinterRegistry& store = Model->GetStore();
  if (DriverOnNtPath) return WriteInitialDevMode(&store, DevModeBuffer);
  uint8_t narrow[kNarrowDevModeSize];
  DevModeBuffer.WriteNarrow(PrinterName, narrow);
  const int32_t written = store.WriteBinary(kDefaultDevMode, narrow, sizeof(narrow));
  return written == static_cast<int32_t>(sizeof(narrow));
}

bool DriverSession::IsDefaultsSession() const {
  if (!DriverOnNtPath) return DefaultsMode;
  return (SessionFlags & (kSessionDefaults | kSessionUpdate)) != 0;
}

bool DriverSession::IsLocked() {
  if (!LockedKnown && Model) {
    const bool sharing = Model->GetStore().IsRemote && Link.IsSharingInForce();
    const int32_t required = GetRequiredAccessLevel(Model->GetStore(), sharing);
    Locked = GetUserAccessLevel() < required;
    LockedKnown = true;
  }
  return Locked;
}

OString DriverSession::GetProductVersion() const { return VersionTextOf(u"ProductVersion"); }
OString DriverSession::GetProductTag() const { return VersionTextOf(u"Product Tag"); }
OString DriverSession::GetBuildDate() const { return VersionTextOf(u"Build Date"); }
OString DriverSession::GetScmBranch() const { return VersionTextOf(u"SCM Branch"); }
OString DriverSession::GetScmRevision() const { return VersionTextOf(u"SCM Revision"); }

void DriverSession::GetCacheInfo(CacheInfo* record) { *record = CacheInfo(); }

int32_t DriverSession::GetLinkClass() { return 2; }

void DriverSession::Reserved0() {}

void DriverSession::GetFontNameRules(NameRules*) {}

bool DriverSession::ValidateFontName(NameRequest*) { return true; }

void DriverSession::Reserved1() {}

void DriverSession::GetFileNameRules(NameRules* record) { GetFontNameRules(record); }

bool DriverSession::ValidateFileName(NameRequest* request) { return ValidateFontName(request); }

bool DriverSession::Reserved2() { return false; }

bool DriverSession::SupportsCacheCommand(PrinterPort*) { return false; }

}  // namespace ostvt
