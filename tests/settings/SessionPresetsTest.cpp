// A session's presets, and its device mode in settings files.
#include "core/OFile.h"
#include "settings/DriverSession.h"
#include "settings/StoredDevMode.h"
#include "tests/settings/PresetFixture.h"

namespace ostvt::test {
namespace {

class NamedStrings : public ResourceContext {
 public:
  OString GetString(int32_t number) override { return OString("#") + OString::FromInt(number, 1); }
};

class SessionPresets : public PresetTest {
 protected:
  void SetUp() override {
    PresetTest::SetUp();
    Session = std::make_unique<DriverSession>();
    Open(Session.get());
  }
  void TearDown() override {
    Session.reset();
    PresetTest::TearDown();
  }
  void Open(DriverSession* session) {
    session->Initialize(nullptr, nullptr, 0, Printer->Name());
    session->Resources = std::make_unique<NamedStrings>();
    ASSERT_NE(nullptr, session->Model);
  }
  void Store(const char* name, int32_t labelCount) {
    PresetList list;
    list.Load(Model());
    AddPresetTo(&list, Model(), name, labelCount);
    ASSERT_TRUE(list.Save(Model()));
  }
  std::string Stored() {
    PresetList list;
    list.Load(Model());
    return ContentOf(list);
  }
  void SetLabelCount(int32_t count) {
    Session->DevModeBuffer.GetOstrelSettings()->labelCount = count;
  }
  int32_t StoredLabelCount() {
    PrinterId id(Printer->Name());
    const Buffer& stored = id.Printer().DevMode;
    return LabelCountOf(DevMode(stored.Data, stored.Size));
  }
  std::string Exported() {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      Session->ExportDefaultDevMode(file);
    }
    return Files.Get("out.sds");
  }
  bool Import(const std::string& text) {
    OFile file(Files.Put("in.sds", text).c_str(), kFileShareAll);
    return Session->ImportDefaultDevMode(file, Session->Model);
  }
  // What ExportDefaultDevMode writes of a device mode with this number, behind the opening line.
  std::string RecordOf(int32_t labelCount, const std::string& opening) {
    SetLabelCount(labelCount);
    const std::string text = Exported();
    return opening + text.substr(text.find("\r\n"));
  }

  TempDirectory Files;
  std::unique_ptr<DriverSession> Session;
};

TEST_F(SessionPresets, ListIsReadOnFirstUse) {
  EXPECT_FALSE(Session->PresetsLoaded);
  Store("A", 5);
  EXPECT_EQ("#4102:0:#4104;#4103:0:#4105;A:5:;", ContentOf(Session->GetPresets()));
  EXPECT_TRUE(Session->PresetsLoaded);
  Store("B", 6);
  EXPECT_EQ(3, Session->GetPresets().GetCount());
}

TEST_F(SessionPresets, BuiltInEntriesAreTheSessionsSettingsAndTheModels) {
  SetLabelCount(7);
  Session->DevModeBuffer.SetPresetName("A");
  const PresetItem* current = Session->GetPresets().GetFirst();
  EXPECT_EQ(kPresetCurrent, current->Flags);
  EXPECT_EQ(20, current->Priority);
  EXPECT_EQ(7, LabelCountOf(current->Block));
  EXPECT_TRUE(current->Block.Matches(Session->DevModeBuffer));
  DevMode named;
  FillDevMode(&named, Model(), 0);
  named.SetPresetName("#4102");
  EXPECT_EQ(named.GetPresetNameCrc(), current->Block.GetPresetNameCrc());

  const PresetItem* factory = current->GetNext();
  EXPECT_EQ(kPresetFactory, factory->Flags);
  EXPECT_EQ(10, factory->Priority);
  named.SetPresetName("#4103");
  EXPECT_EQ("", Difference(named.GetBlock(), factory->Block.GetBlock(), 1516));
}

TEST_F(SessionPresets, WithoutALanguageModuleTextsAreEmpty) {
  Session->Resources.reset();
  EXPECT_EQ(":0:;:0:;", ContentOf(Session->GetPresets()));
}

TEST_F(SessionPresets, WithoutAModelThereAreNone) {
  DriverSession session;
  EXPECT_EQ(0, session.GetPresets().GetCount());
  session.Save();
  TempDirectory files;
  OFile file(files.Path("x").c_str(), kFileWrite | kFileCreate);
  session.ExportDefaultDevMode(file);
  EXPECT_EQ(0u, file.GetSize());
  EXPECT_FALSE(session.ImportDefaultDevMode(file, nullptr));
}

TEST_F(SessionPresets, SecondCallReplacesBuiltInEntries) {
  Session->GetPresets();
  SetLabelCount(9);
  Session->AddBuiltInPresets();
  EXPECT_EQ("#4102:9:#4104;#4103:0:#4105;", ContentOf(Session->Presets));
}

TEST_F(SessionPresets, ReloadReadsAnewAndTheNextUseAddsBuiltInEntries) {
  AddPresetTo(&Session->GetPresets(), Model(), "Unsaved", 1);
  Store("A", 5);
  SetLabelCount(9);
  Session->Reload();
  EXPECT_TRUE(Session->PresetsLoaded);
  EXPECT_EQ("A:5:;", ContentOf(Session->Presets));
  EXPECT_EQ("#4102:9:#4104;#4103:0:#4105;A:5:;", ContentOf(Session->GetPresets()));
}

TEST_F(SessionPresets, SaveWritesPresetsThatWereLoaded) {
  AddPresetTo(&Session->Presets, Model(), "NotLoaded", 1);
  Session->Save();
  EXPECT_EQ("", Stored());
  AddPresetTo(&Session->GetPresets(), Model(), "A", 5);
  Session->Save();
  EXPECT_EQ("A:5:;", Stored());
}

TEST_F(SessionPresets, UnchangedPresetsAreNotWritten) {
  Store("A", 5);
  Session->GetPresets();
  Session->Save();
  const std::string before = StoreDump();
  DriverSession other;
  Open(&other);
  other.GetPresets();
  EXPECT_FALSE(other.Presets.Save(other.Model));
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SessionPresets, CopiedListIsSavedByTheSessionThatGotIt) {
  Store("A", 5);
  DriverSession other;
  Open(&other);
  AddPresetTo(&other.GetPresets(), Model(), "B", 6);
  Session->CopyPresetList(other);
  EXPECT_EQ("#4102:0:#4104;#4103:0:#4105;A:5:;B:6:;", ContentOf(Session->GetPresets()));
  EXPECT_EQ("A:5:;", Stored());
  Session->Save();
  EXPECT_EQ("A:5:;B:6:;", Stored());
}

TEST_F(SessionPresets, CurrentSettingsAreNotCopied) {
  SetLabelCount(7);
  DriverSession other;
  Open(&other);
  Session->CopyPresetList(other);
  EXPECT_EQ("#4102:7:#4104;#4103:0:#4105;", ContentOf(Session->GetPresets()));
}

TEST_F(SessionPresets, PresetInForceIsFoundByTheDeviceMode) {
  Store("A", 5);
  EXPECT_TRUE(Session->GetPresets().FindForDevMode(Session->DevModeBuffer)->Name == "#4103");
  SetLabelCount(5);
  EXPECT_TRUE(Session->GetPresets().FindForDevMode(Session->DevModeBuffer)->Name == "A");
  SetLabelCount(6);
  EXPECT_TRUE(Session->GetPresets().FindForDevMode(Session->DevModeBuffer)->Name == "#4102");
}

TEST_F(SessionPresets, DefaultDeviceModeIsWrittenAsARecord) {
  const std::string text = Exported();
  const std::string head = "<preset default='true'>\r\nData=WkxJQvQFAA";  // "ZLIB", 1524
  EXPECT_EQ(head, text.substr(0, head.size()));
  EXPECT_EQ("\r\n</preset>\r\n\r\n", text.substr(text.size() - 15));
  EXPECT_EQ(2, std::count(text.begin(), text.end(), '<'));
}

TEST_F(SessionPresets, DefaultDeviceModeIsReadBackAndStoredWithThePrinter) {
  const std::string text = RecordOf(5, "<preset default='true'>");
  SetLabelCount(6);
  EXPECT_TRUE(Import(text));
  EXPECT_EQ(5, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(5, StoredLabelCount());
}

TEST_F(SessionPresets, DefaultDeviceModeOnThe16BitPathStaysInTheSession) {
  const std::string text = RecordOf(5, "<preset default='true'>");
  const int32_t before = StoredLabelCount();
  const PathFlags flags(false, false);
  SetLabelCount(6);
  EXPECT_TRUE(Import(text));
  EXPECT_EQ(5, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(before, StoredLabelCount());
}

TEST_F(SessionPresets, OverlayLeavesHeaderAndHalftoneBlock) {
  Session->DevModeBuffer.SetOrientation(1);
  const std::string text = RecordOf(5, "<preset default='true'>");
  Session->DevModeBuffer.SetOrientation(0);
  uint8_t* block = Session->DevModeBuffer.GetBlock();
  block[0] = 'X';      // dmDeviceName
  block[220 + 8] = 9;  // HTFlags
  SetLabelCount(6);
  EXPECT_TRUE(Import(text));
  EXPECT_EQ('X', block[0]);
  EXPECT_EQ(9, block[220 + 8]);
  EXPECT_EQ(1, Session->DevModeBuffer.GetOrientation());
  EXPECT_EQ(220u, Session->DevModeBuffer.GetPublicSize());
}

TEST_F(SessionPresets, OrdinaryPresetsAndThoseForOthersAreNoDefault) {
  for (const char* opening :
       {"<preset>", "<preset default='false'>", "<preset default='true' model='Other'>",
        "<preset default='true' driver='xyz'>", "<stock default='true'>"}) {
    const std::string text = RecordOf(5, opening);
    SetLabelCount(6);
    EXPECT_FALSE(Import(text)) << opening;
    EXPECT_EQ(6, LabelCountOf(Session->DevModeBuffer)) << opening;
  }
  const std::string text = RecordOf(5, "<preset model='Ostrel*' default='true'>");
  SetLabelCount(6);
  EXPECT_TRUE(Import(text));
}

TEST_F(SessionPresets, RecordWithoutABlockIsNoDefault) {
  SetLabelCount(6);
  EXPECT_FALSE(Import("<preset default='true'>\r\n</preset>\r\n"));
  EXPECT_FALSE(Import("<preset default='true'>\r\nData=damaged\r\n</preset>\r\n"));
  const std::string text = RecordOf(5, "<preset default='true'>");
  EXPECT_FALSE(Import(text.substr(0, text.find("</preset>"))));
  SetLabelCount(6);
  EXPECT_FALSE(Import(""));
  EXPECT_EQ(6, LabelCountOf(Session->DevModeBuffer));
}

TEST_F(SessionPresets, LaterOfTwoDefaultsWinsAndABlockIsNotTakenTwice) {
  const std::string first = RecordOf(5, "<preset default='true'>");
  const std::string second = RecordOf(7, "<preset default='true'>");
  EXPECT_TRUE(Import(first + second));
  EXPECT_EQ(7, LabelCountOf(Session->DevModeBuffer));
  SetLabelCount(6);
  EXPECT_TRUE(Import(first + "<preset default='true'>\r\n</preset>\r\n"));
  EXPECT_EQ(5, LabelCountOf(Session->DevModeBuffer));
}

TEST_F(SessionPresets, HandleThatMayNotWriteIsHelpedByTheName) {
  SetLabelCount(5);
  platform::PrinterHandle handle =
      platform::OpenPrinter(Printer->Name().GetWide(), platform::kPrinterAccessUse);
  StoreDevMode(handle, Printer->Name(), Session->DevModeBuffer);
  platform::ClosePrinter(handle);
  EXPECT_EQ(5, StoredLabelCount());
}

}  // namespace
}  // namespace ostvt::test
