// The font tables of a session: when they are read and written.
#include "fonts/BarCodeFont.h"
#include "platform/Spooler.h"
#include "settings/DriverSession.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class SessionFonts : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter();
    Handle = platform::OpenPrinter(Printer->Name().GetWide(), platform::kPrinterAllAccess);
    ASSERT_NE(nullptr, Handle);
  }
  void TearDown() override {
    platform::ClosePrinter(Handle);
    SettingsTest::TearDown();
  }
  void Open(DriverSession* session) { session->Initialize(Handle, nullptr, 0); }

  // A record in each of the five tables.
  static void AddFonts(DriverSession* session, const char* name) {
    auto* downloaded = new DownloadedFont;
    SetFullName(&downloaded->Info, name);
    session->DownloadedFonts.Append(downloaded);
    auto data = std::make_unique<BarCodeFont>();
    data->SetName(name);
    session->DataFonts.AddOrReplace(std::move(data));
    auto mapping = std::make_unique<FontMapping>();
    mapping->Name = mapping->FullName = mapping->Target = name;
    session->FontMappings.Add(std::move(mapping));
    auto optional = std::make_unique<OptionalFont>();
    optional->Name = name;
    session->OptionalFonts.Add(std::move(optional));
    auto set = std::make_unique<CustomCharacterSet>();
    set->Name = name;
    session->FontEncodings.Add(std::move(set));
  }
  static std::string CountsOf(const DriverSession& session) {
    return std::to_string(session.DownloadedFonts.GetCount()) + "," +
           std::to_string(session.DataFonts.GetCount()) + "," +
           std::to_string(session.FontMappings.GetCount()) + "," +
           std::to_string(session.OptionalFonts.GetCount()) + "," +
           std::to_string(session.FontEncodings.GetCount());
  }

  platform::PrinterHandle Handle = nullptr;
};

TEST_F(SessionFonts, SaveWritesAllTablesButTheCustomCharacterSets) {
  DriverSession session;
  Open(&session);
  EXPECT_EQ("0,0,0,0,0", CountsOf(session));
  AddFonts(&session, "A");
  session.Save();
  DriverSession other;
  Open(&other);
  EXPECT_EQ("1,1,1,1,0", CountsOf(other));
}

TEST_F(SessionFonts, SessionReadsAllFiveTables) {
  DriverSession session;
  Open(&session);
  AddFonts(&session, "A");
  session.Save();
  EXPECT_TRUE(session.FontEncodings.Save(session.Model));
  DriverSession other;
  Open(&other);
  EXPECT_EQ("1,1,1,1,1", CountsOf(other));
  EXPECT_TRUE(other.OptionalFonts.GetAt(0)->Name == "A");
}

TEST_F(SessionFonts, ReloadLeavesOptionalFontsUntouched) {
  DriverSession session;
  Open(&session);
  AddFonts(&session, "A");
  session.Save();
  AddFonts(&session, "B");
  EXPECT_EQ("2,2,2,2,2", CountsOf(session));
  session.Reload();
  EXPECT_EQ("1,1,1,2,2", CountsOf(session));
  EXPECT_TRUE(session.OptionalFonts.GetAt(1)->Name == "B");
  session.Save();
  DriverSession other;
  Open(&other);
  EXPECT_EQ("1,1,1,2,0", CountsOf(other));
}

TEST_F(SessionFonts, OpeningWithFontsChangesNothingInTheStore) {
  {
    DriverSession session;
    Open(&session);
    AddFonts(&session, "A");
    session.Save();
  }
  const std::string before = StoreDump();
  {
    DriverSession session;
    Open(&session);
  }
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SessionFonts, SavingTwiceLeavesTheStoreAsItWas) {
  DriverSession session;
  Open(&session);
  AddFonts(&session, "A");
  session.Save();
  const std::string before = StoreDump();
  session.Save();
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SessionFonts, SessionWithoutAModelHasNoFonts) {
  DriverSession session;
  session.Initialize(nullptr, nullptr, 0, "No Such Printer");
  EXPECT_EQ(nullptr, session.Model);
  EXPECT_EQ("0,0,0,0,0", CountsOf(session));
  session.Save();
  session.Reload();
}

}  // namespace
}  // namespace ostvt::test
