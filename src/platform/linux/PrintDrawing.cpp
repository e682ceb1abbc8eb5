#include "platform/PrintDrawing.h"

namespace ostvt::platform {
namespace {

bool GetSize(PrintJobHandle, int32_t*, int32_t*) { return false; }
void Fill(PrintJobHandle, int32_t, int32_t, int32_t, int32_t) {}

}  // namespace

const PrintDrawingFunctions kSystemPrintDrawing = {GetSize, Fill};

}  // namespace ostvt::platform
