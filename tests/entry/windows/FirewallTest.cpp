#include <gtest/gtest.h>

#include "entry/PrinterEvents.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr platform::SystemVersion kWindowsXpSp1 = {5, 1, 1};
constexpr platform::SystemVersion kWindowsXpSp2 = {5, 1, 2};

// A program named netsh lies beside this one and writes down how it was started.
class FirewallRule : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    SetEnvironmentVariableA("OSTVT_NETSH_LOG", Files.Path("log").c_str());
  }
  void TearDown() override {
    SetEnvironmentVariableA("OSTVT_NETSH_LOG", nullptr);
    EntryTest::TearDown();
  }
  // The command line; "" when none came within `limit` milliseconds.
  std::string WaitForLog(int limit) {
    std::string line;
    for (int waited = 0; line.empty() && waited < limit; waited += 20) {
      Sleep(20);
      line = Files.Get("log");
    }
    return line;
  }
  TempDirectory Files;
};

TEST_F(FirewallRule, CreationOpensTheMonitorsPort) {
  AddPrinter();
  ASSERT_TRUE(PrinterCreated(Name(), kWindowsXpSp2));
  EXPECT_EQ(WaitForLog(20000),
            "netsh firewall add portopening tcp 6160 \"Vantrel Driver Networking\"");
}

TEST_F(FirewallRule, PortIsTheOneInTheStore) {
  AddPrinter();
  Store().WriteDword("NETWORK:TCP Port", uint32_t{9100});
  ASSERT_TRUE(PrinterCreated(Name(), {10, 0, 0}));
  EXPECT_EQ(WaitForLog(20000),
            "netsh firewall add portopening tcp 9100 \"Vantrel Driver Networking\"");
}

TEST_F(FirewallRule, Event3OnWindowsXpWithoutServicePack2AddsNone) {
  AddPrinter();
  ASSERT_TRUE(PrinterCreated(Name(), kWindowsXpSp1));
  EXPECT_EQ(WaitForLog(2000), "");
}

}  // namespace
}  // namespace ostvt::test
