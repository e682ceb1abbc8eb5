#include "ui/windows/PageTable.h"

#include "ui/windows/AboutPage.h"
#include "ui/windows/DriverOptionsPage.h"
#include "ui/windows/InsertCommandDialog.h"
#include "ui/windows/NetworkErrorDialog.h"
#include "ui/windows/PageSetupPage.h"
#include "ui/windows/PresetsDialog.h"
#include "ui/windows/StockEditorDialog.h"
#include "ui/windows/UserCommandsPage.h"

namespace ostvt {
namespace {

struct PageRow {
  const char* Template;
  DLGPROC Start;
};

constexpr PageRow kPages[] = {
    {"*:PAGE_SETUP", StartPage<PageSetupPage>},
    {"*:PAGE_SETUP/^EDIT_STOCK", StartPage<StockEditorDialog>},
    {"*:PAGE_SETUP/^PRESETS", StartPage<PresetsDialog>},
    {"*:ADVANCED/USER_COMMANDS", StartPage<UserCommandsPage>},
    {"*:ADVANCED/USER_COMMANDS/INSERT", StartPage<InsertCommandDialog>},
    {"*:ADVANCED/DRIVER_OPTIONS", StartPage<DriverOptionsPage>},
    {"*:^NETWORK_ERROR/UI_CLIENT", StartPage<NetworkErrorDialog>},
    {"*:^NETWORK_ERROR/UI_SERVER", StartPage<NetworkErrorDialog>},
    {"*:ABOUT", StartPage<AboutPage>},
};

}  // namespace

DLGPROC FindStartProcedure(const OString& templateName) {
  for (const PageRow& row : kPages) {
    if (templateName == row.Template) return row.Start;
  }
  return nullptr;
}

}  // namespace ostvt
