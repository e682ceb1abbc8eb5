// The numbers of the actions that printers of every family share; a family may add its own. 1 to 13
// are open to other programs, the rest to the driver's pages.
#pragma once

#include <cstdint>

namespace ostvt {

inline constexpr int32_t kActionTestPage = 1;
inline constexpr int32_t kActionEmptyPage = 2;
inline constexpr int32_t kActionFeed = 4;  // an empty page too
inline constexpr int32_t kActionCacheSheet = 5;
inline constexpr int32_t kActionClearCache = 6;
inline constexpr int32_t kActionSendFile = 28;
inline constexpr int32_t kActionSendCommand = 29;
inline constexpr int32_t kActionDriverSheet = 38;
inline constexpr int32_t kActionStatusSheet = 40;
inline constexpr int32_t kActionFontSheet = 49;
inline constexpr int32_t kActionLogging = 50;

// Bits of DriverSession::GetActionFlags.
inline constexpr uint32_t kActionExists = 1;
inline constexpr uint32_t kActionOpensDialog = 2;
inline constexpr uint32_t kActionLockable = 4;  // disabled while the session is locked

// Of the action's title in the language modules; 0 for an action without one.
int32_t ActionTitleOf(int32_t action);

}  // namespace ostvt
