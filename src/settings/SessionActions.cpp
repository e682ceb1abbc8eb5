// The numbered actions that printers of every family share.
#include "settings/SessionActions.h"

#include <span>

#include "comm/PrinterJob.h"
#include "comm/PrinterPort.h"
#include "comm/TestPage.h"
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"
#include "store/PrinterId.h"

namespace ostvt {
namespace {

constexpr char kTestJobName[] = "Printer Test";
constexpr int32_t kEscapeClearCache = 11020;

// Texts.
constexpr int32_t kStatusSheetTitle = 2471;
constexpr int32_t kDriverSheetTitle = 1341;
constexpr int32_t kCacheSheetTitle = 2483;
constexpr int32_t kFontSheetTitle = 2490;
constexpr int32_t kSendFileTitle = 2317;
constexpr int32_t kPrinterFiles = 2337;
constexpr int32_t kAllFiles = 2330;

constexpr int32_t kDialogOk = 1;

constexpr uint32_t kOpensLockable = kActionExists | kActionOpensDialog | kActionLockable;

bool HasCache(const DriverSession& session) {
  return (session.Model->GetCapabilities()->FeatureFlags & kFeatureCache) != 0;
}

bool HasCacheStorage(DriverSession& session) {
  CacheInfo cache;
  session.GetCacheInfo(&cache);
  return HasCache(session) && cache.count > 0;
}

// Some ports carry answers in general, but not from every model.
bool CanAskPrinter(DriverSession& session) {
  if (!session.Link.IsMonitoringSupported() || !session.Link.IsBidirectional()) return false;
  const OString port = session.Link.GetPortType();
  if (port == "LPT") return session.Model->IsBidirectionalParallel();
  if (port == "USB") return session.Model->IsBidirectionalUsb();
  return true;
}

bool CanLog(DriverSession& session) {
  return !PrinterId(session.PrinterName).Printer().ShareName.IsEmpty() ||
         session.Link.IsBidirectional();
}

bool PrintTestPage(DriverSession& session, bool hasPattern) {
  PrinterJob job(session.PrinterName, session.DevModeBuffer.GetBlock());
  int32_t width = 0;
  int32_t height = 0;
  // Without a page to draw on even an empty one would be another's bytes.
  if (!job.GetPrintableSize(&width, &height) || job.Start(kTestJobName) == 0) return false;
  job.StartPage();
  if (hasPattern) DrawTestPattern(&job);
  job.EndPage();
  return job.End();
}

bool ClearCache(DriverSession& session) {
  if (!session.Port) return false;
  OString title;
  session.GetActionTitle(&title, kActionClearCache);
  const bool isOpen = session.Port->OpenJob(title) != 0;
  constexpr uint8_t kEverything[8] = {};
  const bool isDone = isOpen && session.Port->Escape(kEscapeClearCache, sizeof kEverything,
                                                     kEverything, 0, nullptr) > 0;
  session.Port->CloseJob();
  return isDone && !session.Port->SendFailed;
}

bool ChooseAndSendFile(const ActionContext& context, DriverSession& session) {
  constexpr FileKind kinds[] = {{kPrinterFiles, "*.prn"}, {kAllFiles, "*.*"}};
  OString path;
  return session.Windows &&
         session.Windows->ChooseFile(&session, context.Owner, session.GetString(kSendFileTitle),
                                     kinds, &path) &&
         !session.IsEnded && session.SendFile(path);
}

// The dialog's result; 0 when it can't be shown.
int32_t ShowSheet(const ActionContext& context, DriverSession& session, int32_t title,
                  std::span<const char* const> templates) {
  if (!session.Windows) return 0;
  return session.Windows->RunSheet(&session, context.Owner, session.GetString(title), templates);
}

bool ShowCacheSheet(const ActionContext& context, DriverSession& session) {
  constexpr const char* templates[] = {"*:CACHE/SETTINGS", "*:CACHE/CONTENTS"};
  return ShowSheet(context, session, kCacheSheetTitle, templates) != 0;
}

bool ShowDriverSheet(const ActionContext& context, DriverSession& session) {
  constexpr const char* templates[] = {"*:DRIVER/ADMINISTRATION", "*:DRIVER/NETWORK_SETTINGS",
                                       "*:DRIVER/REGIONAL_OPTIONS", "*:DRIVER/SPECIFICATIONS"};
  const int32_t result = ShowSheet(context, session, kDriverSheetTitle, templates);
  if (result == kDialogOk) session.Windows->RefreshSheet(context.Owner);
  return result != 0;
}

bool ShowStatusSheet(const ActionContext& context, DriverSession& session) {
  constexpr const char* templates[] = {"*:STATUS/MONITORING", "*:STATUS/COMMUNICATIONS"};
  return ShowSheet(context, session, kStatusSheetTitle, templates) != 0;
}

bool ShowFontSheet(const ActionContext& context, DriverSession& session) {
  constexpr const char* all[] = {"*:FONT_SETTINGS/RESIDENT", "*:FONT_SETTINGS/DOWNLOADED",
                                 "*:FONT_SETTINGS/UTILITY", "*:FONTS/^FONT_OPTIONS/ENCODING"};
  constexpr const char* withoutDownloads[] = {"*:FONT_SETTINGS/RESIDENT", "*:FONT_SETTINGS/UTILITY",
                                              "*:FONTS/^FONT_OPTIONS/ENCODING"};
  std::span<const char* const> templates = withoutDownloads;
  if (session.Model->CanDownload()) templates = all;
  return ShowSheet(context, session, kFontSheetTitle, templates) != 0;
}

}  // namespace

bool DriverSession::RunDialog(void* owner, const OString& templateName) {
  return Windows && Windows->RunDialog(this, owner, templateName) != 0;
}

bool DriverSession::DoAction(ActionContext* context, int32_t action) {
  if (!Model || !context) return false;
  switch (action) {
    case kActionTestPage:
      return PrintTestPage(*this, true);
    case kActionEmptyPage:
    case kActionFeed:
      return PrintTestPage(*this, false);
    case kActionCacheSheet:
      return HasCacheStorage(*this) && ShowCacheSheet(*context, *this);
    case kActionClearCache:
      return HasCache(*this) && ClearCache(*this);
    case kActionSendFile:
      return ChooseAndSendFile(*context, *this);
    case kActionSendCommand:
      return RunDialog(context->Owner, "*:^SEND_COMMAND");
    case kActionDriverSheet:
      return ShowDriverSheet(*context, *this);
    case kActionStatusSheet:
      return ShowStatusSheet(*context, *this);
    case kActionFontSheet:
      return ShowFontSheet(*context, *this);
    case kActionLogging:
      return RunDialog(context->Owner,
                       Link.IsNetworkClient() ? "*:TOOLS/^LOGGING_REMOTE" : "*:TOOLS/^LOGGING");
    default:
      return false;
  }
}

uint32_t DriverSession::GetActionFlags(ActionContext*, int32_t action) {
  if (!Model) return 0;
  switch (action) {
    case kActionTestPage:
    case kActionEmptyPage:
    case kActionFeed:
      return kActionExists;
    case kActionCacheSheet:
      return HasCacheStorage(*this) ? kOpensLockable : 0;
    case kActionClearCache:
      return HasCache(*this) ? kActionExists : 0;
    case kActionSendFile:
    case kActionSendCommand:
    case kActionDriverSheet:
    case kActionFontSheet:
      return kOpensLockable;
    case kActionStatusSheet:
      return CanAskPrinter(*this) ? kOpensLockable : 0;
    case kActionLogging:
      return CanLog(*this) ? kOpensLockable : 0;
    default:
      return 0;
  }
}

void DriverSession::GetActionTitle(OString* result, int32_t action) {
  const int32_t text = ActionTitleOf(action);
  *result = text ? GetString(text) : OString();
}

}  // namespace ostvt
