// The queries of a port, and what comes back from the printer.
#include <cstring>

#include "comm/MonitorFile.h"
#include "comm/PrinterPort.h"
#include "comm/XpmlText.h"
#include "core/DriverPath.h"
#include "platform/Desktop.h"

namespace ostvt {
namespace {

constexpr int32_t kEscapeReadPort = 15033;
constexpr int32_t kLargestPortData = 16 << 20;
constexpr int32_t kQueryDone = 1;

}  // namespace

int32_t PrinterPort::BeginQueryDocument(const OString& name) {
  if (!InsideXpml) {
    WriteText(kXpmlBegin);
    InsideXpml = true;
  }
  return OpenJob(name);
}

void PrinterPort::BeginQuery(const OString& name, int32_t size) {
  if (InsideQuery) WriteText(kXpmlQueryEnd);
  InsideQuery = true;
  WriteText(XpmlQuery(name, size).GetNarrow());
}

void PrinterPort::EndQueryDocument() {
  WriteText(kXpmlQueryEnd);
  WriteText(kXpmlQueriesEnd);
  WriteText(kXpmlEnd);
  InsideXpml = false;
  CloseJob();
  InsideQuery = false;
}

bool PrinterPort::RunQuery(const OString& jobName, int32_t jobId, void* parent) {
  // What an earlier job of that name was answered is no answer to one that never began.
  if (DriverOnNtPath && jobId < 1) return false;
  OString command = "open \"" + Link.PrinterName + "\" -jn \"" + jobName + "\"";
  if (DriverOnNtPath) {
    command += " -ji ";
    command.AppendInt(jobId);
  }
  MonitorFile monitor(Link.Loader);
  QueryFunction* query = monitor.Find<QueryFunction>(kQuery);
  if (!query) return false;
  if (!parent) parent = platform::DesktopWindow();
  return query(parent, command.GetWide()) == kQueryDone;
}

bool PrinterPort::GetQueryResponse(const OString& name, ostvt::Buffer* buffer) {
  if (Link.SendRequestWithResponse(XpmlQueryResponse(name), buffer) == 0) buffer->Resize(0);
  return buffer->Size > 0;
}

bool PrinterPort::GetQueryResponseText(const OString& name, ostvt::Buffer* buffer) {
  if (!GetQueryResponse(name, buffer)) return false;
  buffer->Resize(buffer->Size + 1);
  buffer->Data[buffer->Size - 1] = 0;
  return true;
}

bool PrinterPort::ReadPortData(ostvt::Buffer* buffer) {
  buffer->Resize(0);
  const int32_t size = Escape(kEscapeReadPort, 0, nullptr, 0, nullptr);
  if (size < 1 || size > kLargestPortData) return false;
  buffer->Resize(static_cast<uint32_t>(size));
  memset(buffer->Data, 0, buffer->Size);
  if (Escape(kEscapeReadPort, 0, nullptr, size, buffer->Data) > 0) return true;
  buffer->Resize(0);
  return false;
}

}  // namespace ostvt
