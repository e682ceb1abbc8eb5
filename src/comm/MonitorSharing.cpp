// The configuration that a print server shares with its clients.
#include "comm/MonitorLink.h"
#include "comm/SharedText.h"
#include "comm/XpmlText.h"
#include "store/PrinterId.h"
#include "store/TrueStore.h"

namespace ostvt {
namespace {

constexpr char kShadowBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";
constexpr char kUserSharing[] = "USER:Printers/[PRINTER]/Configuration Sharing";
constexpr char kServerSharing[] = "SETTINGS:Configuration Sharing";

constexpr int32_t kShares = 1;

bool IsBlocked(const PrinterRegistry& own) { return own.ReadByte(kShadowBlocked, 0) == 1; }

// A number of any width: other programs write it too.
bool TakesPart(const PrinterRegistry& own) {
  if (own.GetValueSize(kUserSharing) == 1) return own.ReadByte(kUserSharing, 1) != 0;
  return own.ReadDword(kUserSharing, 1) != 0;
}

}  // namespace

void MonitorLink::SetShadowBlocked(bool value) {
  PrinterRegistry store = OwnStore();
  if (value) {
    store.WriteByte(kShadowBlocked, 1);
  } else {
    store.Delete(kShadowBlocked, false);
  }
}

bool MonitorLink::IsSharingInForce() {
  const PrinterRegistry own = OwnStore();
  if (own.IsRemote && !TakesPart(own)) return false;
  // Whoever turned communication off is not to wait for a monitor, here nor below.
  if (!GetNetworkCommunication()) return false;
  EnsureFresh();
  return ConfigurationSharing == kShares;
}

bool MonitorLink::IsSharingPossible() {
  const PrinterRegistry own = OwnStore();
  if (!own.IsRemote) return own.IsBidiEnabled();
  return GetNetworkCommunication() && EnsureFresh() && ConfigurationSharing == kShares;
}

void MonitorLink::SetConfigurationSharing(bool value) {
  PrinterRegistry store = Store();
  if (store.IsRemote) {
    TrueStore(store).WriteByte(kUserSharing, value);
  } else {
    store.WriteByte(kServerSharing, value);
    ConfigurationSharing = value;
  }
}

// What keeps the monitor from being asked at all.
bool MonitorLink::IsExchangeOff(const PrinterRegistry& store) const {
  return !store.IsShadowed || IsBlocked(TrueStore(store)) || !GetNetworkCommunication();
}

bool MonitorLink::PullShadow() {
  PrinterRegistry store = Store();
  if (IsExchangeOff(store)) return true;
  if (!Refresh()) return false;
  if (!IsSharingInForce()) return true;
  SharedChecksums before(store);
  OString request = kXpmlPackAnswer;
  request += kXpmlSettingsRequest;
  request += ListSharedBranches(store, &before);
  request += kXpmlSettingsEnd;
  request += kXpmlEncodeEnd;
  Buffer answer;
  const bool isAnswered = SendRequestWithResponse(request, &answer) != 0 && !IsAnswerRefused;
  if (isAnswered && (answer.Size == 0 || ImportShared(store, &answer))) return true;
  // What changed here is still to be pushed.
  before.Restore();
  return false;
}

bool MonitorLink::PushShadow() {
  PrinterRegistry store = Store();
  if (IsExchangeOff(store)) return true;
  if (!Refresh()) return false;
  if (!IsSharingInForce()) return true;
  SharedChanges changes(store);
  if (changes.IsEmpty()) return true;
  const OString packed = changes.Pack();
  OString request = kXpmlSettingsUpdate;
  request += kXpmlPackedBody;
  request += packed;
  request += kXpmlEncodeEnd;
  request += kXpmlSettingsEnd;
  if (!packed.IsEmpty() && SendRequest(request) != 0) return true;
  changes.Forget();
  return false;
}

}  // namespace ostvt
