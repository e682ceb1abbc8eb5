#include "platform/PrintContext.h"

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
  return SendSystemEscape(context, escape, input, inputSize, output, outputSize);
}

EscapeFunction SetEscapeFunction(EscapeFunction function) {
  EscapeFunction before = escapeFunction;
  escapeFunction = function;
  return before;
}

}  // namespace ostvt::platform
