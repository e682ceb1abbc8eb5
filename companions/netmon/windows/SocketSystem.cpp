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
  fd_set wanted;
  fd_set failed;
  FD_ZERO(&wanted);
  FD_ZERO(&failed);
  FD_SET(socket, &wanted);
  FD_SET(socket, &failed);
  timeval time = {milliseconds / 1000, (milliseconds % 1000) * 1000};
  return select(0, event == SocketEvent::kReadable ? &wanted : nullptr,
                event == SocketEvent::kWritable ? &wanted : nullptr, &failed, &time) > 0;
}

void CloseSocket(SocketHandle socket) { closesocket(socket); }

}  // namespace ostvt::netmon
