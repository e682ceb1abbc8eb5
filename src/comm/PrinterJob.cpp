#include "comm/PrinterJob.h"

#include <cstdlib>
#include <cstring>

#include "comm/MonitorLink.h"
#include "core/DriverPath.h"
#include "platform/PrintDrawing.h"

namespace ostvt {
namespace {

constexpr int32_t kLargestPacket = 65535;  // its length travels in 16 bits

}  // namespace

PrinterJob::PrinterJob(const OString& printerName, const void* devMode) {
  MonitorLink(printerName).SetShadowBlocked(true);
  Context = platform::CreatePrintJob(printerName.GetWide(), DriverOnNtPath ? nullptr : devMode);
}

PrinterJob::~PrinterJob() { platform::DeletePrintJob(Context); }

int32_t PrinterJob::Start(const OString& name) {
  const int32_t id = platform::StartPrintJob(Context, name.GetWide());
  return id > 0 ? id : 0;
}

void PrinterJob::StartPage() { platform::StartPrintPage(Context); }

void PrinterJob::EndPage() { platform::EndPrintPage(Context); }

bool PrinterJob::End() { return platform::EndPrintJob(Context); }

int32_t PrinterJob::Escape(int32_t code, int32_t inputSize, const void* input, int32_t outputSize,
                           void* output) {
  return platform::SendJobEscape(Context, code, input, inputSize, output, outputSize);
}

bool PrinterJob::GetPrintableSize(int32_t* width, int32_t* height) {
  return platform::GetPrintableSize(Context, width, height);
}

void PrinterJob::FillBlack(int32_t left, int32_t top, int32_t right, int32_t bottom) {
  platform::FillBlack(Context, left, top, right, bottom);
}

bool PrinterJob::Write(const void* bytes, int32_t count) {
  if (!Context || count < 0 || count > kLargestPacket || (!bytes && count > 0)) return false;
  const size_t size = static_cast<size_t>(count);
  auto* block = static_cast<uint8_t*>(malloc(size + 2));
  if (!block) return true;  // the job goes on without them
  block[0] = static_cast<uint8_t>(count);
  block[1] = static_cast<uint8_t>(count >> 8);
  if (size > 0) memcpy(block + 2, bytes, size);
  const int32_t taken = Escape(platform::kEscapeJobBytes, count + 2, block, 0, nullptr);
  free(block);
  return taken > 0;
}

}  // namespace ostvt
