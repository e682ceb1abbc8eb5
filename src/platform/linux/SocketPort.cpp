// A printer on the network: "HOST:PORT", "HOST" (port 9100) or "[ADDRESS]:PORT".
#include <errno.h>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

constexpr int kConnectTimeout = 5000;  // milliseconds
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
    return !Failed && shutdown(Descriptor, SHUT_WR) == 0;
  }

 private:
  int Descriptor;
  bool Failed = false;
  bool Finished = false;
};

void SplitAddress(const std::string& address, std::string* host, std::string* service) {
  const size_t bracket = address.rfind(']');
  const size_t colon = address.rfind(':');
  const bool hasService =
      colon != std::string::npos && (bracket == std::string::npos || colon > bracket);
  *host = hasService ? address.substr(0, colon) : address;
  *service = hasService ? address.substr(colon + 1) : kDefaultService;
  while (!service->empty() && service->back() == '/') service->pop_back();
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
