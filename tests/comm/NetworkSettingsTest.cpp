#include "comm/NetworkSettings.h"

#include <gtest/gtest.h>

#include "core/OFile.h"
#include "platform/KeyStore.h"
#include "platform/Spooler.h"
#include "tests/comm/MonitorLinkFixture.h"
#include "tests/settings/SavesAtOnce.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::test {
namespace {

using Requests = std::vector<std::string>;

class NetworkSettings : public MonitorLinkTest {
 protected:
  explicit NetworkSettings(const TestPrinterOptions& options = {}) : MonitorLinkTest(options) {}
  std::string Exported() {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      file.CodePage = kCodePageUtf8;
      IsExported = ExportNetworkSettings(Link, file);
    }
    return Files.Get("out.sds");
  }
  bool Import(const std::string& text) {
    OFile file(Files.Put("in.sds", text).c_str(), kFileShareAll);
    file.CodePage = kCodePageUtf8;
    return ImportNetworkSettings(Link, file);
  }

  TempDirectory Files;
  bool IsExported = false;
};

class RemoteNetworkSettings : public NetworkSettings {
 protected:
  RemoteNetworkSettings() : NetworkSettings(RemotePrinter()) {}
};

TEST_F(NetworkSettings, ExportHasTheNeutralName) {
  PrinterRegistry store = Store();
  store.WriteInt("NETWORK:TCP Port", 6161);
  store.WriteByte("NETWORK:TCP Enabled", 0);
  store.WriteString("NETWORK:Server Address", "10.0.0.1");
  EXPECT_EQ(
      "<network>\r\n"
      "[NETWORK:]\r\n"
      "\"Server Address\"=\"10.0.0.1\"\r\n"
      "\"TCP Enabled\"=hex:00\r\n"
      "\"TCP Port\"=hex:11,18,00,00\r\n"
      "</network>\r\n"
      "\r\n",
      Exported());
  EXPECT_TRUE(IsExported);
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(NetworkSettings, BranchOfTwoLinesIsNotExported) {
  PrinterRegistry store = Store();
  store.WriteInt("NETWORK:TCP Port", 6161);
  store.Delete("NETWORK:TCP Port", false);
  ASSERT_TRUE(store.GetKeyInfo("NETWORK:", nullptr, nullptr));
  EXPECT_EQ("", Exported());
  EXPECT_FALSE(IsExported);
}

TEST_F(NetworkSettings, MissingBranchIsNotExported) {
  EXPECT_EQ("", Exported());
  EXPECT_FALSE(IsExported);
}

TEST_F(RemoteNetworkSettings, ExportIsOfThisMachinesOwnStore) {
  Store().WriteInt("NETWORK:TCP Port", 1);
  PrinterRegistry shadowed(Printer.Name());
  shadowed.WriteInt("NETWORK:TCP Port", 2);
  EXPECT_EQ("<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:01,00,00,00\r\n</network>\r\n\r\n",
            Exported());
  shadowed.Delete("NETWORK:", true);
}

TEST_F(NetworkSettings, SubKeysHaveNoEmptyLinesBetween) {
  PrinterRegistry store = Store();
  store.WriteByte("NETWORK:A", 1);
  store.WriteByte("NETWORK:Sub/B", 2);
  EXPECT_EQ(
      "<network>\r\n[NETWORK:]\r\n\"A\"=hex:01\r\n[NETWORK:\\Sub]\r\n\"B\"=hex:02\r\n"
      "</network>\r\n\r\n",
      Exported());
}

TEST_F(NetworkSettings, ImportReplacesAll) {
  PrinterRegistry store = Store();
  store.WriteInt("NETWORK:Connection Retries", 9);
  EXPECT_TRUE(
      Import("<network>\r\n[NETWORK:]\r\n\"TCP Enabled\"=hex:00\r\n"
             "[NETWORK:\\Sub]\r\n\"B\"=hex:02\r\n</network>\r\n\r\n"));
  EXPECT_FALSE(Link.GetTcpEnabled());
  EXPECT_EQ(2, Link.GetConnectionRetries());
  EXPECT_EQ(2, store.ReadByte("NETWORK:Sub/B", 0));
}

TEST_F(NetworkSettings, ImportBeginsAtTheFilesStart) {
  OFile file(Files
                 .Put("in.sds",
                      "<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:01,00,00,00\r\n"
                      "</network>\r\n")
                 .c_str(),
             kFileShareAll);
  OString line;
  ASSERT_TRUE(file.ReadLine(line));
  ASSERT_TRUE(file.ReadLine(line));
  EXPECT_TRUE(ImportNetworkSettings(Link, file));
  EXPECT_EQ(1, Link.GetTcpPort());
}

TEST_F(NetworkSettings, LinesAreTrimmedAndEmptyOnesSkipped) {
  EXPECT_TRUE(Import(
      "\r\n \t<network version='2'>\r\n\r\n\t[NETWORK:]  \r\n\r\n  \"A\"=hex:01,\\\r\n  02\r\n"
      "\r\n\"B\"=\"x\"\r\n  </network>\t\r\n"));
  PrinterRegistry store = Store();
  uint8_t bytes[2] = {};
  EXPECT_EQ(2, store.ReadBinary("NETWORK:A", bytes, 2));
  EXPECT_EQ(2, bytes[1]);
  EXPECT_STREQ("x", store.ReadString("NETWORK:B", OString()).GetNarrow());
}

TEST_F(NetworkSettings, LinesOutsideRecordsAreNotTheirs) {
  EXPECT_TRUE(Import(
      "[NETWORK:]\r\n\"A\"=hex:01\r\n<network>\r\n[NETWORK:]\r\n\"B\"=hex:02\r\n</network>\r\n"
      "[NETWORK:]\r\n\"C\"=hex:03\r\n"));
  PrinterRegistry store = Store();
  EXPECT_EQ(0, store.ReadByte("NETWORK:A", 0));
  EXPECT_EQ(2, store.ReadByte("NETWORK:B", 0));
  EXPECT_EQ(0, store.ReadByte("NETWORK:C", 0));
}

TEST_F(NetworkSettings, LastRecordWins) {
  EXPECT_TRUE(
      Import("<network>\r\n[NETWORK:]\r\n\"A\"=hex:01\r\n</network>\r\n"
             "<network>\r\n[NETWORK:]\r\n\"B\"=hex:02\r\n</network>\r\n"));
  PrinterRegistry store = Store();
  EXPECT_EQ(0, store.ReadByte("NETWORK:A", 0));
  EXPECT_EQ(2, store.ReadByte("NETWORK:B", 0));
}

TEST_F(NetworkSettings, RecordWithoutItsEndChangesNothing) {
  Store().WriteByte("NETWORK:A", 1);
  EXPECT_FALSE(Import("<network>\r\n[NETWORK:]\r\n\"A\"=hex:02\r\n"));
  EXPECT_EQ(1, Store().ReadByte("NETWORK:A", 0));
}

TEST_F(NetworkSettings, SecondOpeningInAnUnclosedRecordStartsAnew) {
  EXPECT_TRUE(
      Import("<network>\r\n[NETWORK:]\r\n\"A\"=hex:01\r\n"
             "<network>\r\n[NETWORK:]\r\n\"B\"=hex:02\r\n</network>\r\n"));
  EXPECT_EQ(0, Store().ReadByte("NETWORK:A", 0));
  EXPECT_EQ(2, Store().ReadByte("NETWORK:B", 0));
}

#ifdef __linux__

TEST_F(NetworkSettings, RecordThatTheStoreRefusesIsNone) {
  Store().WriteInt("NETWORK:TCP Port", 7);
  OFile file(Files
                 .Put("in.sds",
                      "<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:01,00,00,00\r\n"
                      "</network>\r\n")
                 .c_str(),
             kFileShareAll);
  {
    const FullDisk full;
    EXPECT_FALSE(ImportNetworkSettings(Link, file));
  }
  EXPECT_EQ(7, Link.GetTcpPort());
  EXPECT_TRUE(Monitor.Requests.empty());
  EXPECT_TRUE(ImportNetworkSettings(Link, file));
  EXPECT_EQ(1, Link.GetTcpPort());
}

#endif

TEST_F(NetworkSettings, FileWithoutARecordChangesNothing) {
  Store().WriteByte("NETWORK:A", 1);
  EXPECT_FALSE(Import(""));
  EXPECT_FALSE(Import("<stock>\r\n</stock>\r\n</network>\r\n"));
  EXPECT_EQ(1, Store().ReadByte("NETWORK:A", 0));
}

TEST_F(NetworkSettings, EmptyRecordTakesAllAway) {
  Store().WriteByte("NETWORK:A", 1);
  EXPECT_TRUE(Import("<network>\r\n</network>\r\n"));
  EXPECT_FALSE(Store().GetKeyInfo("NETWORK:", nullptr, nullptr));
}

TEST_F(NetworkSettings, KeysOutsideTheBranchAreNotTouched) {
  ORegistry registry;
  registry.WriteByte("LOCAL:Victim/A", 1);
  EXPECT_TRUE(Import(
      "<network>\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Victim]\r\n\"A\"=hex:02\r\n"
      "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Victim]\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Network\\@elsewhere]\r\n\"A\"=hex:02\r\n"
      "[NETWORK:]\r\n\"B\"=hex:03\r\n"
      "</network>\r\n"));
  EXPECT_EQ(1, registry.ReadByte("LOCAL:Victim/A", 0));
  EXPECT_EQ(0, registry.ReadByte("LOCAL:Network/@elsewhere/A", 0));
  EXPECT_EQ(3, Store().ReadByte("NETWORK:B", 0));
  registry.Delete("LOCAL:Victim", true);
}

TEST_F(NetworkSettings, ChangedPortRestartsTheNetworkOnce) {
  EXPECT_TRUE(
      Import("<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:01,00,00,00\r\n</network>\r\n"
             "<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:02,00,00,00\r\n</network>\r\n"));
  EXPECT_EQ((Requests{"<network action='restart'/>"}), Monitor.Requests);
}

TEST_F(NetworkSettings, SamePortRestartsNothing) {
  Link.SetTcpPort(7);
  Monitor.Requests.clear();
  EXPECT_TRUE(Import("<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:07,00,00,00\r\n</network>\r\n"));
  EXPECT_TRUE(Monitor.Requests.empty());
}

TEST_F(NetworkSettings, PortThatIsTakenAwayRestartsTheNetwork) {
  Link.SetTcpPort(7);
  Monitor.Requests.clear();
  EXPECT_TRUE(Import("<network>\r\n</network>\r\n"));
  EXPECT_EQ(1u, Monitor.Requests.size());
}

TEST_F(RemoteNetworkSettings, ClientRestartsNothing) {
  EXPECT_TRUE(Import("<network>\r\n[NETWORK:]\r\n\"TCP Port\"=hex:07,00,00,00\r\n</network>\r\n"));
  EXPECT_EQ(7, Link.GetTcpPort());
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(NetworkSettings, TextsTravelInTheFilesCodePage) {
  Link.SetServerAddress(u"b\u00FCro");
  const std::string text = Exported();
  EXPECT_NE(std::string::npos, text.find("\"Server Address\"=\"b\xC3\xBCro\"")) << text;
  Store().Delete("NETWORK:", true);
  EXPECT_TRUE(Import(text));
  EXPECT_EQ(std::u16string(u"b\u00FCro"), Link.GetServerAddress().GetWide());
}

#ifdef __linux__

class NetworkSettingsKill : public NetworkSettings {
 protected:
  // Two sets of settings with many values, of which only some have the same name.
  void SetUp() override {
    NetworkSettings::SetUp();
    for (int kind = 0; kind < 2; ++kind) {
      Contents[kind] = "<network>\r\n[NETWORK:]\r\n";
      for (int i = 100; i < 160; ++i) {
        Contents[kind] +=
            "\"Value " + std::to_string(i * (kind + 1)) + "\"=\"" + std::to_string(kind) + "\"\r\n";
      }
      Contents[kind] += "</network>\r\n\r\n";
      Paths[kind] = Files.Put(std::to_string(kind) + ".sds", Contents[kind]);
    }
  }
  bool ImportKind(int kind) {
    OFile file(Paths[kind].c_str(), kFileShareAll);
    file.CodePage = kCodePageUtf8;
    return ImportNetworkSettings(Link, file);
  }

  std::string Contents[2];
  std::string Paths[2];
};

TEST_F(NetworkSettingsKill, KilledImportLeavesTheOldSettingsOrTheNewOnes) {
  ExpectOldOrNewListAfterKill(
      nullptr, Contents, [this](PrinterModel*, int kind) { return ImportKind(kind); },
      [this] { return Exported(); });
}

TEST_F(NetworkSettingsKill, WhoeverReadsMeanwhileSeesAWholeSet) {
  ExpectOneListAfterTwoProcesses(
      nullptr, Contents, [this](PrinterModel*, int kind) { return ImportKind(kind); },
      [this] {
        platform::KeyStoreTransaction whole(Store().GetDataHive(),
                                            platform::KeyStoreTransaction::Purpose::kRead);
        return Exported();
      });
}

#endif

}  // namespace
}  // namespace ostvt::test
