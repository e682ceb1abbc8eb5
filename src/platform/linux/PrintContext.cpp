#include "platform/PrintContext.h"

namespace ostvt::platform {

int SendSystemEscape(PrintContext, int, const void*, int, void*, int) { return 0; }

}  // namespace ostvt::platform
