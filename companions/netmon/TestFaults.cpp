// The test build's misbehaviour. VTNETMON_FAULT holds one word (see kWords; "say:TEXT" and
// "query:NUMBER" carry their own value), and behind an "@" a text that the request or command must
// hold for it. It is looked at in each call.
#include <stdlib.h>

#include <chrono>
#include <thread>

#include "companions/netmon/Environment.h"
#include "companions/netmon/Faults.h"
#include "companions/netmon/Transfer.h"

namespace ostvt::netmon {
namespace {

constexpr size_t kHuge = 64 << 20;
constexpr size_t kGarbage = 4096;
constexpr std::chrono::milliseconds kDelay(1500);

// What an answer says whose size is told wrongly.
constexpr char kNegativeSize[] = "negative size";

constexpr std::string_view kSay = "say:";
constexpr std::string_view kQuery = "query:";

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
    {"slow", [](int32_t*, Answer**) { std::this_thread::sleep_for(kDelay); }},
};

}  // namespace

void AlterAnswer(const std::string& request, int32_t* result, Answer** answer) {
  const std::string fault = FaultFor(request);
  if (fault.compare(0, kSay.size(), kSay) == 0) {
    Say(result, answer, fault.substr(kSay.size()));
    return;
  }
  for (const Word& word : kWords) {
    if (fault == word.Name) word.Apply(result, answer);
  }
}

void AlterQueryResult(const std::string& command, int32_t* result) {
  const std::string fault = FaultFor(command);
  if (fault.compare(0, kQuery.size(), kQuery) == 0) {
    *result = atoi(fault.c_str() + kQuery.size());
  }
  if (fault == "zero") *result = 0;
  if (fault == "slow") std::this_thread::sleep_for(kDelay);
}

int32_t AlterSize(const Answer& answer, int32_t size) {
  return answer.Bytes == kNegativeSize ? -1 : size;
}

}  // namespace ostvt::netmon
