// A printer on the network: "HOST:PORT", "HOST" (port 9100) or "[ADDRESS]:PORT".
#include <errno.h>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/Clock.h"
#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

// Milliseconds.
constexpr int kConnectTimeout = 5000;
constexpr int kPause = 500;  // a printer that says nothing for so long has said all
constexpr uint32_t kLongestFinish = 5000;

constexpr char kDefaultService[] = "9100";

class SocketPort : public PortWriter {
 public:
  explicit SocketPort(int descriptor) : Descriptor(descriptor) { JobId = MakeJobId(); }
  ~SocketPort() override {
    // What was sent goes out first; a job that is given up is cut off.
    if (!Finished) {
      const linger cut = {1, 0};
      setsockopt(Descriptor, SOL_SOCKET, SO_LINGER, &cut, sizeof cut);
    }
    close(Descriptor);
  }
  SocketPort(const SocketPort&) = delete;
  SocketPort& operator=(const SocketPort&) = delete;

  bool Write(const uint8_t* bytes, size_t count) override {
    if (!Failed) Failed = !WriteAll(Descriptor, bytes, count, true);
    return !Failed;
  }
  bool Finish() override {
    Finished = true;
    return !Failed && shutdown(Descriptor, SHUT_WR) == 0 && HearOut();
  }

 private:
  // Bytes of the printer that nobody has read would turn the end into an abort, which drops what it
  // hasn't taken yet. False when it breaks the connection off.
  bool HearOut() {
    const uint32_t start = TickCount();
    while (TickCount() - start <= kLongestFinish) {
      pollfd wait = {Descriptor, POLLIN, 0};
      const int ready = poll(&wait, 1, kPause);
      if (ready == 0) return true;
      if (ready < 0 && errno != EINTR) return false;
      char bytes[4096];
      const ssize_t got = recv(Descriptor, bytes, sizeof bytes, 0);
      if (got == 0) return true;
      if (got < 0 && errno != EAGAIN && errno != EINTR) return false;
    }
    return true;
  }

  int Descriptor;
  bool Failed = false;
  bool Finished = false;
};

void SplitAddress(std::string address, std::string* host, std::string* service) {
  while (!address.empty() && address.back() == '/') address.pop_back();
  const size_t bracket = address.rfind(']');
  const size_t colon = address.rfind(':');
  const bool hasService =
      colon != std::string::npos && (bracket == std::string::npos || colon > bracket);
  *host = hasService ? address.substr(0, colon) : address;
  *service = hasService ? address.substr(colon + 1) : kDefaultService;
  if (host->size() > 2 && host->front() == '[' && host->back() == ']')
    *host = host->substr(1, host->size() - 2);
}

bool Connect(int descriptor, const addrinfo* address) {
  if (connect(descriptor, address->ai_addr, address->ai_addrlen) == 0) return true;
  if (errno != EINPROGRESS) return false;
  pollfd wait = {descriptor, POLLOUT, 0};
  int ready;
  do {
    ready = poll(&wait, 1, kConnectTimeout);
  } while (ready < 0 && errno == EINTR);
  int error = 0;
  socklen_t size = sizeof error;
  return ready > 0 && getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 &&
         error == 0;
}

}  // namespace

std::unique_ptr<PortWriter> OpenSocketPort(const std::string& address) {
  std::string host;
  std::string service;
  SplitAddress(address, &host, &service);
  addrinfo hints = {};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), service.c_str(), &hints, &found) != 0) return nullptr;
  std::unique_ptr<PortWriter> port;
  for (const addrinfo* next = found; next && !port; next = next->ai_next) {
    const int descriptor = socket(next->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0) continue;
    if (Connect(descriptor, next)) {
      port = std::make_unique<SocketPort>(descriptor);
    } else {
      close(descriptor);
    }
  }
  freeaddrinfo(found);
  return port;
}

}  // namespace ostvt::platform
