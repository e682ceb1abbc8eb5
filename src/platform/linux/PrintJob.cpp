#include "platform/PrintJob.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "platform/PrintContext.h"
#include "platform/Spooler.h"
#include "platform/XpmlFilter.h"
#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

constexpr int kPacketHead = 2;  // bytes of a packet's count

// A job of one printer: at its port from its start on.
class PortJob : private XpmlSink {
 public:
  PortJob(const std::u16string& printer, const std::u16string& port)
      : Printer(printer), PortName(port), Filter(this) {}

  int32_t Start(const std::u16string& document) {
    if (Port) return 0;
    Port = OpenPort(PortName, Printer, document);
    return Port ? Port->JobId : 0;
  }
  bool IsStarted() const { return Port != nullptr; }
  bool Write(const uint8_t* bytes, size_t count) {
    if (!Port) return false;
    if (Port->KnowsXpml()) return Port->Write(bytes, count);
    Filter.Write(bytes, count);
    return PassOn();
  }
  bool End() {
    if (!Port) return false;
    Filter.Finish();
    const bool passedOn = PassOn();
    const bool finished = Port->Finish();
    Port.reset();
    return passedOn && finished;
  }

 private:
  void OnBytes(const uint8_t* bytes, size_t count) override {
    Plain.insert(Plain.end(), bytes, bytes + count);
  }
  bool PassOn() {
    const bool done = Port->Write(Plain.data(), Plain.size());
    Plain.clear();
    return done;
  }

  std::u16string Printer;
  std::u16string PortName;
  std::unique_ptr<PortWriter> Port;
  XpmlFilter Filter;
  std::vector<uint8_t> Plain;  // of the packet at hand, without XPML
};

PortJob* JobOf(PrintJobHandle job) { return static_cast<PortJob*>(job); }

// Above 0 when the port took the packet.
int WritePacket(PortJob* job, const void* input, int inputSize) {
  if (!input || inputSize < kPacketHead) return -1;
  const auto* packet = static_cast<const uint8_t*>(input);
  const int count = packet[0] | packet[1] << 8;
  if (count > inputSize - kPacketHead) return -1;
  return job->Write(packet + kPacketHead, static_cast<size_t>(count)) ? 1 : -1;
}

PrintJobHandle Create(const char16_t* printer, const void*) {
  PrinterHandle handle = OpenPrinter(printer, kPrinterAccessUse);
  PrinterRecord record;
  const bool isKnown = GetPrinterRecord(handle, &record);
  ClosePrinter(handle);
  return isKnown ? new PortJob(record.Name, record.PortName) : nullptr;
}

void Delete(PrintJobHandle job) { delete JobOf(job); }

int32_t Start(PrintJobHandle job, const char16_t* name) { return JobOf(job)->Start(name); }

// A port knows no pages.
bool IsInPage(PrintJobHandle job) { return JobOf(job)->IsStarted(); }

bool End(PrintJobHandle job) { return JobOf(job)->End(); }

int Escape(PrintJobHandle job, int escape, const void* input, int inputSize, void* output,
           int outputSize) {
  if (escape == kEscapeJobBytes) return WritePacket(JobOf(job), input, inputSize);
  return SendEscape(job, escape, input, inputSize, output, outputSize);
}

}  // namespace

const PrintJobFunctions kSystemPrintJobs = {Create, Delete, Start, IsInPage, IsInPage, End, Escape};

}  // namespace ostvt::platform
