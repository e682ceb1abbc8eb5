// A job on its way to the printer: takes the XPML out, sends the rest, and reads what the printer
// answers to each query before anything else is sent.
//
// Waits as long as "NETWORK:Connection Timeout" says for a printer's answer to begin, and never
// without an end: a printer that answered none of the first queries isn't waited for again in this
// job. One thread.
#pragma once

#include <cstdint>
#include <string>

#include "companions/netmon/AnswerStore.h"
#include "companions/netmon/Socket.h"
#include "platform/XpmlFilter.h"

namespace ostvt::netmon {

// So much of an answer has come in so many milliseconds, and it is not to be waited for any longer.
// Without this a printer that sends a byte now and then would hold the job for hours; one behind a
// slow line may take as long as its answer needs.
bool IsAnswerTooSlow(uint32_t milliseconds, size_t bytes);

class PrintedJob : private platform::XpmlSink {
 public:
  PrintedJob(const OString& printerName, const OString& document);
  PrintedJob(const PrintedJob&) = delete;
  PrintedJob& operator=(const PrintedJob&) = delete;

  // The job's number, above 0; 0 when the printer has no "socket://" port or can't be reached.
  int32_t Start();
  // False once the printer has failed to take something.
  bool Write(const uint8_t* bytes, size_t count);
  bool End();
  void GiveUp();

 private:
  void OnBytes(const uint8_t* bytes, size_t count) override;
  void OnBeginQuery(const std::string& name, uint32_t size, bool isEstimate) override;
  void OnEndQuery() override;
  void SendWaiting();
  void KeepResult(bool isAnswered);
  std::string ReadAnswer();

  OString Printer;
  OString Document;
  AnswerStore Answers;
  platform::XpmlFilter Filter;
  Socket Connection;
  int32_t Job = 0;
  bool IsFailed = false;
  std::string Waiting;  // for the printer, until the packet's or the query's end
  int Timeout = 0;      // milliseconds

  // The query at hand.
  bool IsInQuery = false;
  std::string QueryName;
  uint32_t AnswerSize = 0;
  bool IsEstimate = false;

  bool HasQueries = false;
  int Silent = 0;  // queries without an answer, while there was none at all
  bool IsAnswered = false;
};

}  // namespace ostvt::netmon
