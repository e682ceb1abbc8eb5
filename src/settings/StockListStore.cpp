// A stock list's life in the store: the user form among the printer's settings, all other stocks as
// numbered forms, those of the model apart.
#include <memory>
#include <vector>

#include "core/Crc.h"
#include "model/PrinterModel.h"
#include "platform/KeyStore.h"
#include "settings/StockForms.h"
#include "settings/StockList.h"
#include "settings/TextCrc.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kUserForm[] = "Settings:User Form";
constexpr char kForms[] = "Stock:";

OString ModelForms(PrinterModel* model) {
  return kForms + ORegistry::Escape(model->GetOemTag()) + "/";
}

void LoadForms(const ORegistry& store, const OString& path, StockList* list) {
  const int32_t total = CountStockForms(store, path);
  for (int32_t i = 1; i <= total; ++i) {
    StockItem* item = ReadStockForm(store, StockFormPath(path, i));
    if (!item) continue;
    // There is one user form, and it isn't kept here.
    item->Flags &= ~kStockUserForm;
    list->AddTail(item);
  }
}

// A stock without a name couldn't be read back.
std::vector<const StockItem*> SelectForms(const StockList& list, bool ofModel) {
  std::vector<const StockItem*> items;
  for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (!item->IsUserForm() && item->IsOfModel() == ofModel && !item->Name.IsEmpty()) {
      items.push_back(item);
    }
  }
  return items;
}

const StockItem* FirstUserForm(const StockList& list) {
  const StockItem* item = list.GetFirst();
  while (item && !item->IsUserForm()) item = item->GetNext();
  return item;
}

}  // namespace

void StockList::Load(PrinterModel* model) {
  Build(model);
  if (model) {
    PrinterRegistry& store = model->GetStore();
    const OString modelForms = ModelForms(model);
    if (HasLoneStockForm(store, kUserForm) || CountStockForms(store, kForms) > 0 ||
        CountStockForms(store, modelForms) > 0) {
      // Nobody may write between the first value and the last.
      const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
      if (StockItem* userForm = ReadLoneStockForm(store, kUserForm)) {
        userForm->Flags |= kStockUserForm;
        ReplaceUserForm(userForm);
      }
      LoadForms(store, kForms, this);
      LoadForms(store, modelForms, this);
    }
  }
  Normalize();
  ListCrc = GetChecksum();
}

uint32_t StockList::StoredUserFormCrc(PrinterModel* model) {
  if (!model) return 0;
  const std::unique_ptr<StockItem> item(ReadLoneStockForm(model->GetStore(), kUserForm));
  if (!item) return 0;
  const uint32_t crc = CRC32(&item->Data(), sizeof(StockData), 0);
  return TextCrc(item->Name, crc);
}

void StockList::FollowOptions(bool userFormStays) {
  if (!Model) return;
  if (!userFormStays) {
    StockItem* userForm = ReadLoneStockForm(Model->GetStore(), kUserForm);
    if (!userForm) userForm = MakeUserForm(Model);
    userForm->Flags |= kStockUserForm;
    ReplaceUserForm(userForm);
  }
  Normalize();
}

bool StockList::Save(PrinterModel* model) {
  const uint32_t crc = GetChecksum();
  if (crc == ListCrc || !model) return false;
  PrinterRegistry& store = model->GetStore();
  KeyStoreTransaction writing(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!writing.IsOpen()) return false;
  const bool together = writing.CanRollBack();
  const EntryWriting way = together ? EntryWriting::kTogether : EntryWriting::kOneByOne;

  const StockItem* userForm = FirstUserForm(*this);
  bool done = !userForm || WriteLoneStockForm(store, kUserForm, *userForm, way);
  // Where each value stands for itself, who may not change the printer can still keep stocks.
  if (!done && together) return false;
  done = WriteStockForms(store, kForms, SelectForms(*this, false), way) && done;
  if (!done && together) return false;
  done = WriteStockForms(store, ModelForms(model), SelectForms(*this, true), way) && done;
  if (!done || !writing.Commit()) return false;
  ListCrc = crc;
  return true;
}

}  // namespace ostvt
