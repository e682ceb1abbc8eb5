// Files for the printer.
#include "comm/PrinterPort.h"
#include "core/Buffer.h"
#include "core/OFile.h"
#include "core/PathName.h"
#include "settings/DriverSession.h"

namespace ostvt {
namespace {

constexpr uint32_t kLargestFile = 0x7FFFFFFF;
// A multiple of the port's packets, so that these are the same as if all was written at once.
constexpr uint32_t kStep = 1 << 20;

bool ReadWhole(const OString& path, Buffer* bytes) {
  OFile file(path, kFileShareAll);
  if (!file.IsOpen()) return false;
  const uint32_t size = file.GetSize();
  if (size > kLargestFile) return false;
  bytes->Resize(size);
  return size == 0 || file.Read(bytes->Data, size) == size;
}

}  // namespace

bool DriverSession::SendFile(const OString& path, SendProgressFunction progress, void* context) {
  Buffer bytes;
  if (!Port || !ReadWhole(path, &bytes)) return false;
  if (Port->OpenJob(NameOfPath(path)) == 0) {
    Port->CloseJob();
    return false;
  }
  for (uint32_t sent = 0; sent < bytes.Size && !Port->SendFailed;) {
    const uint32_t left = bytes.Size - sent;
    const uint32_t step = left < kStep ? left : kStep;
    Port->Write(bytes.Data + sent, static_cast<int32_t>(step));
    sent += step;
    if (progress) progress(context, sent, bytes.Size);
  }
  Port->CloseJob();
  return !Port->SendFailed;
}

}  // namespace ostvt
