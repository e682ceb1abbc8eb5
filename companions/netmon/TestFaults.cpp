// The test build's misbehaviour. VTNETMON_FAULT holds one word (see kWords; "say:TEXT",
// "result:NUMBER", "query:NUMBER" and "slow:NUMBER" carry their own value), and behind an "@" a
// text that the request or command must hold for it. It is looked at in each call.
#include <stdlib.h>

#include <chrono>
#include <thread>

#include "companions/netmon/CallLog.h"
#include "companions/netmon/Environment.h"
#include "companions/netmon/Faults.h"
#include "companions/netmon/Transfer.h"

namespace ostvt::netmon {
namespace {

constexpr size_t kHuge = 64 << 20;
constexpr size_t kGarbage = 4096;
constexpr int kDelay = 1500;  // milliseconds

// What an answer says whose size is told wrongly.
constexpr char kNegativeSize[] = "negative size";

constexpr std::string_view kSay = "say:";
constexpr std::string_view kResult = "result:";
constexpr std::string_view kQuery = "query:";
constexpr std::string_view kSlow = "slow";

// The word that holds for `text`; "" for none.
std::string FaultFor(const std::string& text) {
  std::string word = EnvironmentValue("VTNETMON_FAULT");
  const size_t at = word.rfind('@');
  if (at == std::string::npos) return word;
  if (text.find(word.substr(at + 1)) == std::string::npos) return {};
  return word.substr(0, at);
}

// Bytes that repeat in no short time.
std::string Garbage() {
  std::string bytes;
  for (uint32_t state = 0x12345678; bytes.size() < kGarbage;) {
    state = state * 1664525 + 1013904223;
    bytes += static_cast<char>(state >> 24);
  }
  return bytes;
}

std::string Frame() {
  std::string bytes = Garbage();
  Encode("lz77", &bytes);
  return bytes;
}

std::string HalfFrame() {
  const std::string frame = Frame();
  return frame.substr(0, frame.size() / 2);
}

std::string LyingFrame() {
  std::string frame = Frame();
  frame.replace(4, 4, "\xFF\xFF\xFF\xFF");  // the plain size
  return frame;
}

void Replace(Answer** answer, const std::string& bytes) {
  if (!answer) return;
  delete *answer;
  *answer = new Answer{bytes};
}

void Remove(Answer** answer) {
  if (!answer) return;
  delete *answer;
  *answer = nullptr;
}

// "slow", or "slow:" and so many milliseconds.
void WaitIfSlow(const std::string& fault) {
  if (!fault.starts_with(kSlow)) return;
  const bool isTold = fault.size() > kSlow.size();
  const int delay = isTold ? atoi(fault.c_str() + kSlow.size() + 1) : kDelay;
  std::this_thread::sleep_for(std::chrono::milliseconds(delay));
  LogCall("waited", std::to_string(delay));
}

struct Word {
  const char* Name;
  void (*Apply)(int32_t* result, Answer** answer);
};

// Where a word makes up an answer, the request has succeeded.
void Say(int32_t* result, Answer** answer, const std::string& bytes) {
  *result = 1;
  Replace(answer, bytes);
}

constexpr Word kWords[] = {
    {"zero",
     [](int32_t* result, Answer** answer) {
       *result = 0;
       Remove(answer);
     }},
    {"zero-with-handle",
     [](int32_t* result, Answer** answer) {
       *result = 0;
       Replace(answer, "1;1;1;USB");
     }},
    {"null-handle",
     [](int32_t* result, Answer** answer) {
       *result = 1;
       Remove(answer);
     }},
    {"empty", [](int32_t* result, Answer** answer) { Say(result, answer, ""); }},
    {"short", [](int32_t* result, Answer** answer) { Say(result, answer, "1;"); }},
    {"negative-size", [](int32_t* result, Answer** answer) { Say(result, answer, kNegativeSize); }},
    {"huge",
     [](int32_t* result, Answer** answer) { Say(result, answer, std::string(kHuge, '1')); }},
    {"garbage", [](int32_t* result, Answer** answer) { Say(result, answer, Garbage()); }},
    {"half-frame", [](int32_t* result, Answer** answer) { Say(result, answer, HalfFrame()); }},
    {"lying-frame", [](int32_t* result, Answer** answer) { Say(result, answer, LyingFrame()); }},
};

}  // namespace

void AlterAnswer(const std::string& request, int32_t* result, Answer** answer) {
  const std::string fault = FaultFor(request);
  WaitIfSlow(fault);
  if (fault.starts_with(kSay)) {
    Say(result, answer, fault.substr(kSay.size()));
    return;
  }
  // The answer stays as it is.
  if (fault.starts_with(kResult)) *result = atoi(fault.c_str() + kResult.size());
  for (const Word& word : kWords) {
    if (fault == word.Name) word.Apply(result, answer);
  }
}

void AlterQueryResult(const std::string& command, int32_t* result) {
  const std::string fault = FaultFor(command);
  WaitIfSlow(fault);
  if (fault.starts_with(kQuery)) *result = atoi(fault.c_str() + kQuery.size());
  if (fault == "zero") *result = 0;
}

int32_t AlterSize(const Answer& answer, int32_t size) {
  return answer.Bytes == kNegativeSize ? -1 : size;
}

}  // namespace ostvt::netmon
