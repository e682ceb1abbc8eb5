#include "platform/PrintContext.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

int SendSystemEscape(PrintContext context, int escape, const void* input, int inputSize,
                     void* output, int outputSize) {
  return ExtEscape(static_cast<HDC>(context), escape, inputSize, static_cast<const char*>(input),
                   outputSize, static_cast<char*>(output));
}

}  // namespace ostvt::platform
