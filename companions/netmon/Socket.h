// A connection to a printer. Every wait has an end. One thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "companions/netmon/SocketSystem.h"

namespace ostvt::netmon {

// Where a port leads: "socket://HOST", "socket://HOST:PORT" or "socket://[ADDRESS]:PORT".
struct PortAddress {
  std::string Host;
  std::string Service;  // the port's number
};
// False for a port of another kind.
bool ParsePortAddress(const std::string& port, PortAddress* address);

class Socket {
 public:
  static constexpr int kFinishPauses = 10;

  Socket() = default;
  ~Socket() { Close(); }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  // Tries each address that the host has, all of them up to `tries` times; times in milliseconds.
  bool Connect(const PortAddress& address, int timeout, int tries = 1);
  // What the peer says while it is sent something. Where that is kept, a peer that can't get rid of
  // it may take nothing more.
  enum class Incoming { kKept, kDiscarded };
  // All of it; false when the peer takes nothing for the time, or is gone.
  bool Send(const uint8_t* bytes, size_t count, int timeout, Incoming incoming = Incoming::kKept);
  // Above 0: bytes, as soon as there are some. 0: none came in time. -1: none will come any more.
  // -2: the connection is broken.
  int Receive(uint8_t* bytes, size_t room, int timeout);
  // Throws away what has come by now. False when nothing will come any more.
  bool Discard();
  // Nothing more is sent. The peer gets what was sent before and ends its side, or says nothing for
  // the time given; whoever goes on talking is left after kFinishPauses times that. False when it
  // breaks the connection off, since it may have thrown away what it was sent.
  bool Finish(int timeout);
  // The peer may lose what it hasn't taken yet.
  void Abandon();

 private:
  bool ConnectTo(const addrinfo* address, int timeout);
  bool WaitToSend(int timeout, bool* isDiscarding);
  void Close();

  SocketLibrary Library;
  SocketHandle Handle = kNoSocket;
};

// The host's first IPv4 address, most significant byte first.
bool ResolveHost(const char* name, uint8_t* address);

}  // namespace ostvt::netmon
