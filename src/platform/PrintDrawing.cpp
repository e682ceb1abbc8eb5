#include "platform/PrintDrawing.h"

namespace ostvt::platform {
namespace {

const PrintDrawingFunctions* drawing = &kSystemPrintDrawing;

}  // namespace

bool GetPrintableSize(PrintJobHandle job, int32_t* width, int32_t* height) {
  return job && drawing->GetSize(job, width, height) && *width > 0 && *height > 0;
}

void FillBlack(PrintJobHandle job, int32_t left, int32_t top, int32_t right, int32_t bottom) {
  if (job) drawing->Fill(job, left, top, right, bottom);
}

void SetPrintDrawingFunctions(const PrintDrawingFunctions* functions) {
  drawing = functions ? functions : &kSystemPrintDrawing;
}

}  // namespace ostvt::platform
