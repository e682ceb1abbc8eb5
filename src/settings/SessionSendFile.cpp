#include "settings/SessionSendFile.h"

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
  if (FindSendFileProblem(file) != SendFileProblem::kNone) return false;
  const uint32_t size = file.GetSize();
  bytes->Resize(size);
  file.Seek(0, platform::FileOrigin::kBegin);
  return size == 0 || file.Read(bytes->Data, size) == size;
}

}  // namespace

SendFileProblem FindSendFileProblem(OFile& file) {
  if (!file.IsOpen()) return SendFileProblem::kUnreadable;
  const uint32_t size = file.GetSize();
  if (size > kLargestFile) return SendFileProblem::kTooLarge;
  // Devices have no positions, and reading from one may wait for ever.
  constexpr auto kBegin = platform::FileOrigin::kBegin;
  if (file.Seek(1, kBegin) != 1) return SendFileProblem::kUnreadable;
  // Some of the system's files state a size that they haven't got, or none at all.
  uint8_t byte = 0;
  file.Seek(size == 0 ? 0 : size - 1, kBegin);
  const bool isRead = file.Read(&byte, 1) == 1;
  return isRead == (size > 0) ? SendFileProblem::kNone : SendFileProblem::kUnreadable;
}

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
