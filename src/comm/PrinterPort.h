// Bytes for the printer, gathered and sent in packets, and the queries that are put among them.
//
// Outside a job each packet becomes a small job of its own. What is still waiting at the end of
// this object is dropped. One thread: the session's.
#pragma once

#include <cstdint>

#include "comm/MonitorLink.h"
#include "core/Buffer.h"
#include "core/OString.h"
#include "platform/Spooler.h"

namespace ostvt {

class DriverSession;
class PrinterJob;

class PrinterPort {
 public:
  PrinterPort() = default;
  PrinterPort(const PrinterPort&) = delete;
  PrinterPort& operator=(const PrinterPort&) = delete;

  // The order is part of the interface.
  virtual ~PrinterPort();
  // One packet, past the buffer; false for none, and where it could not be passed on.
  virtual bool WriteRaw(const void* bytes, int32_t count);
  // From here on nothing is sent: bytes gather in Buffer. What was waiting goes out first; while
  // capturing already, it is what was captured, and stays.
  virtual void BeginCapture();
  // Drops what was gathered.
  virtual void EndCapture();
  virtual int32_t GetFill();
  virtual void WriteNewLine();  // CR LF

  // Gives the block of the owner's device mode as it stands now: it may be replaced between two
  // jobs.
  using DevModeFunction = const void* (*)(const DriverSession* owner);

  // Once, before anything else. `link` names the printer and how its monitor is reached; `devMode`
  // (may be null) is asked when a job of the 16-bit path begins. Owner and printer are borrowed,
  // for this object's life.
  void Bind(DriverSession* owner, platform::PrinterHandle printer, const MonitorLink& link,
            DevModeFunction devMode);

  // False for null, for a count below 1, and when a capture would pass 1 GiB.
  bool Write(const void* bytes, int32_t count);
  void WriteText(const char* text);  // without its terminator; null is no text
  void WriteInt(int32_t value);      // decimal
  void Flush();

  // The spooler's number of the job; 0 on failure. Bytes written before belong to it too.
  int32_t OpenJob(const OString& name);
  void CloseJob();

  // A job of queries: begin, then for each query BeginQuery and its commands by Write, then end.
  // The result as that of OpenJob.
  int32_t BeginQueryDocument(const OString& name);
  // `size` as in XpmlQuery. Ends the query before it.
  void BeginQuery(const OString& name, int32_t size);
  void EndQueryDocument();
  // Lets the monitor follow that job until the printer has answered; it shows its own window.
  // `parent` (null: the desktop) is a window. False without a monitor and without an answer.
  bool RunQuery(const OString& jobName, int32_t jobId, void* parent);
  // The answer to one query. False, with `buffer` empty, when there is none.
  bool GetQueryResponse(const OString& name, ostvt::Buffer* buffer);
  // The same with a zero byte behind it, which counts.
  bool GetQueryResponseText(const OString& name, ostvt::Buffer* buffer);

  // To the rendering half, in the open job or else in the context of the next; as PrinterJob's.
  int32_t Escape(int32_t code, int32_t inputSize, const void* input, int32_t outputSize,
                 void* output);
  // What the printer has sent back on its port. False, with `buffer` empty, when there is nothing.
  bool ReadPortData(ostvt::Buffer* buffer);

  uint8_t* Buffer = nullptr;  // owned, a counted block
  int32_t BufferAllocated = 0;
  int32_t Capacity = 8192;
  int32_t Fill = 0;  // bytes waiting
  bool Capturing = false;
  // As given to Bind, for a family's own port; this one doesn't use them.
  DriverSession* Owner = nullptr;
  platform::PrinterHandle OwnerPrinter = nullptr;
  bool InsideXpml = false;    // "<xpml>" stands, its end doesn't
  bool InsideQuery = false;   // a query element is open
  PrinterJob* Job = nullptr;  // owned; a job, or the context that an escape has made for the next
  bool SendFailed = false;    // since OpenJob, a packet could not be passed on

 private:
  const void* JobDevMode() const { return DevModeOf ? DevModeOf(Owner) : nullptr; }
  PrinterJob* NeedJob();
  int32_t StartJob(const OString& name);
  void EndJob();
  void SendInPieces(const uint8_t* bytes, int32_t count);

  MonitorLink Link;
  DevModeFunction DevModeOf = nullptr;
  bool IsJobStarted = false;
};

}  // namespace ostvt
