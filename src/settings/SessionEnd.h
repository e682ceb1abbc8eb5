// Ending a session while a window of it is open: a host may be destroyed under a dialog of ours,
// and frees the session before the dialog's opener has returned.
#pragma once

namespace ostvt {

class DriverSession;

// Deletes the session, or leaves that to the last SessionKeeper of it. Null is allowed.
void EndSession(DriverSession* session);

// Held by whoever waits for a window of the session and goes on with the session afterwards. Null
// is allowed.
class SessionKeeper {
 public:
  explicit SessionKeeper(DriverSession* session);
  ~SessionKeeper();
  SessionKeeper(const SessionKeeper&) = delete;
  SessionKeeper& operator=(const SessionKeeper&) = delete;

 private:
  DriverSession* Session;
};

}  // namespace ostvt
