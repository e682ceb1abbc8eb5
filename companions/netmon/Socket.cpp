#include "companions/netmon/Socket.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/Clock.h"

namespace ostvt::netmon {
namespace {

constexpr int kShortestFinish = 100;  // milliseconds

constexpr char kScheme[] = "socket://";
constexpr char kDefaultService[] = "9100";
constexpr size_t kLargestPiece = 1 << 16;

struct FreeAddresses {
  void operator()(addrinfo* addresses) const { freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

Addresses Find(const char* host, const char* service, int family) {
  addrinfo hints = {};
  hints.ai_family = family;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host, service, &hints, &found) != 0) return nullptr;
  return Addresses(found);
}

bool IsPortNumber(const std::string& text) {
  if (text.empty() || text.size() > 5 || text.find_first_not_of("0123456789") != std::string::npos)
    return false;
  const int number = atoi(text.c_str());
  return number >= 1 && number <= 65535;
}

}  // namespace

bool ParsePortAddress(const std::string& port, PortAddress* address) {
  if (port.compare(0, sizeof kScheme - 1, kScheme) != 0) return false;
  std::string host = port.substr(sizeof kScheme - 1);
  while (!host.empty() && host.back() == '/') host.pop_back();
  std::string service = kDefaultService;
  const size_t bracket = host.rfind(']');
  const size_t colon = host.rfind(':');
  if (colon != std::string::npos && (bracket == std::string::npos || colon > bracket)) {
    service = host.substr(colon + 1);
    host.resize(colon);
  }
  if (host.size() > 2 && host.front() == '[' && host.back() == ']')
    host = host.substr(1, host.size() - 2);
  if (host.empty() || !IsPortNumber(service)) return false;
  *address = {host, service};
  return true;
}

bool Socket::Connect(const PortAddress& address, int timeout, int tries) {
  Close();
  const Addresses found = Find(address.Host.c_str(), address.Service.c_str(), AF_UNSPEC);
  for (int i = 0; found && i < tries; ++i) {
    for (const addrinfo* next = found.get(); next; next = next->ai_next) {
      if (ConnectTo(next, timeout)) return true;
    }
  }
  return false;
}

bool Socket::ConnectTo(const addrinfo* address, int timeout) {
  Handle = socket(address->ai_family, SOCK_STREAM, 0);
  if (Handle == kNoSocket) return false;
  bool connected = false;
  if (MakeNonBlocking(Handle)) {
    connected = connect(Handle, address->ai_addr, static_cast<socklen_t>(address->ai_addrlen)) == 0;
    if (!connected && WouldWait() && WaitForSocket(Handle, SocketEvent::kWritable, timeout)) {
      int error = 0;
      socklen_t size = sizeof error;
      connected =
          getsockopt(Handle, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size) == 0 &&
          error == 0;
    }
  }
  if (!connected) {
    Close();
    return false;
  }
  // A query's few bytes must not wait for more.
  const int on = 1;
  setsockopt(Handle, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
  return true;
}

bool Socket::Send(const uint8_t* bytes, size_t count, int timeout, Incoming incoming) {
  bool isDiscarding = incoming == Incoming::kDiscarded;
  while (count > 0) {
    isDiscarding = isDiscarding && Discard();
    const size_t piece = std::min(count, kLargestPiece);
    const auto sent = send(Handle, reinterpret_cast<const char*>(bytes),
                           static_cast<SocketBytes>(piece), kSendFlags);
    if (sent > 0) {
      bytes += sent;
      count -= static_cast<size_t>(sent);
      continue;
    }
    if (!WouldWait() || !WaitToSend(timeout, &isDiscarding)) return false;
  }
  return true;
}

// True when the peer takes something again, or the connection has failed.
bool Socket::WaitToSend(int timeout, bool* isDiscarding) {
  const uint32_t start = platform::TickCount();
  int left = timeout;
  do {
    if (!*isDiscarding) return WaitForSocket(Handle, SocketEvent::kWritable, left);
    if (!WaitForSocket(Handle, SocketEvent::kEither, left)) return false;
    *isDiscarding = Discard();
    if (WaitForSocket(Handle, SocketEvent::kWritable, 0)) return true;
    left = timeout - static_cast<int>(platform::TickCount() - start);
  } while (left > 0);
  return false;
}

int Socket::Receive(uint8_t* bytes, size_t room, int timeout) {
  const size_t piece = std::min(room, kLargestPiece);
  for (bool waited = false;; waited = true) {
    const auto got =
        recv(Handle, reinterpret_cast<char*>(bytes), static_cast<SocketBytes>(piece), 0);
    if (got > 0) return static_cast<int>(got);
    if (got == 0) return -1;
    if (!WouldWait()) return -2;
    if (waited || !WaitForSocket(Handle, SocketEvent::kReadable, timeout)) return 0;
  }
}

bool Socket::Discard() {
  uint8_t bytes[1024];
  int got = 1;
  // No more than a peer can have sent before the call, should it never stop.
  for (int i = 0; i < 1024 && got > 0; ++i) got = Receive(bytes, sizeof bytes, 0);
  return got >= 0;
}

bool Socket::Finish(int timeout) {
  if (Handle == kNoSocket) return false;
  Discard();
  const bool done = shutdown(Handle, kEndOfSending) == 0;
  // Bytes of the peer that nobody has read would turn the end into an abort.
  uint8_t bytes[1024];
  int got = 1;
  const uint32_t start = platform::TickCount();
  const auto longest = static_cast<uint32_t>(std::max(kFinishPauses * timeout, kShortestFinish));
  while (done && got > 0 && platform::TickCount() - start <= longest)
    got = Receive(bytes, sizeof bytes, timeout);
  Close();
  return done && got != -2;
}

void Socket::Abandon() {
  if (Handle == kNoSocket) return;
  const linger cut = {1, 0};
  setsockopt(Handle, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&cut), sizeof cut);
  Close();
}

void Socket::Close() {
  if (Handle != kNoSocket) CloseSocket(Handle);
  Handle = kNoSocket;
}

bool ResolveHost(const char* name, uint8_t* address) {
  if (!name || !*name) return false;
  const SocketLibrary library;
  const Addresses found = Find(name, nullptr, AF_INET);
  if (!found) return false;
  sockaddr_in first;
  memcpy(&first, found->ai_addr, sizeof first);
  memcpy(address, &first.sin_addr, 4);
  return true;
}

}  // namespace ostvt::netmon
