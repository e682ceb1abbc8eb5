// What a page of the driver's own is drawn with. Linux has no drawing contexts: there the size
// can't be had and nothing is drawn.
#pragma once

#include <cstdint>

#include "platform/PrintJob.h"

namespace ostvt::platform {

// The printable area of the job's pages, in dots. False when it can't be had.
bool GetPrintableSize(PrintJobHandle job, int32_t* width, int32_t* height);
// In dots of the printable area; right and bottom stand outside.
void FillBlack(PrintJobHandle job, int32_t left, int32_t top, int32_t right, int32_t bottom);

// For tests: takes the system's place until null is set; borrowed until then. Not to be called
// while others print.
struct PrintDrawingFunctions {
  bool (*GetSize)(PrintJobHandle job, int32_t* width, int32_t* height);
  void (*Fill)(PrintJobHandle job, int32_t left, int32_t top, int32_t right, int32_t bottom);
};
extern const PrintDrawingFunctions kSystemPrintDrawing;
void SetPrintDrawingFunctions(const PrintDrawingFunctions* functions);

}  // namespace ostvt::platform
