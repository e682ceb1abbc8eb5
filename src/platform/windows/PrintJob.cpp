#include "platform/PrintJob.h"

#include "platform/PrintContext.h"
#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

HDC ContextOf(PrintJobHandle job) { return static_cast<HDC>(job); }

PrintJobHandle Create(const char16_t* printer, const void* devMode) {
  return CreateDCW(L"WINSPOOL", AsWide(printer), nullptr, static_cast<const DEVMODEW*>(devMode));
}

void Delete(PrintJobHandle job) { DeleteDC(ContextOf(job)); }

int32_t Start(PrintJobHandle job, const char16_t* name) {
  DOCINFOW info = {};
  static_assert(sizeof info == 40);
  info.cbSize = sizeof info;
  info.lpszDocName = AsWide(name);
  const int id = StartDocW(ContextOf(job), &info);
  return id > 0 ? id : 0;
}

bool BeginPage(PrintJobHandle job) { return StartPage(ContextOf(job)) > 0; }

bool FinishPage(PrintJobHandle job) { return EndPage(ContextOf(job)) > 0; }

bool End(PrintJobHandle job) { return EndDoc(ContextOf(job)) > 0; }

}  // namespace

const PrintJobFunctions kSystemPrintJobs = {Create,     Delete, Start,     BeginPage,
                                            FinishPage, End,    SendEscape};

}  // namespace ostvt::platform
