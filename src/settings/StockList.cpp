#include "settings/StockList.h"

#include <algorithm>
#include <string_view>

#include "core/Crc.h"
#include "core/DriverPath.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/StockNames.h"
#include "settings/TextCrc.h"

namespace ostvt {
namespace {

constexpr char kUserFormName[] = "USER";
constexpr char kUserFormNameOn16BitPath[] = "User Defined";
constexpr int32_t kMicronsPerTenth = 100;

// Thousandths from a field in tenths of a millimetre. The lower limit counts when they contradict.
int32_t Limit(int16_t tenths, Measure lowest, Measure highest) {
  const int32_t length = tenths * kMicronsPerTenth;
  return std::max(std::min(length, highest.ToMicrons()), lowest.ToMicrons());
}

// What margins leave of a page.
int32_t Without(int32_t page, int32_t firstMargin, int32_t secondMargin) {
  return SumOfLengths(page, -int64_t{firstMargin}, -int64_t{secondMargin});
}

}  // namespace

void StockList::Build(PrinterModel* model) {
  ClearAll();
  Model = model;
  if (model) AddTail(MakeUserForm(model));
}

StockItem* StockList::MakeUserForm(PrinterModel* model) {
  auto* item = new StockItem;
  item->PaperId = kUserPaperId;
  item->Flags = kStockUserForm;
  item->Name = DriverOnNtPath ? kUserFormName : kUserFormNameOn16BitPath;
  item->Width = model->GetDefaultX().ToMicrons();
  item->Height = model->GetDefaultY().ToMicrons();
  item->LeftMargin = item->RightMargin = model->GetEdgeAllowance().ToMicrons();
  return item;
}

void StockList::ReplaceUserForm(StockItem* item) {
  for (StockItem* old = GetFirst(); old;) {
    StockItem* next = old->GetNext();
    if (old->IsUserForm()) delete old;
    old = next;
  }
  AddHead(item);
}

bool StockList::AddImported(StockItem* item, StockNames* names) {
  if (item->IsUserForm()) {
    ReplaceUserForm(item);
    return true;
  }
  if (!names->Take(item->Name)) {
    delete item;
    return false;
  }
  AddTail(item);
  return true;
}

StockItem* StockList::FindByName(const OString& name) const {
  // Most names differ in what is quickly told.
  const std::u16string_view wide = name.GetWide();
  for (StockItem* item = GetFirst(); item; item = item->GetNext()) {
    if (item->PaperId != 0 && wide == item->Name.GetWide() &&
        CompareStockNames(item->Name, name) == 0) {
      return item;
    }
  }
  return nullptr;
}

StockItem* StockList::FindById(int16_t id) const {
  for (StockItem* item = GetFirst(); item; item = item->GetNext()) {
    if (item->PaperId == id) return item;
  }
  return nullptr;
}

StockItem* StockList::FindForDevMode(const DevMode& devMode) const {
  const bool hasId = devMode.HasFields(kFieldPaperSize);
  if (!hasId && devMode.HasFields(kFieldFormName)) {
    if (StockItem* item = FindByName(devMode.GetFormName())) return item;
  }
  const int16_t id =
      hasId ? std::max(devMode.Get(&PublicDevMode::dmPaperSize), kUserPaperId) : kUserPaperId;
  StockItem* item = FindById(id);
  return item ? item : FindById(kUserPaperId);
}

StockItem* StockList::ResolveForDevMode(const DevMode& devMode) {
  StockItem* item = FindForDevMode(devMode);
  if (!item || !item->IsUserForm() || !Model) return item;
  if (const int16_t width = devMode.Get(&PublicDevMode::dmPaperWidth)) {
    item->Width = Without(Limit(width, Model->GetMinimumX(), Model->GetMaximumX()),
                          item->LeftMargin, item->RightMargin);
  }
  if (const int16_t length = devMode.Get(&PublicDevMode::dmPaperLength)) {
    item->Height = Without(Limit(length, Model->GetMinimumY(), Model->GetMaximumY()),
                           item->TopMargin, item->BottomMargin);
  }
  return item;
}

StockItem* StockList::GetAt(int32_t index) const {
  if (index < 0) return nullptr;
  StockItem* item = GetFirst();
  while (item && index-- > 0) item = item->GetNext();
  return item;
}

uint32_t StockList::GetChecksum() const {
  uint32_t crc = 0;
  uint32_t position = 0;
  for (const StockItem* item = GetFirst(); item; item = item->GetNext(), ++position) {
    crc = TextCrc(item->Name, crc);
    crc = CRC32(&position, sizeof(position), crc);
    crc = CRC32(&item->Data(), sizeof(StockData), crc);
  }
  return crc;
}

}  // namespace ostvt
