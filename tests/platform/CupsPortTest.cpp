// Jobs at a raw queue of a real cupsd, which the test starts on 127.0.0.1 with directories of its
// own: Linux only.
#ifndef _WIN32

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <pty.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/wait.h>
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

constexpr char kServer[] = "/usr/sbin/cupsd";
constexpr int kPatience = 200;  // steps of 50 milliseconds

void Step() { std::this_thread::sleep_for(std::chrono::milliseconds(50)); }

uint16_t FreePort() {
  const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  bind(descriptor, reinterpret_cast<sockaddr*>(&address), size);
  getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
  close(descriptor);
  return ntohs(address.sin_port);
}

bool IsListening(uint16_t port) {
  const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  const bool connected =
      connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(descriptor);
  return connected;
}

// A cupsd with one raw queue "labels" that prints into the file "printed", and another, "locked",
// that asks for a password.
class CupsServer {
 public:
  CupsServer() : Port(FreePort()) {
    for (const char* name : {"root", "cache", "state", "spool", "spool/tmp", "bin", "bin/backend"})
      std::filesystem::create_directory(Files.Path(name));
    Files.Put("root/cupsd.conf", "Listen 127.0.0.1:" + std::to_string(Port) +
                                     "\n"
                                     "Browsing No\n"
                                     "WebInterface No\n"
                                     "DefaultAuthType None\n"
                                     "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                                     "<Policy default>\n  <Limit All>\n    Order deny,allow\n"
                                     "    Allow all\n  </Limit>\n"
                                     "  <Limit Cancel-Job>\n    Require user @OWNER\n"
                                     "    Order deny,allow\n    Allow all\n  </Limit>\n"
                                     "</Policy>\n"
                                     "<Location /printers/locked>\n  AuthType Basic\n"
                                     "  Require valid-user\n</Location>\n"
                                     "LogLevel info\n");
    const auto path = [this](const char* name) { return Files.Path(name) + "\n"; };
    Files.Put("root/cups-files.conf",
              "ServerBin " + path("bin") + "ServerRoot " + path("root") + "CacheDir " +
                  path("cache") + "StateDir " + path("state") + "RequestRoot " + path("spool") +
                  "TempDir " + path("spool/tmp") + "ErrorLog " + path("error_log") + "AccessLog " +
                  path("access_log") + "PageLog " + path("page_log"));
    const auto queue = [](const std::string& name) {
      return "<Printer " + name +
             ">\nDeviceURI keep:/\nState Idle\nAccepting Yes\nShared No\nJobSheets none none\n"
             "</Printer>\n";
    };
    Files.Put("root/printers.conf", queue("labels") + queue("locked"));
    Files.Put("printed", "");
    std::filesystem::create_directory_symlink("/usr/lib/cups/daemon", Files.Path("bin/daemon"));
    // A queue without filters hands the job's file to its way to the printer.
    Files.Put("bin/backend/keep",
              "#!/bin/sh\n[ $# -eq 6 ] && cat \"$6\" >>'" + Files.Path("printed") + "'\n");
    std::filesystem::permissions(Files.Path("bin/backend/keep"), std::filesystem::perms::owner_all);
    Process = fork();
    if (Process == 0) {
      const std::string configuration = Files.Path("root/cupsd.conf");
      const std::string files = Files.Path("root/cups-files.conf");
      execl(kServer, "cupsd", "-f", "-c", configuration.c_str(), "-s", files.c_str(),
            static_cast<char*>(nullptr));
      _exit(127);
    }
    for (int i = 0; i < kPatience && !Started && !Ended; ++i) {
      Ended = waitpid(Process, nullptr, WNOHANG) != 0;
      Started = !Ended && IsListening(Port);
      if (!Started) Step();
    }
  }
  ~CupsServer() {
    if (Ended) return;
    kill(Process, Started ? SIGTERM : SIGKILL);
    for (int i = 0; i < kPatience && waitpid(Process, nullptr, WNOHANG) == 0; ++i) {
      if (i == kPatience - 1) kill(Process, SIGKILL);
      Step();
    }
  }
  CupsServer(const CupsServer&) = delete;
  CupsServer& operator=(const CupsServer&) = delete;

  // What has been printed, once it is at least so many bytes.
  std::string Printed(size_t count) const {
    std::string bytes;
    for (int i = 0; i < kPatience; ++i) {
      bytes = Files.Get("printed");
      if (bytes.size() >= count) break;
      Step();
    }
    return bytes;
  }
  // True once the log has the line.
  bool HasLogged(const std::string& text) const {
    for (int i = 0; i < kPatience; ++i, Step()) {
      if (Log().find(text) != std::string::npos) return true;
    }
    return false;
  }
  std::string Log() const { return Files.Get("error_log"); }
  std::string Address() const { return "127.0.0.1:" + std::to_string(Port); }

  bool Started = false;

 private:
  TempDirectory Files;
  uint16_t Port;
  pid_t Process;
  bool Ended = false;  // by itself
};

class CupsPort : public test::SpoolerFixture {
 protected:
  void SetUp() override {
    SpoolerFixture::SetUp();
    ASSERT_TRUE(Server.Started) << kServer
                                << " can't be started; it is in the package cups-daemon\n"
                                << Server.Log();
    setenv("CUPS_SERVER", Server.Address().c_str(), 1);
  }
  void TearDown() override {
    DeletePrintJob(Job);
    unsetenv("CUPS_SERVER");
    SpoolerFixture::TearDown();
  }
  int32_t Start(const std::u16string& port) {
    EXPECT_TRUE(Add(u"Labels", port));
    Job = CreatePrintJob(u"Labels", nullptr);
    return StartPrintJob(Job, u"Document");
  }
  int Send(const std::string& bytes) { return test::SendPacket(Job, bytes); }
  // A job to the queue that wants a password, by a process with a terminal of its own.
  void ExpectNoQuestionAtTheTerminal() {
    int terminal = -1;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) {
      alarm(kPatience / 20);
      _exit(Start(u"cups:locked") == 0 ? 0 : 1);
    }
    ASSERT_GT(process, 0);
    std::string said;
    char part[256];
    for (ssize_t count; (count = read(terminal, part, sizeof part)) > 0;)
      said.append(part, static_cast<size_t>(count));
    close(terminal);
    int result = -1;
    waitpid(process, &result, 0);
    EXPECT_EQ(0, result) << said;
    EXPECT_EQ("", said);
  }

  CupsServer Server;
  PrintJobHandle Job = nullptr;
};

// The library takes its server's name once in a process, so all is one test.
TEST_F(CupsPort, RawQueueGetsTheBytesWithoutBrackets) {
  EXPECT_EQ(0, Start(u"cups:nosuchqueue"));
  DeletePrintJob(Job);
  ExpectNoQuestionAtTheTerminal();
  const int32_t givenUp = Start(u"cups:labels");
  EXPECT_GT(givenUp, 0);
  EXPECT_EQ(1, Send(std::string(60000, 'g')));
  EXPECT_EQ(1, Send("half"));
  DeletePrintJob(Job);
  const std::string ofGivenUp = "[Job " + std::to_string(givenUp) + "] ";
  EXPECT_TRUE(Server.HasLogged(ofGivenUp + "Canceled by")) << Server.Log();
  EXPECT_EQ(std::string::npos, Server.Log().find(ofGivenUp + "File of type")) << Server.Log();
  EXPECT_GT(Start(u"cups:labels"), 0) << Server.Log();
  const std::string binary("\0\1\xFF\r\n%!PS", 9);
  EXPECT_EQ(1, Send(""));
  EXPECT_EQ(1, Send("<xpml><query action='execute' name='A' response_length='4'>"));
  EXPECT_EQ(1, Send(binary));
  EXPECT_EQ(1, Send("</query><end/></xpml>"));
  EXPECT_EQ(1, Send(std::string(30000, 'x')));
  EXPECT_TRUE(EndPrintJob(Job));
  EXPECT_EQ(binary + std::string(30000, 'x'), Server.Printed(binary.size() + 30000))
      << Server.Log();
}

}  // namespace
}  // namespace ostvt::platform

#endif
