// The driver's test page: black bars that form a double frame and the letters TEST, over the whole
// printable area.
#pragma once

namespace ostvt {

class PrinterJob;

// On the page that the job has started. False, with nothing drawn, where the job can't be drawn on.
bool DrawTestPattern(PrinterJob* job);

}  // namespace ostvt
