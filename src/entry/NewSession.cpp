#include "entry/NewSession.h"

#include "settings/DriverSession.h"
#include "ui/PlatformWindows.h"

namespace ostvt {

DriverSession* NewSession() {
  DriverSession* session = CreateDriverSession();
  if (session) session->Windows = PlatformWindows();
  return session;
}

}  // namespace ostvt
