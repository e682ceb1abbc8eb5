#include "ui/windows/RunDialog.h"

#include "platform/Module.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

HINSTANCE Instance() { return static_cast<HINSTANCE>(platform::ModuleHandle()); }

}  // namespace

int32_t RunSessionDialog(DriverSession* session, HWND owner, const OString& templateName,
                         DLGPROC startProcedure) {
  const DLGTEMPLATE* dialog = ResourcesOf(session).LoadTemplate(templateName);
  if (!dialog) return 0;
  SessionKeeper keeper(session);
  DevMode before;
  before.Assign(session->DevModeBuffer);
  const DialogStart start = {0, session};
  const INT_PTR result = DialogBoxIndirectParamW(Instance(), dialog, owner, startProcedure,
                                                 reinterpret_cast<LPARAM>(&start));
  if (result <= 0) return 0;
  if (result == IDCANCEL && !before.IsEmpty()) session->DevModeBuffer.Assign(before);
  return static_cast<int32_t>(result);
}

HWND CreateSessionDialog(DriverSession* session, HWND owner, const OString& templateName,
                         DLGPROC startProcedure) {
  const DLGTEMPLATE* dialog = ResourcesOf(session).LoadTemplate(templateName);
  if (!dialog) return nullptr;
  const DialogStart start = {0, session};
  return CreateDialogIndirectParamW(Instance(), dialog, owner, startProcedure,
                                    reinterpret_cast<LPARAM>(&start));
}

}  // namespace ostvt
