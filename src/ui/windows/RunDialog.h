// Dialogs of a session, modal and modeless.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

class DriverSession;

// What a dialog's first message brings: the page's session. A property page has its description in
// this place, whose first word is its size and never 0.
struct DialogStart {
  uintptr_t Kind = 0;  // no property page
  DriverSession* Session;
};

// The id that ended the dialog; after 2 (cancelled) the session's device mode is as it was before.
// 0 when it couldn't be shown: no such template, no window to be had.
int32_t RunSessionDialog(DriverSession* session, HWND owner, const OString& templateName,
                         DLGPROC startProcedure);
// Null when it couldn't be made.
HWND CreateSessionDialog(DriverSession* session, HWND owner, const OString& templateName,
                         DLGPROC startProcedure);

}  // namespace ostvt
