// One job of the driver's own, from its device context on.
//
// While it lives, and until the session clears that, nothing is exchanged with the server for this
// printer: the events of the driver's own job must not start an exchange within a session. Every
// call does nothing where the system made no context. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "platform/PrintJob.h"

namespace ostvt {

class PrinterJob {
 public:
  // `devMode` is a whole device mode, used on the 16-bit path only; may be null.
  PrinterJob(const OString& printerName, const void* devMode);
  ~PrinterJob();
  PrinterJob(const PrinterJob&) = delete;
  PrinterJob& operator=(const PrinterJob&) = delete;

  // The spooler's number of the job; 0 on failure.
  int32_t Start(const OString& name);
  void StartPage();
  void EndPage();
  // False where what is left did not arrive, or whoever took the job refuses it.
  bool End();
  // The rendering half's answer: above 0 done, 0 unknown, below 0 failed. 0 without a context.
  int32_t Escape(int32_t code, int32_t inputSize, const void* input, int32_t outputSize,
                 void* output);
  // See platform/PrintDrawing.h.
  bool GetPrintableSize(int32_t* width, int32_t* height);
  void FillBlack(int32_t left, int32_t top, int32_t right, int32_t bottom);
  // One packet of 0 to 65535 bytes, exactly as they are. False where it could not be passed on.
  bool Write(const void* bytes, int32_t count);

 private:
  platform::PrintJobHandle Context;
};

}  // namespace ostvt
