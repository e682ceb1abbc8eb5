#include "companions/netmon/ServerSettings.h"

#include <gtest/gtest.h>

#include "companions/netmon/Request.h"
#include "companions/netmon/ServerRegistry.h"
#include "companions/netmon/Transfer.h"
#include "core/OStringArray.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

using netmon::ChangedSettings;
using netmon::ServerRegistry;
using netmon::UpdateSettings;

class ServerSettingsTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Spooled.IsReady()); }

  // A branch as the client lists it: with the checksum that it has.
  std::string Listed(const char* branch) {
    return "\"" + std::string(branch) + "\"," +
           OString::HexOf(Server.ReadDword(OString(branch) + "/(CRC32)", 0)).GetNarrow() + ";";
  }

  TestPrinter Spooled;  // for its store
  ServerRegistry Server{u"\\\\S\\P", u"S"};
};

TEST_F(ServerSettingsTest, ClientWithoutAnythingGetsEveryBranch) {
  Server.WriteDword("SETTINGS:Darkness", 42u);
  Server.WriteString("LOCAL:Paper Sizes/Names/Shelf", u"W\u00FCrz");
  EXPECT_EQ(
      "[DATA:\\Settings]\r\n"
      "\"Darkness\"=dword:0000002a\r\n"
      "\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Paper Sizes]\r\n"
      "\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Paper Sizes\\Names]\r\n"
      "\"Shelf\"=\"W\xC3\xBCrz\"\r\n"
      "\r\n",
      ChangedSettings(&Server, ""));
}

TEST_F(ServerSettingsTest, BranchWithTheSameChecksumIsLeftOut) {
  Server.WriteDword("SETTINGS:A", 1u);
  Server.WriteDword("DATA:Fonts/B", 2u);
  ChangedSettings(&Server, "");
  EXPECT_EQ("", ChangedSettings(&Server, Listed("DATA:Fonts") + Listed("DATA:Settings")));
  EXPECT_EQ("[DATA:\\Fonts]\r\n\"B\"=dword:00000002\r\n\r\n",
            ChangedSettings(&Server, Listed("DATA:Settings")));
}

TEST_F(ServerSettingsTest, BranchThatChangedSinceIsGiven) {
  Server.WriteDword("SETTINGS:A", 1u);
  ChangedSettings(&Server, "");
  const std::string before = Listed("DATA:Settings");
  Server.WriteDword("SETTINGS:A", 3u);
  EXPECT_EQ("[DATA:\\Settings]\r\n\"A\"=dword:00000003\r\n\r\n", ChangedSettings(&Server, before));
}

TEST_F(ServerSettingsTest, DamagedListNamesNothing) {
  Server.WriteDword("SETTINGS:A", 1u);
  ChangedSettings(&Server, "");
  const std::string sound = Listed("DATA:Settings");
  for (const std::string& known :
       {std::string("\"DATA:Settings\""), std::string("\"DATA:Settings\","),
        std::string("\"DATA:Settings\",1234"), std::string("\"DATA:Settings\",XYZXYZXY;"),
        "x" + sound, sound.substr(0, sound.size() - 2)})
    EXPECT_NE("", ChangedSettings(&Server, known)) << known;
}

TEST_F(ServerSettingsTest, MachinesOwnBranchesAreNotGiven) {
  Server.WriteDword("LOCAL:X16/A", 1u);
  Server.WriteDword("LOCAL:XPML/A", 1u);
  Server.WriteDword("LOCAL:Network/A", 1u);
  EXPECT_EQ("", ChangedSettings(&Server, ""));
}

TEST_F(ServerSettingsTest, UpdateReplacesTheKeysThatItNames) {
  Server.WriteDword("SETTINGS:Old", 1u);
  Server.WriteDword("DATA:Fonts/Kept", 1u);
  UpdateSettings(&Server,
                 "[DATA:\\Settings]\r\n"
                 "\"New\"=dword:00000002\r\n"
                 "\"Text\"=\"W\xC3\xBCrz\"\r\n"
                 "\r\n");
  EXPECT_EQ(-1, Server.GetValueSize("SETTINGS:Old"));
  EXPECT_EQ(2u, Server.ReadDword("SETTINGS:New", 0));
  EXPECT_EQ(OString(u"W\u00FCrz"), Server.ReadString("SETTINGS:Text", ""));
  EXPECT_EQ(1u, Server.ReadDword("DATA:Fonts/Kept", 0));
}

#ifdef __linux__
// The store of the other system writes value by value.
TEST_F(ServerSettingsTest, UpdateThatTheStoreRefusesIsAFailure) {
  Server.WriteDword("SETTINGS:A", 1u);
  const std::string text = "[DATA:\\Settings]\r\n\"A\"=dword:00000002\r\n\r\n";
  {
    const test::FullDisk full;
    EXPECT_FALSE(UpdateSettings(&Server, text));
  }
  EXPECT_EQ(1u, Server.ReadDword("SETTINGS:A", 0));
  EXPECT_TRUE(UpdateSettings(&Server, text));
}
#endif

TEST_F(ServerSettingsTest, UpdateMakesBranchesThatWereNotThere) {
  UpdateSettings(&Server,
                 "[DATA:\\Presets\\One]\r\n\"A\"=dword:00000001\r\n\r\n"
                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Paper Sizes]\r\n"
                 "\"B\"=dword:00000002\r\n\r\n");
  EXPECT_EQ(1u, Server.ReadDword("PRESETS:One/A", 0));
  EXPECT_EQ(2u, Server.ReadDword("STOCK:B", 0));
}

TEST_F(ServerSettingsTest, UpdateTakesNothingBesidesAConfiguration) {
  Server.WriteDword("LOCAL:XPML/Kept", 1u);
  Server.WriteDword("2:SOFTWARE/Other/Kept", 1u);
  Server.WriteDword("DATA:Root Value", 1u);
  UpdateSettings(&Server,
                 "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n"
                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\XPML]\r\n"
                 "\"A\"=dword:00000001\r\n\r\n"
                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\network]\r\n"
                 "\"A\"=dword:00000001\r\n\r\n"
                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\DriversX\\A]\r\n"
                 "\"A\"=dword:00000001\r\n\r\n"
                 "[HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\A]\r\n"
                 "\"A\"=dword:00000001\r\n\r\n"
                 "[DATA:]\r\n\"A\"=dword:00000001\r\n\r\n");
  EXPECT_EQ(1u, Server.ReadDword("LOCAL:XPML/Kept", 0));
  EXPECT_EQ(1u, Server.ReadDword("2:SOFTWARE/Other/Kept", 0));
  EXPECT_EQ(1u, Server.ReadDword("DATA:Root Value", 0));
  for (const char* path : {"LOCAL:XPML/A", "LOCAL:Network/A", "2:SOFTWARE/Vantrel/DriversX/A/A",
                           "1:SOFTWARE/Vantrel/Drivers/A/A", "DATA:A"})
    EXPECT_EQ(-1, Server.GetValueSize(path)) << path;
}

TEST_F(ServerSettingsTest, NamesWithSpecialCharactersStayOneKey) {
  Server.WriteDword("PRESETS:a%2Fb%3Ac/A", 1u);
  const std::string text = ChangedSettings(&Server, "");
  ServerRegistry other(u"P", u"T");
  UpdateSettings(&other, text);
  EXPECT_EQ(1u, other.ReadDword("PRESETS:a%2Fb%3Ac/A", 0));
}

TEST_F(ServerSettingsTest, PlayedServersStoreIsApartFromThePrintersOwn) {
  ServerRegistry server(Spooled.Name(), u"S");
  PrinterRegistry own(Spooled.Name());
  server.WriteDword("SETTINGS:A", 1u);
  server.WriteDword("USER:A", 1u);
  own.WriteDword("SETTINGS:B", 1u);
  EXPECT_EQ(-1, own.GetValueSize("SETTINGS:A"));
  EXPECT_EQ(-1, own.GetValueSize("USER:A"));
  EXPECT_EQ(-1, server.GetValueSize("SETTINGS:B"));
  OStringArray roots;
  own.ListBranchRoots(&roots);
  ASSERT_EQ(1, roots.Count);
  EXPECT_EQ(OString("DATA:Settings"), roots[0]);
}

TEST_F(ServerSettingsTest, WithoutAPlayedServerItIsTheMachinesOwnStore) {
  PrinterRegistry own(Spooled.Name());
  own.WriteDword("SETTINGS:A", 1u);
  ServerRegistry server(Spooled.Name(), u"");
  EXPECT_FALSE(server.IsPlayed());
  EXPECT_EQ(1u, server.ReadDword("SETTINGS:A", 0));
}

TEST_F(ServerSettingsTest, RequestCarriesSettingsInAFrame) {
  Server.WriteDword("SETTINGS:A", 1u);
  std::string answer;
  ASSERT_EQ(0u, netmon::Request(u"\\\\S\\P", u"S")
                    .Run("<encode out='lz77'><settings action='request'>"
                         "\"DATA:Settings\",00000000;</settings></encode>",
                         &answer));
  ASSERT_TRUE(netmon::Decode("lz77", &answer));
  EXPECT_EQ("[DATA:\\Settings]\r\n\"A\"=dword:00000001\r\n\r\n", answer);
}

TEST_F(ServerSettingsTest, UpdateArrivesPackedOrPlain) {
  const std::string text = "[DATA:\\Settings]\r\n\"A\"=dword:00000005\r\n\r\n";
  std::string packed = text;
  ASSERT_TRUE(netmon::Encode("base64;lz77", &packed));
  std::string answer;
  netmon::Request request(u"\\\\S\\P", u"S");
  ASSERT_EQ(0u, request.Run("<settings action='update'><encode in='base64;lz77'>" + packed +
                                "</encode></settings>",
                            &answer));
  EXPECT_EQ(5u, Server.ReadDword("SETTINGS:A", 0));
  Server.WriteDword("SETTINGS:A", 1u);
  ASSERT_EQ(0u, request.Run("<settings action='update'>" + text + "</settings>", &answer));
  EXPECT_EQ(5u, Server.ReadDword("SETTINGS:A", 0));
  EXPECT_EQ("", answer);
}

}  // namespace
}  // namespace ostvt::test
