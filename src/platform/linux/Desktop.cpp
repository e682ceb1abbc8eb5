#include "platform/Desktop.h"

namespace ostvt::platform {

bool HasDesktop() { return false; }

void* DesktopWindow() { return nullptr; }

void ShowSystemMessage(const char16_t*) {}

}  // namespace ostvt::platform
