#include "platform/Channel.h"

namespace ostvt::platform {
namespace {
const ChannelFunctions* channelFunctions = nullptr;
}  // namespace

ChannelWindow FindChannel(const char* name) {
  return channelFunctions ? channelFunctions->Find(name) : nullptr;
}

void SendToChannel(ChannelWindow window, uint32_t message) {
  if (window && channelFunctions) channelFunctions->Send(window, message);
}

void PostToChannel(ChannelWindow window, uint32_t message, uintptr_t value) {
  if (window && channelFunctions) channelFunctions->Post(window, message, value);
}

void SetChannelFunctions(const ChannelFunctions* functions) { channelFunctions = functions; }

}  // namespace ostvt::platform
