// Saving stock in several threads and processes, some of which are killed.
#include "tests/settings/SavesAtOnce.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

constexpr int kStocks = 60;

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

bool SaveKind(PrinterModel* model, int kind) {
  StockList list;
  Fill(model, kind, &list);
  return list.Save(model);
}

class StockKill : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    for (int kind = 0; kind < 2; ++kind) {
      StockList list;
      Fill(Model(), kind, &list);
      Contents[kind] = ContentOf(list);
    }
  }
  std::string Stored() {
    StockList list;
    list.Load(Model());
    return ContentOf(list);
  }

  std::string Contents[2];
};

// The registry has no transactions: there it is the order that keeps a list whole, and a lock that
// keeps two from mixing.
TEST_F(StockKill, TwoSessionsSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoThreads(Printer->Name(), Contents, SaveKind, [this] { return Stored(); });
}

#ifdef __linux__

TEST_F(StockKill, KilledSaveLeavesTheOldListOrTheNewOne) {
  ExpectOldOrNewListAfterKill(Model(), Contents, SaveKind, [this] { return Stored(); });
}

TEST_F(StockKill, TwoProcessesSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoProcesses(Model(), Contents, SaveKind, [this] { return Stored(); });
}

#endif

}  // namespace
}  // namespace ostvt::test
