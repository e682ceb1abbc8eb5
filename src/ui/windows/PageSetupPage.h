// The first page of a document's sheet: stock, orientation, mirror and negative image, presets.
#pragma once

#include "settings/StockItem.h"
#include "ui/SampleBitmap.h"
#include "ui/windows/UComboBox.h"
#include "ui/windows/UPage.h"

namespace ostvt {

class PresetItem;

class PageSetupPage : public UPage {
 public:
  ~PageSetupPage() override;
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  const char* GetHelpTopic() override;

 private:
  void LoadSample();
  // The parts of Update.
  void OpenAboutFirst();
  void ShowCopyright();
  void FillStock();
  void ShowStockControls(bool initial);
  void DrawPreview();
  void FillPresets();
  void SelectPreset();
  void ShowLocked();

  // The commands; each changes data and sets marks.
  void ChooseStock();
  void DeleteStock();
  void EditStock();
  void NewStock();
  void OpenAdvanced();
  void OpenPresets();
  void ChoosePreset();
  // The dialog that edits `stock`. True for OK.
  bool RunStockEditor(StockItem* stock);
  // The list in order after a change, and saved; `name` is the device mode's stock from then on.
  void KeepStock(const OString& name);
  // Makes `item` (may be null: nothing happens) in that size the device mode's stock.
  void MakeCurrent(StockItem* item, const StockData& size);

  UComboBox StockBox;
  UComboBox PresetBox;
  StockItem* CurrentStock = nullptr;  // of the session's list
  StockData CurrentSize = {};         // of the user form the document's own size
  StockData UserFormSize = {};        // as the stock list shows it
  PresetItem* CurrentPreset = nullptr;
  SampleBitmap Sample;
  HBITMAP SamplePicture = nullptr;

  // What the next Update does again.
  bool StockListMark = false;
  bool PresetListMark = false;
  bool StockControlsMark = false;
  bool PreviewMark = false;
  bool FirstActivationMark = true;
};

}  // namespace ostvt
