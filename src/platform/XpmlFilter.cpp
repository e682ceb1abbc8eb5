#include "platform/XpmlFilter.h"

#include <string_view>

namespace ostvt::platform {
namespace {

constexpr std::string_view kBegin = "<xpml>";
constexpr std::string_view kEnd = "</xpml>";
constexpr std::string_view kQuery = "<query ";
constexpr std::string_view kQueryEnd = "</query>";
constexpr std::string_view kQueriesEnd = "<end/>";

// A query element that is longer is none.
constexpr size_t kLongestElement = 512;
constexpr size_t kLongestName = 255;
constexpr uint32_t kLargestSize = 2000000000;

bool Begins(std::string_view text, std::string_view head) {
  return text.substr(0, head.size()) == head;
}

// The value of an attribute in single quotes; "" when the element has none.
std::string_view ValueOf(std::string_view element, std::string_view attribute) {
  for (size_t at = element.find(attribute); at != std::string_view::npos;
       at = element.find(attribute, at + 1)) {
    const std::string_view rest = element.substr(at + attribute.size());
    if (at == 0 || element[at - 1] != ' ' || !Begins(rest, "='")) continue;
    const size_t end = rest.find('\'', 2);
    return end == std::string_view::npos ? std::string_view() : rest.substr(2, end - 2);
  }
  return {};
}

// Where the element ends: at the first ">" that stands in no value. A value that nothing closes is
// none; until `isWhole` the closing quote may still come.
size_t EndOf(std::string_view element, bool isWhole) {
  constexpr std::string_view kValue = "='";
  size_t at = 0;
  for (;;) {
    const size_t end = element.find('>', at);
    const size_t value = element.find(kValue, at);
    if (end == std::string_view::npos || value > end) return end;
    at = element.find('\'', value + kValue.size());
    if (at == std::string_view::npos) return isWhole ? end : at;
    ++at;
  }
}

uint32_t NumberOf(std::string_view text) {
  uint32_t number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') break;
    const uint32_t value = static_cast<uint32_t>(digit - '0');
    if (number > (kLargestSize - value) / 10) return kLargestSize;
    number = number * 10 + value;
  }
  return number;
}

}  // namespace

void XpmlFilter::Write(const uint8_t* bytes, size_t count) {
  size_t plain = 0;  // where the bytes begin that haven't been passed on
  size_t at = 0;
  while (at < count) {
    if (Held.empty() && bytes[at] != '<') {
      ++at;
      continue;
    }
    if (Held.empty() && at > plain) Sink->OnBytes(bytes + plain, at - plain);
    Held += static_cast<char>(bytes[at++]);
    TakeElements(false);
    plain = at;
  }
  if (Held.empty() && at > plain) Sink->OnBytes(bytes + plain, at - plain);
}

void XpmlFilter::TakeElements(bool isWhole) {
  while (!Held.empty()) {
    const size_t taken = TakeElement(isWhole);
    if (taken == 0) break;
    Held.erase(0, taken);
    // What follows in it may begin like an element again; other bytes go with their like.
    const size_t next = Held.find('<');
    const size_t other = next == std::string::npos ? Held.size() : next;
    if (other == 0) continue;
    Sink->OnBytes(reinterpret_cast<const uint8_t*>(Held.data()), other);
    Held.erase(0, other);
  }
}

// How many bytes of what is held are settled; 0 while more must come.
size_t XpmlFilter::TakeElement(bool isWhole) {
  const std::string_view held = Held;
  const auto matches = [held](std::string_view element, bool* mayStill) {
    if (Begins(held, element)) return true;
    if (Begins(element, held)) *mayStill = true;
    return false;
  };
  bool mayStill = false;
  switch (At) {
    case Place::kOutside:
      if (matches(kBegin, &mayStill)) {
        At = Place::kDocument;
        return kBegin.size();
      }
      break;
    case Place::kQuery:
      if (matches(kQueryEnd, &mayStill)) {
        At = Place::kDocument;
        Sink->OnEndQuery();
        return kQueryEnd.size();
      }
      break;
    case Place::kDocument:
      if (matches(kEnd, &mayStill)) {
        At = Place::kOutside;
        return kEnd.size();
      }
      if (matches(kBegin, &mayStill)) return kBegin.size();
      if (matches(kQueryEnd, &mayStill)) return kQueryEnd.size();
      if (matches(kQueriesEnd, &mayStill)) {
        Sink->OnEndQueries();
        return kQueriesEnd.size();
      }
      if (matches(kQuery, &mayStill)) {
        const bool isLongest = held.size() >= kLongestElement;
        const size_t end = EndOf(held, isWhole || isLongest);
        if (end != std::string_view::npos) {
          At = Place::kQuery;
          OpenQuery(std::string(held.substr(0, end)));
          return end + 1;
        }
        mayStill = !isLongest;
      }
      break;
  }
  if (mayStill) return 0;
  // Only the "<" is settled: it is the printer's.
  const uint8_t byte = '<';
  Sink->OnBytes(&byte, 1);
  return 1;
}

void XpmlFilter::OpenQuery(const std::string& element) {
  const std::string_view exact = ValueOf(element, "response_length");
  const std::string_view estimate = ValueOf(element, "response_estimate");
  const bool isEstimate = exact.empty();
  const std::string name(ValueOf(element, "name").substr(0, kLongestName));
  Sink->OnBeginQuery(name, NumberOf(isEstimate ? estimate : exact), isEstimate);
}

void XpmlFilter::Finish() {
  TakeElements(true);
  std::string rest;
  rest.swap(Held);
  At = Place::kOutside;
  if (!rest.empty()) Sink->OnBytes(reinterpret_cast<const uint8_t*>(rest.data()), rest.size());
}

}  // namespace ostvt::platform
