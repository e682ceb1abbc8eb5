#include "ui/TextMacros.h"

#include <string_view>

namespace ostvt {
namespace {

using Text = std::u16string_view;

constexpr size_t kYearDigits = 4;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

int32_t ParseYear(Text text) {
  int32_t year = 0;
  for (size_t i = 0; i < text.size() && i < kYearDigits && IsDigit(text[i]); ++i)
    year = year * 10 + (text[i] - u'0');
  return year;
}

bool BeginsYear(Text text) { return !text.empty() && (text[0] == u'1' || text[0] == u'2'); }

// `years`: what stands behind "=", up to the closing brace.
void ReadYears(Text years, int32_t* first, int32_t* last) {
  if (!BeginsYear(years)) return;
  *first = ParseYear(years);
  *last = *first;
  years.remove_prefix(years.size() < kYearDigits ? years.size() : kYearDigits);
  if (years.empty()) return;
  years.remove_prefix(1);  // what stands between the two
  *last = ParseYear(years);
}

void AppendCopyright(const MacroTexts& texts, int32_t first, int32_t last, OString* result) {
  *result += texts.Copyright;
  *result += ' ';
  result->AppendInt(first);
  if (last == first) return;
  *result += '-';
  result->AppendInt(last);
}

void AppendMacro(const MacroTexts& texts, Text macro, OString* result) {
  if (macro.empty()) return;
  const char16_t letter = static_cast<char16_t>(macro[0] & ~0x20);
  if (macro.size() == 1 && letter == u'R') *result += texts.Registered;
  if (macro.size() == 1 && letter == u'T') *result += texts.Trademark;
  if (letter != u'C') return;
  int32_t first = texts.FirstYear, last = texts.LastYear;
  if (macro.size() > 1) {
    if (macro[1] != u'=') return;
    ReadYears(macro.substr(2), &first, &last);
  }
  AppendCopyright(texts, first, last, result);
}

}  // namespace

bool ExpandTextMacros(const MacroTexts& texts, OString* text) {
  const Text source = text->GetWide();
  OString result;
  bool found = false;
  size_t at = 0;
  while (at < source.size()) {
    const size_t open = source.find(u'{', at);
    const size_t close = open == Text::npos ? open : source.find(u'}', open);
    const size_t plain = close == Text::npos ? source.size() : open;
    OString piece;
    piece.AssignCount(source.data() + at, static_cast<int>(plain - at));
    result += piece;
    if (close == Text::npos) break;
    AppendMacro(texts, source.substr(open + 1, close - open - 1), &result);
    found = true;
    at = close + 1;
  }
  if (found) *text = result;
  return found;
}

void FindCopyrightYears(const OString& notice, int32_t* first, int32_t* last) {
  *first = *last = 0;
  const Text text = notice.GetWide();
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    const Text digits = text.substr(at, end - at);
    if (digits.size() == kYearDigits && BeginsYear(digits)) {
      *last = ParseYear(digits);
      if (*first == 0) *first = *last;
    }
    at = end == at ? at + 1 : end;
  }
}

}  // namespace ostvt
