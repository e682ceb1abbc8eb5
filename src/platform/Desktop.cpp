#include "platform/Desktop.h"

namespace ostvt::platform {
namespace {
MessageFunction messageFunction = nullptr;
}  // namespace

void ShowMessage(const char16_t* text) {
  if (text) messageFunction ? messageFunction(text) : ShowSystemMessage(text);
}

MessageFunction SetMessageFunction(MessageFunction function) {
  MessageFunction before = messageFunction;
  messageFunction = function;
  return before;
}

}  // namespace ostvt::platform
