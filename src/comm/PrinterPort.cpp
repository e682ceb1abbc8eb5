#include "comm/PrinterPort.h"

#include <cstring>

#include "comm/PrinterJob.h"
#include "core/Memory.h"

namespace ostvt {
namespace {

constexpr int32_t kLargestPiece = 32000;  // a packet's length travels in 16 bits
constexpr int32_t kCaptureLimit = 1 << 30;

}  // namespace

PrinterPort::~PrinterPort() {
  delete Job;
  FreeCounted(Buffer);
}

void PrinterPort::Bind(DriverSession* owner, platform::PrinterHandle printer,
                       const MonitorLink& link, DevModeFunction devMode) {
  Owner = owner;
  OwnerPrinter = printer;
  Link = link;
  DevModeOf = devMode;
}

bool PrinterPort::WriteRaw(const void* bytes, int32_t count) {
  if (!bytes || count < 1) return false;
  if (IsJobStarted) return Job->Write(bytes, count);
  // Not by OpenJob and CloseJob: these send what waits in the buffer.
  PrinterJob job(Link.PrinterName, JobDevMode());
  job.Start("write_packet");
  job.StartPage();
  job.Write(nullptr, 0);
  const bool written = job.Write(bytes, count);
  job.EndPage();
  return job.End() && written;
}

void PrinterPort::BeginCapture() {
  Flush();
  Capturing = true;
}

void PrinterPort::EndCapture() {
  Fill = 0;
  Capturing = false;
}

int32_t PrinterPort::GetFill() { return Fill; }

void PrinterPort::WriteNewLine() { WriteText("\r\n"); }

bool PrinterPort::Write(const void* bytes, int32_t count) {
  if (!bytes || count < 1) return false;
  if (Capturing) {
    if (count > kCaptureLimit - Fill) return false;
    while (Capacity < Fill + count) Capacity *= 2;
  }
  if (Capacity > BufferAllocated) {
    Buffer = static_cast<uint8_t*>(ReallocCounted(Buffer, static_cast<size_t>(Capacity)));
    BufferAllocated = Capacity;
  }
  // What is sent may make its sender write again, so the buffer need not be empty afterwards.
  if (count > Capacity - Fill) Flush();
  if (count <= Capacity - Fill) {
    memcpy(Buffer + Fill, bytes, static_cast<size_t>(count));
    Fill += count;
  } else {
    Flush();
    SendInPieces(static_cast<const uint8_t*>(bytes), count);
  }
  return true;
}

void PrinterPort::WriteText(const char* text) {
  if (text) Write(text, static_cast<int32_t>(strlen(text)));
}

void PrinterPort::WriteInt(int32_t value) {
  OString text;
  text.AppendInt(value);
  WriteText(text.GetNarrow());
}

// From a copy, with the buffer empty already: what is sent may make its sender write again.
void PrinterPort::Flush() {
  if (Capturing || Fill == 0) return;
  ostvt::Buffer waiting;
  waiting.Resize(static_cast<uint32_t>(Fill));
  memcpy(waiting.Data, Buffer, waiting.Size);
  Fill = 0;
  SendInPieces(waiting.Data, static_cast<int32_t>(waiting.Size));
}

void PrinterPort::SendInPieces(const uint8_t* bytes, int32_t count) {
  const int32_t piece = Capacity < kLargestPiece ? Capacity : kLargestPiece;
  for (; count > 0; count -= piece, bytes += piece) {
    if (!WriteRaw(bytes, count < piece ? count : piece)) SendFailed = true;
  }
}

PrinterJob* PrinterPort::NeedJob() {
  if (!Job) Job = new PrinterJob(Link.PrinterName, JobDevMode());
  return Job;
}

int32_t PrinterPort::StartJob(const OString& name) {
  PrinterJob* job = NeedJob();
  IsJobStarted = true;
  const int32_t id = job->Start(name);
  job->StartPage();
  // An empty packet, so that the job exists.
  job->Write(nullptr, 0);
  return id;
}

void PrinterPort::EndJob() {
  if (IsJobStarted) {
    Job->EndPage();
    if (!Job->End()) SendFailed = true;
  }
  IsJobStarted = false;
  delete Job;
  Job = nullptr;
}

int32_t PrinterPort::OpenJob(const OString& name) {
  SendFailed = false;
  return StartJob(name);
}

void PrinterPort::CloseJob() {
  Flush();
  EndJob();
}

int32_t PrinterPort::Escape(int32_t code, int32_t inputSize, const void* input, int32_t outputSize,
                            void* output) {
  return NeedJob()->Escape(code, inputSize, input, outputSize, output);
}

}  // namespace ostvt
