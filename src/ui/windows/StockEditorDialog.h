// The dialog that edits one stock.
#pragma once

#include "settings/StockItem.h"
#include "ui/StockEditorRules.h"
#include "ui/windows/UPage.h"

namespace ostvt {

// The system's forms can be added to and changed by users.
bool SystemHasForms();

// Edits the StockItem that the session's DialogArgument names; it changes with OK only.
class StockEditorDialog : public UPage {
 public:
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  bool CanApply() override;
  void OnApply() override;
  const char* GetHelpTopic() override;

 private:
  // Takes what was typed into a field, if anything was, and shows what came of it.
  void TakeField(int32_t id);
  void TakeFields();
  void Show(int32_t id, const OString& text);
  void ShowLinkedMargin(int32_t from);
  // As it will be kept.
  OString TypedName() const;
  void RefuseName(int32_t message, const OString& name, const OString& proposal);

  StockItem* Target = nullptr;  // the opener's
  StockData Edited = {};
  StockLimits Limits;
  StockEditing Editing = {};
  uint32_t Typed = 0;  // a bit for each field whose text is the user's
  bool Writing = false;
};

}  // namespace ostvt
