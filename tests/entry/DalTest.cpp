#include <gtest/gtest.h>

#include "entry/PrinterAction.h"
#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

class Dal : public EntryTest {
 protected:
  void TearDown() override {
    DAL_Printer_Close(Session);
    Handle.reset();
    EntryTest::TearDown();
  }
  void Open() {
    AddPrinter();
    Handle = std::make_unique<OpenHandle>(Printer->Name());
    Session = DAL_Printer_Open(*Handle);
    ASSERT_NE(Session, nullptr);
  }
  DriverSession* Object() { return static_cast<DriverSession*>(Session); }

  std::unique_ptr<OpenHandle> Handle;
  void* Session = nullptr;
};

TEST(DalNullSession, GivesTheValuesOfTheTable) {
  GuardedBlock record(156);
  DAL_Printer_Close(nullptr);
  EXPECT_EQ(DAL_Printer_Action(nullptr, 1), 0);
  EXPECT_EQ(DAL_Printer_ActionUI(nullptr, nullptr, 1), 0);
  EXPECT_EQ(DAL_Printer_ActionFlag(nullptr, 1), 0xFFFFFFFE);
  EXPECT_EQ(DAL_Printer_ActionFlag(nullptr, 0), 0xFFFFFFFE);
  DAL_Printer_SendFile(nullptr, u"file");
  DAL_Settings_Load(nullptr);
  DAL_Settings_Save(nullptr);
  DAL_Settings_Export(nullptr, u"file", 0xFFFFFFFF);
  DAL_Settings_Import(nullptr, u"file", 0xFFFFFFFF);
  DAL_Settings_Reset(nullptr, 0xFFFFFFFF);
  EXPECT_EQ(DAL_Stock_Enumerate(nullptr, 0, nullptr, 0), -2);
  EXPECT_EQ(DAL_Stock_Enumerate(nullptr, 0, record.Data(), 156), -2);
  EXPECT_EQ(DAL_Stock_EnumerateName(nullptr, u"USER", nullptr, 0), -2);
  EXPECT_EQ(DAL_Stock_EnumerateUpdate(nullptr, nullptr), -2);
  EXPECT_EQ(DAL_Stock_EnumerateUpdate(nullptr, record.Data()), -2);
  EXPECT_EQ(DAL_Stock_Add(nullptr, u"Shelf"), 0);
  EXPECT_EQ(DAL_Stock_Remove(nullptr, 0), 0);
  EXPECT_EQ(DAL_Stock_RemoveName(nullptr, u"Shelf"), 0);
  EXPECT_EQ(record.Copy(), std::vector<uint8_t>(156, 0xCD));
}

TEST_F(Dal, OpenMakesASessionOnThePrinter) {
  Open();
  EXPECT_EQ(Object()->PrinterName, Printer->Name());
  EXPECT_EQ(Object()->SessionFlags, 0u);
  EXPECT_EQ(Object()->DevModeBuffer.GetSize(), 1516u);
}

TEST_F(Dal, SessionWithoutAModelSurvivesClose) {
  void* session = DAL_Printer_Open(nullptr);
  ASSERT_NE(session, nullptr);
  EXPECT_EQ(static_cast<DriverSession*>(session)->Model, nullptr);
  DAL_Settings_Load(session);
  DAL_Settings_Save(session);
  EXPECT_EQ(DAL_Printer_Action(session, 1), 0);
  EXPECT_EQ(DAL_Printer_ActionFlag(session, 1), 0u);
  EXPECT_EQ(DAL_Printer_ActionUI(session, nullptr, 3), 0);
  EXPECT_EQ(DAL_Stock_Enumerate(session, 0, nullptr, 0), 156);
  GuardedBlock record(156);
  DAL_Stock_EnumerateUpdate(session, record.Data());
  EXPECT_EQ(DAL_Stock_Remove(session, 0), 0);
  EXPECT_EQ(DAL_Stock_RemoveName(session, u"None"), 0);
  DAL_Stock_Add(session, u"New");
  const TempDirectory files;
  DAL_Settings_Export(session, files.WidePath(u"out.sds").c_str(), 0xFFFFFFFF);
  files.Put("in.sds", "<model name=\"X\">\r\n");
  DAL_Settings_Import(session, files.WidePath(u"in.sds").c_str(), 0xFFFFFFFF);
  DAL_Settings_Reset(session, 0xFFFFFFFF);
  DAL_Printer_SendFile(session, files.WidePath(u"in.sds").c_str());
  DAL_Printer_Close(session);
}

TEST_F(Dal, ActionOfACacheThatIsNotThereOpensNothing) {
  Open();
  EXPECT_EQ(DAL_Printer_ActionFlag(Session, 5), 0u);
  EXPECT_EQ(DAL_Printer_Action(Session, 5), 0);
  // It has a title, but is no client's.
  EXPECT_EQ(DAL_Printer_ActionFlag(Session, 14), 0u);
}

TEST_F(Dal, ActionsOutside1To13YieldNothing) {
  Open();
  for (int32_t action : {INT32_MIN, -1, 0, 14, 50, INT32_MAX}) {
    EXPECT_EQ(DAL_Printer_ActionFlag(Session, action), 0u) << action;
    EXPECT_EQ(DAL_Printer_Action(Session, action), 0) << action;
    EXPECT_EQ(DAL_Printer_ActionUI(Session, this, action), 0) << action;
  }
}

// Knows actions by itself, to see what the calls hand on.
class ActionSession : public DriverSession {
 public:
  bool DoAction(ActionContext* context, int32_t action) override {
    Owner = context->Owner;
    Done = action;
    return context->Session == this;
  }
  uint32_t GetActionFlags(ActionContext* context, int32_t action) override {
    Asked++;
    EXPECT_EQ(context->Session, this);
    return action == 2 ? 7 : action == 3 ? 6 : action == 13 ? 5 : 0;
  }

  void* Owner = nullptr;
  int32_t Done = 0;
  int Asked = 0;
};

TEST(DalAction, RunsOnlyWhatTheSessionKnows) {
  ActionSession session;
  int window = 0;
  EXPECT_EQ(DAL_Printer_ActionUI(&session, &window, 2), 1);
  EXPECT_EQ(session.Done, 2);
  EXPECT_EQ(session.Owner, &window);
  EXPECT_EQ(DAL_Printer_Action(&session, 13), 1);
  EXPECT_EQ(session.Done, 13);
  EXPECT_EQ(session.Owner, nullptr);
  EXPECT_EQ(DAL_Printer_Action(&session, 3), 0);  // bit 0 is clear
  EXPECT_EQ(session.Done, 13);
  EXPECT_EQ(session.Asked, 3);
}

TEST(DalAction, NumbersOutside1To13AreNotEvenAskedFor) {
  ActionSession session;
  for (int32_t action : {-1, 0, 14, 50}) {
    EXPECT_EQ(DAL_Printer_Action(&session, action), 0);
    EXPECT_EQ(DAL_Printer_ActionFlag(&session, action), 0u);
  }
  EXPECT_EQ(session.Asked, 0);
}

TEST(DalAction, FlagsAreMaskedToTwoBits) {
  ActionSession session;
  EXPECT_EQ(DAL_Printer_ActionFlag(&session, 2), 3u);
  EXPECT_EQ(DAL_Printer_ActionFlag(&session, 3), 2u);
  EXPECT_EQ(DAL_Printer_ActionFlag(&session, 13), 1u);
  EXPECT_EQ(DAL_Printer_ActionFlag(&session, 1), 0u);
}

TEST(DalAction, InternalActionsRunWithoutTheLimit) {
  ActionSession session;
  EXPECT_FALSE(RunAction(&session, nullptr, 14));
  EXPECT_EQ(session.Asked, 1);
}

TEST_F(Dal, StockThatIsNotThereTouchesNoRecord) {
  Open();
  GuardedBlock record(156);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 0, nullptr, 0), 156);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, -1, record.Data(), 0), 156);
  EXPECT_EQ(DAL_Stock_EnumerateName(Session, nullptr, nullptr, 0), 156);
  for (int32_t size : {-1, INT32_MIN}) {
    EXPECT_EQ(DAL_Stock_Enumerate(Session, 0, record.Data(), size), -1);
    EXPECT_EQ(DAL_Stock_EnumerateName(Session, u"USER", record.Data(), size), -1);
  }
  for (int32_t index : {INT32_MIN, -1, 1, INT32_MAX}) {
    EXPECT_EQ(DAL_Stock_Enumerate(Session, index, record.Data(), 156), -1);
    EXPECT_EQ(DAL_Stock_Enumerate(Session, index, nullptr, 156), -1);
    EXPECT_EQ(DAL_Stock_Remove(Session, index), 0);
  }
  EXPECT_EQ(DAL_Stock_EnumerateName(Session, u"Shelf", record.Data(), 156), -1);
  EXPECT_EQ(DAL_Stock_EnumerateName(Session, nullptr, record.Data(), 156), -1);
  EXPECT_EQ(DAL_Stock_EnumerateUpdate(Session, nullptr), -1);
  EXPECT_EQ(DAL_Stock_EnumerateUpdate(Session, record.Data()), 0);
  EXPECT_EQ(DAL_Stock_Add(Session, nullptr), 0);
  EXPECT_EQ(DAL_Stock_RemoveName(Session, nullptr), 0);
  EXPECT_EQ(DAL_Stock_RemoveName(Session, u"Shelf"), 0);
  EXPECT_EQ(record.Copy(), std::vector<uint8_t>(156, 0xCD));
}

TEST_F(Dal, StockIsListedAddedChangedAndRemoved) {
  Open();
  GuardedBlock record(156);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 0, record.Data(), 156), 156);
  EXPECT_EQ(record.Copy()[0], 0);
  EXPECT_EQ(record.Copy()[1], 1);  // 256
  EXPECT_EQ(record.Copy()[4], 'U');
  EXPECT_EQ(DAL_Stock_Add(Session, u"Shelf"), 1);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 1, record.Data(), 156), 156);
  EXPECT_EQ(record.Copy()[4], 'S');
  record.Data()[132] = 99;  // the lowest byte of the width
  record.Data()[133] = record.Data()[134] = record.Data()[135] = 0;

  StockList* stock = &static_cast<DriverSession*>(Session)->GetStock();
  ASSERT_EQ(stock->GetCount(), 2);
  stock->GetAt(1)->Width = 50000;
  stock->Normalize();  // narrow enough to be found
  EXPECT_EQ(DAL_Stock_EnumerateUpdate(Session, record.Data()), 1);
  GuardedBlock again(156);
  EXPECT_EQ(DAL_Stock_EnumerateName(Session, u"Shelf", again.Data(), 156), 156);
  EXPECT_EQ(again.Copy()[132], 99);
  StockList stored;
  stored.Load(Model());
  EXPECT_STREQ(stored.GetAt(1)->Name.GetNarrow(), "Shelf");
  EXPECT_EQ(stored.GetAt(1)->Width, 99);

  EXPECT_EQ(DAL_Stock_RemoveName(Session, u"Shelf"), 1);
  EXPECT_EQ(DAL_Stock_Remove(Session, 0), 1);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 0, again.Data(), 156), -1);
  stored.Load(Model());
  EXPECT_EQ(stored.GetCount(), 1);  // the user form comes back
}

TEST_F(Dal, LoadReadsTheStockAnew) {
  Open();
  EXPECT_EQ(DAL_Stock_Add(Session, u"Shelf"), 1);
  Store().Delete("Stock:", true);
  GuardedBlock record(156);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 1, record.Data(), 156), 156);
  DAL_Settings_Load(Session);
  EXPECT_EQ(DAL_Stock_Enumerate(Session, 1, record.Data(), 156), -1);
}

TEST_F(Dal, SaveWritesTheStockThatChanged) {
  Open();
  auto* session = static_cast<DriverSession*>(Session);
  DAL_Settings_Save(Session);
  EXPECT_FALSE(session->StockLoaded);
  EXPECT_EQ(Store().ReadInt("Stock:Total", -1), -1);
  session->GetStock().GetFirst()->Width = 1234;
  DAL_Settings_Save(Session);
  EXPECT_EQ(Store().ReadInt("Stock:Total", -1), 0);
  StockList stored;
  stored.Load(Model());
  EXPECT_EQ(stored.GetFirst()->Width, 1234);
}

TEST_F(Dal, SaveWritesTheDevModeThatNewSessionsBeginWith) {
  Open();
  Store().Delete("DATA:Initial DevMode", false);
  Object()->DevModeBuffer.SetCopies(9);
  DAL_Settings_Save(Session);
  EXPECT_EQ(WordAt(DriverDefault(), kAtCopies), 9);
}

TEST_F(Dal, NothingIsWrittenWithoutSave) {
  AddPrinter();
  DriverDefault();
  std::string before = StoreDump();
  OpenHandle handle(Printer->Name());
  void* session = DAL_Printer_Open(handle);
  static_cast<DriverSession*>(session)->DevModeBuffer.SetCopies(9);
  DAL_Settings_Load(session);
  DAL_Printer_Close(session);
  EXPECT_EQ(StoreDump(), before);
}

class DalSettings : public Dal {
 protected:
  void SetUp() override {
    Dal::SetUp();
    Open();
    Path = Archives.WidePath(u"settings.sds");
  }
  int32_t StoredStocks() { return Store().ReadInt("Stock:Total", 0); }

  std::u16string Path;
};

TEST_F(DalSettings, ExportWritesTheChosenSectionsToTheFileAndNothingToTheStore) {
  DAL_Stock_Add(Session, u"Shelf");
  const std::string before = StoreDump();
  DAL_Settings_Export(Session, Path.c_str(), kSectionStock);
  const std::string text = Archives.Get("settings.sds");
  EXPECT_EQ(text.find("<driver version='6.6'>\r\n\r\n<stock>\r\nName=Shelf\r\n"), 0u);
  EXPECT_EQ(text.find("<preset"), std::string::npos);
  EXPECT_EQ(StoreDump(), before);
}

TEST_F(DalSettings, ImportIsInTheStoreWhenItReturns) {
  Archives.Put("settings.sds",
               "<stock>\nName=Shelf\n</stock>\n"
               "<font type='Alias'>\nAliasName=Plain\nPrinterFont=Sans\n</font>\n");
  DAL_Settings_Import(Session, Path.c_str(), kSectionAliasFonts);
  EXPECT_EQ(StoredStocks(), 0);
  DAL_Settings_Import(Session, Path.c_str(), 0xFFFFFFFF);
  EXPECT_EQ(StoredStocks(), 1);
  DriverSession other;
  other.Initialize(nullptr, nullptr, 0, Printer->Name());
  EXPECT_EQ(other.FontMappings.GetCount(), 1);
}

TEST_F(DalSettings, ResetIsInTheStoreWhenItReturns) {
  DAL_Stock_Add(Session, u"Shelf");
  Object()->DevModeBuffer.SetCopies(9);
  DAL_Settings_Save(Session);
  ASSERT_EQ(StoredStocks(), 1);
  DAL_Settings_Reset(Session, kSectionStock | kSectionDefaultDevMode);
  EXPECT_EQ(StoredStocks(), 0);
  EXPECT_EQ(WordAt(DriverDefault(), kAtCopies), 1);
}

TEST_F(DalSettings, NullPathsAndFilesThatAreNotThereChangeNothing) {
  DAL_Settings_Save(Session);
  const std::string before = StoreDump();
  DAL_Settings_Export(Session, nullptr, 0xFFFFFFFF);
  DAL_Settings_Export(Session, u"", 0xFFFFFFFF);
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u"", Path.c_str()}) {
    DAL_Settings_Import(Session, name, 0xFFFFFFFF);
    DAL_Printer_SendFile(Session, name);
  }
  EXPECT_EQ(StoreDump(), before);
}

}  // namespace
}  // namespace ostvt::test
