#include "comm/MonitorLink.h"

#include "comm/XpmlText.h"
#include "core/OStringArray.h"
#include "platform/Components.h"
#include "platform/Errors.h"
#include "platform/Module.h"
#include "store/PrinterId.h"
#include "store/TrueStore.h"

namespace ostvt {
namespace {

constexpr int32_t kLargestAnswer = 16 << 20;
constexpr uint32_t kShortestState = 3;  // bytes of an answer
constexpr int32_t kStateFields = 4;

constexpr int32_t kMonitorAnswered = 1;

// An answer up to its end or to a zero byte.
OString TextOf(const Buffer& bytes) {
  OString text;
  text.AssignCount(reinterpret_cast<const char*>(bytes.Data), static_cast<int>(bytes.Size));
  return text;
}

}  // namespace

PrinterRegistry MonitorLink::Store() const {
  return Known ? PrinterRegistry(*Known) : PrinterRegistry(PrinterName);
}

PrinterRegistry MonitorLink::OwnStore() const { return TrueStore(Store()); }

bool MonitorLink::IsLocalBidiOn(PrinterId& printer) const {
  if (printer.Printer().IsRemote) return false;
  return (Known ? TrueStore(*Known) : TrueStore(printer)).IsBidiEnabled();
}

int32_t MonitorLink::SendRequest(const OString& request) {
  LastResult = 0;
  LastError = 0;
  MonitorFile monitor(Loader);
  auto* send = monitor.Find<SendXpmlRequestFunction>(kSendXpmlRequest);
  if (!send) return 0;
  platform::SetLastErrorNumber(0);
  LastResult = send(PrinterName.GetWide(), request.GetNarrow(), nullptr);
  LastError = platform::LastErrorNumber();
  return LastResult;
}

int32_t MonitorLink::SendRequestWithResponse(const OString& request, Buffer* response) {
  response->Resize(0);
  IsAnswerRefused = false;
  LastResult = 0;
  LastError = 0;
  MonitorFile monitor(Loader);
  auto* send = monitor.Find<SendXpmlRequestFunction>(kSendXpmlRequest);
  auto* getSize = monitor.Find<HttpResponseSizeFunction>(kHttpResponseSize);
  auto* getData = monitor.Find<HttpResponseDataFunction>(kHttpResponseData);
  auto* release = monitor.Find<HttpResponseFreeFunction>(kHttpResponseFree);
  if (!send || !getSize || !getData || !release) return 0;
  void* handle = nullptr;
  platform::SetLastErrorNumber(0);
  LastResult = send(PrinterName.GetWide(), request.GetNarrow(), &handle);
  LastError = platform::LastErrorNumber();
  if (!handle) return LastResult;
  const int32_t size = LastResult ? getSize(handle) : 0;
  IsAnswerRefused = size < 0 || size > kLargestAnswer;
  if (size > 0 && !IsAnswerRefused) {
    response->Resize(static_cast<uint32_t>(size));
    FillBytes(response->Data, 0, response->Size);
    getData(handle, response->Data);
  }
  release(handle);
  return LastResult;
}

bool MonitorLink::Refresh() {
  ConfigurationSharing = 0;
  MonitoringSupported = 0;
  Bidirectional = 0;
  PortType.Clear();
  PrinterId printer(PrinterName);
  ServerName = printer.Printer().ServerName;
  LocalBidiEnabled = IsLocalBidiOn(printer);
  if (!printer.Printer().IsRemote && !LocalBidiEnabled) return true;
  OString request = kXpmlSharing;
  request += kXpmlMonitoring;
  request += kXpmlBidirectional;
  request += kXpmlPortType;
  Buffer answer;
  return SendRequestWithResponse(request, &answer) != 0 && ReadState(answer);
}

bool MonitorLink::ReadState(const Buffer& answer) {
  if (answer.Size < kShortestState) return false;
  OStringArray fields;
  fields.Split(TextOf(answer), ";");
  if (fields.Count < kStateFields) return false;
  ConfigurationSharing = fields[0].ToInt();
  MonitoringSupported = fields[1].ToInt();
  Bidirectional = fields[2].ToInt();
  PortType = fields[3];
  StateKnown = true;
  return true;
}

bool MonitorLink::EnsureFresh() {
  if (!GetNetworkCommunication()) return false;
  if (StateKnown) {
    PrinterId printer(PrinterName);
    if (LocalBidiEnabled == IsLocalBidiOn(printer) && ServerName == printer.Printer().ServerName)
      return true;
  }
  StateKnown = true;
  return Refresh();
}

bool MonitorLink::IsMonitoringSupported() { return EnsureFresh() && MonitoringSupported == 1; }

bool MonitorLink::IsBidirectional() { return EnsureFresh() && Bidirectional == 1; }

OString MonitorLink::GetPortType() { return EnsureFresh() ? PortType : OString(); }

bool MonitorLink::IsNetworkClient() const {
  return Known ? Known->IsRemote : PrinterId(PrinterName).Printer().IsRemote;
}

bool MonitorLink::IsServerCommunicationOn() const { return Store().IsShadowed; }

bool MonitorLink::IsAnswering() { return Refresh() || LastResult == kMonitorAnswered; }

bool MonitorLink::IsMonitorMissed() {
  if (!GetNetworkCommunication() || IsAnswering()) return false;
  PrinterId printer(PrinterName);
  return printer.Printer().IsRemote || !printer.Printer().ShareName.IsEmpty();
}

OString MonitorLink::ResolveHostName(const OString& hostName) {
  OString text;
  if (!platform::ComponentAvailable(u"Winsock", u"0.0")) return text;
  MonitorFile monitor(Loader);
  auto* resolve = monitor.Find<HostNameToIpFunction>(kHostNameToIp);
  uint8_t address[4] = {};
  if (!resolve || resolve(hostName.GetNarrow(), address) == 0) return text;
  for (int i = 0; i < 4; ++i) {
    if (i > 0) text += '.';
    text.AppendInt(address[i]);
  }
  return text;
}

OString MonitorLink::GetStatusMonitorCommand(const OString& verb) const {
  OString command = "rundll32.exe ";
  command += platform::ModuleDirectory().c_str();
  command += "\\";
  command += kMonitorFileName;
  command += OString(",") + kStatusMonitor + " " + verb + " \"" + PrinterName + "\"";
  return command;
}

}  // namespace ostvt
