// What BSD sockets and Winsock don't have in common.
#pragma once

#include <cstdint>

#ifdef _WIN32
// Before Winsock's own, which would bring in more of the system.
#include "platform/windows/Win32.h"

#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netdb.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace ostvt::netmon {

#ifdef _WIN32
using SocketHandle = SOCKET;
using SocketBytes = int;
inline constexpr SocketHandle kNoSocket = INVALID_SOCKET;
inline constexpr int kSendFlags = 0;
inline constexpr int kEndOfSending = SD_SEND;
#else
using SocketHandle = int;
using SocketBytes = size_t;
inline constexpr SocketHandle kNoSocket = -1;
inline constexpr int kSendFlags = MSG_NOSIGNAL;  // no signal for a peer that is gone
inline constexpr int kEndOfSending = SHUT_WR;
#endif

// The system's sockets, for the life of this object.
class SocketLibrary {
 public:
  SocketLibrary();
  ~SocketLibrary();
  SocketLibrary(const SocketLibrary&) = delete;
  SocketLibrary& operator=(const SocketLibrary&) = delete;
};

enum class SocketEvent { kReadable, kWritable, kEither };

// The call before on this thread failed only since it would have had to wait.
bool WouldWait();
bool MakeNonBlocking(SocketHandle socket);
// True when the event, or the connection's failure, is there before the time is over.
bool WaitForSocket(SocketHandle socket, SocketEvent event, int milliseconds);
void CloseSocket(SocketHandle socket);

}  // namespace ostvt::netmon
