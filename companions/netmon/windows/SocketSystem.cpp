#include "companions/netmon/SocketSystem.h"

namespace ostvt::netmon {

SocketLibrary::SocketLibrary() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}

SocketLibrary::~SocketLibrary() { WSACleanup(); }

bool WouldWait() {
  const int error = WSAGetLastError();
  return error == WSAEWOULDBLOCK || error == WSAEINPROGRESS || error == WSAEINTR;
}

bool MakeNonBlocking(SocketHandle socket) {
  u_long on = 1;
  return ioctlsocket(socket, static_cast<long>(FIONBIO), &on) == 0;
}

bool WaitForSocket(SocketHandle socket, SocketEvent event, int milliseconds) {
  // A connection that is refused shows only in the third set.
  fd_set failed;
  FD_ZERO(&failed);
  FD_SET(socket, &failed);
  fd_set readable = failed;
  fd_set writable = failed;
  timeval time = {milliseconds / 1000, (milliseconds % 1000) * 1000};
  return select(0, event == SocketEvent::kWritable ? nullptr : &readable,
                event == SocketEvent::kReadable ? nullptr : &writable, &failed, &time) > 0;
}

void CloseSocket(SocketHandle socket) { closesocket(socket); }

}  // namespace ostvt::netmon
