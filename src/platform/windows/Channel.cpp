#include "platform/Channel.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

constexpr char kChannelClass[] = "X16_Channel";

const ChannelFunctions* channelFunctions = nullptr;

}  // namespace

ChannelWindow FindChannel(const char* name) {
  if (channelFunctions) return channelFunctions->Find(name);
  // Without a name the system would give the channel of any partner.
  return name ? FindWindowA(kChannelClass, name) : nullptr;
}

void SendToChannel(ChannelWindow window, uint32_t message) {
  if (!window) return;
  if (channelFunctions) {
    channelFunctions->Send(window, message);
  } else {
    SendMessageW(static_cast<HWND>(window), message, 0, 0);
  }
}

void PostToChannel(ChannelWindow window, uint32_t message, uintptr_t value) {
  // The system would post a message to nobody into this thread's own queue.
  if (!window) return;
  if (channelFunctions) {
    channelFunctions->Post(window, message, value);
  } else {
    PostMessageW(static_cast<HWND>(window), message, value, 0);
  }
}

void SetChannelFunctions(const ChannelFunctions* functions) { channelFunctions = functions; }

}  // namespace ostvt::platform
