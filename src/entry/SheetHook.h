// The host's own page of a device sheet, tailored: its button for a test page prints the driver's.
//
// The host offers no way to reach its page, so the calling thread's window messages are watched
// until the page has shown itself. One sheet a session; all calls on the sheet's thread.
#pragma once

namespace ostvt {

class DriverSession;

// Nothing where there are no windows. The session's end removes the hook, by its AtEnd.
// With `opensLastPage` the sheet turns to its last page when the host's page has shown itself.
void InstallSheetHook(DriverSession* session, bool opensLastPage);
// Ends the watch and gives the page back. Null and sessions without a hook are allowed.
void RemoveSheetHook(DriverSession* session);

}  // namespace ostvt
