#include "platform/linux/PortWriter.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <string_view>

#include "platform/Clock.h"
#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

// A printer that waits for paper takes nothing until somebody comes; a caller can't wait for that.
constexpr uint32_t kWriteTimeout = 30000;  // milliseconds

constexpr std::string_view kFile = "file:";
constexpr std::string_view kSocket = "socket://";
constexpr std::string_view kCups = "cups:";

// Without the signal that a pipe without a reader would send: it would end the caller's program.
ssize_t WriteQuietly(int descriptor, const uint8_t* bytes, size_t count) {
  sigset_t brokenPipe;
  sigset_t before;
  sigset_t pending;
  sigemptyset(&brokenPipe);
  sigaddset(&brokenPipe, SIGPIPE);
  sigpending(&pending);
  const bool wasPending = sigismember(&pending, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &brokenPipe, &before);
  const ssize_t written = write(descriptor, bytes, count);
  const int error = errno;
  if (written < 0 && error == EPIPE && !wasPending) {
    const timespec now = {};
    while (sigtimedwait(&brokenPipe, nullptr, &now) < 0 && errno == EINTR) {
    }
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return written;
}

// False when nothing will come any more.
bool DiscardAnswers(int descriptor) {
  char bytes[4096];
  ssize_t got = 1;
  // No more than a peer can have sent before the call, should it never stop.
  for (int i = 0; i < 1024 && got > 0; ++i) got = recv(descriptor, bytes, sizeof bytes, 0);
  return got > 0 || (got < 0 && (errno == EAGAIN || errno == EINTR));
}

// True when the descriptor takes bytes again, or has failed.
bool WaitToWrite(int descriptor, bool isSocket) {
  bool isDiscarding = isSocket;
  const uint32_t start = TickCount();
  for (;;) {
    const uint32_t passed = TickCount() - start;
    if (passed >= kWriteTimeout) return false;
    const auto events = static_cast<short>(isDiscarding ? POLLIN | POLLOUT : POLLOUT);
    pollfd wait = {descriptor, events, 0};
    const int ready = poll(&wait, 1, static_cast<int>(kWriteTimeout - passed));
    if (ready < 0 && errno != EINTR) return false;
    if (ready <= 0) continue;
    if (isDiscarding && (wait.revents & POLLIN)) isDiscarding = DiscardAnswers(descriptor);
    if (wait.revents & ~POLLIN) return true;
  }
}

}  // namespace

bool WriteAll(int descriptor, const uint8_t* bytes, size_t count, bool isSocket) {
  while (count > 0) {
    const ssize_t written = isSocket ? send(descriptor, bytes, count, MSG_NOSIGNAL)
                                     : WriteQuietly(descriptor, bytes, count);
    if (written > 0) {
      bytes += written;
      count -= static_cast<size_t>(written);
      continue;
    }
    if (written < 0 && errno == EINTR) continue;
    if (written == 0 || errno != EAGAIN) return false;
    if (!WaitToWrite(descriptor, isSocket)) return false;
  }
  return true;
}

int32_t MakeJobId() { return static_cast<int32_t>(TickCount() & 0x3FFFFFFF) + 1; }

std::unique_ptr<PortWriter> OpenPort(const std::u16string& port, const std::u16string& printer,
                                     const std::u16string& document) {
  const std::string text = ToUtf8(port);
  const auto rest = [&text](std::string_view head) {
    return text.size() > head.size() && text.compare(0, head.size(), head) == 0
               ? text.substr(head.size())
               : std::string();
  };
  if (const std::string path = rest(kFile); !path.empty()) return OpenFilePort(path);
  if (const std::string queue = rest(kCups); !queue.empty())
    return OpenCupsPort(queue, ToUtf8(document));
  const std::string address = rest(kSocket);
  if (address.empty()) return nullptr;
  bool isInstalled = false;
  std::unique_ptr<PortWriter> monitor = OpenMonitorPort(printer, document, &isInstalled);
  return isInstalled ? std::move(monitor) : OpenSocketPort(address);
}

}  // namespace ostvt::platform
