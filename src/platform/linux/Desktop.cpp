#include "platform/Desktop.h"

namespace ostvt::platform {
namespace {
MessageFunction messageFunction = nullptr;
}  // namespace

bool HasDesktop() { return false; }

void* DesktopWindow() { return nullptr; }

void ShowMessage(const char16_t* text) {
  if (text && messageFunction) messageFunction(text);
}

MessageFunction SetMessageFunction(MessageFunction function) {
  MessageFunction before = messageFunction;
  messageFunction = function;
  return before;
}

}  // namespace ostvt::platform
