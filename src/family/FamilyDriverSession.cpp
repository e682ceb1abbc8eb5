#include "family/FamilyDriverSession.h"

#include <string_view>

#include "core/WhiteSpace.h"
#include "family/OstrelModel.h"
#include "family/U1Command.h"
#include "settings/SessionActions.h"

namespace ostvt {
namespace {

constexpr int32_t kFileNameLimit = 128;
constexpr std::u16string_view kNameCharacters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";

// Texts.
constexpr int32_t kWrongLength = 4450;
constexpr int32_t kWrongCharacter = 4451;
constexpr int32_t kRefusalCaption = 4454;

const void* DevModeOf(const DriverSession* session) { return session->DevModeBuffer.GetBlock(); }

}  // namespace

FamilyDriverSession::~FamilyDriverSession() { Port = nullptr; }

void FamilyDriverSession::LoadSettings() {
  DriverSession::LoadSettings();
  OwnPort.Bind(this, PrinterHandle, Link, DevModeOf);
  Port = &OwnPort;
}

int32_t FamilyDriverSession::RegisterPages(uint32_t pageFlags) {
  int32_t count = DriverSession::RegisterPages(pageFlags);
  if (!Model || (pageFlags & kPagesGraphics) == 0) return count;
  count += AddPage("PAGE_STOCK");
  count += AddPage("PAGE_OPTIONS");
  return count;
}

void FamilyDriverSession::GetFileNameRules(NameRules* record) {
  record->required = true;
  record->upperCase = true;
  record->maxLength = kFileNameLimit;
  record->allowed.Release();
  record->forbidden.Release();
}

bool FamilyDriverSession::ValidateFileName(NameRequest* request) {
  OString name = request->value;
  name.Trim(kWhiteSpace);
  const std::u16string_view characters = name.GetWide();
  if (characters.empty() || characters.size() > kFileNameLimit) {
    request->caption = GetString(kRefusalCaption);
    request->message = GetString(kWrongLength);
    request->message.Replace("%1", "1");
    request->message.Replace("%2", OString::FromInt(kFileNameLimit, 0));
    return false;
  }
  name.MakeUpper();
  for (const char16_t* at = name.GetWide(); *at != 0; ++at) {
    if (kNameCharacters.find(*at) != std::u16string_view::npos) continue;
    request->caption = GetString(kRefusalCaption);
    request->message = GetString(kWrongCharacter);
    return false;
  }
  request->value = name;
  request->result = name;
  return true;
}

bool FamilyDriverSession::HasU1Commands() {
  return Model && static_cast<OstrelModel*>(Model)->HasU1Commands();
}

bool FamilyDriverSession::SendCommand(int32_t action, const U1Command& command) {
  if (!Port) return false;
  OString title;
  GetActionTitle(&title, action);
  const bool isOpen = Port->OpenJob(title) != 0;
  if (isOpen) *Port << command;
  Port->CloseJob();
  return isOpen && !Port->SendFailed;
}

bool FamilyDriverSession::DoAction(ActionContext* context, int32_t action) {
  if (!context) return false;
  switch (action) {
    case kActionCut:
      return SendCommand(action, CutCommand());
    case kActionDeviceReset:
      if (HasU1Commands()) return SendCommand(action, DeviceResetCommand());
      break;
    case kActionDiagnostics:
      if (HasU1Commands()) return SendCommand(action, DiagnosticsCommand());
      break;
    case kActionInformation:
      return Model && RunDialog(context->Owner, "*:^INFORMATION");
    case kActionPowerManagement:
      if (HasU1Commands()) return RunDialog(context->Owner, "DLG_POWERMANAGEMENT");
      break;
    default:
      break;
  }
  return DriverSession::DoAction(context, action);
}

uint32_t FamilyDriverSession::GetActionFlags(ActionContext* context, int32_t action) {
  switch (action) {
    case kActionCut:
      return kActionExists;
    case kActionInformation:
      return kActionExists | kActionOpensDialog;
    case kActionDeviceReset:
      if (HasU1Commands()) return kActionExists | kActionLockable;
      break;
    case kActionDiagnostics:
      if (HasU1Commands()) return kActionExists;
      break;
    case kActionPowerManagement:
      if (HasU1Commands()) return kActionExists | kActionOpensDialog | kActionLockable;
      break;
    default:
      break;
  }
  return DriverSession::GetActionFlags(context, action);
}

}  // namespace ostvt
