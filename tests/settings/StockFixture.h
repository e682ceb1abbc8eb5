// Stock lists under test, and lists as text.
#pragma once

#include <string>
#include <vector>

#include "settings/StockList.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {

// A wider model, so that stocks of some size fit: at most 110 x 500 mm, at least 10 x 5 mm, by
// default 100 x 150 mm.
inline ModelText WideModelText() {
  ModelText text;
  text.Model =
      "Stock.Default.X=100 mm\n"
      "Stock.Default.Y=150 mm\n"
      "Stock.Minimum.X=10 mm\n"
      "Stock.Minimum.Y=5 mm\n"
      "Stock.Maximum.X=110 mm\n"
      "Stock.Maximum.Y=500 mm\n"
      "Resolution=203\n";
  return text;
}

inline StockItem* MakeStock(const OString& name, int32_t width = 50000, int32_t height = 25000,
                            int32_t flags = kStockRemovable) {
  auto* item = new StockItem;
  item->Name = name;
  item->Width = width;
  item->Height = height;
  item->Flags = flags;
  return item;
}

inline StockItem* AddStockTo(StockList* list, const OString& name, int32_t width = 50000,
                             int32_t height = 25000, int32_t flags = kStockRemovable) {
  StockItem* item = MakeStock(name, width, height, flags);
  list->AddTail(item);
  return item;
}

// "USER,Shelf"; names in UTF-8.
inline std::string NamesOf(const StockList& list) {
  std::string names;
  for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    OString name = item->Name;
    name.SetCodePage(kCodePageUtf8);
    names += (item == list.GetFirst() ? "" : ",") + std::string(name.GetNarrow());
  }
  return names;
}

// "USER=256,Shelf=257".
inline std::string NumbersOf(const StockList& list) {
  std::string text;
  for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    text += (item == list.GetFirst() ? "" : ",") + std::string(item->Name.GetNarrow()) + "=" +
            std::to_string(item->PaperId);
  }
  return text;
}

// Everything that a list holds, for comparison.
inline std::string ContentOf(const StockList& list) {
  std::string text;
  for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    text += std::string(item->Name.GetNarrow()) + ":" + std::to_string(item->Width) + "x" +
            std::to_string(item->Height) + "," + std::to_string(item->LeftMargin) + "," +
            std::to_string(item->RightMargin) + "," + std::to_string(item->TopMargin) + "," +
            std::to_string(item->BottomMargin) + "," + std::to_string(item->Flags) + "#" +
            std::to_string(item->PaperId) + ";";
  }
  return text;
}

inline std::vector<uint8_t> DataBytes(const std::vector<uint32_t>& numbers) {
  std::vector<uint8_t> bytes;
  for (const uint32_t number : numbers) {
    for (int shift = 0; shift < 32; shift += 8)
      bytes.push_back(static_cast<uint8_t>(number >> shift));
  }
  return bytes;
}

class StockTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter(WideModelText());
  }
};

}  // namespace ostvt::test
