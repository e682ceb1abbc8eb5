#include "settings/DriverSession.h"

#include <zlib.h>

#include "platform/Spooler.h"
#include "settings/AccessLevels.h"
#include "settings/InitialDevMode.h"
#include "settings/StockPapers.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr char kInitial[] = "DATA:Initial DevMode";
constexpr char kDefault[] = "DATA:Default DevMode";
constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";

class DriverSessionTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter();
    Handle = platform::OpenPrinter(Printer->Name().GetWide(), platform::kPrinterAllAccess);
    ASSERT_NE(nullptr, Handle);
    // What the spooler itself gave the new printer is none of these tests' business.
    DevMode defaults;
    defaults.AllocateDefaults(Model());
    ASSERT_TRUE(platform::SetPrinterDevMode(Handle, defaults.GetBlock(), defaults.GetSize()));
  }
  void TearDown() override {
    platform::ClosePrinter(Handle);
    SettingsTest::TearDown();
  }
  void SetStoredCopies(int32_t copies) {
    DevMode devMode;
    devMode.AllocateDefaults(Model());
    devMode.SetCopies(copies);
    ASSERT_TRUE(platform::SetPrinterDevMode(Handle, devMode.GetBlock(), devMode.GetSize()));
  }
  // A stored block with another source, which no merge of the spooler's block changes back, as that
  // one doesn't declare it.
  std::vector<uint8_t> InitialBlock(uint16_t source) {
    TestBlock block(1516);
    DevMode devMode(block.Data(), 1516);
    devMode.SetDefaults(Model());
    block.Put(88, 2, source);
    return block.Copy();
  }
  void ForgetStoredFields() {
    DevMode devMode;
    devMode.AllocateDefaults(Model());
    devMode.Set(&PublicDevMode::dmFields, 0u);
    ASSERT_TRUE(platform::SetPrinterDevMode(Handle, devMode.GetBlock(), devMode.GetSize()));
  }
  void WriteInitial(const std::vector<uint8_t>& bytes) {
    PrinterRegistry store = Store();
    ASSERT_EQ(static_cast<int32_t>(bytes.size()),
              store.WriteBinary(kInitial, bytes.data(), static_cast<int32_t>(bytes.size())));
  }
  static int32_t SourceOf(const DriverSession& session) {
    return session.DevModeBuffer.Get(&PublicDevMode::dmDefaultSource);
  }

  platform::PrinterHandle Handle = nullptr;
};

TEST(DriverSession, SessionWithoutAModelSurvivesItsEnd) {
  DriverSession session;
  session.Initialize(nullptr, nullptr, 0, "No Such Printer");
  EXPECT_EQ(nullptr, session.Model);
  EXPECT_TRUE(session.DevModeBuffer.IsEmpty());
  session.Save();
  session.Reload();
  EXPECT_FALSE(session.IsLocked());
}

TEST(DriverSession, NewOneLetsAboutOpenFirstAndTellsTheServer) {
  DriverSession session;
  EXPECT_TRUE(session.AboutMayOpenFirst);
  EXPECT_FALSE(session.NoShadowPush);
  EXPECT_EQ(nullptr, session.SheetHandle);
  EXPECT_EQ(nullptr, session.DialogArgument);
  session.KeepAboutClosed();
  EXPECT_FALSE(session.AboutMayOpenFirst);
}

TEST(DriverSession, BaseOperationsSayNothingIsThere) {
  DriverSession session;
  CacheInfo cache;
  memset(&cache, 0xEE, sizeof(cache));
  session.GetCacheInfo(&cache);
  for (size_t i = 0; i < sizeof(cache); ++i)
    ASSERT_EQ(0, reinterpret_cast<const uint8_t*>(&cache)[i]) << i;
  EXPECT_EQ(2, session.GetLinkClass());
  NameRules rules;
  rules.maxLength = 5;
  session.GetFontNameRules(&rules);
  session.GetFileNameRules(&rules);
  EXPECT_EQ(5, rules.maxLength);
  NameRequest request;
  EXPECT_TRUE(session.ValidateFontName(&request));
  EXPECT_TRUE(session.ValidateFileName(&request));
  EXPECT_FALSE(session.Reserved2());
  EXPECT_FALSE(session.SupportsCacheCommand(nullptr));
  EXPECT_EQ(0, session.RegisterPages(15));
  ActionContext context;
  EXPECT_FALSE(session.DoAction(&context, 1));
  EXPECT_EQ(0u, session.GetActionFlags(&context, 1));
  OString title = "old";
  session.GetActionTitle(&title, 999);
  EXPECT_TRUE(title.IsEmpty());
}

TEST(DriverSession, FileNameRulesGoToTheFontRules) {
  class Family : public DriverSession {
   public:
    void GetFontNameRules(NameRules* record) override { record->maxLength = 8; }
    bool ValidateFontName(NameRequest* request) override {
      request->caption = "no";
      return false;
    }
  };
  Family session;
  NameRules rules;
  session.GetFileNameRules(&rules);
  EXPECT_EQ(8, rules.maxLength);
  NameRequest request;
  EXPECT_FALSE(session.ValidateFileName(&request));
  EXPECT_TRUE(request.caption == "no");
}

TEST(DriverSession, DefaultsSessionIsToldByItsFlagsOnTheSpoolerPath) {
  DriverSession session;
  session.DefaultsMode = true;
  EXPECT_FALSE(session.IsDefaultsSession());
  for (uint32_t flags : {1u, 64u, 65u, 67u}) {
    session.SessionFlags = flags;
    EXPECT_TRUE(session.IsDefaultsSession()) << flags;
  }
  session.SessionFlags = 2 | 8 | 32;
  EXPECT_FALSE(session.IsDefaultsSession());
}

TEST(DriverSession, DefaultsSessionIsToldByTheBridgeOnThe16BitPath) {
  const PathFlags flags(false, false);
  DriverSession session;
  session.SessionFlags = 65;
  EXPECT_FALSE(session.IsDefaultsSession());
  session.DefaultsMode = true;
  EXPECT_TRUE(session.IsDefaultsSession());
}

TEST_F(DriverSessionTest, BeginsWithValidatedModelDefaults) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 7);
  ASSERT_NE(nullptr, session.Model);
  EXPECT_EQ(7u, session.SessionFlags);
  EXPECT_EQ(Handle, session.PrinterHandle);
  EXPECT_TRUE(session.PrinterName == Printer->Name());
  EXPECT_TRUE(session.Link.PrinterName == Printer->Name());
  EXPECT_EQ(1516u, session.DevModeBuffer.GetSize());
  DevMode expected;
  expected.AllocateDefaults(Model());
  DevMode stored;
  stored.AllocateDefaults(Model());
  StockPapers papers(Model());
  expected.Merge(stored, Model(), &papers);
  EXPECT_EQ("", Difference(expected.GetBlock(), session.DevModeBuffer.GetBlock(), 1516));
}

TEST_F(DriverSessionTest, NullHandleMeansTheNamedPrinter) {
  DriverSession session;
  session.Initialize(nullptr, nullptr, 0, Printer->Name());
  ASSERT_NE(nullptr, session.Model);
  EXPECT_TRUE(session.PrinterName == Printer->Name());
}

TEST_F(DriverSessionTest, KeepsACopyAndTheChecksumOfWhatItBeganWith) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  const uint8_t* block = session.DevModeBuffer.GetBlock();
  EXPECT_EQ(static_cast<uint32_t>(crc32(0, block, 1516)), session.DevModeCrc);
  EXPECT_EQ("", Difference(block, session.SavedDevMode.GetBlock(), 1516));
  const uint32_t crc = session.DevModeCrc;
  session.DevModeBuffer.SetCopies(9);
  session.LoadSettings();
  EXPECT_NE(crc, session.DevModeCrc);
  EXPECT_EQ(1, session.SavedDevMode.GetCopies());  // from the first load
}

TEST_F(DriverSessionTest, InitialDevModeReplacesModelDefaults) {
  ForgetStoredFields();
  WriteInitial(InitialBlock(15));
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(15, SourceOf(session));
}

TEST_F(DriverSessionTest, StoredDevModeReplacesTheInitialOne) {
  std::vector<uint8_t> initial = InitialBlock(256);
  initial[86] = 5;
  WriteInitial(initial);
  SetStoredCopies(7);
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(7, session.DevModeBuffer.GetCopies());
}

TEST_F(DriverSessionTest, InputDevModeComesLast) {
  SetStoredCopies(7);
  DevMode input;
  input.AllocateDefaults(Model());
  input.SetCopies(9);
  DriverSession session;
  session.Initialize(Handle, &input, 8);
  EXPECT_EQ(9, session.DevModeBuffer.GetCopies());
}

TEST_F(DriverSessionTest, InputDevModeIsIgnoredWithoutItsFlag) {
  DevMode input;
  input.AllocateDefaults(Model());
  input.SetCopies(9);
  DriverSession session;
  session.Initialize(Handle, &input, 0xFFFFFFF7);
  EXPECT_EQ(1, session.DevModeBuffer.GetCopies());
}

TEST_F(DriverSessionTest, FlagWithoutAnInputDevModeIsHarmless) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 8);
  EXPECT_EQ(1, session.DevModeBuffer.GetCopies());
}

TEST_F(DriverSessionTest, InitialDevModeOfAnotherLengthIsAbsent) {
  ForgetStoredFields();
  std::vector<uint8_t> bytes = InitialBlock(15);
  for (const size_t size : {size_t{1}, size_t{1515}, size_t{1517}}) {
    std::vector<uint8_t> changed = bytes;
    changed.resize(size);
    WriteInitial(changed);
    DriverSession session;
    session.Initialize(Handle, nullptr, 0);
    EXPECT_EQ(256, SourceOf(session)) << size;
    EXPECT_EQ(1516u, session.DevModeBuffer.GetSize()) << size;
  }
}

TEST_F(DriverSessionTest, InitialDevModeThatLiesAboutItsSizesIsAbsent) {
  ForgetStoredFields();
  for (const size_t offset : {size_t{68}, size_t{70}}) {
    std::vector<uint8_t> bytes = InitialBlock(15);
    ++bytes[offset];
    WriteInitial(bytes);
    DriverSession session;
    session.Initialize(Handle, nullptr, 0);
    EXPECT_EQ(256, SourceOf(session)) << offset;
    EXPECT_EQ(1516u, session.DevModeBuffer.GetSize()) << offset;
  }
}

// Nothing could be merged into such a record, so settings would be lost without a word for good.
TEST_F(DriverSessionTest, InitialDevModeWithAForeignPrivatePartGetsADefaultOne) {
  ForgetStoredFields();
  std::vector<uint8_t> stored = InitialBlock(7);
  std::fill(stored.begin() + 220, stored.end(), uint8_t{0xA5});
  WriteInitial(stored);
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(7, SourceOf(session));
  ASSERT_NE(nullptr, session.DevModeBuffer.GetOstrelSettings());
  EXPECT_EQ(5, session.DevModeBuffer.GetOstrelSettings()->printSpeed);
}

// What both have of the record counts; the rest is the default's.
TEST_F(DriverSessionTest, InitialDevModeWithAShorterRecordKeepsWhatItHas) {
  ForgetStoredFields();
  std::vector<uint8_t> stored = InitialBlock(7);
  auto* record = reinterpret_cast<ModelRecord*>(stored.data() + 384);
  record->ImageFlags = kImageNegative;
  record->RecordSize = offsetof(ModelRecord, AdvancedLength);
  record->AdvancedLength = 1;
  WriteInitial(stored);
  DevMode loaded;
  loaded.Allocate();
  ASSERT_TRUE(LoadInitialDevMode(Model(), &loaded));
  EXPECT_TRUE(loaded.GetNegative());
  EXPECT_EQ(6350, loaded.GetAdvancedLength());
}

// Merging keeps the form of the target's block, so that a wrong one would stay for good.
TEST_F(DriverSessionTest, InitialDevModeWithAForeignHalftoneBlockGetsADefaultOne) {
  ForgetStoredFields();
  const std::vector<uint8_t> sound = InitialBlock(7);
  for (const size_t offset : {size_t{220}, size_t{222}, size_t{224}}) {
    std::vector<uint8_t> stored = sound;
    ++stored[offset];
    stored[230] = 99;
    WriteInitial(stored);
    DevMode loaded;
    loaded.Allocate();
    ASSERT_TRUE(LoadInitialDevMode(Model(), &loaded));
    EXPECT_EQ(7, loaded.GetBlock()[88]);
    EXPECT_EQ(0, memcmp(loaded.GetBlock() + 220, sound.data() + 220, 164)) << offset;
  }
}

TEST_F(DriverSessionTest, StoredNarrowFormIsValidatedOnThe16BitPath) {
  PathFlags flags(false, false);
  uint8_t narrow[kNarrowDevModeSize];
  DevMode devMode;
  devMode.AllocateDefaults(Model());
  devMode.Set(&PublicDevMode::dmOrientation, int16_t{9});
  devMode.WriteNarrow("x", narrow);
  PrinterRegistry store = Store();
  ASSERT_EQ(static_cast<int32_t>(sizeof narrow),
            store.WriteBinary(kDefault, narrow, sizeof narrow));
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(1, session.DevModeBuffer.Get(&PublicDevMode::dmOrientation));
}

TEST_F(DriverSessionTest, SaveWritesTheWholeBlockOnTheSpoolerPath) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  session.DevModeBuffer.SetCopies(12);
  session.Save();
  uint8_t stored[1516] = {};
  PrinterRegistry store = Store();
  EXPECT_EQ(1516, store.GetValueSize(kInitial));
  ASSERT_EQ(1516, store.ReadBinary(kInitial, stored, 1516));
  EXPECT_EQ("", Difference(session.DevModeBuffer.GetBlock(), stored, 1516));
  EXPECT_EQ(-1, store.GetValueSize(kDefault));
}

TEST_F(DriverSessionTest, SaveWritesTheNarrowFormOnThe16BitPath) {
  const PathFlags flags(false, false);
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  session.DevModeBuffer.SetCopies(12);
  session.Save();
  TestBlock stored(1280);
  PrinterRegistry store = Store();
  ASSERT_EQ(1280, store.ReadBinary(kDefault, stored.Data(), 1280));
  EXPECT_EQ(uint32_t{'T'}, stored.Get(0, 1));
  EXPECT_EQ(1024u, stored.Get(32, 2));
  EXPECT_EQ(0x0607u, stored.Get(34, 2));
  EXPECT_EQ(148u, stored.Get(36, 2));
  EXPECT_EQ(1132u, stored.Get(38, 2));
  EXPECT_EQ(12u, stored.Get(54, 2));
  EXPECT_EQ(1132u, stored.Get(1278, 2));
  EXPECT_EQ(-1, store.GetValueSize(kInitial));
}

TEST_F(DriverSessionTest, SixteenBitPathBeginsWithTheNarrowForm) {
  const PathFlags flags(false, false);
  SetStoredCopies(7);  // not looked at on this path
  {
    DriverSession session;
    session.Initialize(Handle, nullptr, 0);
    EXPECT_EQ(1, session.DevModeBuffer.GetCopies());
    session.DevModeBuffer.SetCopies(12);
    session.DevModeBuffer.SetMirror(true);
    session.Save();
  }
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(12, session.DevModeBuffer.GetCopies());
  EXPECT_TRUE(session.DevModeBuffer.GetMirror());
}

TEST_F(DriverSessionTest, NarrowFormOfAnotherLengthOrHeaderIsAbsent) {
  const PathFlags flags(false, false);
  DevMode devMode;
  devMode.AllocateDefaults(Model());
  devMode.SetCopies(12);
  uint8_t good[1280];
  devMode.WriteNarrow("Test Printer", good);
  const auto copiesWith = [&](const std::vector<uint8_t>& bytes) {
    Store().WriteBinary(kDefault, bytes.data(), static_cast<int32_t>(bytes.size()));
    DriverSession session;
    session.Initialize(Handle, nullptr, 0);
    return session.DevModeBuffer.GetCopies();
  };
  std::vector<uint8_t> bytes(good, good + 1280);
  EXPECT_EQ(12, copiesWith(bytes));
  for (const size_t offset : {size_t{36}, size_t{38}}) {
    std::vector<uint8_t> changed = bytes;
    ++changed[offset];
    EXPECT_EQ(1, copiesWith(changed)) << offset;
  }
  for (const size_t size : {size_t{1279}, size_t{1281}}) {
    std::vector<uint8_t> changed = bytes;
    changed.resize(size);
    EXPECT_EQ(1, copiesWith(changed)) << size;
  }
}

TEST_F(DriverSessionTest, ReloadLeavesTheDeviceModeAsItWas) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  session.DevModeBuffer.SetCopies(12);
  WriteInitial(InitialBlock(15));
  session.Reload();
  EXPECT_EQ(12, session.DevModeBuffer.GetCopies());
  EXPECT_EQ(256, SourceOf(session));
}

class FreshPrinter : public SettingsTest {};

// Nothing has opened the printer before.
TEST_F(FreshPrinter, OpeningAndDroppingLeavesTheStoreByteForByte) {
  AddPrinter();
  const std::string before = StoreDump();
  for (bool onNtPath : {true, false}) {
    const PathFlags path(onNtPath, onNtPath);
    for (uint32_t flags : {0u, 8u, 64u}) {
      DriverSession session;
      session.Initialize(nullptr, nullptr, flags, Printer->Name());
      ASSERT_NE(nullptr, session.Model);
      session.IsLocked();
      session.Reload();
      session.DevModeBuffer.SetCopies(9);
    }
  }
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(FreshPrinter, DumpSeesWhatASessionSaves) {
  AddPrinter();
  const std::string before = StoreDump();
  DriverSession session;
  session.Initialize(nullptr, nullptr, 0, Printer->Name());
  session.Save();
  EXPECT_NE("", DumpDifference(before, StoreDump()));
}

TEST_F(DriverSessionTest, BothEndsClearTheBlock) {
  PrinterRegistry store = Store();
  store.WriteByte(kBlocked, 1);
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(0, store.ReadByte(kBlocked, 0));
  {
    DriverSession second;
    second.Initialize(Handle, nullptr, 0);
    store.WriteByte(kBlocked, 1);
  }
  EXPECT_EQ(0, store.ReadByte(kBlocked, 0));
}

TEST_F(DriverSessionTest, SilentSessionLiftsTheBlockAtItsEnd) {
  PrinterRegistry store = Store();
  {
    DriverSession session;
    session.Initialize(Handle, nullptr, 0);
    session.NoShadowPush = true;
    store.WriteByte(kBlocked, 1);
  }
  EXPECT_EQ(0, store.ReadByte(kBlocked, 0));
}

TEST_F(DriverSessionTest, LockIsAskedOncePerSession) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, 4);  // above every user
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_TRUE(session.IsLocked());
  SetLocalAccessLevel(&store, 0);
  EXPECT_TRUE(session.IsLocked());
  DriverSession second;
  second.Initialize(Handle, nullptr, 0);
  EXPECT_FALSE(second.IsLocked());
}

TEST_F(DriverSessionTest, UserOfTheRequiredLevelIsNotLockedOut) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, GetUserAccessLevel());
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_FALSE(session.IsLocked());
  SetLocalAccessLevel(&store, GetUserAccessLevel() + 1);
  DriverSession second;
  second.Initialize(Handle, nullptr, 0);
  EXPECT_TRUE(second.IsLocked());
}

TEST_F(DriverSessionTest, SaveTellsWhetherTheStoreTookIt) {
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_TRUE(session.Save());
  EXPECT_TRUE(session.Save());  // nothing to write is no failure
  session.Model->GetStore().PrinterName = std::string(300, 'x').c_str();  // no key is named so
  EXPECT_FALSE(session.Save());
}

TEST_F(DriverSessionTest, StoredDevModeWithoutAPrivatePartIsTakenAsFarAsItGoes) {
  DevMode devMode;
  devMode.AllocateDefaults(Model());
  devMode.SetCopies(7);
  TestBlock cut(std::vector<uint8_t>(devMode.GetBlock(), devMode.GetBlock() + 220));
  cut.Put(70, 2, 0);
  ASSERT_TRUE(platform::SetPrinterDevMode(Handle, cut.Data(), cut.Size));
  DriverSession session;
  session.Initialize(Handle, nullptr, 0);
  EXPECT_EQ(7, session.DevModeBuffer.GetCopies());
  EXPECT_EQ(1516u, session.DevModeBuffer.GetSize());
}

}  // namespace
}  // namespace ostvt::test
