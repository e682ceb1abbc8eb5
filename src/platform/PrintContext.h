// Device contexts of a printer: the escapes to the rendering half.
#pragma once

namespace ostvt::platform {

// A drawing context that belongs to the caller; null is none.
using PrintContext = void*;

// Above 0 when the rendering half took it, 0 when it doesn't know the escape, below 0 on failure.
using EscapeFunction = int (*)(PrintContext context, int escape, const void* input, int inputSize,
                               void* output, int outputSize);

// By the function set last, else by the system. 0 for a null context, and where the system has no
// drawing contexts (Linux). A negative size counts as 0.
int SendEscape(PrintContext context, int escape, const void* input, int inputSize, void* output,
               int outputSize);

// The system's, for SendEscape alone: a context, and no negative sizes.
int SendSystemEscape(PrintContext context, int escape, const void* input, int inputSize,
                     void* output, int outputSize);

// For tests: takes the place of the system until null is set. Gives the one before, null for the
// system's. It is called with null contexts too. Not to be called while others send.
EscapeFunction SetEscapeFunction(EscapeFunction function);

}  // namespace ostvt::platform
