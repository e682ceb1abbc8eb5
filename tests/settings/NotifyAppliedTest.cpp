#include "core/Crc.h"
#include "core/Memory.h"
#include "platform/Channel.h"
#include "settings/DriverSession.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

struct Posted {
  void* Window;
  uint32_t Message;
  uintptr_t Value;
};
std::vector<Posted> posted;

struct HostCall {
  void* Sheet;
  uint32_t Function;
  intptr_t First;
  intptr_t Second;
};
std::vector<HostCall> hostCalls;

intptr_t HostCallback(void* sheet, uint32_t function, intptr_t first, intptr_t second) {
  hostCalls.push_back({sheet, function, first, second});
  return 0;
}

constexpr platform::ChannelFunctions kChannel = {
    [](const char*) -> void* { return nullptr; },
    [](void*, uint32_t) {},
    [](void* window, uint32_t message, uintptr_t value) {
      posted.push_back({window, message, value});
    },
};

int someWindow;
int someSheet;
int somePage;
int otherPage;

constexpr char kApplied[] = "LOCAL:X16/Chan/DevMode 32";

class NotifyApplied : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    posted.clear();
    hostCalls.clear();
    platform::SetChannelFunctions(&kChannel);
    AddPrinter();
    Session = std::make_unique<DriverSession>();
    Session->Initialize(nullptr, nullptr, 0, Printer->Name());
  }
  void TearDown() override {
    Session.reset();
    platform::SetChannelFunctions(nullptr);
    SettingsTest::TearDown();
  }
  void JoinChannel() {
    Session->ChannelName = "Chan";
    Session->ChannelWindow = &someWindow;
  }
  void JoinSheet(void* firstPage) {
    Session->SheetCallback = HostCallback;
    Session->SheetHandle = &someSheet;
    Session->PageHandles = static_cast<void**>(AllocCountedZero(2, sizeof(void*)));
    Session->PageHandles[0] = firstPage;
    Session->PageHandles[1] = &otherPage;
    Session->PageCount = 2;
  }
  std::vector<uint8_t> Working() const { return BytesOf(Session->DevModeBuffer); }
  std::vector<uint8_t> Saved() const { return BytesOf(Session->SavedDevMode); }
  static std::vector<uint8_t> BytesOf(const DevMode& devMode) {
    return {devMode.GetBlock(), devMode.GetBlock() + devMode.GetSize()};
  }
  // "DevMode 32"; empty when it isn't there.
  std::vector<uint8_t> ForPartner() const {
    ORegistry store;
    std::vector<uint8_t> bytes(3000);
    const int32_t size = store.ReadBinary(kApplied, bytes.data(), 3000);
    bytes.resize(size < 0 ? 0 : static_cast<size_t>(size));
    return bytes;
  }

  std::unique_ptr<DriverSession> Session;
};

TEST_F(NotifyApplied, ChangeBecomesWhatACancelGoesBackTo) {
  const uint32_t before = Session->DevModeCrc;
  Session->DevModeBuffer.SetCopies(12);
  ASSERT_NE(Working(), Saved());
  Session->NotifyApplied();
  EXPECT_EQ(Working(), Saved());
  EXPECT_NE(before, Session->DevModeCrc);
  EXPECT_EQ(CRC32(Working().data(), 1516, 0), Session->DevModeCrc);
}

TEST_F(NotifyApplied, ChecksumAloneTellsWhetherAnythingChanged) {
  const std::vector<uint8_t> saved = Saved();
  Session->DevModeBuffer.SetCopies(12);
  Session->DevModeCrc = CRC32(Working().data(), 1516, 0);
  Session->NotifyApplied();
  EXPECT_EQ(saved, Saved());
}

TEST_F(NotifyApplied, NothingIsSavedWhereNothingWasSavedBefore) {
  const uint32_t before = Session->DevModeCrc;
  Session->SavedDevMode.Release();
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  EXPECT_TRUE(Session->SavedDevMode.IsEmpty());
  EXPECT_EQ(before, Session->DevModeCrc);
}

TEST_F(NotifyApplied, PartnerGetsTheWholeBlockAndAMessage) {
  PathFlags flags(false, false);
  JoinChannel();
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  EXPECT_EQ(Working(), ForPartner());
  ASSERT_EQ(1u, posted.size());
  EXPECT_EQ(&someWindow, posted[0].Window);
  EXPECT_EQ(1026u, posted[0].Message);
  EXPECT_EQ(0u, posted[0].Value);
}

TEST_F(NotifyApplied, MessageTellsThatDefaultsWereEdited) {
  PathFlags flags(false, false);
  JoinChannel();
  Session->DefaultsMode = true;
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  ASSERT_EQ(1u, posted.size());
  EXPECT_EQ(1u, posted[0].Value);
}

TEST_F(NotifyApplied, PartnerHearsOfChangesOnly) {
  PathFlags flags(false, false);
  JoinChannel();
  Session->NotifyApplied();
  EXPECT_TRUE(posted.empty());
  EXPECT_TRUE(ForPartner().empty());
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  Session->NotifyApplied();
  EXPECT_EQ(1u, posted.size());
}

TEST_F(NotifyApplied, SpoolerPathHasNoPartner) {
  PathFlags flags(true, true);
  JoinChannel();
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  EXPECT_TRUE(posted.empty());
  EXPECT_TRUE(ForPartner().empty());
  EXPECT_EQ(Working(), Saved());
}

TEST_F(NotifyApplied, WithoutAChannelNothingIsWrittenForAPartner) {
  PathFlags flags(false, false);
  const std::string before = StoreDump();
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  EXPECT_TRUE(posted.empty());
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
  EXPECT_EQ(Working(), Saved());
}

TEST_F(NotifyApplied, HostHearsOfEveryApplyByTheFirstPage) {
  JoinSheet(&somePage);
  Session->NotifyApplied();
  Session->DevModeBuffer.SetCopies(12);
  Session->NotifyApplied();
  ASSERT_EQ(2u, hostCalls.size());
  for (const HostCall& call : hostCalls) {
    EXPECT_EQ(&someSheet, call.Sheet);
    EXPECT_EQ(9u, call.Function);
    EXPECT_EQ(reinterpret_cast<intptr_t>(&somePage), call.First);
    EXPECT_EQ(1, call.Second);
  }
}

TEST_F(NotifyApplied, HostIsNotToldWithoutAPageHandle) {
  Session->SheetCallback = HostCallback;
  Session->NotifyApplied();
  JoinSheet(nullptr);
  Session->NotifyApplied();
  EXPECT_TRUE(hostCalls.empty());
}

TEST_F(NotifyApplied, HostIsToldEvenWhereThereIsNoDeviceMode) {
  DriverSession empty;
  empty.NotifyApplied();
  JoinSheet(&somePage);
  Session->DevModeBuffer.Release();
  Session->NotifyApplied();
  EXPECT_EQ(1u, hostCalls.size());
}

}  // namespace
}  // namespace ostvt::test
