#include "model/Measure.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/MulDivRound.h"
#include "core/OStringArray.h"
#include "core/WhiteSpace.h"

namespace ostvt {
namespace {

constexpr int32_t kUnitsPerInch = 254000;
constexpr int32_t kPointsPerInch = 72;
constexpr int32_t kMaximumDecimals = 6;

struct Unit {
  int32_t PerWhole;     // lengths in 0.1 micrometre; for points that of an inch
  int32_t Decimals;     // kept of a number with a "."
  int32_t PerFraction;  // the same length of one such decimal place
  bool IsPoint;
};

constexpr Unit kInch = {kUnitsPerInch, 3, 254, false};
constexpr Unit kMillimetre = {10000, 3, 10, false};
constexpr Unit kCentimetre = {100000, 4, 10, false};
constexpr Unit kMil = {254, 0, 254, false};
constexpr Unit kPoint = {kUnitsPerInch, 3, 254, true};

const Unit* FindUnit(const OString& word) {
  if (word.StartsWithNoCase("in")) return &kInch;
  if (word.CompareNoCase("mm") == 0) return &kMillimetre;
  if (word.CompareNoCase("cm") == 0) return &kCentimetre;
  if (word.CompareNoCase("mils") == 0) return &kMil;
  for (const char* point : {"pt", "pts", "point", "points"}) {
    if (word.CompareNoCase(point) == 0) return &kPoint;
  }
  return nullptr;
}

int32_t Limited(int64_t value) {
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// MulDivRound, which keeps 32 bits of the quotient, and the quotient itself where it has more.
int64_t WideMulDivRound(int32_t a, int32_t b, int32_t d) {
  const int64_t product = static_cast<int64_t>(a) * b;
  const int64_t half = d / 2;
  const int64_t quotient = (product < 0 ? product - half : product + half) / d;
  return Limited(quotient) == quotient ? MulDivRound(a, b, d) : quotient;
}

int64_t PowerOfTen(int32_t exponent) {
  int64_t power = 1;
  while (exponent-- > 0) power *= 10;
  return power;
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// `number` counted in its last decimal place; what stands behind that place is cut off.
int64_t ReadFixedPoint(const OString& number, int32_t decimals) {
  const int point = number.Find('.');
  int64_t value = std::abs(static_cast<int64_t>(number.Left(point).ToInt()));
  value *= PowerOfTen(decimals);
  const char* digit = number.GetNarrow() + point + 1;
  for (int64_t place = PowerOfTen(decimals) / 10; place > 0 && IsDigit(*digit); place /= 10) {
    value += (*digit++ - '0') * place;
  }
  return number.GetNarrow()[0] == '-' ? -value : value;
}

}  // namespace

Measure Measure::FromMicrons(int32_t microns) {
  return Measure(Limited(static_cast<int64_t>(microns) * 10));
}

int32_t Measure::ToMicrons() const { return MulDivRound(Value, 1, 10); }

int32_t Measure::ToTenthsMm() const { return MulDivRound(Value, 1, 1000); }

Measure Measure::Parse(const OString& text) {
  OString number;
  number = text.GetNarrow();
  number.Trim(kWhiteSpace);
  const auto length = static_cast<int>(strspn(number.GetNarrow(), "+-.0123456789"));
  OString word = number.Mid(length);
  word.TrimLeft(kWhiteSpace);
  number.Truncate(length);
  const Unit* unit = FindUnit(word);
  if (number.IsEmpty() || !unit) return Measure();

  if (number.Find('.') < 0) {
    const int32_t value = number.ToInt();
    if (unit->IsPoint) {
      return Measure(Limited(WideMulDivRound(value, unit->PerWhole, kPointsPerInch)));
    }
    return Measure(Limited(static_cast<int64_t>(value) * unit->PerWhole));
  }
  const int64_t value = ReadFixedPoint(number, unit->Decimals);
  if (unit->IsPoint) {
    return Measure(Limited(WideMulDivRound(Limited(value), unit->PerFraction, kPointsPerInch)));
  }
  return Measure(Limited(value * unit->PerFraction));
}

OString Measure::Format(const OString& form) const {
  OStringArray parts;
  parts.SplitAny(form, ". ");
  if (parts.Count < 3) return OString();
  const Unit* unit = FindUnit(parts[2]);
  if (!unit) return OString();
  const int32_t decimals = std::clamp(parts[1].ToInt(), 0, kMaximumDecimals);

  // Common factors of 10 go first, so that the product stays in range.
  const int64_t one = PowerOfTen(decimals);
  int64_t times = unit->IsPoint ? one * kPointsPerInch : one;
  int64_t over = unit->PerWhole;
  while (times % 10 == 0 && over % 10 == 0) {
    times /= 10;
    over /= 10;
  }
  const int64_t scaled =
      WideMulDivRound(Value, static_cast<int32_t>(times), static_cast<int32_t>(over));

  const int64_t magnitude = std::abs(scaled);
  const auto whole = static_cast<int32_t>(magnitude / one);
  OString result;
  if (scaled < 0) result += '-';
  if (whole != 0 || !parts[0].IsEmpty()) result.AppendInt(whole);
  result += '.';
  if (decimals > 0) result += OString::FromInt(static_cast<int32_t>(magnitude % one), decimals);
  return result + " " + parts[2];
}

}  // namespace ostvt
