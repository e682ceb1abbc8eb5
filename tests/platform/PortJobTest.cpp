// Jobs at a printer's port: Linux only.
#ifndef _WIN32

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/PrintJob.h"
#include "tests/platform/JobPacket.h"
#include "tests/platform/SpoolerFixture.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::platform {
namespace {

using test::TempDirectory;

// Takes one connection at a port of this machine, 127.0.0.1 and a free one unless told, and keeps
// all that comes. First of all it says what it is given to say, and takes its time.
class Listener {
 public:
  explicit Listener(const std::string& talk = "", uint32_t host = INADDR_LOOPBACK,
                    uint16_t port = 0)
      : Talk(talk) {
    Socket = socket(AF_INET, SOCK_STREAM, 0);
    const int on = 1;
    setsockopt(Socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(host);
    address.sin_port = htons(port);
    IsBound = bind(Socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    listen(Socket, 1);
    socklen_t size = sizeof address;
    getsockname(Socket, reinterpret_cast<sockaddr*>(&address), &size);
    Port = ntohs(address.sin_port);
    Reader = std::thread([this] { Read(); });
  }
  ~Listener() { Received(); }

  std::u16string PortName() const {
    std::u16string name = u"socket://127.0.0.1:";
    for (const char digit : std::to_string(Port)) name += static_cast<char16_t>(digit);
    return name;
  }
  // All bytes up to the connection's end. Nobody is listened to any more.
  std::string Received() {
    shutdown(Socket, SHUT_RDWR);
    if (Reader.joinable()) Reader.join();
    close(Socket);
    Socket = -1;
    return Bytes;
  }
  // The same, but the connection must come.
  std::string Wait() {
    Reader.join();
    return Bytes;
  }

  bool IsBound = false;

 private:
  void Read() {
    const int connection = accept(Socket, nullptr, nullptr);
    if (connection < 0) return;
    if (!Talk.empty()) {
      for (size_t at = 0; at < Talk.size();) {
        const ssize_t sent = send(connection, Talk.data() + at, Talk.size() - at, MSG_NOSIGNAL);
        if (sent <= 0) break;
        at += static_cast<size_t>(sent);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    char part[4096];
    for (ssize_t count; (count = read(connection, part, sizeof part)) > 0;)
      Bytes.append(part, static_cast<size_t>(count));
    close(connection);
  }

  std::string Talk;
  int Socket;
  uint16_t Port = 0;
  std::string Bytes;
  std::thread Reader;
};

class PortJob : public test::SpoolerFixture {
 protected:
  void SetUp() override {
    SpoolerFixture::SetUp();
    setenv("OSTVT_MODULE_DIR", Files.Path().c_str(), 1);  // no monitor there
  }
  void TearDown() override {
    DeletePrintJob(Job);
    unsetenv("OSTVT_MODULE_DIR");
    SpoolerFixture::TearDown();
  }
  // The number of the started job.
  int32_t Start(const std::u16string& port) {
    EXPECT_TRUE(Add(u"Labels", port));
    Job = CreatePrintJob(u"Labels", nullptr);
    EXPECT_NE(nullptr, Job);
    return StartPrintJob(Job, u"Document");
  }
  int Send(const std::string& bytes) { return test::SendPacket(Job, bytes); }
  // The whole life of a job behind its start.
  void SendAll(const std::vector<std::string>& packets) {
    EXPECT_TRUE(StartPrintPage(Job));
    for (const std::string& packet : packets) EXPECT_EQ(1, Send(packet));
    EXPECT_TRUE(EndPrintPage(Job));
    EXPECT_TRUE(EndPrintJob(Job));
  }
  std::u16string FilePort(const std::u16string& name) const {
    return u"file:" + Files.WidePath(name);
  }

  TempDirectory Files;
  PrintJobHandle Job = nullptr;
};

TEST_F(PortJob, FileGetsTheBytesOfEachPacket) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  const std::string binary("one\0\xFFtwo", 8);
  SendAll({"", binary, std::string(32000, 'x')});
  EXPECT_EQ(binary + std::string(32000, 'x'), Files.Get("out"));
}

TEST_F(PortJob, JobsFollowOneAnotherInTheFile) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  SendAll({"first"});
  DeletePrintJob(Job);
  Job = CreatePrintJob(u"Labels", nullptr);
  EXPECT_GT(StartPrintJob(Job, u"Document"), 0);
  SendAll({"second"});
  EXPECT_EQ("firstsecond", Files.Get("out"));
}

TEST_F(PortJob, BracketsNeverGetToThePrinter) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  SendAll({"a<xp", "ml><query action='execute' name='A' response_length='4'>cmd</que", "ry><end/>",
           "</xpml>b<"});
  EXPECT_EQ("acmdb<", Files.Get("out"));
}

TEST_F(PortJob, FileThatCannotBeMadeStartsNoJob) {
  EXPECT_EQ(0, Start(u"file:/proc/no/such/place"));
  EXPECT_FALSE(StartPrintPage(Job));
  EXPECT_EQ(-1, Send("x"));
  EXPECT_FALSE(EndPrintPage(Job));
  EXPECT_FALSE(EndPrintJob(Job));
}

TEST_F(PortJob, PipeWithoutAReaderStartsNoJob) {
  ASSERT_EQ(0, mkfifo(Files.Path("pipe").c_str(), 0600));
  EXPECT_EQ(0, Start(FilePort(u"pipe")));
}

TEST_F(PortJob, PipeThatItsReaderLeavesFailsWithoutASignal) {
  ASSERT_EQ(0, mkfifo(Files.Path("pipe").c_str(), 0600));
  const int reader = open(Files.Path("pipe").c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_GT(Start(FilePort(u"pipe")), 0);
  EXPECT_EQ(1, Send("x"));
  close(reader);
  EXPECT_EQ(-1, Send("x"));
  EXPECT_EQ(-1, Send("x"));
  EXPECT_FALSE(EndPrintJob(Job));
}

TEST_F(PortJob, UnknownPortsStartNoJob) {
  for (const char16_t* port : {u"", u"FILE:", u"file:", u"LPT1:", u"socket://", u"cups:"}) {
    DeletePrintJob(Job);
    EXPECT_EQ(0, Start(port));
  }
}

TEST_F(PortJob, SocketGetsTheBytes) {
  Listener printer;
  EXPECT_GT(Start(printer.PortName()), 0);
  const std::string large(40000, 'y');
  SendAll({"", "one", large});
  EXPECT_EQ("one" + large, printer.Wait());
}

TEST_F(PortJob, SocketGetsNoBrackets) {
  Listener printer;
  EXPECT_GT(Start(printer.PortName()), 0);
  SendAll({"<xpml><query action='execute' name='A' response_length='4'>cmd</query><end/></xpml>"});
  EXPECT_EQ("cmd", printer.Wait());
}

TEST_F(PortJob, RefusedConnectionStartsNoJob) {
  Listener printer;
  const std::u16string port = printer.PortName();
  printer.Received();
  EXPECT_EQ(0, Start(port));
}

TEST_F(PortJob, SlashBehindThePortAndBracketsOfAnAddressAreAllowed) {
  Listener printer;
  EXPECT_GT(Start(printer.PortName() + u"/"), 0);
  SendAll({"x"});
  EXPECT_EQ("x", printer.Wait());
  Listener other;
  std::u16string port = other.PortName();
  port.replace(9, 9, u"[127.0.0.1]");
  DeletePrintJob(Job);
  EXPECT_GT(Start(port), 0);
  SendAll({"y"});
  EXPECT_EQ("y", other.Wait());
}

// Raw printing's port, at an address that no other process of this machine is likely to use.
TEST_F(PortJob, SlashBehindAHostWithoutAPortIsAllowed) {
  const auto process = static_cast<uint32_t>(getpid());
  const uint32_t number = 1 + process % 250;
  const uint32_t host = 0x7F090000 + (process / 250 % 250 << 8) + number;
  Listener printer("", host, 9100);
  ASSERT_TRUE(printer.IsBound);
  std::u16string port = u"socket://";
  for (const char letter :
       "127.9." + std::to_string(host >> 8 & 0xFF) + "." + std::to_string(host & 0xFF) + "/")
    port += static_cast<char16_t>(letter);
  ASSERT_GT(Start(port), 0);
  SendAll({"x"});
  EXPECT_EQ("x", printer.Wait());
}

TEST_F(PortJob, UnreadAnswerDoesNotCutOffWhatWasSent) {
  Listener printer("hello");
  ASSERT_GT(Start(printer.PortName()), 0);
  SendAll(std::vector<std::string>(40, std::string(32000, 'x')));
  DeletePrintJob(Job);
  Job = nullptr;
  EXPECT_EQ(size_t{40 * 32000}, printer.Wait().size());
}

// It says more than the connection holds before it takes anything.
TEST_F(PortJob, PrinterThatTalksDuringALongJobStillTakesIt) {
  Listener printer(std::string(16 << 20, 'a'));
  ASSERT_GT(Start(printer.PortName()), 0);
  SendAll(std::vector<std::string>(400, std::string(32000, 'x')));
  DeletePrintJob(Job);
  Job = nullptr;
  EXPECT_EQ(size_t{400 * 32000}, printer.Wait().size());
}

TEST_F(PortJob, JobThatIsGivenUpIsCutOff) {
  Listener printer;
  EXPECT_GT(Start(printer.PortName()), 0);
  EXPECT_EQ(1, Send("half"));
  DeletePrintJob(Job);
  Job = nullptr;
  EXPECT_LE(printer.Wait().size(), 4u);
}

TEST_F(PortJob, SecondStartIsRefused) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  EXPECT_EQ(0, StartPrintJob(Job, u"Another"));
  SendAll({"x"});
  EXPECT_EQ("x", Files.Get("out"));
}

TEST_F(PortJob, PacketIsReadInsideItsBlockOnly) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  const char lying[] = {5, 0, 'a', 'b'};
  EXPECT_EQ(-1, SendJobEscape(Job, kEscapeJobBytes, lying, 4, nullptr, 0));
  EXPECT_EQ(-1, SendJobEscape(Job, kEscapeJobBytes, lying, 1, nullptr, 0));
  EXPECT_EQ(-1, SendJobEscape(Job, kEscapeJobBytes, nullptr, 4, nullptr, 0));
  const char longer[] = {1, 0, 'a', 'b'};
  EXPECT_EQ(1, SendJobEscape(Job, kEscapeJobBytes, longer, 4, nullptr, 0));
  EXPECT_TRUE(EndPrintJob(Job));
  EXPECT_EQ("a", Files.Get("out"));
}

TEST_F(PortJob, OtherEscapesAreUnknown) {
  EXPECT_GT(Start(FilePort(u"out")), 0);
  for (const int escape : {15033, 15034, 15041, 11020, 0})
    EXPECT_EQ(0, SendJobEscape(Job, escape, "x", 1, nullptr, 0)) << escape;
}

TEST_F(PortJob, FileThatIsNoMonitorLeavesTheSocketToItself) {
  Files.Put("vtnetmon.d64", "no library");
  Listener printer;
  EXPECT_GT(Start(printer.PortName()), 0);
  SendAll({"<xpml>x</xpml>"});
  EXPECT_EQ("x", printer.Wait());
}

TEST_F(PortJob, LibraryWithoutTheMonitorsExportsLeavesTheSocketToItself) {
  std::error_code error;
  std::filesystem::create_symlink("/lib/x86_64-linux-gnu/libz.so.1", Files.Path("vtnetmon.d64"),
                                  error);
  ASSERT_FALSE(error);
  Listener printer;
  EXPECT_GT(Start(printer.PortName()), 0);
  SendAll({"x"});
  EXPECT_EQ("x", printer.Wait());
}

}  // namespace
}  // namespace ostvt::platform

#endif
