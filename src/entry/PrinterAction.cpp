#include "entry/PrinterAction.h"

#include "settings/DriverSession.h"

namespace ostvt {
namespace {

constexpr uint32_t kActionExists = 1;

}  // namespace

bool RunAction(DriverSession* session, void* parent, int32_t action) {
  ActionContext query{session, nullptr};
  if ((session->GetActionFlags(&query, action) & kActionExists) == 0) return false;
  ActionContext context{session, parent};
  return session->DoAction(&context, action);
}

}  // namespace ostvt
