// What the monitor answers: nothing outside the answer is read, and what it means doesn't depend on
// what came before. The first byte tells how the monitor's exports behave, the rest is the answer.
#include <cstdlib>
#include <cstring>

#include "comm/PrinterPort.h"

namespace {

// A monitor that says what the input says.
class InputMonitor : public ostvt::MonitorLoader {
 public:
  InputMonitor(const uint8_t* data, size_t size)
      : How(data[0]), Answer(data + 1), Size(static_cast<int32_t>(size - 1)) {
    current = this;
  }
  void* Open() override { return this; }
  void Close(void*) override {}
  void* Find(void*, const char* name) override {
    if (strcmp(name, "SendXPMLRequest") == 0) return reinterpret_cast<void*>(&Send);
    if (strcmp(name, "HTTPResponse_Size") == 0) return reinterpret_cast<void*>(&SizeOf);
    if (strcmp(name, "HTTPResponse_Data") == 0) return reinterpret_cast<void*>(&DataOf);
    return reinterpret_cast<void*>(&Free);
  }
  bool IsBalanced() const { return Handles == 0; }

 private:
  static int32_t Send(const char16_t*, const char*, void** response) {
    if ((current->How & 1) == 0) {
      *response = current;
      ++current->Handles;
    }
    return (current->How & 2) == 0;
  }
  static int32_t SizeOf(void*) { return (current->How & 4) == 0 ? current->Size : -current->Size; }
  static void DataOf(void*, void* buffer) {
    memcpy(buffer, current->Answer, static_cast<size_t>(current->Size));
  }
  static void Free(void*) { --current->Handles; }

  uint8_t How;
  const uint8_t* Answer;
  int32_t Size;
  int Handles = 0;
  inline static InputMonitor* current = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  InputMonitor monitor(data, size);
  ostvt::MonitorLink link("x");
  link.Loader = &monitor;
  ostvt::Buffer answer;
  const int32_t result = link.SendRequestWithResponse("y", &answer);
  if (!monitor.IsBalanced()) abort();
  if (answer.Size != 0 && (result == 0 || answer.Size != size - 1)) abort();
  if (answer.Size != 0 && memcmp(answer.Data, data + 1, size - 1) != 0) abort();

  ostvt::MonitorLink other("x");
  other.ConfigurationSharing = 7;
  other.PortType = "old";
  const bool isState = link.ReadState(answer);
  if (other.ReadState(answer) != isState || link.StateKnown != isState) abort();
  if (isState) {
    if (link.ConfigurationSharing != other.ConfigurationSharing ||
        link.MonitoringSupported != other.MonitoringSupported ||
        link.Bidirectional != other.Bidirectional || !(link.PortType == other.PortType))
      abort();
  } else if (other.ConfigurationSharing != 7 || !(other.PortType == "old")) {
    abort();
  }

  ostvt::PrinterPort port;
  port.Bind(nullptr, nullptr, link, nullptr);
  ostvt::Buffer response;
  const bool isThere = port.GetQueryResponseText("z", &response);
  if (isThere != (response.Size > 1)) abort();
  if (isThere && response.Data[response.Size - 1] != 0) abort();
  return 0;
}
