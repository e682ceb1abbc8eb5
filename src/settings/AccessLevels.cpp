#include "settings/AccessLevels.h"

#include <algorithm>

#include "core/DriverPath.h"
#include "platform/Accounts.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kLocalLevel[] = "Settings:Local Access Level";
constexpr char kNetworkLevel[] = "Settings:Network Access Level";

int32_t DefaultLevel() { return DriverOnNtPath ? 2 : 1; }

}  // namespace

int32_t GetUserAccessLevel() { return DriverOnNtPath ? platform::UserLevel() : 1; }

int32_t GetLocalAccessLevel(const PrinterRegistry& store) {
  const int32_t level = store.ReadInt(kLocalLevel, DefaultLevel());
  return DriverOnNtPath ? level : std::min(level, 1);
}

int32_t GetNetworkAccessLevel(const PrinterRegistry& store) {
  return store.ReadInt(kNetworkLevel, DefaultLevel());
}

void SetLocalAccessLevel(PrinterRegistry* store, int32_t level) {
  store->WriteInt(kLocalLevel, level);
}

void SetNetworkAccessLevel(PrinterRegistry* store, int32_t level) {
  store->WriteInt(kNetworkLevel, level);
}

int32_t GetRequiredAccessLevel(const PrinterRegistry& store, bool sharingInForce) {
  if (!store.IsRemote) return GetLocalAccessLevel(store);
  return sharingInForce ? GetNetworkAccessLevel(store) : 0;
}

}  // namespace ostvt
