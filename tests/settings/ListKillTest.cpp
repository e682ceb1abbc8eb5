// Saving stock and presets in several threads and processes, some of which are killed.
#include <type_traits>

#include "tests/settings/PresetFixture.h"
#include "tests/settings/SavesAtOnce.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

constexpr int kStocks = 60;
constexpr int kPresets = 30;

// A list that shares some names with that of another `kind`, at other places and with other data.
void Fill(PrinterModel* model, int kind, StockList* list) {
  list->Build(model);
  list->GetFirst()->Height = 10000 + kind;
  for (int i = 0; i < kStocks; ++i) {
    const int number = i * (kind + 2);
    AddStockTo(list, OString("L") + OString::FromInt(number, 4), 1000 * kind + number);
  }
  AddStockTo(list, kind == 0 ? "A" : "Z", kind, 1, kStockOfModel);
  list->Normalize();
  list->ListCrc = 0;
}

void Fill(PrinterModel* model, int kind, PresetList* list) {
  for (int i = 0; i < kPresets; ++i) {
    const int32_t number = i * (kind + 2);
    AddPresetTo(list, model, OString("P") + OString::FromInt(number, 4), 1000 * kind + number,
                kind == 0 ? "first" : "second");
  }
  list->ListCrc = 0;
}

template <typename List>
bool SaveKind(PrinterModel* model, int kind) {
  List list;
  Fill(model, kind, &list);
  return list.Save(model);
}

template <typename List>
class ListKill : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter(WideModelText());
    for (int kind = 0; kind < 2; ++kind) {
      List list;
      Fill(Model(), kind, &list);
      Contents[kind] = ContentOf(list);
    }
  }
  std::string Stored() {
    List list;
    list.Load(Model());
    return ContentOf(list);
  }

  std::string Contents[2];
};

class ListName {
 public:
  template <typename List>
  static std::string GetName(int) {
    return std::is_same_v<List, StockList> ? "Stock" : "Presets";
  }
};
using Lists = testing::Types<StockList, PresetList>;
TYPED_TEST_SUITE(ListKill, Lists, ListName);

// The registry has no transactions: there it is the order that keeps a list whole, and a lock that
// keeps two from mixing.
TYPED_TEST(ListKill, TwoSessionsSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoThreads(this->Printer->Name(), this->Contents, SaveKind<TypeParam>,
                               [this] { return this->Stored(); });
}

#ifdef __linux__

TYPED_TEST(ListKill, KilledSaveLeavesTheOldListOrTheNewOne) {
  ExpectOldOrNewListAfterKill(this->Model(), this->Contents, SaveKind<TypeParam>,
                              [this] { return this->Stored(); });
}

TYPED_TEST(ListKill, TwoProcessesSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoProcesses(this->Model(), this->Contents, SaveKind<TypeParam>,
                                 [this] { return this->Stored(); });
}

#endif

}  // namespace
}  // namespace ostvt::test
