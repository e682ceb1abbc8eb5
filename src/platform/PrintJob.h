// Jobs of the driver's own: on Windows a device context of the printer, on Linux its port.
//
// A Linux job goes where the printer's port says, from StartPrintJob on: "file:PATH" (appended),
// "socket://HOST:PORT", "cups:QUEUE". XPML brackets never get there: the jobs of a socket go
// through the port monitor beside the module where there is one (see linux/JobMonitor.h), which
// takes them out, else they are taken out here. A port that doesn't take bytes fails after some
// seconds.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// A job's context; null is none.
using PrintJobHandle = void*;

// The escape that takes the bytes of a job: 16-bit count, then so many bytes.
inline constexpr int kEscapeJobBytes = 15001;

// `devMode` (may be null) is a device mode as the system defines it. Null when there is no such
// printer. Delete with DeletePrintJob.
PrintJobHandle CreatePrintJob(const char16_t* printer, const void* devMode);
void DeletePrintJob(PrintJobHandle job);  // null is allowed; a job that hasn't ended is given up
// The number of the job, above 0; 0 on failure.
int32_t StartPrintJob(PrintJobHandle job, const char16_t* name);
bool StartPrintPage(PrintJobHandle job);
bool EndPrintPage(PrintJobHandle job);
bool EndPrintJob(PrintJobHandle job);
// As SendEscape of PrintContext.h. On Linux kEscapeJobBytes alone is known.
int SendJobEscape(PrintJobHandle job, int escape, const void* input, int inputSize, void* output,
                  int outputSize);

// Who does it: every function, called with a job and a name that are there.
struct PrintJobFunctions {
  PrintJobHandle (*Create)(const char16_t* printer, const void* devMode);
  void (*Delete)(PrintJobHandle job);
  int32_t (*Start)(PrintJobHandle job, const char16_t* name);
  bool (*StartPage)(PrintJobHandle job);
  bool (*EndPage)(PrintJobHandle job);
  bool (*End)(PrintJobHandle job);
  int (*Escape)(PrintJobHandle job, int escape, const void* input, int inputSize, void* output,
                int outputSize);
};
extern const PrintJobFunctions kSystemPrintJobs;

// For tests: takes the system's place until null is set. Gives the one before, null for the
// system's. Not to be called while others print.
const PrintJobFunctions* SetPrintJobFunctions(const PrintJobFunctions* functions);

}  // namespace ostvt::platform
