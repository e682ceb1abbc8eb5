// The hidden window of a 16-bit partner: the module knows it by its name alone, and passes it
// numbers. Linux has no such partner.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// A window of the partner; null is none. It may go at any time; messages to one that is gone, or to
// none, go nowhere.
using ChannelWindow = void*;

// `name` in the system's own code page. Null when there is no such channel.
ChannelWindow FindChannel(const char* name);
// Returns when the partner has taken the message.
void SendToChannel(ChannelWindow window, uint32_t message);
void PostToChannel(ChannelWindow window, uint32_t message, uintptr_t value);

// For tests, which have no partner: takes the place of the system until null is set; borrowed until
// then. Not to be called while others use a channel.
struct ChannelFunctions {
  ChannelWindow (*Find)(const char* name);
  void (*Send)(ChannelWindow window, uint32_t message);
  void (*Post)(ChannelWindow window, uint32_t message, uintptr_t value);
};
void SetChannelFunctions(const ChannelFunctions* functions);

}  // namespace ostvt::platform
