// What the buttons and lists of the Page Setup page do.
#include "core/DriverPath.h"
#include "language/resource.h"
#include "model/PrinterModel.h"
#include "platform/SystemVersion.h"
#include "settings/DevModeOverlay.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "settings/StockNames.h"
#include "settings/StockPapers.h"
#include "ui/StockEditorRules.h"
#include "ui/StockOfDevMode.h"
#include "ui/windows/PageSetupPage.h"
#include "ui/windows/PresetsDialog.h"
#include "ui/windows/StockEditorDialog.h"

namespace ostvt {
namespace {

constexpr char kStockEditor[] = "*:PAGE_SETUP/^EDIT_STOCK";
constexpr char kPresets[] = "*:PAGE_SETUP/^PRESETS";
constexpr const char* kAdvancedPages[] = {"*:ADVANCED/USER_COMMANDS", "*:ADVANCED/DRIVER_OPTIONS"};

}  // namespace

void PageSetupPage::MakeCurrent(StockItem* item, const StockData& size) {
  if (!item) return;
  WriteStock(*item, size, &Settings());
  // A stock that is too large for the model can't be a device mode's; the user form stands in.
  CurrentStock = FindStockOf(&Session->GetStock(), &Settings(), &CurrentSize);
  if (CurrentStock != item) StockListMark = true;
  PreviewMark = StockControlsMark = true;
}

void PageSetupPage::ChooseStock() {
  auto* item = static_cast<StockItem*>(StockBox.GetSelectedData());
  if (item) MakeCurrent(item, item->IsUserForm() ? UserFormSize : item->Data());
}

void PageSetupPage::DeleteStock() {
  if (!CurrentStock || !IsStockDeletable(*CurrentStock) || Session->IsLocked()) return;
  const int32_t answer =
      ShowMessage(Text(IDS_STOCK_DELETE_QUESTION), CurrentStock->Name, MB_YESNO | MB_ICONQUESTION);
  if (answer != IDYES || !Window) return;
  StockList& stock = Session->GetStock();
  StockItem* next = CurrentStock->GetNext();
  delete CurrentStock;
  CurrentStock = nullptr;
  if (!next) next = stock.GetAt(stock.GetCount() - 1);
  KeepStock(next ? next->Name : OString());
}

bool PageSetupPage::RunStockEditor(StockItem* stock) {
  SessionKeeper keeper(Session);
  Session->DialogArgument = stock;
  const bool done = RunDialog(kStockEditor, StartPage<StockEditorDialog>) == IDOK;
  Session->DialogArgument = nullptr;
  return done && Window;
}

void PageSetupPage::EditStock() {
  if (!CurrentStock) return;
  StockItem edited;
  edited.Data() = CurrentSize;
  edited.Name = CurrentStock->Name;
  edited.PaperId = CurrentStock->PaperId;
  if (!RunStockEditor(&edited)) return;
  FitStockWidth(ReadStockLimits(*Session->Model), &edited);
  const bool locked = Session->IsLocked();
  if (!GetStockEditing(edited, locked, SystemHasForms()).Any()) return;
  if (locked) {
    // The size belongs to the document; the printer's list stays.
    WriteStock(edited, edited.Data(), &Settings());
    StockListMark = PreviewMark = true;
    return;
  }
  CurrentStock->Data() = edited.Data();
  CurrentStock->Name = edited.Name;
  KeepStock(edited.Name);
}

void PageSetupPage::NewStock() {
  if (!CurrentStock || Session->IsLocked()) return;
  StockList& stock = Session->GetStock();
  StockItem made;
  made.Data() = CurrentSize;
  made.Flags = kStockRemovable;
  made.Name = FreeStockName(stock, Text(IDS_STOCK_NEW_NAME));
  if (!RunStockEditor(&made)) return;
  FitStockWidth(ReadStockLimits(*Session->Model), &made);
  if (!StockNames(stock).Take(made.Name)) {
    ShowFailure(Text(IDS_STOCK_NOT_SAVED));
    return;
  }
  auto* item = new StockItem;
  item->Data() = made.Data();
  item->Name = made.Name;
  stock.AddTail(item);
  KeepStock(made.Name);
}

// The numbers of stocks follow their order, so they are given out anew at once: the device mode
// would mean another stock later.
void PageSetupPage::KeepStock(const OString& name) {
  StockList& stock = Session->GetStock();
  CurrentStock = nullptr;
  stock.Normalize();
  stock.Save(Session->Model);
  StockItem* item = FindStockName(stock, name);
  if (item) MakeCurrent(item, item->Data());
  StockListMark = PreviewMark = StockControlsMark = true;
  if (stock.HasChanged()) ShowFailure(Text(IDS_STOCK_NOT_SAVED));
}

void PageSetupPage::OpenAdvanced() {
  if (!Session->Windows) return;
  const OString name = CurrentStock ? CurrentStock->Name : OString();
  Session->Windows->RunSheet(Session, Window, Text(IDS_ADVANCED_TITLE), kAdvancedPages);
  if (!Window) return;
  // The options may have changed the model's limits, and with them which stocks can be had; if they
  // were applied, in a sheet that was cancelled, too.
  StockList& stock = Session->GetStock();
  CurrentStock = nullptr;
  stock.Normalize();
  StockItem* item = FindStockName(stock, name);
  if (item && !item->IsUserForm() && item->PaperId != Settings().Get(&PublicDevMode::dmPaperSize))
    MakeCurrent(item, item->Data());
  StockListMark = PreviewMark = StockControlsMark = true;
}

void PageSetupPage::OpenPresets() {
  if (Session->IsLocked()) return;
  RunDialog(kPresets, StartPage<PresetsDialog>);
  if (!Window) return;
  CurrentPreset = nullptr;
  PresetListMark = true;
  SendToSiblings(kSiblingUpdate, 1);
}

void PageSetupPage::ChoosePreset() {
  auto* preset = static_cast<PresetItem*>(PresetBox.GetSelectedData());
  if (!preset || preset->GetDevMode().IsEmpty()) return;
  DevMode& settings = Settings();
  OverlayDevMode(preset->GetDevMode(), &settings);
  // Numbers follow the order of the list, which has changed since if another stock came.
  const StockItem* stock = Session->GetStock().FindByName(settings.GetFormName());
  if (stock && stock->PaperId != 0) {
    settings.Set(&PublicDevMode::dmPaperSize, stock->PaperId);
  } else if (!stock && !settings.GetFormName().IsEmpty()) {
    // Its number may be another stock's by now, its size still is what was meant.
    settings.Set(&PublicDevMode::dmPaperSize, kUserPaperId);
  }
  StockPapers papers(Session->Model, &Session->GetStock());
  settings.Validate(Session->Model, &papers);
  settings.SetPresetName(preset->Name);
  StockListMark = StockControlsMark = PreviewMark = true;
  SendToSiblings(kSiblingUpdate, 1);
}

}  // namespace ostvt
