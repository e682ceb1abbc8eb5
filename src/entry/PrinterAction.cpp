#include "entry/PrinterAction.h"

#include "settings/DriverSession.h"
#include "settings/SessionActions.h"
#include "settings/SessionEnd.h"

namespace ostvt {

bool RunAction(DriverSession* session, void* parent, int32_t action) {
  SessionKeeper keeper(session);
  ActionContext query{session, nullptr};
  if ((session->GetActionFlags(&query, action) & kActionExists) == 0) return false;
  ActionContext context{session, parent};
  return session->DoAction(&context, action);
}

}  // namespace ostvt
