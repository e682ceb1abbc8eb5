// A 16-bit partner's request for a property sheet. The partner writes what it wants under its
// launch key, shows a channel window and waits for the messages of platform/Channel.h.
#pragma once

#include <cstdint>

#include "platform/Channel.h"

namespace ostvt {

class DriverSession;

// Shows a sheet of the pages that the session has registered, in front of or, with
// `joinsProperties`, in step with the host's own sheet; the sheet's result.
using LaunchSheetFunction = int32_t (*)(DriverSession* session, bool joinsProperties);

// Wakes the partner behind `channel`, which is not null, serves its request and tells it the
// result: the sheet's; 1 where it joined the host's; 2 when the printer can't be opened or is none
// of ours, or where `showSheet` is null since nothing can be shown.
void ServeLaunch(platform::ChannelWindow channel, const char* channelName,
                 LaunchSheetFunction showSheet);

}  // namespace ostvt
