#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/PrinterEvents.h"
#include "platform/Process.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr platform::SystemVersion kWindowsXpSp1 = {5, 1, 1};
constexpr platform::SystemVersion kWindowsXpSp2 = {5, 1, 2};

std::vector<std::u16string> started;

bool NoteStart(const char16_t* line, int state, const char16_t*) {
  started.push_back(std::u16string(line) + (state == platform::kShowHidden ? u"|hidden" : u""));
  return false;  // whether the program could be started changes nothing
}

class FirewallRule : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    started.clear();
    platform::SetStartFunction(NoteStart);
  }
  void TearDown() override {
    platform::SetStartFunction(nullptr);
    EntryTest::TearDown();
  }
};

TEST_F(FirewallRule, CreationOpensTheMonitorsPort) {
  AddPrinter();
  ASSERT_TRUE(PrinterCreated(Name(), kWindowsXpSp2));
  EXPECT_EQ(started, std::vector<std::u16string>{
                         u"netsh firewall add portopening tcp 6160 \"Vantrel Driver Networking\"|"
                         u"hidden"});
}

TEST_F(FirewallRule, PortIsTheOneInTheStore) {
  AddPrinter();
  Store().WriteDword("NETWORK:TCP Port", uint32_t{9100});
  ASSERT_TRUE(PrinterCreated(Name(), {10, 0, 0}));
  EXPECT_EQ(started, std::vector<std::u16string>{
                         u"netsh firewall add portopening tcp 9100 \"Vantrel Driver Networking\"|"
                         u"hidden"});
}

TEST_F(FirewallRule, Event3OnWindowsXpWithoutServicePack2AddsNone) {
  AddPrinter();
  ASSERT_TRUE(PrinterCreated(Name(), kWindowsXpSp1));
  EXPECT_TRUE(started.empty());
}

}  // namespace
}  // namespace ostvt::test
