#include "family/U1Command.h"

#include <gtest/gtest.h>

#include <string>

#include "comm/PrinterPort.h"
#include "family/U1Variables.h"

namespace ostvt::test {
namespace {

// What the command writes, with nothing sent.
std::string Written(const U1Command& command) {
  PrinterPort port;
  port.BeginCapture();
  port << command;
  return std::string(reinterpret_cast<const char*>(port.Buffer), static_cast<size_t>(port.Fill));
}

TEST(U1Variable, QueryIsAGetvarLine) {
  EXPECT_EQ("! U1 getvar \"appl.name\"\r\n", Written(U1Variable::Query("appl.name")));
}

TEST(U1Variable, QueryLeavesItsValueOut) {
  U1Variable variable("ip.port", 6101);
  variable.text = "x";
  variable.isQuery = true;
  EXPECT_EQ("! U1 getvar \"ip.port\"\r\n", Written(variable));
}

TEST(U1Variable, TextIsSetInQuotes) {
  EXPECT_EQ("! U1 setvar \"device.friendly_name\" \"Dock 4\"\r\n",
            Written(U1Variable("device.friendly_name", "Dock 4")));
}

TEST(U1Variable, NumberIsSetInQuotes) {
  EXPECT_EQ("! U1 setvar \"ip.port\" \"6101\"\r\n", Written(U1Variable("ip.port", 6101)));
  EXPECT_EQ("! U1 setvar \"x\" \"-1\"\r\n", Written(U1Variable("x", -1)));
}

TEST(U1Variable, NumberZeroIsSetAsZeroSinceTheTextIsEmpty) {
  EXPECT_EQ("! U1 setvar \"x\" \"0\"\r\n", Written(U1Variable("x", 0)));
  EXPECT_EQ("! U1 setvar \"x\" \"0\"\r\n", Written(U1Variable("x", "")));
}

TEST(U1Variable, NumberIsSentOnlyWhenTheTextIsEmpty) {
  U1Variable variable("x", 5);
  variable.text = "word";
  EXPECT_EQ("! U1 setvar \"x\" \"word\"\r\n", Written(variable));
}

// Else what stands behind the quote or the line end would be a command of its own.
TEST(U1Variable, TextThatCannotStandInQuotesIsNotWritten) {
  for (const char* text : {"a\"b", "a\rb", "a\nb", "\"", "x\"\r\n! U1 do \"device.reset\"\r\n"}) {
    EXPECT_EQ("", Written(U1Variable("device.friendly_name", text))) << text;
    EXPECT_EQ("", Written(U1Variable(text, "value"))) << text;
    EXPECT_EQ("", Written(U1Variable(text, 5))) << text;
    EXPECT_EQ("", Written(U1Variable::Query(text))) << text;
  }
  U1Variable query("ip.port", "a\"b");
  query.isQuery = true;
  EXPECT_EQ("! U1 getvar \"ip.port\"\r\n", Written(query));
  EXPECT_EQ("! U1 setvar \"x\" \"a'b\tc\\\"\r\n", Written(U1Variable("x", "a'b\tc\\")));
}

TEST(U1Variable, EveryNamedVariableIsAQueryOfItsName) {
  const struct {
    const char* Name;
    U1Variable Variable;
  } rows[] = {
      {"appl.date", u1::ApplDate()},
      {"appl.name", u1::ApplName()},
      {"appl.version", u1::ApplVersion()},
      {"comm.baud", u1::CommBaud()},
      {"comm.parity", u1::CommParity()},
      {"comm.stop_bits", u1::CommStopBits()},
      {"device.friendly_name", u1::DeviceFriendlyName()},
      {"memory.flash_size", u1::MemoryFlashSize()},
      {"memory.flash_free", u1::MemoryFlashFree()},
      {"memory.ram_size", u1::MemoryRamSize()},
      {"memory.ram_free", u1::MemoryRamFree()},
      {"ip.addr", u1::IpAddr()},
      {"card.mac_addr", u1::CardMacAddr()},
      {"ip.gateway", u1::IpGateway()},
      {"ip.netmask", u1::IpNetmask()},
      {"ip.port", u1::IpPort()},
      {"ip.remote", u1::IpRemote()},
      {"ip.dhcp.enable", u1::IpDhcpEnable()},
      {"ip.ftp.enable", u1::IpFtpEnable()},
      {"ip.http.enable", u1::IpHttpEnable()},
      {"ip.lpd.enable", u1::IpLpdEnable()},
      {"ip.tcp.enable", u1::IpTcpEnable()},
      {"ip.telnet.enable", u1::IpTelnetEnable()},
      {"ip.udp.enable", u1::IpUdpEnable()},
      {"power.percent_full", u1::PowerPercentFull()},
      {"power.voltage", u1::PowerVoltage()},
      {"power.status", u1::PowerStatus()},
      {"power.low_battery_shutdown", u1::PowerLowBatteryShutdown()},
      {"power.low_battery_warning", u1::PowerLowBatteryWarning()},
      {"power.dtr_power_off", u1::PowerDtrPowerOff()},
      {"power.inactivity_timeout", u1::PowerInactivityTimeout()},
      {"power.low_battery_timeout", u1::PowerLowBatteryTimeout()},
  };
  EXPECT_EQ(32u, std::size(rows));
  for (const auto& row : rows) {
    EXPECT_TRUE(row.Variable.isQuery) << row.Name;
    EXPECT_EQ("! U1 getvar \"" + std::string(row.Name) + "\"\r\n", Written(row.Variable));
  }
}

TEST(U1Utilities, LineStandsBetweenItsBrackets) {
  EXPECT_EQ("! UTILITIES\r\nDIR\r\nPRINT\r\n", Written(U1Utilities("DIR")));
}

TEST(U1Utilities, LineThatIsSeveralIsNotWritten) {
  EXPECT_EQ("", Written(U1Utilities("DIR\r\nPRINT\r\n! U1 do \"device.reset\"")));
  EXPECT_EQ("", Written(U1Utilities("DIR\n")));
  EXPECT_EQ("! UTILITIES\r\nTYPE \"a\"\r\nPRINT\r\n", Written(U1Utilities("TYPE \"a\"")));
}

TEST(U1Command, CutIsALabelOfItsOwn) {
  EXPECT_EQ("! 0 0 0 0 1\r\nCUT\r\nPRINT\r\n", Written(CutCommand()));
}

TEST(U1Command, ResetAndDiagnosticsAreDoLines) {
  EXPECT_EQ("! U1 do \"device.reset\"\r\n", Written(DeviceResetCommand()));
  EXPECT_EQ("! U1 do \"test.print_diags\"\r\n", Written(DiagnosticsCommand()));
}

TEST(U1Command, StreamTakesOneBehindTheOther) {
  PrinterPort port;
  port.BeginCapture();
  port << u1::ApplDate() << DeviceResetCommand();
  EXPECT_EQ(
      "! U1 getvar \"appl.date\"\r\n! U1 do \"device.reset\"\r\n",
      std::string(reinterpret_cast<const char*>(port.Buffer), static_cast<size_t>(port.GetFill())));
}

}  // namespace
}  // namespace ostvt::test
