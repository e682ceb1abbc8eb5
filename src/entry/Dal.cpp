#include "comm/MonitorLink.h"
#include "entry/Exports.h"
#include "entry/NewSession.h"
#include "entry/PrinterAction.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "settings/StockRecords.h"
#include "store/PrinterId.h"

namespace ostvt {
namespace {

// The actions that clients may call; those above are the pages' own.
constexpr int32_t kFirstAction = 1;
constexpr int32_t kLastAction = 13;
// The flags of an action that clients see: it exists, it opens a dialog.
constexpr uint32_t kVisibleActionFlags = 3;

constexpr uint32_t kNullSessionFlags = 0xFFFFFFFE;
constexpr int32_t kNoSuchStock = -1;
constexpr int32_t kNullSession = -2;

bool IsClientAction(int32_t action) { return action >= kFirstAction && action <= kLastAction; }

DriverSession* AsSession(void* session) { return static_cast<DriverSession*>(session); }

StockList& StockOf(void* session) { return AsSession(session)->GetStock(); }

}  // namespace
}  // namespace ostvt

using namespace ostvt;

void* OSTVT_API DAL_Printer_Open(void* printer) {
  // Before the model is read, which Initialize does before it pulls.
  const OString name = PrinterId(printer).GetFullName();
  if (!name.IsEmpty()) MonitorLink(name).PullShadow();
  DriverSession* session = NewSession();
  if (session) session->Initialize(printer, nullptr, 0);
  return session;
}

void OSTVT_API DAL_Printer_Close(void* session) { EndSession(AsSession(session)); }

int32_t OSTVT_API DAL_Printer_Action(void* session, int32_t action) {
  return DAL_Printer_ActionUI(session, nullptr, action);
}

int32_t OSTVT_API DAL_Printer_ActionUI(void* session, void* parent, int32_t action) {
  if (!session || !IsClientAction(action)) return 0;
  return RunAction(AsSession(session), parent, action);
}

uint32_t OSTVT_API DAL_Printer_ActionFlag(void* session, int32_t action) {
  if (!session) return kNullSessionFlags;
  if (!IsClientAction(action)) return 0;
  ActionContext context{AsSession(session), nullptr};
  return AsSession(session)->GetActionFlags(&context, action) & kVisibleActionFlags;
}

void OSTVT_API DAL_Settings_Load(void* session) {
  if (session) AsSession(session)->Reload();
}

void OSTVT_API DAL_Settings_Save(void* session) {
  if (session) AsSession(session)->Save();
}

void OSTVT_API DAL_Printer_SendFile(void* session, const char16_t* path) {
  if (session && path) AsSession(session)->SendFile(path);
}

void OSTVT_API DAL_Settings_Export(void* session, const char16_t* path, uint32_t sections) {
  if (session && path) AsSession(session)->ExportSettings(path, sections, nullptr);
}

// What these two bring is in the store when they return.
void OSTVT_API DAL_Settings_Import(void* session, const char16_t* path, uint32_t sections) {
  if (!session || !path) return;
  AsSession(session)->ImportSettings(path, sections, nullptr);
  AsSession(session)->Save();
}

void OSTVT_API DAL_Settings_Reset(void* session, uint32_t sections) {
  if (!session) return;
  AsSession(session)->ResetSettings(sections);
  AsSession(session)->Save();
}

int32_t OSTVT_API DAL_Stock_Enumerate(void* session, int32_t index, void* record, int32_t size) {
  if (!session) return kNullSession;
  if (size < 0) return kNoSuchStock;
  return EnumerateStock(StockOf(session), index, record, static_cast<uint32_t>(size));
}

int32_t OSTVT_API DAL_Stock_EnumerateName(void* session, const char16_t* name, void* record,
                                          int32_t size) {
  if (!session) return kNullSession;
  if (size < 0) return kNoSuchStock;
  return EnumerateStockByName(StockOf(session), name, record, static_cast<uint32_t>(size));
}

int32_t OSTVT_API DAL_Stock_EnumerateUpdate(void* session, void* record) {
  if (!session) return kNullSession;
  return UpdateStock(&StockOf(session), record);
}

int32_t OSTVT_API DAL_Stock_Add(void* session, const char16_t* name) {
  return session && AddStock(&StockOf(session), name);
}

int32_t OSTVT_API DAL_Stock_Remove(void* session, int32_t index) {
  return session && RemoveStock(&StockOf(session), index);
}

int32_t OSTVT_API DAL_Stock_RemoveName(void* session, const char16_t* name) {
  return session && RemoveStockByName(&StockOf(session), name);
}
