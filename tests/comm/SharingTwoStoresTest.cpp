// A client and its server, each with a store of its own, and the real port monitor between them.
#include "companions/netmon/ServerRegistry.h"
#include "tests/comm/MonitorLinkFixture.h"
#include "tests/comm/SharingText.h"
#include "tests/support/TestMonitorLoader.h"

namespace ostvt::test {
namespace {

class SharingTwoStores : public testing::Test {
 protected:
  SharingTwoStores() : Printer(RemotePrinter()), Server(Printer.Name(), "server") {}

  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    Clear();
    Monitor.PlayServer("server");
    Link.PrinterName = Printer.Name();
    Link.Loader = &Loader;
  }
  void TearDown() override { Clear(); }

  PrinterRegistry Client() const { return PrinterRegistry(Printer.Name()); }
  int Requests() const { return Monitor.Count("<settings action='request'>"); }
  int Updates() const { return Monitor.Count("<settings action='update'>"); }

  TestPrinter Printer;
  netmon::ServerRegistry Server;
  TestMonitor Monitor;
  TestMonitorLoader Loader{Monitor};
  MonitorLink Link;

 private:
  void Clear() {
    ORegistry().Delete("1:SOFTWARE/Vantrel/Network Monitor/Servers/server", true);
    PrinterRegistry client = Client();
    client.Delete("DATA:", true);
    client.DeleteMatching("LOCAL:*");
  }
};

TEST_F(SharingTwoStores, EditOnTheClientReachesTheServer) {
  Server.WriteDword("SETTINGS:Darkness", 42u);
  Server.WriteString("SETTINGS:Below/Word", u"W\u00FCrz");
  Server.WriteDword("LOCAL:Paper Sizes/A", 5u);
  ASSERT_TRUE(Link.PullShadow());
  PrinterRegistry client = Client();
  EXPECT_EQ(42u, client.ReadDword("SETTINGS:Darkness", 0));
  EXPECT_EQ(OString(u"W\u00FCrz"), client.ReadString("SETTINGS:Below/Word", ""));
  EXPECT_EQ(5u, client.ReadDword("LOCAL:Paper Sizes/A", 0));

  client.WriteDword("SETTINGS:Darkness", 43u);
  client.Delete("SETTINGS:Below/Word", false);
  ASSERT_TRUE(Link.PushShadow());
  EXPECT_EQ(43u, Server.ReadDword("SETTINGS:Darkness", 0));
  EXPECT_EQ(-1, Server.GetValueSize("SETTINGS:Below/Word"));
  EXPECT_EQ(5u, Server.ReadDword("LOCAL:Paper Sizes/A", 0));
  EXPECT_EQ(1, Requests());
  EXPECT_EQ(1, Updates());
}

// An update replaces the keys that it names, and the top of a branch is always named.
TEST_F(SharingTwoStores, KeyDeletedOnTheClientIsDeletedOnTheServer) {
  Server.WriteDword("SETTINGS:Below/Deep/A", 1u);
  Server.WriteDword("LOCAL:Paper Sizes/Shelf/B", 2u);
  ASSERT_TRUE(Link.PullShadow());
  PrinterRegistry client = Client();
  ASSERT_EQ(1u, client.ReadDword("SETTINGS:Below/Deep/A", 0));
  client.Delete("SETTINGS:Below", true);
  client.Delete("LOCAL:Paper Sizes/Shelf", true);
  ASSERT_FALSE(client.GetKeyInfo("SETTINGS:Below", nullptr, nullptr));
  ASSERT_TRUE(Link.PushShadow());
  EXPECT_FALSE(Server.GetKeyInfo("SETTINGS:Below", nullptr, nullptr));
  EXPECT_FALSE(Server.GetKeyInfo("LOCAL:Paper Sizes/Shelf", nullptr, nullptr));
}

TEST_F(SharingTwoStores, KeyDeletedOnTheServerIsDeletedOnTheClient) {
  Server.WriteDword("SETTINGS:Below/Deep/A", 1u);
  ASSERT_TRUE(Link.PullShadow());
  Server.Delete("SETTINGS:Below", true);
  ASSERT_TRUE(Link.PullShadow());
  EXPECT_FALSE(Client().GetKeyInfo("SETTINGS:Below", nullptr, nullptr));
}

TEST_F(SharingTwoStores, WhatDidntChangeStaysWhereItIs) {
  Server.WriteDword("SETTINGS:A", 1u);
  Server.WriteDword("DATA:Fonts/B", 1u);
  ASSERT_TRUE(Link.PullShadow());
  Client().WriteDword("SETTINGS:A", 2u);
  Server.WriteDword("DATA:Fonts/B", 9u);  // meanwhile, by another client
  ASSERT_TRUE(Link.PushShadow());
  EXPECT_EQ(2u, Server.ReadDword("SETTINGS:A", 0));
  EXPECT_EQ(9u, Server.ReadDword("DATA:Fonts/B", 0));
  ASSERT_TRUE(Link.PullShadow());
  EXPECT_EQ(9u, Client().ReadDword("DATA:Fonts/B", 0));
  EXPECT_EQ(2u, Client().ReadDword("SETTINGS:A", 0));
}

TEST_F(SharingTwoStores, NothingIsSentWhenNothingChanged) {
  Server.WriteDword("SETTINGS:A", 1u);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(Link.PullShadow());
    ASSERT_TRUE(Link.PushShadow());
  }
  EXPECT_EQ(3, Requests());
  EXPECT_EQ(0, Updates());
}

TEST_F(SharingTwoStores, ServersSwitchStopsBoth) {
  Server.WriteByte("SETTINGS:Configuration Sharing", 0);
  Server.WriteDword("SETTINGS:A", 1u);
  Client().WriteDword("DATA:Mine/B", 2u);
  EXPECT_TRUE(Link.PullShadow());
  EXPECT_TRUE(Link.PushShadow());
  EXPECT_EQ(0, Requests());
  EXPECT_EQ(0, Updates());
  EXPECT_EQ(-1, Client().GetValueSize("SETTINGS:A"));
  EXPECT_EQ(-1, Server.GetValueSize("DATA:Mine/B"));
}

TEST_F(SharingTwoStores, SecondClientGetsWhatTheFirstOnePushed) {
  ASSERT_TRUE(Link.PullShadow());
  Client().WriteDword("SETTINGS:A", 2u);
  ASSERT_TRUE(Link.PushShadow());
  Client().Delete("DATA:", true);  // a client that has nothing
  ASSERT_TRUE(Link.PullShadow());
  EXPECT_EQ(2u, Client().ReadDword("SETTINGS:A", 0));
}

// What a monitor may come to answer: the shadow stays as it was.
TEST_F(SharingTwoStores, MisbehavingMonitorChangesNothing) {
  Server.WriteDword("SETTINGS:A", 1u);
  ASSERT_TRUE(Link.PullShadow());
  Server.WriteDword("SETTINGS:A", 2u);
  for (const char* fault : {"zero", "zero-with-handle", "empty", "short", "negative-size", "huge",
                            "garbage", "half-frame", "lying-frame", "null-handle"}) {
    Monitor.Misbehave(std::string(fault) + "@<settings");
    Link.PullShadow();
    EXPECT_EQ(1u, Client().ReadDword("SETTINGS:A", 0)) << fault;
    Monitor.Misbehave(fault);
    Link.PullShadow();
    EXPECT_EQ(1u, Client().ReadDword("SETTINGS:A", 0)) << fault;
  }
  Monitor.Misbehave("");
  ASSERT_TRUE(Link.PullShadow());
  EXPECT_EQ(2u, Client().ReadDword("SETTINGS:A", 0));
}

TEST_F(SharingTwoStores, PushThatTheMonitorRefusedIsMadeUpFor) {
  ASSERT_TRUE(Link.PullShadow());
  Client().WriteDword("SETTINGS:A", 2u);
  Monitor.Misbehave("zero@<settings action='update'>");
  EXPECT_FALSE(Link.PushShadow());
  Server.Delete("SETTINGS:A", false);
  Monitor.Misbehave("");
  EXPECT_TRUE(Link.PushShadow());
  EXPECT_EQ(2u, Server.ReadDword("SETTINGS:A", 0));
  EXPECT_EQ(2, Updates());
}

}  // namespace
}  // namespace ostvt::test
