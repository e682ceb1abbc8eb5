#include "settings/DriverOptions.h"

#include "model/ModelDefinition.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class DriverOptionsTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    Options.Bind(Model());
  }
  // "TYPE:HEX BYTES" of a value below "Settings:".
  std::string Stored(const OString& key) const {
    const PrinterRegistry store = Store();
    OString path;
    OString name = "Settings:" + key;
    store.SplitPath(&path, &name);
    uint8_t bytes[256];
    uint32_t type = 0;
    platform::KeyHandle opened = store.OpenKey(path, false);
    const int size = platform::ReadValue(opened, name.GetWide(), bytes, sizeof(bytes), &type);
    platform::CloseKey(opened);
    if (size < 0) return "(none)";
    return std::to_string(type) + ":" + OString::HexOf(bytes, size).GetNarrow();
  }
  uint32_t Synchronization() const { return Store().ReadDword("MODEL:Synchronization", 0); }

  DriverOptions Options;
};

struct FlagCase {
  const char* Key;
  bool Default;
  bool (DriverOptions::*Get)() const;
  void (DriverOptions::*Set)(bool);
};

constexpr FlagCase kFlags[] = {
    {"Disable Copies Limit", false, &DriverOptions::GetDisableCopiesLimit,
     &DriverOptions::SetDisableCopiesLimit},
    {"Data Fonts/Office Compatibility", true, &DriverOptions::GetOfficeCompatibility,
     &DriverOptions::SetOfficeCompatibility},
    {"Specifications/Override", false, &DriverOptions::GetOverride, &DriverOptions::SetOverride},
    {"Logging/Logging", false, &DriverOptions::GetLogging, &DriverOptions::SetLogging},
    {"Logging/Overwrite Files", false, &DriverOptions::GetOverwriteFiles,
     &DriverOptions::SetOverwriteFiles},
    {"Logging/Print Code Recording", false, &DriverOptions::GetPrintCodeRecording,
     &DriverOptions::SetPrintCodeRecording},
    {"Status/Monitor Status", false, &DriverOptions::GetMonitorStatus,
     &DriverOptions::SetMonitorStatus},
    {"Status/Query Before Job", true, &DriverOptions::GetQueryBeforeJob,
     &DriverOptions::SetQueryBeforeJob},
    {"Status/Verify Job Complete", false, &DriverOptions::GetVerifyJobComplete,
     &DriverOptions::SetVerifyJobComplete},
    {"Status/Show On Error", false, &DriverOptions::GetShowOnError, &DriverOptions::SetShowOnError},
    {"Status/System Tray Icon", true, &DriverOptions::GetSystemTrayIcon,
     &DriverOptions::SetSystemTrayIcon},
};

struct NumberCase {
  const char* Key;
  int32_t Default;
  int32_t (DriverOptions::*Get)() const;
  void (DriverOptions::*Set)(int32_t);
};

constexpr NumberCase kNumbers[] = {
    {"Specifications/X Resolution", 0, &DriverOptions::GetXResolution,
     &DriverOptions::SetXResolution},
    {"Specifications/Y Resolution", 0, &DriverOptions::GetYResolution,
     &DriverOptions::SetYResolution},
    {"Specifications/Printable Width", 0, &DriverOptions::GetPrintableWidth,
     &DriverOptions::SetPrintableWidth},
    {"Specifications/Tracking", 0, &DriverOptions::GetTracking, &DriverOptions::SetTracking},
    {"Specifications/Minimum Page Width", 0, &DriverOptions::GetMinimumPageWidth,
     &DriverOptions::SetMinimumPageWidth},
    {"Specifications/Maximum Page Width", 0, &DriverOptions::GetMaximumPageWidth,
     &DriverOptions::SetMaximumPageWidth},
    {"Specifications/Minimum Page Length", 0, &DriverOptions::GetMinimumPageLength,
     &DriverOptions::SetMinimumPageLength},
    {"Specifications/Maximum Page Length", 0, &DriverOptions::GetMaximumPageLength,
     &DriverOptions::SetMaximumPageLength},
    {"Status/Write Timeout", 30000, &DriverOptions::GetWriteTimeout,
     &DriverOptions::SetWriteTimeout},
    {"Status/Job Complete Timeout", 30000, &DriverOptions::GetJobCompleteTimeout,
     &DriverOptions::SetJobCompleteTimeout},
    {"Status/Query Interval", 1000, &DriverOptions::GetQueryInterval,
     &DriverOptions::SetQueryInterval},
};

struct TextCase {
  const char* Key;
  OString (DriverOptions::*Get)() const;
  void (DriverOptions::*Set)(const OString&);
};

constexpr TextCase kTexts[] = {
    {"Logging/Directory", &DriverOptions::GetDirectory, &DriverOptions::SetDirectory},
    {"Logging/Log File", &DriverOptions::GetLogFile, &DriverOptions::SetLogFile},
};

static_assert(std::size(kFlags) + std::size(kNumbers) + std::size(kTexts) + 1 ==
              kDriverOptionCount);

TEST_F(DriverOptionsTest, DefaultsStandWhereTheStoreHasNothing) {
  for (const FlagCase& flag : kFlags) EXPECT_EQ(flag.Default, (Options.*flag.Get)()) << flag.Key;
  for (const NumberCase& number : kNumbers)
    EXPECT_EQ(number.Default, (Options.*number.Get)()) << number.Key;
  for (const TextCase& text : kTexts) EXPECT_EQ("", (Options.*text.Get)()) << text.Key;
  EXPECT_EQ(u'^', Options.GetFunctionCharacter());
}

TEST_F(DriverOptionsTest, EachGetterReadsItsKey) {
  PrinterRegistry store = Store();
  int32_t next = 100;
  for (const FlagCase& flag : kFlags)
    store.WriteByte(OString("Settings:") + flag.Key, flag.Default ? 0 : 1);
  for (const NumberCase& number : kNumbers)
    store.WriteInt(OString("Settings:") + number.Key, next++);
  for (const TextCase& text : kTexts) store.WriteString(OString("Settings:") + text.Key, text.Key);
  store.WriteString("Settings:Function Character", "~");
  next = 100;
  for (const FlagCase& flag : kFlags) EXPECT_EQ(!flag.Default, (Options.*flag.Get)()) << flag.Key;
  for (const NumberCase& number : kNumbers)
    EXPECT_EQ(next++, (Options.*number.Get)()) << number.Key;
  for (const TextCase& text : kTexts) EXPECT_EQ(text.Key, (Options.*text.Get)());
  EXPECT_EQ(u'~', Options.GetFunctionCharacter());
}

TEST_F(DriverOptionsTest, SetterIsSeenBeforeAnyCommitAndByEveryObjectOfTheModel) {
  DriverOptions other;
  other.Bind(Model());
  EXPECT_EQ(1000, other.GetQueryInterval());
  const std::string before = StoreDump();
  for (const FlagCase& flag : kFlags) (Options.*flag.Set)(!flag.Default);
  int32_t next = -5;
  for (const NumberCase& number : kNumbers) (Options.*number.Set)(next++);
  for (const TextCase& text : kTexts) (Options.*text.Set)(text.Key);
  Options.SetFunctionCharacter(u'\u00A7');
  for (const FlagCase& flag : kFlags) EXPECT_EQ(!flag.Default, (other.*flag.Get)()) << flag.Key;
  next = -5;
  for (const NumberCase& number : kNumbers) EXPECT_EQ(next++, (other.*number.Get)()) << number.Key;
  for (const TextCase& text : kTexts) EXPECT_EQ(text.Key, (other.*text.Get)());
  EXPECT_EQ(u'\u00A7', other.GetFunctionCharacter());
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(DriverOptionsTest, CommitWritesEachKindInItsForm) {
  for (const FlagCase& flag : kFlags) (Options.*flag.Set)(!flag.Default);
  for (const NumberCase& number : kNumbers) (Options.*number.Set)(258);
  for (const TextCase& text : kTexts) (Options.*text.Set)("ab");
  Options.SetFunctionCharacter(u'~');
  EXPECT_TRUE(Options.Commit());
  for (const FlagCase& flag : kFlags)
    EXPECT_EQ(flag.Default ? "3:00" : "3:01", Stored(flag.Key)) << flag.Key;
  for (const NumberCase& number : kNumbers) EXPECT_EQ("3:02010000", Stored(number.Key));
  for (const TextCase& text : kTexts) EXPECT_EQ("1:610062000000", Stored(text.Key));
  EXPECT_EQ("1:7E000000", Stored("Function Character"));
}

TEST_F(DriverOptionsTest, CommitWithNothingSetWritesNothing) {
  Options.GetLogging();
  Options.GetDirectory();
  Options.GetQueryInterval();
  const std::string before = StoreDump();
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(DriverOptionsTest, CommitWritesOnlyWhatWasSet) {
  Options.GetWriteTimeout();
  Options.SetLogging(true);
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("3:01", Stored("Logging/Logging"));
  EXPECT_EQ("(none)", Stored("Status/Write Timeout"));
  EXPECT_EQ("(none)", Stored("Logging/Overwrite Files"));
}

// What is set is written even if it is what the store has or the default.
TEST_F(DriverOptionsTest, CommitWritesASetDefault) {
  Options.SetQueryInterval(1000);
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("3:E8030000", Stored("Status/Query Interval"));
}

TEST_F(DriverOptionsTest, SecondCommitWritesNothingAgain) {
  Options.SetLogging(true);
  EXPECT_TRUE(Options.Commit());
  Store().WriteByte("Settings:Logging/Logging", 0);
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("3:00", Stored("Logging/Logging"));
}

TEST_F(DriverOptionsTest, ValueIsReadFromTheStoreOnce) {
  EXPECT_FALSE(Options.GetLogging());
  Store().WriteByte("Settings:Logging/Logging", 1);
  EXPECT_FALSE(Options.GetLogging());
}

TEST_F(DriverOptionsTest, ForgetDropsCachedValuesAndEdits) {
  EXPECT_FALSE(Options.GetLogging());
  Options.SetQueryInterval(5);
  Store().WriteByte("Settings:Logging/Logging", 1);
  Options.Forget();
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_EQ(1000, Options.GetQueryInterval());
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("(none)", Stored("Status/Query Interval"));
}

TEST_F(DriverOptionsTest, FunctionCharacterIsTheFirstOfItsText) {
  Store().WriteString("Settings:Function Character", "~^");
  EXPECT_EQ(u'~', Options.GetFunctionCharacter());
}

TEST_F(DriverOptionsTest, EmptyFunctionCharacterIsTheDefault) {
  Store().WriteString("Settings:Function Character", "");
  EXPECT_EQ(u'^', Options.GetFunctionCharacter());
  Options.SetFunctionCharacter(u'~');
  Options.SetFunctionCharacter(0);
  EXPECT_EQ(u'^', Options.GetFunctionCharacter());
}

TEST_F(DriverOptionsTest, ValuesOfAnotherSizeAreAbsent) {
  Store().WriteInt("Settings:Status/Query Before Job", 0);
  Store().WriteByte("Settings:Status/Query Interval", 7);
  EXPECT_TRUE(Options.GetQueryBeforeJob());
  EXPECT_EQ(1000, Options.GetQueryInterval());
}

TEST_F(DriverOptionsTest, TextsAreWideAndMayBeEmptied) {
  Options.SetDirectory(u"C:\\\u6807");
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ(
      "1:43003A005C00076800"
      "00",
      Stored("Logging/Directory"));
  Options.SetDirectory("");
  EXPECT_EQ("", Options.GetDirectory());
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("1:0000", Stored("Logging/Directory"));
}

TEST_F(DriverOptionsTest, SpecificationsInvalidateTheModelWithTheCommit) {
  const uint32_t before = Synchronization();
  Options.SetOverride(true);
  Options.SetXResolution(400);
  Options.SetYResolution(400);
  // Pending edits don't count yet, in whatever way the model is built.
  Model()->Invalidate();
  EXPECT_EQ(203, Model()->GetDefaultResolutionX());
  const uint32_t between = Synchronization();
  EXPECT_NE(before, between);
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ(400, Model()->GetDefaultResolutionX());
  EXPECT_NE(between, Synchronization());
}

TEST_F(DriverOptionsTest, DisableCopiesLimitInvalidatesTheModelToo) {
  EXPECT_EQ(999, Model()->GetCopiesLimit());
  Options.SetDisableCopiesLimit(true);
  EXPECT_TRUE(Options.Commit());
  EXPECT_NE(999, Model()->GetCopiesLimit());
}

TEST_F(DriverOptionsTest, OtherOptionsLeaveTheModelAlone) {
  const uint32_t before = Synchronization();
  Options.SetLogging(true);
  Options.SetQueryInterval(1);
  Options.SetDirectory("x");
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ(before, Synchronization());
}

// Some stores take all of a commit or none of it, others each value.
TEST_F(DriverOptionsTest, EditsThatTheStoreDoesNotTakeWaitForTheNextCommit) {
  const OString name = Model()->GetStore().PrinterName;
  Options.SetLogging(true);
  Options.SetQueryInterval(7);
  // No key can have such a name.
  Model()->GetStore().PrinterName = std::string(300, 'x').c_str();
  EXPECT_FALSE(Options.Commit());
  Model()->GetStore().PrinterName = name;
  EXPECT_EQ("(none)", Stored("Logging/Logging"));
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_TRUE(Options.Commit());
  EXPECT_EQ("3:01", Stored("Logging/Logging"));
  EXPECT_EQ("3:07000000", Stored("Status/Query Interval"));
}

TEST_F(DriverOptionsTest, NothingBoundGivesDefaultsAndKeepsNothing) {
  DriverOptions none;
  none.SetLogging(true);
  none.SetDirectory("x");
  none.Forget();
  EXPECT_TRUE(none.Commit());
  EXPECT_FALSE(none.GetLogging());
  EXPECT_TRUE(none.GetQueryBeforeJob());
  EXPECT_EQ(30000, none.GetWriteTimeout());
  EXPECT_EQ("", none.GetDirectory());
  EXPECT_EQ(u'^', none.GetFunctionCharacter());
}

// An accessor may run while its own thread has the lock.
TEST_F(DriverOptionsTest, LockIsRecursive) {
  const platform::LockGuard outer(Model()->GetDefinition().OptionLock);
  Options.SetLogging(true);
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_TRUE(Options.Commit());
}

TEST_F(DriverOptionsTest, OptionsOfTheShadowAreItsOwn) {
  Model()->GetStore().SetShadowed(true);
  Options.SetLogging(true);
  EXPECT_TRUE(Options.Commit());
  Model()->GetStore().SetShadowed(false);
  EXPECT_EQ("(none)", Stored("Logging/Logging"));
  Options.Forget();
  EXPECT_FALSE(Options.GetLogging());
  Model()->GetStore().SetShadowed(true);
  Options.Forget();
  EXPECT_TRUE(Options.GetLogging());
  Model()->GetStore().Delete("SETTINGS:", true);
}

}  // namespace
}  // namespace ostvt::test
