#include "platform/PrintDrawing.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

bool GetSize(PrintJobHandle job, int32_t* width, int32_t* height) {
  *width = GetDeviceCaps(static_cast<HDC>(job), HORZRES);
  *height = GetDeviceCaps(static_cast<HDC>(job), VERTRES);
  return true;
}

void Fill(PrintJobHandle job, int32_t left, int32_t top, int32_t right, int32_t bottom) {
  const RECT area = {left, top, right, bottom};
  FillRect(static_cast<HDC>(job), &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

}  // namespace

const PrintDrawingFunctions kSystemPrintDrawing = {GetSize, Fill};

}  // namespace ostvt::platform
