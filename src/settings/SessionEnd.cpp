#include "settings/SessionEnd.h"

#include "settings/DriverSession.h"

namespace ostvt {

void EndSession(DriverSession* session) {
  if (!session) return;
  if (session->KeeperCount > 0) {
    session->IsEnded = true;
  } else {
    delete session;
  }
}

SessionKeeper::SessionKeeper(DriverSession* session) : Session(session) {
  if (Session) ++Session->KeeperCount;
}

SessionKeeper::~SessionKeeper() {
  if (!Session || --Session->KeeperCount > 0 || !Session->IsEnded) return;
  // The destructor may show a window itself, which is no reason to be deleted once more.
  Session->IsEnded = false;
  delete Session;
}

}  // namespace ostvt
