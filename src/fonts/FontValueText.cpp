#include "fonts/FontValueText.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "core/HexDigit.h"
#include "model/RecordText.h"

namespace ostvt {
namespace {

constexpr double kWhole = 65536;
constexpr double kLeastRatio = 0.025;
constexpr double kLargestRatio = 40;
constexpr int kExponentLimit = 400;  // beyond any double

OString Stripped(OString text, const char* set) {
  text.Trim(set);
  return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

uint32_t ToUnsigned(double value) {
  const double rounded = value < 0 ? value - 0.5 : value + 0.5;
  // Also where there is no number.
  if (!(rounded >= 1)) return 0;
  return rounded >= UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(rounded);
}

// Reads what a number can begin with, as the runtime's atof does; but that asks the program's
// locale for the point.
class DecimalReader {
 public:
  explicit DecimalReader(const char* text) : At(text) {}

  double Read() {
    while (*At == ' ' || (*At >= '\t' && *At <= '\r')) ++At;
    const bool negative = *At == '-';
    if (*At == '-' || *At == '+') ++At;
    ReadDigits(0);
    if (*At == '.') {
      ++At;
      ReadDigits(-1);
    }
    if (!HasDigits) return 0;
    const double value = Scaled(Exponent + ReadExponent());
    return negative ? -value : value;
  }

 private:
  // `step` is what a digit that is kept adds to the exponent.
  void ReadDigits(int step) {
    constexpr uint64_t kFull = (UINT64_MAX - 9) / 10;
    for (; IsDigit(*At); ++At) {
      HasDigits = true;
      if (Digits <= kFull) {
        Digits = Digits * 10 + static_cast<uint64_t>(*At - '0');
        Exponent += step;
      } else {
        Exponent += step + 1;
      }
      Exponent = std::clamp(Exponent, -2 * kExponentLimit, 2 * kExponentLimit);
    }
  }

  int ReadExponent() {
    if (*At != 'e' && *At != 'E') return 0;
    ++At;
    const bool negative = *At == '-';
    if (*At == '-' || *At == '+') ++At;
    int exponent = 0;
    for (; IsDigit(*At); ++At) exponent = std::min(exponent * 10 + (*At - '0'), 4 * kExponentLimit);
    return negative ? -exponent : exponent;
  }

  // One operation on numbers that are exact, wherever the digits and the power are few.
  double Scaled(int exponent) const {
    const double digits = static_cast<double>(Digits);
    if (Digits == 0 || exponent == 0) return digits;
    double power = 1;
    for (int i = std::min(std::abs(exponent), kExponentLimit); i > 0; --i) power *= 10;
    return exponent < 0 ? digits / power : digits * power;
  }

  const char* At;
  uint64_t Digits = 0;
  int Exponent = 0;
  bool HasDigits = false;
};

double ParseDecimal(const OString& text) { return DecimalReader(text.GetNarrow()).Read(); }

double ParsePercentNumber(const OString& text) { return ParseDecimal(Stripped(text, " %")) / 100; }

// `tenths` with its last digit behind the point.
OString TenthsText(uint64_t tenths) {
  OString text;
  const uint64_t whole = tenths / 10;
  if (whole > 0) text = UnsignedText(static_cast<uint32_t>(std::min<uint64_t>(whole, UINT32_MAX)));
  if (const uint64_t decimal = tenths % 10; decimal > 0) {
    text += '.';
    text += static_cast<char>('0' + decimal);
  }
  return text;
}

OString PercentOfTenths(uint64_t tenths) { return TenthsText(tenths) + "%"; }

}  // namespace

uint32_t RatioFromFloat(float value) { return ToUnsigned(double{value} * kWhole); }

// A float holds the factor exactly.
float FloatFromRatio(uint32_t ratio) { return static_cast<float>(ratio) * 1.5258789e-5f; }

// The thousandths of the ratio, rounded in whole numbers.
OString PercentText(uint32_t ratio) {
  return PercentOfTenths((uint64_t{ratio} * 1000 + 0x8000) >> 16);
}

OString PercentText(float value) { return PercentOfTenths(ToUnsigned(double{value} * 1000)); }

uint32_t ParsePercent(const OString& text) {
  return ToUnsigned(std::clamp(ParsePercentNumber(text), kLeastRatio, kLargestRatio) * kWhole);
}

float ParsePercentAsFloat(const OString& text) {
  return static_cast<float>(std::clamp(ParsePercentNumber(text), kLeastRatio, kLargestRatio));
}

uint32_t ParseFreePercent(const OString& text) {
  return ToUnsigned(ParsePercentNumber(text) * kWhole);
}

OString PointText(uint32_t tenths) { return TenthsText(tenths); }

uint32_t ParsePoints(const OString& text) {
  return ToUnsigned(ParseDecimal(Stripped(text, " ")) * 10);
}

OString LocationText(uint32_t location) {
  // A blank would be lost at the end of its line.
  if (location > 32 && location <= 127) return OString(static_cast<char>(location));
  return OString::HexOf(location);
}

uint32_t ParseLocation(const OString& text) {
  const char16_t* wide = text.GetWide();
  const size_t length = std::char_traits<char16_t>::length(wide);
  if (length == 1) return wide[0];
  if (length != 8) return 0;
  uint32_t value = 0;
  for (; HexDigit(*wide) >= 0; ++wide) value = value << 4 | static_cast<uint32_t>(HexDigit(*wide));
  return value;
}

OString UnsignedText(uint32_t value) {
  OString text;
  text.Format(u"%u", value);
  return text;
}

uint16_t ParseWord(const OString& text) { return StoreWord(text.ToInt()); }

uint32_t ParseUnsigned(const OString& text) {
  const int32_t number = text.ToInt();
  if (number < kNumberLimit) return static_cast<uint32_t>(std::max(number, 0));
  uint64_t value = 0;
  const char16_t* at = text.GetWide();
  while (*at < u'0' || *at > u'9') ++at;
  for (; *at >= u'0' && *at <= u'9'; ++at) {
    value = std::min<uint64_t>(value * 10 + (*at - u'0'), UINT32_MAX);
  }
  return static_cast<uint32_t>(value);
}

OString BoolText(bool value) { return value ? "true" : "false"; }

bool IsTrue(const OString& text) { return text == "true"; }

}  // namespace ostvt
