// Saving presets in several threads and processes, some of which are killed.
#include "tests/settings/PresetFixture.h"
#include "tests/settings/SavesAtOnce.h"

namespace ostvt::test {
namespace {

constexpr int kPresets = 30;

// A list that shares some names with that of another `kind`, at other places and with other blocks.
void Fill(PrinterModel* model, int kind, PresetList* list) {
  for (int i = 0; i < kPresets; ++i) {
    const int32_t number = i * (kind + 2);
    AddPresetTo(list, model, OString("P") + OString::FromInt(number, 4), 1000 * kind + number,
                kind == 0 ? "first" : "second");
  }
  list->ListCrc = 0;
}

bool SaveKind(PrinterModel* model, int kind) {
  PresetList list;
  Fill(model, kind, &list);
  return list.Save(model);
}

class PresetKill : public PresetTest {
 protected:
  void SetUp() override {
    PresetTest::SetUp();
    for (int kind = 0; kind < 2; ++kind) {
      PresetList list;
      Fill(Model(), kind, &list);
      Contents[kind] = ContentOf(list);
    }
  }
  std::string Stored() {
    PresetList list;
    list.Load(Model());
    return ContentOf(list);
  }

  std::string Contents[2];
};

TEST_F(PresetKill, TwoSessionsSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoThreads(Printer->Name(), Contents, SaveKind, [this] { return Stored(); });
}

#ifdef __linux__

TEST_F(PresetKill, KilledSaveLeavesTheOldListOrTheNewOne) {
  ExpectOldOrNewListAfterKill(Model(), Contents, SaveKind, [this] { return Stored(); });
}

TEST_F(PresetKill, TwoProcessesSavingAtOnceLeaveOneOfTheTwoLists) {
  ExpectOneListAfterTwoProcesses(Model(), Contents, SaveKind, [this] { return Stored(); });
}

#endif

}  // namespace
}  // namespace ostvt::test
