#include "platform/PrintContext.h"

namespace ostvt::platform {
namespace {
EscapeFunction escapeFunction = nullptr;
}  // namespace

int SendEscape(PrintContext context, int escape, const void* input, int inputSize, void* output,
               int outputSize) {
  if (!escapeFunction) return 0;
  return escapeFunction(context, escape, input, inputSize < 0 ? 0 : inputSize, output,
                        outputSize < 0 ? 0 : outputSize);
}

EscapeFunction SetEscapeFunction(EscapeFunction function) {
  EscapeFunction before = escapeFunction;
  escapeFunction = function;
  return before;
}

}  // namespace ostvt::platform
