// A file, a device or a pipe as a port: each job behind the one before.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

class FilePort : public PortWriter {
 public:
  explicit FilePort(int descriptor) : Descriptor(descriptor) { JobId = MakeJobId(); }
  ~FilePort() override { close(Descriptor); }
  FilePort(const FilePort&) = delete;
  FilePort& operator=(const FilePort&) = delete;

  bool Write(const uint8_t* bytes, size_t count) override {
    if (!Failed) Failed = !WriteAll(Descriptor, bytes, count, false);
    return !Failed;
  }
  bool Finish() override { return !Failed; }

 private:
  int Descriptor;
  bool Failed = false;
};

}  // namespace

std::unique_ptr<PortWriter> OpenFilePort(const std::string& path) {
  // Non-blocking: to open a pipe that nobody reads would wait for its reader.
  const int flags = O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
  const int descriptor = open(path.c_str(), flags, 0666);
  if (descriptor < 0) return nullptr;
  return std::make_unique<FilePort>(descriptor);
}

}  // namespace ostvt::platform
