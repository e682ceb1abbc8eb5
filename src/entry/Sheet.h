// The steps that both kinds of property sheet share. The host keeps the session as opaque user data
// from the first call to the last.
#pragma once

#include <string_view>

#include "core/OString.h"
#include "entry/PlatformRecords.h"

namespace ostvt {

class DriverSession;

// A result of the sheet calls: something that is needed is missing.
inline constexpr int32_t kSheetFailure = -1;

inline DriverSession* SessionOf(const PropSheetUiInfo* info) {
  return reinterpret_cast<DriverSession*>(info->UserData);
}

// Registers the session's pages with the host and gives the session into its keeping. Always 1.
int32_t StartDeviceSheet(DriverSession* session, PropSheetUiInfo* info);
int32_t StartDocumentSheet(DriverSession* session, PropSheetUiInfo* info);
// Title and icon. -1 without a session or a header.
int32_t FillInfoHeader(const PropSheetUiInfo* info, PropSheetUiInfoHeader* header);
// Passes the user's OK or Cancel on to the caller's device mode and the printer; `header` is null
// for a device sheet, which has neither. -1 without a session or a result.
int32_t ApplySheetResult(PropSheetUiInfo* info, const SetResultInfo* setResult,
                         const DocumentPropertyHeader* header);
// The end of the session; null is allowed. Hosts that never tell a result leave what was applied to
// this call, which then passes it on as for OK; `header` as above.
void EndSheet(PropSheetUiInfo* info, const DocumentPropertyHeader* header);

// The shell's own program, by the path of the program that runs: its sheets edit a printer's
// defaults.
bool IsExplorer(std::u16string_view programPath);

}  // namespace ostvt
