// The family's commands and questions, end to end: through the port monitor to a printer on a
// socket, and its answers back. On Linux, where jobs go to the printer's port.
#ifndef _WIN32

#include "tests/support/LittlePrinter.h"

#include "comm/PrinterPort.h"
#include "family/FamilyDriverSession.h"
#include "family/StatusDecoder.h"
#include "family/U1Variables.h"
#include "tests/settings/SettingsFixture.h"
#include "tests/support/TestMonitor.h"
#include "tests/support/TestMonitorLoader.h"

namespace ostvt::test {
namespace {

class FamilyPrinter : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    ModelText text;
    text.Features = "~Commands.U1=true\n";
    TestPrinterOptions options;
    options.Port = Device.PortName();
    AddPrinter(text, options);
    Session.reset(CreateDriverSession());
    Session->NoShadowPush = true;
    Session->Link.Loader = &Loader;
    Session->Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, Session->Port);
  }
  void TearDown() override {
    Session.reset();
    SettingsTest::TearDown();
  }
  bool Do(int32_t action) {
    ActionContext context{Session.get(), nullptr};
    return Session->DoAction(&context, action);
  }
  // The printer's answer; "" when none came.
  std::string Ask(const std::string& bytes, int32_t size) {
    PrinterPort* port = Session->Port;
    const int32_t job = port->BeginQueryDocument("Test Query");
    port->BeginQuery("Answer", size);
    port->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
    port->EndQueryDocument();
    Buffer answer;
    if (!port->RunQuery("Test Query", job, nullptr)) return "";
    port->GetQueryResponse("Answer", &answer);
    return std::string(reinterpret_cast<const char*>(answer.Data), answer.Size);
  }
  StatusResult AskStatus() {
    char request[5];
    const int32_t size = kStatusInterface.GetStatusRequest(request, sizeof request);
    const std::string answer = Ask(std::string(request, static_cast<size_t>(size)), -2);
    StatusResult result = {};
    kStatusInterface.ParseStatus(answer.data(), static_cast<int32_t>(answer.size()), &result);
    return result;
  }

  LittlePrinter Device;
  TestMonitor Monitor;
  TestMonitorLoader Loader{Monitor};
  std::unique_ptr<DriverSession> Session;
};

TEST_F(FamilyPrinter, CommandsReachThePrinter) {
  EXPECT_TRUE(Do(7));
  EXPECT_TRUE(Do(3));
  EXPECT_TRUE(Do(10));
  EXPECT_TRUE(Device.WaitForJobs(3));
  EXPECT_EQ((std::vector<std::string>{"do device.reset", "cut", "do test.print_diags"}),
            Device.Actions());
}

TEST_F(FamilyPrinter, VariableIsAskedForAndAnswered) {
  Device.SetVariable("appl.version", "2.5");
  EXPECT_EQ("\"2.5\"", Ask("! U1 getvar \"appl.version\"\r\n", -200));
}

TEST_F(FamilyPrinter, StatusIsThePrinters) {
  Device.SetStatus(0, 0);
  EXPECT_EQ(1u, AskStatus().status);
  Device.SetStatus(2, 0x20);
  const StatusResult result = AskStatus();
  EXPECT_TRUE(result.valid);
  EXPECT_EQ(65537u, result.status);
}

TEST_F(FamilyPrinter, StatusOfASilentPrinterIsUnknown) {
  Device.SetMute(true);
  EXPECT_FALSE(AskStatus().valid);
}

TEST_F(FamilyPrinter, CommandToAPrinterThatIsOffIsAFailure) {
  Device.StopListening();
  EXPECT_FALSE(Do(3));
  EXPECT_EQ(0, Session->Port->GetFill());
}

TEST_F(FamilyPrinter, SentFileReachesThePrinterAsItIs) {
  std::string bytes = "! 0 200 200 10 1\r\n";
  for (int i = 0; i < 100000; ++i) bytes += static_cast<char>('a' + i % 26);
  bytes += "\r\nPRINT\r\n";
  TempDirectory files;
  files.Put("label.prn", bytes);
  EXPECT_TRUE(Session->SendFile(files.WidePath(u"label.prn").c_str()));
  EXPECT_TRUE(Device.WaitForJobs(1));
  EXPECT_EQ(bytes, Device.Received());
}

}  // namespace
}  // namespace ostvt::test

#endif
