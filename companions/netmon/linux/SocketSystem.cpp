#include "companions/netmon/SocketSystem.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace ostvt::netmon {

SocketLibrary::SocketLibrary() = default;
SocketLibrary::~SocketLibrary() = default;

bool WouldWait() {
  return errno == EINPROGRESS || errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

bool MakeNonBlocking(SocketHandle socket) {
  return fcntl(socket, F_SETFL, O_NONBLOCK) == 0 && fcntl(socket, F_SETFD, FD_CLOEXEC) == 0;
}

bool WaitForSocket(SocketHandle socket, SocketEvent event, int milliseconds) {
  short events = 0;
  if (event != SocketEvent::kWritable) events |= POLLIN;
  if (event != SocketEvent::kReadable) events |= POLLOUT;
  pollfd wait = {socket, events, 0};
  int ready;
  do {
    ready = poll(&wait, 1, milliseconds);
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

void CloseSocket(SocketHandle socket) { close(socket); }

}  // namespace ostvt::netmon
