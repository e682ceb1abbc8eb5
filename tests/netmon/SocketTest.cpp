#include "companions/netmon/Socket.h"

#include <gtest/gtest.h>

#include "tests/support/LittlePrinter.h"

namespace ostvt::test {
namespace {

using netmon::ParsePortAddress;
using netmon::PortAddress;
using netmon::ResolveHost;
using netmon::Socket;

constexpr int kSecond = 1000;
constexpr int kDay = 24 * 60 * 60 * kSecond;

std::string AddressOf(const std::string& port) {
  PortAddress address;
  return ParsePortAddress(port, &address) ? address.Host + " " + address.Service : "none";
}

PortAddress AddressOf(const LittlePrinter& printer) {
  return {"127.0.0.1", std::to_string(printer.Port())};
}

bool Send(Socket* socket, const std::string& bytes, int timeout = kSecond) {
  return socket->Send(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), timeout);
}

TEST(PortAddress, PortStandsBehindTheLastColon) {
  EXPECT_EQ("printer.example 6101", AddressOf("socket://printer.example:6101"));
}

TEST(PortAddress, RawPrintingIsTheDefaultPort) {
  EXPECT_EQ("192.0.2.7 9100", AddressOf("socket://192.0.2.7"));
  EXPECT_EQ("192.0.2.7 9100", AddressOf("socket://192.0.2.7/"));
}

TEST(PortAddress, BracketsHoldAnAddressWithColons) {
  EXPECT_EQ("2001:db8::7 9100", AddressOf("socket://[2001:db8::7]"));
  EXPECT_EQ("2001:db8::7 6101", AddressOf("socket://[2001:db8::7]:6101"));
}

TEST(PortAddress, OtherPortsAreNone) {
  for (const char* port :
       {"", "FILE:", "LPT1:", "cups:labels", "socket:/x", "socket://", "socket://:9100",
        "socket://x:", "socket://x:http", "socket://x:0", "socket://x:65536"})
    EXPECT_EQ("none", AddressOf(port)) << port;
}

TEST(Socket, BytesReachThePrinterAndItsAnswerComesBack) {
  LittlePrinter printer;
  printer.SetStatus(0x55, 0);
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  ASSERT_TRUE(Send(&socket, "\x1Bh"));
  uint8_t bytes[8] = {};
  ASSERT_EQ(1, socket.Receive(bytes, sizeof bytes, kSecond));
  EXPECT_EQ(0x55, bytes[0]);
  EXPECT_TRUE(socket.Finish(kSecond));
  ASSERT_TRUE(printer.WaitForJobs(1));
  EXPECT_EQ("\x1Bh", printer.Received());
}

TEST(Socket, NothingInTimeIsNoEndOfTheConnection) {
  const LittlePrinter printer;
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  uint8_t byte;
  EXPECT_EQ(0, socket.Receive(&byte, 1, 20));
}

TEST(Socket, PeerThatHangsUpIsTold) {
  LittlePrinter printer;
  printer.SetHangUpAfter(1);
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  ASSERT_TRUE(Send(&socket, "x"));
  uint8_t byte;
  EXPECT_GT(0, socket.Receive(&byte, 1, 5 * kSecond));
}

#ifndef _WIN32
// Under Wine no peer breaks a connection off: each closed socket ends it cleanly.
TEST(Socket, BrokenConnectionIsNoCleanEnd) {
  LittlePrinter printer;
  printer.SetHangUpAfter(1);
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  ASSERT_TRUE(Send(&socket, "x"));
  ASSERT_TRUE(printer.WaitForJobs(1));
  EXPECT_FALSE(socket.Finish(5 * kSecond));
}
#endif

// A test that waited for the timeout would not end.
TEST(Socket, RefusedConnectionFailsAtOnce) {
  LittlePrinter printer;
  printer.StopListening();
  Socket socket;
  EXPECT_FALSE(socket.Connect(AddressOf(printer), kDay));
}

TEST(Socket, PrinterThatTakesNothingEndsTheSending) {
  LittlePrinter printer;
  printer.SetStalled(true);
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  EXPECT_FALSE(Send(&socket, std::string(64 << 20, 'x'), 200));
  EXPECT_GT(size_t{64} << 20, printer.Received().size());
}

TEST(Socket, PrinterThatGoesOnTalkingIsLeft) {
  LittlePrinter printer;
  printer.SetBytePause(20);
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  std::string job;
  for (int i = 0; i < 300; ++i) job += "! U1 getvar \"appl.name\"\r\n";
  ASSERT_TRUE(Send(&socket, job));
  EXPECT_TRUE(socket.Finish(50));
  // Half a second at 20 ms a byte is one answer or two; they are heard out no more than that.
  EXPECT_GT(30u, printer.Actions().size());
}

TEST(Socket, UnreadAnswerDoesNotCutOffWhatWasSent) {
  LittlePrinter printer;
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  std::string job;
  for (int i = 0; i < 2000; ++i) job += "! U1 getvar \"appl.name\"\r\n";
  ASSERT_TRUE(Send(&socket, job));
  EXPECT_TRUE(socket.Finish(5 * kSecond));
  ASSERT_TRUE(printer.WaitForJobs(1));
  EXPECT_EQ(job.size(), printer.Received().size());
}

TEST(Socket, DiscardTakesWhatHasComeAndNoMore) {
  LittlePrinter printer;
  Socket socket;
  ASSERT_TRUE(socket.Connect(AddressOf(printer), kSecond));
  ASSERT_TRUE(Send(&socket, "\x1Bv"));
  uint8_t bytes[16] = {};
  // Its first byte is there, so all of it is.
  ASSERT_EQ(1, socket.Receive(bytes, 1, kSecond));
  socket.Discard();
  printer.SetStatus(7, 0);
  ASSERT_TRUE(Send(&socket, "\x1Bh"));
  ASSERT_EQ(1, socket.Receive(bytes, sizeof bytes, kSecond));
  EXPECT_EQ(7, bytes[0]);
}

TEST(ResolveHost, AddressIsGivenAsItIsWritten) {
  uint8_t address[4] = {};
  ASSERT_TRUE(ResolveHost("192.0.2.17", address));
  EXPECT_EQ(192, address[0]);
  EXPECT_EQ(0, address[1]);
  EXPECT_EQ(2, address[2]);
  EXPECT_EQ(17, address[3]);
}

TEST(ResolveHost, NoNameFindsNothing) {
  uint8_t address[4] = {9, 9, 9, 9};
  EXPECT_FALSE(ResolveHost("", address));
  EXPECT_FALSE(ResolveHost(nullptr, address));
  EXPECT_FALSE(ResolveHost("no such host", address));
  EXPECT_EQ(9, address[0]);
}

}  // namespace
}  // namespace ostvt::test
