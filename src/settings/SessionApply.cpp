// What follows an apply.
#include "core/Crc.h"
#include "core/DriverPath.h"
#include "settings/DriverSession.h"
#include "settings/LaunchKey.h"

namespace ostvt {
namespace {

constexpr uint32_t kChannelApplied = 1026;  // of the partner's window
// The function of the sheet host's callback that takes a result, and the result.
constexpr uint32_t kSheetSetResult = 9;
constexpr intptr_t kSheetOk = 1;

}  // namespace

void DriverSession::NotifyApplied() {
  IsApplied = true;
  if (!DevModeBuffer.IsEmpty() && !SavedDevMode.IsEmpty()) {
    const uint32_t crc = CRC32(DevModeBuffer.GetBlock(), DevModeBuffer.GetSize(), 0);
    if (crc != DevModeCrc) {
      DevModeCrc = crc;
      SavedDevMode.Assign(DevModeBuffer);
      if (!DriverOnNtPath && ChannelWindow) {
        LaunchKey(ChannelName).WriteDevMode(DevModeBuffer);
        platform::PostToChannel(ChannelWindow, kChannelApplied, DefaultsMode);
      }
    }
  }
  if (SheetCallback && PageHandles && PageCount > 0 && PageHandles[0]) {
    SheetCallback(SheetHandle, kSheetSetResult, reinterpret_cast<intptr_t>(PageHandles[0]),
                  kSheetOk);
  }
}

}  // namespace ostvt
