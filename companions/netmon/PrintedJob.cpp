#include "companions/netmon/PrintedJob.h"

#include <algorithm>

#include "companions/netmon/Text.h"
#include "platform/Clock.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt::netmon {
namespace {

// Milliseconds.
constexpr int kPause = 500;          // ends an answer whose size is an estimate
constexpr int kSendTimeout = 30000;  // a printer without paper takes nothing
constexpr uint32_t kAnswerTime = 30000;
constexpr uint32_t kTimePerByte = 10;  // behind that
constexpr int kShortestTimeout = 50;
constexpr int kLongestTimeout = 60000;

constexpr int kMostRetries = 10;
constexpr uint32_t kLargestAnswer = 16 << 20;
// So many queries in a row without a byte, and the printer is one that doesn't answer.
constexpr int kSilentQueries = 3;

}  // namespace

bool IsAnswerTooSlow(uint32_t milliseconds, size_t bytes) {
  return milliseconds >= kAnswerTime && (milliseconds - kAnswerTime) / kTimePerByte >= bytes;
}

PrintedJob::PrintedJob(const OString& printerName, const OString& document)
    : Printer(printerName), Document(document), Answers(printerName), Filter(this) {}

int32_t PrintedJob::Start() {
  PrinterId printer(Printer);
  PortAddress address;
  if (!ParsePortAddress(ToUtf8(printer.Printer().PortName), &address)) return 0;
  PrinterRegistry store(printer);
  store.SetShadowed(false);
  Timeout = std::clamp(store.ReadInt("NETWORK:Connection Timeout", 1000), kShortestTimeout,
                       kLongestTimeout);
  const int retries = std::clamp(store.ReadInt("NETWORK:Connection Retries", 2), 0, kMostRetries);
  if (!Connection.Connect(address, Timeout, retries + 1)) return 0;
  Job = Answers.NextJob();
  return Job;
}

bool PrintedJob::Write(const uint8_t* bytes, size_t count) {
  Filter.Write(bytes, count);
  SendWaiting();
  return !IsFailed;
}

bool PrintedJob::End() {
  Filter.Finish();
  if (IsInQuery) OnEndQuery();
  SendWaiting();
  KeepResult(IsAnswered);
  return Connection.Finish(kPause) && !IsFailed;
}

void PrintedJob::GiveUp() {
  KeepResult(false);
  Connection.Abandon();
}

// Of a job that nobody will ask about, nothing is kept: documents have any number of names.
void PrintedJob::KeepResult(bool isAnswered) {
  if (HasQueries) Answers.KeepJob(Document, Job, isAnswered);
}

void PrintedJob::OnBytes(const uint8_t* bytes, size_t count) {
  Waiting.append(reinterpret_cast<const char*>(bytes), count);
}

void PrintedJob::SendWaiting() {
  if (!IsFailed) {
    const auto* bytes = reinterpret_cast<const uint8_t*>(Waiting.data());
    // Nobody waits for what the printer says outside of queries.
    const auto incoming = IsInQuery ? Socket::Incoming::kKept : Socket::Incoming::kDiscarded;
    IsFailed = !Connection.Send(bytes, Waiting.size(), kSendTimeout, incoming);
  }
  Waiting.clear();
}

void PrintedJob::OnBeginQuery(const std::string& name, uint32_t size, bool isEstimate) {
  SendWaiting();
  QueryName = name;
  AnswerSize = std::min(size, kLargestAnswer);
  IsEstimate = isEstimate;
  IsInQuery = true;
  HasQueries = true;
  // What is given later on is this query's answer or none.
  Answers.Forget(name);
  // What the printer still said to the one before isn't it either.
  if (!IsFailed) Connection.Discard();
}

void PrintedJob::OnEndQuery() {
  SendWaiting();
  IsInQuery = false;
  if (IsFailed || AnswerSize == 0 || Silent >= kSilentQueries) return;
  const std::string answer = ReadAnswer();
  if (answer.empty()) {
    if (!IsAnswered) ++Silent;
    return;
  }
  IsAnswered = true;
  Silent = 0;
  Answers.Keep(QueryName, Job, answer);
}

// As many bytes as the query expects, or fewer: where they are an estimate, those before the
// printer's first pause.
std::string PrintedJob::ReadAnswer() {
  std::string answer;
  const uint32_t start = platform::TickCount();
  while (answer.size() < AnswerSize &&
         !IsAnswerTooSlow(platform::TickCount() - start, answer.size())) {
    const int wait = IsEstimate && !answer.empty() ? kPause : Timeout;
    uint8_t piece[4096];
    const int got =
        Connection.Receive(piece, std::min(sizeof piece, AnswerSize - answer.size()), wait);
    if (got <= 0) break;
    answer.append(reinterpret_cast<const char*>(piece), static_cast<size_t>(got));
  }
  return answer;
}

}  // namespace ostvt::netmon
