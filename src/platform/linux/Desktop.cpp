#include "platform/Desktop.h"

namespace ostvt::platform {

bool HasDesktop() { return false; }
void ShowMessage(const char16_t*) {}

}  // namespace ostvt::platform
