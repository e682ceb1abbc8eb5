// The monitor as a file: what the driver finds when it loads it, and how the test builds misbehave.
#include <gtest/gtest.h>

#include <cstring>

#include "comm/MonitorLink.h"
#include "comm/PrinterPort.h"
#include "platform/linux/JobMonitor.h"
#include "tests/netmon/NetmonFixture.h"
#include "tests/support/TestMonitor.h"
#include "tests/support/TestMonitorLoader.h"

namespace ostvt::test {
namespace {

constexpr char kVersion[] = "<state name='Monitor Version' action='get' />";

std::string TextOf(const Buffer& bytes) {
  return std::string(reinterpret_cast<const char*>(bytes.Data), bytes.Size);
}

// One request of the driver to one build of the monitor.
class MonitorBuild {
 public:
  explicit MonitorBuild(const std::string& build = "test") : Monitor(build), Loader(Monitor) {
    Link = MonitorLink(Spooled.Name());
    Link.Loader = &Loader;
  }

  int32_t Ask(const char* request = kVersion) {
    return Link.SendRequestWithResponse(request, &Answer);
  }

  TestPrinter Spooled;
  TestMonitor Monitor;
  TestMonitorLoader Loader;
  MonitorLink Link;
  Buffer Answer;
};

TEST(MonitorBuilds, EachOneHasItsExports) {
  for (const char* build : {"real", "test"}) {
    const TestMonitor monitor(build);
    platform::LibraryHandle library = platform::OpenLibrary(monitor.Path().c_str());
    ASSERT_NE(nullptr, library) << build;
    for (const char* name :
         {kSendXpmlRequest, kHttpResponseSize, kHttpResponseData, kHttpResponseFree, kHostNameToIp,
          kQuery, kStatusMonitor, platform::kPrintJobStart, platform::kPrintJobWrite,
          platform::kPrintJobEnd})
      EXPECT_NE(nullptr, platform::FindSymbol(library, name)) << build << " " << name;
    platform::CloseLibrary(library);
  }
}

TEST(MonitorBuilds, BuildWithoutAnExportLacksOnlyThat) {
  for (const std::string missing :
       {kSendXpmlRequest, kHttpResponseSize, kHttpResponseData, kHttpResponseFree, kQuery}) {
    const TestMonitor monitor("without-" + missing);
    platform::LibraryHandle library = platform::OpenLibrary(monitor.Path().c_str());
    ASSERT_NE(nullptr, library) << missing;
    EXPECT_EQ(nullptr, platform::FindSymbol(library, missing.c_str()));
    EXPECT_NE(nullptr, platform::FindSymbol(library, kHostNameToIp));
    platform::CloseLibrary(library);
  }
}

TEST(MonitorBuilds, RealOneNeverMisbehaves) {
  MonitorBuild build("real");
  build.Monitor.Misbehave("zero");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("6.7.4", TextOf(build.Answer));
}

TEST(MonitorBuilds, AnswerIsFetchedAndFreedOnce) {
  MonitorBuild build;
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("6.7.4", TextOf(build.Answer));
  const std::vector<std::string> log = build.Monitor.Log();
  ASSERT_EQ(4u, log.size());
  EXPECT_EQ(std::string("SendXPMLRequest \"Test Printer\" \"") + kVersion + "\"", log[0]);
  EXPECT_EQ("HTTPResponse_Size", log[1]);
  EXPECT_EQ("HTTPResponse_Data", log[2]);
  EXPECT_EQ("HTTPResponse_Free", log[3]);
}

TEST(MonitorBuilds, RequestWithoutAnAnswerMakesNoHandle) {
  MonitorBuild build;
  EXPECT_EQ(1, build.Link.SendRequest("<network action='restart'/>"));
  EXPECT_EQ(1u, build.Monitor.Log().size());
}

TEST(MonitorBuilds, RefusedRequestHasNoHandle) {
  MonitorBuild build;
  EXPECT_EQ(0, build.Ask("<"));
  EXPECT_EQ(0u, build.Answer.Size);
  EXPECT_EQ(0, build.Monitor.Count("HTTPResponse_"));
}

TEST(MonitorBuilds, NullArgumentsAreTaken) {
  const TestPrinter spooled;
  const TestMonitor monitor;
  platform::LibraryHandle library = platform::OpenLibrary(monitor.Path().c_str());
  ASSERT_NE(nullptr, library);
  const auto find = [library](auto* type, const char* name) {
    return platform::FindFunction<std::remove_pointer_t<decltype(type)>>(library, name);
  };
  EXPECT_EQ(0, find(static_cast<SendXpmlRequestFunction*>(nullptr), kSendXpmlRequest)(
                   nullptr, nullptr, nullptr));
  EXPECT_EQ(0, find(static_cast<HttpResponseSizeFunction*>(nullptr), kHttpResponseSize)(nullptr));
  find(static_cast<HttpResponseDataFunction*>(nullptr), kHttpResponseData)(nullptr, nullptr);
  find(static_cast<HttpResponseFreeFunction*>(nullptr), kHttpResponseFree)(nullptr);
  EXPECT_EQ(0, find(static_cast<HostNameToIpFunction*>(nullptr), kHostNameToIp)(nullptr, nullptr));
  EXPECT_EQ(0, find(static_cast<QueryFunction*>(nullptr), kQuery)(nullptr, nullptr));
  find(static_cast<StatusMonitorFunction*>(nullptr), kStatusMonitor)(nullptr, nullptr, nullptr, 0);
  EXPECT_EQ(0, find(static_cast<platform::PrintJobStartFunction*>(nullptr),
                    platform::kPrintJobStart)(nullptr, nullptr, nullptr));
  EXPECT_EQ(0, find(static_cast<platform::PrintJobWriteFunction*>(nullptr),
                    platform::kPrintJobWrite)(nullptr, "x", 1));
  EXPECT_EQ(0, find(static_cast<platform::PrintJobEndFunction*>(nullptr), platform::kPrintJobEnd)(
                   nullptr, 1));
  platform::CloseLibrary(library);
}

struct FaultCase {
  const char* Word;
  int32_t Result;
  const char* Answer;
  int Frees;
};

TEST(MonitorFaults, EachWordDoesWhatItSays) {
  constexpr FaultCase kCases[] = {{"zero", 0, "", 0},          {"zero-with-handle", 0, "", 1},
                                  {"null-handle", 1, "", 0},   {"empty", 1, "", 1},
                                  {"short", 1, "1;", 1},       {"negative-size", 1, "", 1},
                                  {"say:1;1;1", 1, "1;1;1", 1}};
  for (const FaultCase& fault : kCases) {
    MonitorBuild build;
    build.Monitor.Misbehave(fault.Word);
    EXPECT_EQ(fault.Result, build.Ask()) << fault.Word;
    EXPECT_EQ(fault.Answer, TextOf(build.Answer)) << fault.Word;
    EXPECT_EQ(fault.Frees, build.Monitor.Count("HTTPResponse_Free")) << fault.Word;
  }
}

TEST(MonitorFaults, HugeAnswerIsHandedOutAtItsSize) {
  MonitorBuild build;
  build.Monitor.Misbehave("huge");
  const MonitorFile file(&build.Loader);
  MonitorFile loaded(&build.Loader);
  void* handle = nullptr;
  ASSERT_EQ(1, loaded.Find<SendXpmlRequestFunction>(kSendXpmlRequest)(u"Test Printer", kVersion,
                                                                      &handle));
  ASSERT_NE(nullptr, handle);
  EXPECT_EQ(64 << 20, loaded.Find<HttpResponseSizeFunction>(kHttpResponseSize)(handle));
  loaded.Find<HttpResponseFreeFunction>(kHttpResponseFree)(handle);
}

TEST(MonitorFaults, FramesAreBroken) {
  MonitorBuild build;
  build.Monitor.Misbehave("half-frame");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("ZLIB", TextOf(build.Answer).substr(0, 4));
  build.Monitor.Misbehave("lying-frame");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("ZLIB\xFF\xFF\xFF\xFF", TextOf(build.Answer).substr(0, 8));
  build.Monitor.Misbehave("garbage");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ(4096u, build.Answer.Size);
  EXPECT_NE(nullptr, memchr(build.Answer.Data, 0, build.Answer.Size));
}

TEST(MonitorFaults, SlowAnswerIsRight) {
  MonitorBuild build;
  build.Monitor.Misbehave("slow");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("6.7.4", TextOf(build.Answer));
  EXPECT_EQ(1, build.Monitor.Count("waited \"1500\""));
  build.Monitor.Misbehave("slow:20");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("6.7.4", TextOf(build.Answer));
  EXPECT_EQ(1, build.Monitor.Count("waited \"20\""));
}

TEST(MonitorFaults, FaultMayHoldForSomeRequestsOnly) {
  MonitorBuild build;
  build.Monitor.Misbehave("zero@action='restart'");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ(0, build.Link.SendRequest("<network action='restart'/>"));
  build.Monitor.Misbehave("negative-size@OS");
  EXPECT_EQ(1, build.Ask());
  EXPECT_EQ("6.7.4", TextOf(build.Answer));
}

TEST(MonitorFaults, PlayedServerAnswersForAnyPrinter) {
  MonitorBuild build;
  build.Monitor.PlayServer("S");
  build.Link = MonitorLink("\\\\S\\P");
  build.Link.Loader = &build.Loader;
  EXPECT_EQ(1, build.Ask("<state name='Configuration Sharing' action='get' />"));
  EXPECT_EQ("1", TextOf(build.Answer));
}

// A job by hand through the build's own exports, then what the driver asks about it.
class MonitorBuildJob : public NetmonJob {
 protected:
  int32_t PrintThrough(const std::string& bytes) {
    MonitorFile file(&Loader);
    void* job = nullptr;
    const int32_t number = file.Find<platform::PrintJobStartFunction>(platform::kPrintJobStart)(
        Spooled.Name().GetWide(), u"Send Printer Query", &job);
    if (number == 0) return 0;
    EXPECT_EQ(1, file.Find<platform::PrintJobWriteFunction>(platform::kPrintJobWrite)(
                     job, bytes.data(), static_cast<uint32_t>(bytes.size())));
    EXPECT_EQ(1, file.Find<platform::PrintJobEndFunction>(platform::kPrintJobEnd)(job, 1));
    return number;
  }

  PrinterPort* Port() {
    MonitorLink link(Spooled.Name());
    link.Loader = &Loader;
    Writer.Bind(nullptr, nullptr, link, nullptr);
    return &Writer;
  }

  TestMonitor Monitor;
  TestMonitorLoader Loader{Monitor};
  PrinterPort Writer;
};

constexpr char kQueryJob[] =
    "<xpml><query action='execute' name='Printer Command' response_estimate='200'>"
    "! U1 getvar \"appl.name\"\r\n"
    "</query><end/></xpml>";

TEST_F(MonitorBuildJob, AnswersOutliveTheLoadedFile) {
  const int32_t job = PrintThrough(kQueryJob);
  ASSERT_NE(0, job);
  EXPECT_TRUE(Port()->RunQuery("Send Printer Query", job, nullptr));
  Buffer answer;
  EXPECT_TRUE(Port()->GetQueryResponse("Printer Command", &answer));
  EXPECT_EQ("\"OSTREL D4\"", TextOf(answer));
  EXPECT_EQ("! U1 getvar \"appl.name\"\r\n", Received());
}

TEST_F(MonitorBuildJob, QueryOfAnotherJobIsNotAnswered) {
  const int32_t job = PrintThrough(kQueryJob);
  EXPECT_FALSE(Port()->RunQuery("Send Printer Query", job + 1, nullptr));
  EXPECT_FALSE(Port()->RunQuery("Other", job, nullptr));
}

TEST_F(MonitorBuildJob, QueryGivesTheNumberThatItIsTold) {
  const int32_t job = PrintThrough(kQueryJob);
  Monitor.Misbehave("query:2");
  EXPECT_FALSE(Port()->RunQuery("Send Printer Query", job, nullptr));
  Monitor.Misbehave("query:1");
  EXPECT_TRUE(Port()->RunQuery("Other", job, nullptr));
}

#ifndef _WIN32
// On Linux the driver's own jobs go through the monitor beside the module.
TEST_F(MonitorBuildJob, DriversOwnQueryGoesThroughTheMonitor) {
  Printer.SetStatus(0x41, 0);
  PrinterPort* port = Port();
  const int32_t job = port->BeginQueryDocument("Printer Status");
  ASSERT_NE(0, job);
  port->BeginQuery("Status", 1);
  port->WriteText("\x1Bh");
  port->BeginQuery("Name", -20);
  port->WriteText("! U1 getvar \"device.friendly_name\"");
  port->WriteNewLine();
  port->EndQueryDocument();
  EXPECT_TRUE(port->RunQuery("Printer Status", job, nullptr));
  Buffer answer;
  EXPECT_TRUE(port->GetQueryResponse("Status", &answer));
  EXPECT_EQ("A", TextOf(answer));
  EXPECT_TRUE(port->GetQueryResponse("Name", &answer));
  EXPECT_EQ("\"PACKING3\"", TextOf(answer));
  EXPECT_EQ("\x1Bh! U1 getvar \"device.friendly_name\"\r\n", Received());
}
#endif

}  // namespace
}  // namespace ostvt::test
