#include "platform/PrintContext.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {
EscapeFunction escapeFunction = nullptr;
}  // namespace

int SendEscape(PrintContext context, int escape, const void* input, int inputSize, void* output,
               int outputSize) {
  if (inputSize < 0) inputSize = 0;
  if (outputSize < 0) outputSize = 0;
  if (escapeFunction) return escapeFunction(context, escape, input, inputSize, output, outputSize);
  if (!context) return 0;
  return ExtEscape(static_cast<HDC>(context), escape, inputSize, static_cast<const char*>(input),
                   outputSize, static_cast<char*>(output));
}

EscapeFunction SetEscapeFunction(EscapeFunction function) {
  EscapeFunction before = escapeFunction;
  escapeFunction = function;
  return before;
}

}  // namespace ostvt::platform
