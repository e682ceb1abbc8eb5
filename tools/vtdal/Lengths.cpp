#include "tools/vtdal/Lengths.h"

#include "model/Measure.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::Measure;
using ostvt::OString;

// The store's and the driver's numbers hold more than two metres and less than two kilometres.
constexpr size_t kMostDigits = 7;

std::u16string_view Trimmed(std::u16string_view text) {
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  return text;
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// How many units of the text the number in front takes; 0 if there is none.
size_t NumberLength(std::u16string_view text) {
  size_t length = 0;
  while (length < text.size() && IsDigit(text[length])) length++;
  if (length == 0 || length > kMostDigits) return 0;
  if (length == text.size() || text[length] != u'.') return length;
  size_t start = ++length;
  while (length < text.size() && IsDigit(text[length])) length++;
  return length == start ? 0 : length;
}

}  // namespace

bool ParseLength(std::u16string_view text, int32_t* length) {
  text = Trimmed(text);
  size_t digits = NumberLength(text);
  if (digits == 0) return false;
  std::u16string_view unit = Trimmed(text.substr(digits));
  // Only a unit that is known makes a length of one.
  OString one(("1 " + ToUtf8(unit)).c_str());
  if (Measure::Parse(one).Units() == 0) return false;
  OString whole((ToUtf8(text.substr(0, digits)) + " " + ToUtf8(unit)).c_str());
  *length = Measure::Parse(whole).ToMicrons();
  return true;
}

bool ParseSize(std::u16string_view text, int32_t* width, int32_t* height) {
  size_t cross = text.find_first_of(u"xX");
  if (cross == std::u16string_view::npos) return false;
  std::u16string first(Trimmed(text.substr(0, cross)));
  std::u16string_view second = Trimmed(text.substr(cross + 1));
  if (NumberLength(first) == first.size()) first += second.substr(NumberLength(second));
  return ParseLength(first, width) && ParseLength(second, height);
}

std::string Millimetres(int64_t length) { return DecimalText(length, 3); }

std::string SizeText(int64_t width, int64_t height) {
  return Millimetres(width) + " x " + Millimetres(height) + " mm";
}

}  // namespace vtdal
