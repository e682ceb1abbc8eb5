// The exports by which the port monitor takes a job's bytes. There is no spooler here that would
// hand them to it, as there is on Windows. Its file lies beside the module; it is loaded from a
// job's start to its end.
#pragma once

#include <cstdint>

namespace ostvt::platform {

inline constexpr char16_t kJobMonitorFile[] = u"vtnetmon.d64";

inline constexpr char kPrintJobStart[] = "PrintJob_Start";
inline constexpr char kPrintJobWrite[] = "PrintJob_Write";
inline constexpr char kPrintJobEnd[] = "PrintJob_End";

extern "C" {
// The number of the job, above 0, with its handle in `job`; 0 when the printer can't be reached.
using PrintJobStartFunction = int32_t(const char16_t* printerName, const char16_t* documentName,
                                      void** job);
// Bytes exactly as they were written, XPML and all. Non-zero on success.
using PrintJobWriteFunction = int32_t(void* job, const void* bytes, uint32_t count);
// Takes the handle back. Non-zero when everything reached the printer. With `complete` 0 the job is
// given up.
using PrintJobEndFunction = int32_t(void* job, int32_t complete);
}

}  // namespace ostvt::platform
