#include "platform/PrintJob.h"

namespace ostvt::platform {
namespace {
const PrintJobFunctions* functionsForTests = nullptr;

const PrintJobFunctions& Functions() {
  return functionsForTests ? *functionsForTests : kSystemPrintJobs;
}
}  // namespace

PrintJobHandle CreatePrintJob(const char16_t* printer, const void* devMode) {
  return printer && *printer ? Functions().Create(printer, devMode) : nullptr;
}

void DeletePrintJob(PrintJobHandle job) {
  if (job) Functions().Delete(job);
}

int32_t StartPrintJob(PrintJobHandle job, const char16_t* name) {
  return job && name ? Functions().Start(job, name) : 0;
}

bool StartPrintPage(PrintJobHandle job) { return job && Functions().StartPage(job); }

bool EndPrintPage(PrintJobHandle job) { return job && Functions().EndPage(job); }

bool EndPrintJob(PrintJobHandle job) { return job && Functions().End(job); }

int SendJobEscape(PrintJobHandle job, int escape, const void* input, int inputSize, void* output,
                  int outputSize) {
  if (!job) return 0;
  if (inputSize < 0) inputSize = 0;
  if (outputSize < 0) outputSize = 0;
  return Functions().Escape(job, escape, input, inputSize, output, outputSize);
}

const PrintJobFunctions* SetPrintJobFunctions(const PrintJobFunctions* functions) {
  const PrintJobFunctions* before = functionsForTests;
  functionsForTests = functions;
  return before;
}

}  // namespace ostvt::platform
