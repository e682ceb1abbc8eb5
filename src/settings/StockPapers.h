// A printer's stock as the papers that capability answers and device modes speak of. Sizes are
// those of the page, margins included.
#pragma once

#include "model/PaperSource.h"
#include "settings/PaperResolver.h"
#include "settings/StockList.h"

namespace ostvt {

// `model` and `list` must outlive it.
class StockPapers : public PaperSource, public PaperResolver {
 public:
  // Of what is stored, read when it is first needed, and not again; of `list`, as it stands, where
  // that is given: a session's, which may have changed since.
  explicit StockPapers(PrinterModel* model, StockList* list = nullptr)
      : Model(model), List(list ? list : &Own), Loaded(list != nullptr) {}

  // Reads what is stored anew.
  int32_t LoadPapers(PrinterModel* model) override;
  PaperEntry GetPaper(int32_t index) override;
  // The size that the user form gets here is this device mode's alone.
  bool ResolvePaper(const DevMode& devMode, PaperForm* paper) override;

 private:
  void Load();

  PrinterModel* Model;
  StockList Own;
  StockList* List;
  bool Loaded;
  // Where GetPaper stands, since papers are asked for in their order.
  StockItem* Current = nullptr;
  int32_t CurrentIndex = 0;
};

// What SetStock of a device mode takes.
PaperForm ToPaperForm(const StockItem& item);

}  // namespace ostvt
