#include <gtest/gtest.h>

#include "store/ORegistry.h"
#include "tests/comm/MonitorLinkFixture.h"

namespace ostvt::test {
namespace {

using Requests = std::vector<std::string>;

constexpr char kRestart[] = "<network action='restart'/>";

TEST_F(MonitorLinkTest, SettingsHaveTheirDefaults) {
  EXPECT_TRUE(Link.GetNetworkCommunication());
  EXPECT_TRUE(Link.GetTcpEnabled());
  EXPECT_EQ(6160, Link.GetTcpPort());
  EXPECT_EQ(1000, Link.GetConnectionTimeout());
  EXPECT_EQ(2, Link.GetConnectionRetries());
  EXPECT_FALSE(Link.GetServerAddressOverride());
  EXPECT_TRUE(Link.GetServerAddress().IsEmpty());
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(MonitorLinkTest, SettingsAreStoredUnderTheirNamesAndSizes) {
  Link.SetNetworkCommunication(false);
  Link.SetTcpEnabled(false);
  Link.SetTcpPort(6161);
  Link.SetConnectionTimeout(2500);
  Link.SetConnectionRetries(7);
  Link.SetServerAddressOverride(true);
  Link.SetServerAddress("10.0.0.1");
  PrinterRegistry store = Store();
  const auto check = [&store](const char* name, int32_t size, int32_t value) {
    const OString path = OString("NETWORK:") + name;
    EXPECT_EQ(size, store.GetValueSize(path)) << name;
    EXPECT_EQ(value, size == 1 ? store.ReadByte(path, 99) : store.ReadInt(path, 99)) << name;
  };
  check("Network Communication", 1, 0);
  check("TCP Enabled", 1, 0);
  check("TCP Port", 4, 6161);
  check("Connection Timeout", 4, 2500);
  check("Connection Retries", 4, 7);
  check("Server Address Override", 1, 1);
  EXPECT_STREQ("10.0.0.1", store.ReadString("NETWORK:Server Address", OString()).GetNarrow());
  EXPECT_FALSE(Link.GetNetworkCommunication());
  EXPECT_FALSE(Link.GetTcpEnabled());
  EXPECT_EQ(6161, Link.GetTcpPort());
  EXPECT_EQ(2500, Link.GetConnectionTimeout());
  EXPECT_EQ(7, Link.GetConnectionRetries());
  EXPECT_TRUE(Link.GetServerAddressOverride());
  EXPECT_STREQ("10.0.0.1", Link.GetServerAddress().GetNarrow());
}

TEST_F(MonitorLinkTest, FirstThreeRestartTheNetwork) {
  Link.SetNetworkCommunication(true);
  EXPECT_EQ((Requests{kRestart}), Monitor.Requests);
  Link.SetTcpEnabled(true);
  Link.SetTcpPort(6160);
  EXPECT_EQ((Requests{kRestart, kRestart, kRestart}), Monitor.Requests);
}

TEST_F(MonitorLinkTest, NetworkRestartsBehindTheWrite) {
  class LookingMonitor : public MonitorLoader {
   public:
    explicit LookingMonitor(MonitorLink* link) : Link(link) {}
    void* Open() override {
      Port = Link->GetTcpPort();
      return nullptr;
    }
    MonitorLink* Link;
    int32_t Port = 0;
  };
  LookingMonitor looking(&Link);
  Link.Loader = &looking;
  Link.SetTcpPort(7000);
  EXPECT_EQ(7000, looking.Port);
}

TEST_F(MonitorLinkTest, OtherSettingsAreOnlyWritten) {
  Link.SetConnectionTimeout(1);
  Link.SetConnectionRetries(1);
  Link.SetServerAddressOverride(true);
  Link.SetServerAddress("a");
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(RemoteMonitorLinkTest, ClientRestartsNothing) {
  Link.SetNetworkCommunication(false);
  Link.SetTcpEnabled(false);
  Link.SetTcpPort(1);
  EXPECT_EQ(0, Monitor.Loads);
  EXPECT_EQ(1, Link.GetTcpPort());
}

TEST_F(RemoteMonitorLinkTest, SettingsLieByServerInThisMachinesOwnStore) {
  PrinterRegistry shadowed(Printer.Name());
  ASSERT_TRUE(shadowed.IsShadowed);
  Link.SetTcpPort(7001);
  EXPECT_EQ(7001, ORegistry().ReadInt("LOCAL:Network/@server/TCP Port", 0));
  EXPECT_EQ(0, shadowed.ReadInt("NETWORK:TCP Port", 0));
  shadowed.WriteInt("NETWORK:TCP Port", 7002);
  EXPECT_EQ(7001, Link.GetTcpPort());
  shadowed.Delete("NETWORK:", true);
}

}  // namespace
}  // namespace ostvt::test
