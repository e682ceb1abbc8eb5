#include "entry/PrinterAction.h"

#include "settings/DriverSession.h"
#include "settings/SessionActions.h"

namespace ostvt {

bool RunAction(DriverSession* session, void* parent, int32_t action) {
  ActionContext query{session, nullptr};
  if ((session->GetActionFlags(&query, action) & kActionExists) == 0) return false;
  ActionContext context{session, parent};
  return session->DoAction(&context, action);
}

}  // namespace ostvt
