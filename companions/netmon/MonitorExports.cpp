#include "companions/netmon/MonitorExports.h"

#include <cstring>
#include <string>
#include <type_traits>

#include "comm/MonitorFile.h"
#include "companions/netmon/Answer.h"
#include "companions/netmon/CallLog.h"
#include "companions/netmon/Command.h"
#include "companions/netmon/Environment.h"
#include "companions/netmon/Faults.h"
#include "companions/netmon/PrintedJob.h"
#include "companions/netmon/Request.h"
#include "companions/netmon/Socket.h"
#include "companions/netmon/StatusWindow.h"
#include "companions/netmon/Text.h"
#include "platform/Errors.h"
#include "platform/linux/JobMonitor.h"

using namespace ostvt;
using namespace ostvt::netmon;

// What the driver calls is what this is.
static_assert(std::is_same_v<decltype(SendXPMLRequest), SendXpmlRequestFunction>);
static_assert(std::is_same_v<decltype(HTTPResponse_Size), HttpResponseSizeFunction>);
static_assert(std::is_same_v<decltype(HTTPResponse_Data), HttpResponseDataFunction>);
static_assert(std::is_same_v<decltype(HTTPResponse_Free), HttpResponseFreeFunction>);
static_assert(std::is_same_v<decltype(HostNameToIP), HostNameToIpFunction>);
static_assert(std::is_same_v<decltype(Query), QueryFunction>);
static_assert(std::is_same_v<decltype(StatusMonitor), StatusMonitorFunction>);
static_assert(std::is_same_v<decltype(PrintJob_Start), platform::PrintJobStartFunction>);
static_assert(std::is_same_v<decltype(PrintJob_Write), platform::PrintJobWriteFunction>);
static_assert(std::is_same_v<decltype(PrintJob_End), platform::PrintJobEndFunction>);

namespace {

constexpr int32_t kDone = 1;
constexpr int32_t kFailed = 0;

OString TextOf(const char16_t* text) { return text ? OString(text) : OString(); }
Answer* AnswerOf(void* response) { return static_cast<Answer*>(response); }
PrintedJob* JobOf(void* job) { return static_cast<PrintedJob*>(job); }

}  // namespace

int32_t SendXPMLRequest(const char16_t* printerName, const char* request, void** response) {
  if (response) *response = nullptr;
  const OString printer = TextOf(printerName);
  const std::string text = request ? request : "";
  LogCall("SendXPMLRequest", ToUtf8(printer), text);
  Answer answer;
  const std::string server = EnvironmentValue("VTNETMON_SERVER");
  const uint32_t error = Request(printer, FromUtf8(server).c_str()).Run(text, &answer.Bytes);
  int32_t result = error == 0 ? kDone : kFailed;
  Answer* given = result == kDone && response ? new Answer(answer) : nullptr;
  AlterAnswer(text, &result, response ? &given : nullptr);
  if (response) *response = given;
  platform::SetLastErrorNumber(error);
  return result;
}

int32_t HTTPResponse_Size(void* response) {
  LogCall("HTTPResponse_Size");
  if (!response) return 0;
  const Answer& answer = *AnswerOf(response);
  return AlterSize(answer, static_cast<int32_t>(answer.Bytes.size()));
}

void HTTPResponse_Data(void* response, void* buffer) {
  LogCall("HTTPResponse_Data");
  if (!response || !buffer) return;
  const std::string& bytes = AnswerOf(response)->Bytes;
  memcpy(buffer, bytes.data(), bytes.size());
}

void HTTPResponse_Free(void* response) {
  LogCall("HTTPResponse_Free");
  delete AnswerOf(response);
}

int32_t HostNameToIP(const char* hostName, uint8_t* address) {
  LogCall("HostNameToIP", hostName ? hostName : "");
  return address && ResolveHost(hostName, address) ? kDone : kFailed;
}

int32_t Query(void*, const char16_t* command) {
  const std::u16string text = command ? command : u"";
  LogCall("Query", ToUtf8(text));
  Command parsed;
  // The job's end has waited for the answers, so they are there or never will be.
  int32_t result =
      ParseCommand(text, &parsed) &&
              AnswerStore(parsed.Printer.c_str()).IsAnswered(parsed.Document.c_str(), parsed.Job)
          ? kDone
          : kFailed;
  AlterQueryResult(ToUtf8(text), &result);
  return result;
}

void StatusMonitor(void*, void*, const char* command, int32_t show) {
  const OString text = command ? command : "";
  LogCall("StatusMonitor", ToUtf8(text));
  Command parsed;
  if (!ParseCommand(text.GetWide(), &parsed)) return;
  if (parsed.Verb == u"open") RunStatusWindow(parsed.Printer.c_str(), show);
  if (parsed.Verb == u"close") CloseStatusWindow(parsed.Printer.c_str());
}

int32_t PrintJob_Start(const char16_t* printerName, const char16_t* documentName, void** job) {
  if (!job) return 0;
  *job = nullptr;
  LogCall("PrintJob_Start", ToUtf8(TextOf(printerName)), ToUtf8(TextOf(documentName)));
  auto* started = new PrintedJob(TextOf(printerName), TextOf(documentName));
  const int32_t number = started->Start();
  if (number == 0) {
    delete started;
  } else {
    *job = started;
  }
  return number;
}

int32_t PrintJob_Write(void* job, const void* bytes, uint32_t count) {
  if (!job || (!bytes && count > 0)) return kFailed;
  return JobOf(job)->Write(static_cast<const uint8_t*>(bytes), count) ? kDone : kFailed;
}

int32_t PrintJob_End(void* job, int32_t complete) {
  if (!job) return kFailed;
  LogCall("PrintJob_End", complete ? "complete" : "given up");
  bool done = false;
  if (complete) {
    done = JobOf(job)->End();
  } else {
    JobOf(job)->GiveUp();
  }
  delete JobOf(job);
  return done ? kDone : kFailed;
}
