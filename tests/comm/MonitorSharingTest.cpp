// Pulling and pushing a configuration, against a monitor of the test's own.
#include "tests/comm/MonitorLinkFixture.h"
#include "tests/comm/SharingText.h"
#include "tests/support/FullDisk.h"

namespace ostvt::test {
namespace {

constexpr char kShadow[] = "LOCAL:Printers/[PRINTER]/Shadow";
constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";
constexpr char kUserSharing[] = "USER:Printers/[PRINTER]/Configuration Sharing";
constexpr char kCommunication[] = "NETWORK:Network Communication";

constexpr char kLocalKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\";

template <typename Base>
class Sharing : public Base {
 protected:
  using Base::Monitor;

  void SetUp() override {
    Base::SetUp();
    Clear();
  }
  void TearDown() override { Clear(); }

  // The store as the printer's settings are routed now.
  PrinterRegistry Routed() const { return PrinterRegistry(this->Printer.Name()); }
  std::string ListedAs(const char* branch) const {
    const uint32_t checksum = Routed().ReadDword(OString(branch) + "/(CRC32)", 0);
    return "\"" + std::string(branch) + "\"," + OString::HexOf(checksum).GetNarrow() + ";";
  }
  // What pulls and pushes have asked the monitor for, states left out.
  std::vector<std::string> Exchanged() const {
    std::vector<std::string> requests;
    for (const std::string& request : Monitor.Requests) {
      if (request.find("<settings") != std::string::npos) requests.push_back(request);
    }
    return requests;
  }
  bool Pull(const std::string& text) {
    Monitor.Settings = Packed(text);
    return this->Link.PullShadow();
  }
  // The text that a push sends; "" when it sends nothing.
  std::string Pushed() {
    Monitor.Requests.clear();
    EXPECT_TRUE(this->Link.PushShadow());
    const std::vector<std::string> requests = Exchanged();
    return requests.empty() ? "" : UpdatedText(requests.back());
  }
  void ExpectNoExchange() {
    Routed().WriteDword("SETTINGS:A", 1u);
    Monitor.Settings = Packed("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n");
    EXPECT_TRUE(this->Link.PullShadow());
    EXPECT_TRUE(this->Link.PushShadow());
    EXPECT_TRUE(Exchanged().empty());
    EXPECT_EQ(1u, Routed().ReadDword("SETTINGS:A", 0));
  }
  bool Reached() const { return Monitor.Loads > 0; }

 private:
  // Of a Windows user, whose part of the store outlives the test.
  void Clear() {
    PrinterRegistry store = Routed();
    store.SetShadowed(true);
    store.Delete("DATA:", true);
    store.DeleteMatching("LOCAL:*");
  }
};

class ClientSharing : public Sharing<RemoteMonitorLinkTest> {};
class ServerSharing : public Sharing<MonitorLinkTest> {};

// Pulling.

TEST_F(ClientSharing, PullReportsEachBranchWithItsCurrentChecksum) {
  PrinterRegistry store = Routed();
  ASSERT_TRUE(store.IsShadowed);
  store.WriteDword("SETTINGS:Darkness", 42u);
  store.WriteDword("LOCAL:Paper Sizes/A", 1u);
  store.WriteDword("DATA:a%2Fb/A", 1u);
  store.WriteDword("SETTINGS:(CRC32)", 1234u);
  EXPECT_TRUE(Link.PullShadow());
  ASSERT_EQ(2u, Monitor.Requests.size());
  const std::string list =
      ListedAs("DATA:Settings") + ListedAs("DATA:a%2Fb") + ListedAs("LOCAL:Paper Sizes");
  EXPECT_EQ(kPullHead + list + kPullTail, Monitor.Requests[1]);
  EXPECT_NE(1234u, store.ReadDword("SETTINGS:(CRC32)", 0));
}

TEST_F(ClientSharing, PullIntoAnEmptyShadowBringsAll) {
  EXPECT_TRUE(Pull(std::string("[DATA:\\Settings]\r\n\"Darkness\"=dword:0000002a\r\n\r\n[") +
                   kLocalKey + "Paper Sizes]\r\n\"Shelf\"=\"W\xC3\xBCrz\"\r\n\r\n"));
  EXPECT_EQ(std::string(kPullHead) + kPullTail, Exchanged().at(0));
  EXPECT_EQ(42u, Routed().ReadDword("SETTINGS:Darkness", 0));
  EXPECT_EQ(OString(u"W\u00FCrz"), Routed().ReadString("LOCAL:Paper Sizes/Shelf", ""));
}

TEST_F(ClientSharing, PulledSettingsLieInTheShadowAlone) {
  Store().WriteDword("SETTINGS:Darkness", 7u);
  EXPECT_TRUE(Pull("[DATA:\\Settings]\r\n\"Darkness\"=dword:0000002a\r\n\r\n"));
  EXPECT_EQ(42u, Routed().ReadDword("SETTINGS:Darkness", 0));
  EXPECT_EQ(7u, Store().ReadDword("SETTINGS:Darkness", 0));
}

TEST_F(ClientSharing, PullReplacesWhatTheAnswerNames) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:Old", 1u);
  store.WriteDword("SETTINGS:Below/Old", 1u);
  store.WriteDword("DATA:Other/Kept", 1u);
  EXPECT_TRUE(Pull("[DATA:\\Settings]\r\n\"New\"=dword:00000002\r\n\r\n"));
  EXPECT_EQ(2u, store.ReadDword("SETTINGS:New", 0));
  EXPECT_EQ(-1, store.GetValueSize("SETTINGS:Old"));
  EXPECT_EQ(-1, store.GetValueSize("SETTINGS:Below/Old"));
  EXPECT_EQ(1u, store.ReadDword("DATA:Other/Kept", 0));
}

TEST_F(ClientSharing, AnswerOfNothingChangesNothing) {
  Routed().WriteDword("SETTINGS:A", 1u);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_TRUE(Pull(""));
  EXPECT_TRUE(Pull("\r\n"));
  EXPECT_EQ(1u, Routed().ReadDword("SETTINGS:A", 0));
}

TEST_F(ClientSharing, SectionsOutsideTheBranchesAreDropped) {
  PrinterRegistry own = Store();
  own.WriteDword("USER:Printers/[PRINTER]/Mine", 1u);
  EXPECT_TRUE(Pull(std::string("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Else]\r\n\"V\"=dword:1\r\n"
                               "\r\n"
                               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\DriversX\\Y]\r\n"
                               "\"V\"=dword:1\r\n\r\n"
                               "[-HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\Printers]\r\n"
                               "\r\n"
                               "[DATA:]\r\n\"V\"=dword:00000001\r\n\r\n"
                               "[DATA:\\Good]\r\n\"V\"=dword:00000001\r\n\r\n[") +
                   kLocalKey + "xpml]\r\n\"V\"=dword:1\r\n\r\n[" + kLocalKey +
                   "Network\\@server]\r\n\"V\"=dword:1\r\n\r\n[" + kLocalKey +
                   "X16]\r\n\"V\"=dword:1\r\n\r\n"));
  const PrinterRegistry store = Routed();
  EXPECT_EQ(1u, store.ReadDword("DATA:Good/V", 0));
  EXPECT_EQ(-1, store.GetValueSize("DATA:V"));
  EXPECT_FALSE(store.GetKeyInfo("2:SOFTWARE/Vantrel/Else", nullptr, nullptr));
  EXPECT_FALSE(store.GetKeyInfo("2:SOFTWARE/Vantrel/DriversX", nullptr, nullptr));
  int32_t keys = 0;
  EXPECT_TRUE(!store.GetKeyInfo("LOCAL:", &keys, nullptr) || keys == 0);
  EXPECT_EQ(1u, own.ReadDword("USER:Printers/[PRINTER]/Mine", 0));
  own.Delete("USER:Printers/[PRINTER]/Mine", false);
}

TEST_F(ClientSharing, AnswerThatCannotBeDecodedImportsNothing) {
  const std::string sound = Packed("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n");
  std::string lying = sound;
  lying.replace(4, 4, "\xFF\xFF\xFF\xFF");
  Routed().WriteDword("SETTINGS:A", 1u);
  for (const std::string& answer :
       {std::string("?"), std::string("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n"),
        sound.substr(0, sound.size() / 2), sound.substr(1), sound + "x", lying}) {
    Monitor.Settings = answer;
    EXPECT_FALSE(Link.PullShadow()) << answer.size();
    EXPECT_EQ(1u, Routed().ReadDword("SETTINGS:A", 0)) << answer.size();
  }
}

TEST_F(ClientSharing, FailedRefreshLeavesTheShadowAsItWas) {
  Routed().WriteDword("SETTINGS:A", 1u);
  for (const char* answer : {"", "1;1;1", "?"}) {
    Monitor.Answer = answer;
    EXPECT_FALSE(Link.PullShadow()) << answer;
    EXPECT_FALSE(Link.PushShadow()) << answer;
  }
  Monitor.IsMissing = true;
  EXPECT_FALSE(Link.PullShadow());
  EXPECT_FALSE(Link.PushShadow());
  EXPECT_TRUE(Exchanged().empty());
  EXPECT_EQ(-1, Routed().GetValueSize("SETTINGS:(CRC32)"));
}

TEST_F(ClientSharing, FailedRequestLeavesTheShadowAsItWas) {
  Routed().WriteDword("SETTINGS:A", 1u);
  Monitor.SettingsResult = 0;
  EXPECT_FALSE(Pull("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n"));
  EXPECT_EQ(1u, Routed().ReadDword("SETTINGS:A", 0));
}

#ifdef __linux__
// The store of the other system writes value by value.
TEST_F(ClientSharing, PullThatTheStoreRefusesIsAFailure) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:A", 1u);
  EXPECT_NE("", Pushed());
  store.WriteDword("SETTINGS:A", 2u);
  {
    const FullDisk full;
    EXPECT_FALSE(Pull("[DATA:\\Settings]\r\n\"A\"=dword:00000003\r\n\r\n"));
  }
  EXPECT_EQ(2u, Routed().ReadDword("SETTINGS:A", 0));
  EXPECT_NE("", Pushed());
}
#endif

TEST_F(ClientSharing, FailedRequestLeavesLocalChangesToBePushed) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:A", 1u);
  EXPECT_NE("", Pushed());
  store.WriteDword("SETTINGS:A", 2u);
  Monitor.SettingsResult = 0;
  EXPECT_FALSE(Pull(""));
  Monitor.SettingsResult = 1;
  EXPECT_NE("", Pushed());
}

TEST_F(ClientSharing, AnswerThatIsNotFetchedLeavesLocalChangesToBePushed) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:A", 1u);
  EXPECT_NE("", Pushed());
  uint32_t value = 1;
  for (const int32_t size : {(16 << 20) + 1, -1}) {
    store.WriteDword("SETTINGS:A", ++value);
    Monitor.StatedSettingsSize = size;
    EXPECT_FALSE(Pull("")) << size;
    EXPECT_TRUE(Link.IsAnswerRefused) << size;
    Monitor.StatedSettingsSize = FakeMonitor::kOwnSize;
    EXPECT_NE("", Pushed()) << size;
  }
  EXPECT_TRUE(Pull(""));
  EXPECT_FALSE(Link.IsAnswerRefused);
}

// Pushing.

TEST_F(ClientSharing, PushSendsTheBranchesThatChangedUnderTheNeutralRoot) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:A", 1u);
  store.WriteString("SETTINGS:Below/B", u"W\u00FCrz");
  store.WriteDword("LOCAL:Paper Sizes/C", 3u);
  EXPECT_EQ(std::string("[DATA:\\Settings]\r\n\"A\"=dword:00000001\r\n\r\n"
                        "[DATA:\\Settings\\Below]\r\n\"B\"=\"W\xC3\xBCrz\"\r\n\r\n[") +
                kLocalKey + "Paper Sizes]\r\n\"C\"=dword:00000003\r\n\r\n",
            Pushed());
  store.WriteDword("DATA:Fonts/D", 4u);
  EXPECT_EQ("[DATA:\\Fonts]\r\n\"D\"=dword:00000004\r\n\r\n", Pushed());
}

TEST_F(ClientSharing, PushGoesOutPastEveryOtherRequest) {
  Routed().WriteDword("SETTINGS:A", 1u);
  EXPECT_TRUE(Link.PushShadow());
  EXPECT_EQ(2u, Monitor.Requests.size());
}

TEST_F(ClientSharing, PushAfterNothingChangedSendsNoRequest) {
  Routed().WriteDword("SETTINGS:A", 1u);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_EQ("", Pushed());
}

TEST_F(ClientSharing, PushAfterAPullThatBroughtSomethingSendsNoRequest) {
  Routed().WriteDword("SETTINGS:A", 1u);
  EXPECT_TRUE(Pull(std::string("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n"
                               "[DATA:\\New]\r\n\"B\"=dword:00000003\r\n\r\n[") +
                   kLocalKey + "Paper Sizes]\r\n\"C\"=dword:00000003\r\n\r\n"));
  EXPECT_EQ("", Pushed());
}

TEST_F(ClientSharing, ChangeBehindAPullIsPushed) {
  EXPECT_TRUE(Pull("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n"));
  Routed().WriteDword("SETTINGS:A", 3u);
  EXPECT_EQ("[DATA:\\Settings]\r\n\"A\"=dword:00000003\r\n\r\n", Pushed());
  EXPECT_EQ("", Pushed());
}

TEST_F(ClientSharing, PushThatFailedIsMadeUpFor) {
  PrinterRegistry store = Routed();
  store.WriteDword("SETTINGS:A", 1u);
  Monitor.SettingsResult = 0;
  EXPECT_FALSE(Link.PushShadow());
  EXPECT_EQ(-1, store.GetValueSize("SETTINGS:(CRC32)"));
  Monitor.SettingsResult = 1;
  EXPECT_EQ("[DATA:\\Settings]\r\n\"A\"=dword:00000001\r\n\r\n", Pushed());
  store.WriteDword("SETTINGS:A", 2u);
  Monitor.SettingsResult = 0;
  EXPECT_FALSE(Link.PushShadow());
  Monitor.SettingsResult = 1;
  EXPECT_EQ("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n", Pushed());
}

TEST_F(ClientSharing, MachinesOwnBranchesAreNeverSent) {
  PrinterRegistry store = Routed();
  for (const char* branch : {"LOCAL:XPML/A", "LOCAL:X16/A", "LOCAL:Network/A"})
    store.WriteDword(branch, 1u);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_EQ(std::string(kPullHead) + kPullTail, Exchanged().at(0));
  EXPECT_EQ("", Pushed());
}

// Guards.

TEST_F(ClientSharing, ShadowOneOnAClientMeansNeitherPullNorPush) {
  Store().WriteByte(kShadow, 1);
  ExpectNoExchange();
  EXPECT_FALSE(Reached());
}

TEST_F(ClientSharing, ShadowThreeOnAClientMeansNeitherPullNorPush) {
  Store().WriteByte(kShadow, 3);
  ExpectNoExchange();
  EXPECT_FALSE(Reached());
}

TEST_F(ClientSharing, BlockMeansNeitherPullNorPush) {
  Link.SetShadowBlocked(true);
  ExpectNoExchange();
  EXPECT_FALSE(Reached());
  Link.SetShadowBlocked(false);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_EQ(1u, Exchanged().size());
}

TEST_F(ClientSharing, BlockOfZeroBlocksNothing) {
  Store().WriteByte(kBlocked, 0);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_EQ(1u, Exchanged().size());
  Link.SetShadowBlocked(false);
}

TEST_F(ClientSharing, UserWhoTakesNoPartExchangesNothing) {
  Link.SetConfigurationSharing(false);
  ExpectNoExchange();
  EXPECT_FALSE(Link.IsSharingInForce());
  Link.SetConfigurationSharing(true);
  EXPECT_TRUE(Link.IsSharingInForce());
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_EQ(1u, Exchanged().size());
}

TEST_F(ClientSharing, UsersWordCountsAsANumberOfAnyWidth) {
  Store().WriteInt(kUserSharing, 0);
  EXPECT_FALSE(Link.IsSharingInForce());
  Store().WriteInt(kUserSharing, 256);
  EXPECT_TRUE(Link.IsSharingInForce());
  Store().Delete(kUserSharing, false);
}

TEST_F(ClientSharing, ServerThatSharesNothingIsSentNothing) {
  for (const char* answer : {"0;1;1;USB", "2;1;1;USB", "x;1;1;USB", ";1;1;USB"}) {
    Monitor.Answer = answer;
    ExpectNoExchange();
  }
  EXPECT_TRUE(Reached());
}

TEST_F(ClientSharing, TurnedOffCommunicationAsksNobody) {
  Store().WriteByte(kCommunication, 0);
  ExpectNoExchange();
  EXPECT_FALSE(Link.IsSharingInForce());
  EXPECT_FALSE(Link.IsSharingPossible());
  EXPECT_FALSE(Reached());
}

TEST_F(ServerSharing, PrinterOfThisMachineExchangesNothing) {
  ExpectNoExchange();
  EXPECT_FALSE(Reached());
}

TEST_F(ServerSharing, ShadowTwoExchangesOnTheServersMachineToo) {
  Store().WriteByte(kShadow, 2);
  Store().WriteDword("SETTINGS:A", 7u);
  EXPECT_TRUE(Pull("[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n"));
  EXPECT_EQ(2u, Routed().ReadDword("SETTINGS:A", 0));
  EXPECT_EQ(7u, Store().ReadDword("SETTINGS:A", 0));
}

TEST_F(ServerSharing, UsersWordDoesntCountOnTheServersMachine) {
  Store().WriteByte(kUserSharing, 0);
  EXPECT_TRUE(Link.IsSharingInForce());
  Monitor.Answer = "0;1;1;USB";
  MonitorLink other(Printer.Name());
  other.Loader = &Monitor;
  EXPECT_FALSE(other.IsSharingInForce());
  Store().Delete(kUserSharing, false);
}

// Who shares.

TEST_F(ClientSharing, SharingIsPossibleWhereTheServerShares) {
  EXPECT_TRUE(Link.IsSharingPossible());
  Link.SetConfigurationSharing(false);
  EXPECT_TRUE(Link.IsSharingPossible());
  Link.SetConfigurationSharing(true);
  Monitor.Answer = "0;1;1;USB";
  MonitorLink other(Printer.Name());
  other.Loader = &Monitor;
  EXPECT_FALSE(other.IsSharingPossible());
}

TEST_F(ServerSharing, SharingIsPossibleWhereThePrinterCanBeAsked) {
  Monitor.IsMissing = true;
  EXPECT_TRUE(Link.IsSharingPossible());
  SetBidi(false);
  EXPECT_FALSE(Link.IsSharingPossible());
  EXPECT_FALSE(Reached());
}

TEST_F(ClientSharing, ClientsSwitchIsTheUsersPastTheShadowRoute) {
  Link.ConfigurationSharing = 1;
  Link.SetConfigurationSharing(false);
  EXPECT_EQ(1, Store().GetValueSize(kUserSharing));
  EXPECT_EQ(0, Store().ReadByte(kUserSharing, 9));
  EXPECT_EQ(-1, Routed().GetValueSize(kUserSharing));
  EXPECT_EQ(1, Link.ConfigurationSharing);
  Store().Delete(kUserSharing, false);
}

TEST_F(ServerSharing, ServersSwitchIsThePrinters) {
  Link.SetConfigurationSharing(true);
  EXPECT_EQ(1, Store().ReadByte("Settings:Configuration Sharing", 0));
  EXPECT_EQ(1, Link.ConfigurationSharing);
  Link.SetConfigurationSharing(false);
  EXPECT_EQ(0, Store().ReadByte("Settings:Configuration Sharing", 9));
  EXPECT_EQ(0, Link.ConfigurationSharing);
  EXPECT_EQ(-1, Store().GetValueSize(kUserSharing));
}

}  // namespace
}  // namespace ostvt::test
