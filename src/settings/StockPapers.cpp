#include "settings/StockPapers.h"

namespace ostvt {

PaperForm ToPaperForm(const StockItem& item) {
  PaperForm paper;
  paper.Id = item.PaperId;
  paper.PageWidth = item.GetPageWidth();
  paper.PageHeight = item.GetPageHeight();
  paper.IsUserForm = item.IsUserForm();
  paper.Name = item.Name;
  return paper;
}

void StockPapers::Load() {
  List = &Own;
  List->Load(Model);
  Loaded = true;
  Current = List->GetFirst();
  CurrentIndex = 0;
}

int32_t StockPapers::LoadPapers(PrinterModel* model) {
  Model = model;
  Load();
  return List->GetCount();
}

PaperEntry StockPapers::GetPaper(int32_t index) {
  if (!Loaded) Load();
  if (!Current || index < CurrentIndex) {
    Current = List->GetFirst();
    CurrentIndex = 0;
  }
  for (; Current && CurrentIndex < index; ++CurrentIndex) Current = Current->GetNext();
  PaperEntry paper;
  if (!Current) return paper;
  paper.PaperId = static_cast<uint16_t>(Current->PaperId);
  paper.Width = Current->GetPageWidth();
  paper.Height = Current->GetPageHeight();
  paper.Name = Current->Name;
  return paper;
}

bool StockPapers::ResolvePaper(const DevMode& devMode, PaperForm* paper) {
  if (!Loaded) Load();
  StockItem* item = List->FindForDevMode(devMode);
  if (!item) return false;
  const StockData stored = item->Data();
  if (item->IsUserForm()) List->ResolveForDevMode(devMode);
  *paper = ToPaperForm(*item);
  item->Data() = stored;
  return true;
}

}  // namespace ostvt
