#include "fonts/EncodingSettings.h"

#include "tests/model/EncodingLists.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

constexpr char kList[] = "Settings:Fonts/Encoding";
constexpr char kLogic[] = "Settings:Fonts/Code Page Select Logic";

// A model with the encodings A, B and C.
class EncodingSettingsTest : public ModelFixture {
 protected:
  void SetUp() override {
    ModelFixture::SetUp();
    DefineChain("Font=Font:F\n");
    Define("Font.d",
           "[F]\nEncodings=Encodings:E\nEncodings.TrueType.Class=T\n"
           "Encodings.Preferred.Default=A;B;C\n");
    Define("Encodings.d", "[E]\nA.Classes=T\nB.Classes=T\nC.Classes=T\n");
    Model = &InstallAndOpen();
  }
  PrinterRegistry& Store() { return Model->GetStore(); }
  std::string Stored() {
    OStringArray list;
    return Store().ReadMultiString(kList, &list) ? TextOf(list) : "<none>";
  }

  PrinterModel* Model = nullptr;
  EncodingSettings Settings;
};

TEST_F(EncodingSettingsTest, MissingListIsTheModels) {
  Settings.CodePageSelectLogic = 1;
  Settings.Load(Model);
  EXPECT_EQ("A,B,C", TextOf(Settings.Encodings));
  EXPECT_EQ(0, Settings.CodePageSelectLogic);
}

TEST_F(EncodingSettingsTest, UsersOrderIsReadAsItStands) {
  Store().WriteMultiString(kList, ListOf("C,X,A"));
  Store().WriteInt(kLogic, 1);
  Settings.Load(Model);
  EXPECT_EQ("C,X,A", TextOf(Settings.Encodings));
  EXPECT_EQ(1, Settings.CodePageSelectLogic);
}

TEST_F(EncodingSettingsTest, EmptyListOfTheUserIsNotMissing) {
  Store().WriteMultiString(kList, OStringArray());
  Settings.Load(Model);
  EXPECT_EQ("", TextOf(Settings.Encodings));
}

TEST_F(EncodingSettingsTest, SelectLogicIs0Or1) {
  for (const int stored : {-1, 2, 256, 65537}) {
    Store().WriteInt(kLogic, stored);
    Settings.Load(Model);
    EXPECT_EQ(0, Settings.CodePageSelectLogic) << stored;
  }
}

TEST_F(EncodingSettingsTest, SelectLogicIsStoredAsANumberAlways) {
  Settings.Load(Model);
  Settings.CodePageSelectLogic = 1;
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ(1, Store().ReadInt(kLogic, 7));
  EXPECT_EQ(4, Store().GetValueSize(kLogic));
  EXPECT_EQ("<none>", Stored());
  Settings.CodePageSelectLogic = 0;
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ(0, Store().ReadInt(kLogic, 7));
}

TEST_F(EncodingSettingsTest, SelectLogicIsStoredAs0Or1) {
  Settings.Load(Model);
  for (const int logic : {-1, 2, 256, 65537}) {
    Settings.CodePageSelectLogic = logic;
    EXPECT_TRUE(Settings.Save(Model));
    EXPECT_EQ(0, Store().ReadInt(kLogic, 7)) << logic;
  }
}

TEST_F(EncodingSettingsTest, ChangedListIsWritten) {
  Settings.Load(Model);
  Settings.Encodings = ListOf("B,A,C");
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("B,A,C", Stored());
}

TEST_F(EncodingSettingsTest, UnchangedListIsNotWritten) {
  Store().WriteMultiString(kList, ListOf("B,A"));
  Settings.Load(Model);
  Store().WriteMultiString(kList, ListOf("X"));
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("X", Stored());
}

TEST_F(EncodingSettingsTest, ModelsOwnListIsNotKept) {
  Store().WriteMultiString(kList, ListOf("B,A"));
  Settings.Load(Model);
  Settings.Encodings = ListOf("A,B,C");
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("<none>", Stored());
}

TEST_F(EncodingSettingsTest, StoredCopyOfTheModelsListStaysWhileNothingChanges) {
  Store().WriteMultiString(kList, ListOf("A,B,C"));
  Settings.Load(Model);
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("A,B,C", Stored());
}

TEST_F(EncodingSettingsTest, TerminatorsTellListsApart) {
  Store().WriteMultiString(kList, ListOf("AB,C"));
  Settings.Load(Model);
  Settings.Encodings = ListOf("A,BC");
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("A,BC", Stored());
}

TEST_F(EncodingSettingsTest, RestoringReadsTheModelsListAndStoresNothingYet) {
  Store().WriteMultiString(kList, ListOf("B"));
  Store().WriteInt(kLogic, 1);
  Settings.Load(Model);
  Settings.RestoreDefaults(Model);
  EXPECT_EQ("A,B,C", TextOf(Settings.Encodings));
  EXPECT_EQ(0, Settings.CodePageSelectLogic);
  EXPECT_EQ("B", Stored());
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("<none>", Stored());
  EXPECT_EQ(0, Store().ReadInt(kLogic, 7));
}

TEST_F(EncodingSettingsTest, SavingTwiceIsSavingOnce) {
  Settings.Load(Model);
  Settings.Encodings = ListOf("C");
  EXPECT_TRUE(Settings.Save(Model));
  Store().Delete(kList, false);
  EXPECT_TRUE(Settings.Save(Model));
  EXPECT_EQ("<none>", Stored());
}

TEST_F(EncodingSettingsTest, WithoutAModelThereIsNothing) {
  Settings.Load(nullptr);
  EXPECT_EQ(0, Settings.Encodings.Count);
  EXPECT_FALSE(Settings.Save(nullptr));
}

}  // namespace
}  // namespace ostvt::test
