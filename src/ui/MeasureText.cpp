#include "ui/MeasureText.h"

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

// A length in the user's system: the stored unit, and how many decimals are shown.
constexpr int32_t kPerHundredthInch = 254;
constexpr int32_t kPerTenthMillimetre = 100;
constexpr int32_t kPerHundredthCentimetre = 100;

// Dots per inch to what is shown as tenths of dots per millimetre: twice the true number, as these
// pages have always shown it.
constexpr int32_t kResolutionFactor = 100;
constexpr int32_t kResolutionDivisor = 127;

constexpr int32_t kThousand = 1000;

// The whole part that a text may have.
constexpr int32_t kLimitInches = 1000;
constexpr int32_t kLimitMillimetres = 25400;
constexpr int32_t kLimitCentimetres = 2540;

// Rounded to nearest, halves away from zero.
int64_t DivideRounded(int64_t value, int64_t divisor) {
  const int64_t half = divisor / 2;
  return (value < 0 ? value - half : value + half) / divisor;
}

// `units` counts the last of `decimals` places.
OString FormatDecimals(const MeasureStyle& style, bool negative, int64_t units, int decimals) {
  const uint64_t rest = static_cast<uint64_t>(units < 0 ? -units : units);
  uint64_t scale = 1;
  for (int i = 0; i < decimals; ++i) scale *= 10;
  OString text;
  if (negative) text += '-';
  if (rest >= scale || style.LeadingZero) text.AppendInt(static_cast<int32_t>(rest / scale));
  text += style.DecimalSeparator;
  text += OString::FromInt(static_cast<int32_t>(rest % scale), decimals);
  return text;
}

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

int32_t LimitOf(int32_t system) {
  if (system == kMeasureInches) return kLimitInches;
  return system == kMeasureCentimetres ? kLimitCentimetres : kLimitMillimetres;
}

// Past the separator that stands at `at`, the locale's or "."; null without one.
const char16_t* SkipSeparator(const MeasureStyle& style, const char16_t* at) {
  const char16_t* separator = style.DecimalSeparator.GetWide();
  size_t length = 0;
  while (separator[length] && at[length] == separator[length]) ++length;
  if (length > 0 && !separator[length]) return at + length;
  return *at == u'.' ? at + 1 : nullptr;
}

}  // namespace

int32_t UnitTextOf(int32_t system) {
  if (system == kMeasureInches) return kTextInches;
  return system == kMeasureCentimetres ? kTextCentimetres : kTextMillimetres;
}

OString FormatMeasure(const MeasureStyle& style, int32_t value) {
  int64_t unit = kPerTenthMillimetre;
  int decimals = 1;
  if (style.System == kMeasureInches) {
    unit = kPerHundredthInch;
    decimals = 2;
  } else if (style.System == kMeasureCentimetres) {
    unit = kPerHundredthCentimetre;
    decimals = 2;
  }
  OString text = FormatDecimals(style, value < 0, DivideRounded(value, unit), decimals);
  text += ' ';
  text += style.UnitText;
  return text;
}

int32_t ParseMeasure(const MeasureStyle& style, const OString& text) {
  const char16_t* at = text.GetWide();
  bool negative = false;
  for (; IsBlank(*at) || *at == u'+' || *at == u'-'; ++at) {
    if (*at == u'-') negative = !negative;
  }

  // The limit is that of the system in force, since the unit comes last.
  const int32_t limit = LimitOf(style.System);
  int32_t whole = 0;
  for (; IsDigit(*at); ++at) {
    if (whole < limit) whole = whole * 10 + (*at - u'0');
  }
  const bool limited = whole >= limit;
  if (limited) whole = limit;
  int32_t thousandths = whole * kThousand;
  if (const char16_t* fraction = SkipSeparator(style, at)) {
    at = fraction;
    for (int32_t weight = kThousand / 10; IsDigit(*at); ++at, weight /= 10) {
      if (!limited) thousandths += (*at - u'0') * weight;
    }
  }
  while (IsBlank(*at)) ++at;

  int32_t system = style.System;
  if (*at == u'c' || *at == u'C') system = kMeasureCentimetres;
  if (*at == u'i' || *at == u'I') system = kMeasureInches;
  if (*at == u'm' || *at == u'M') system = kMeasureMillimetres;
  int32_t value = thousandths;
  if (system == kMeasureInches) value = MulDivRound(thousandths, 254, 10);
  if (system == kMeasureCentimetres) value = thousandths * 10;
  return negative ? -value : value;
}

OString FormatDots(const MeasureStyle& style, int32_t dots, int32_t dpi, const OString& unit) {
  OString text;
  if (style.System == kMeasureInches) {
    text = FormatDecimals(style, dots < 0, MulDivRound(dots, 10000, dpi), 1);
  } else {
    text = FormatDecimals(style, dots < 0, MulDivRound(dots, 25400, dpi) / 10, 2);
  }
  text += ' ';
  text += unit;
  return text;
}

OString FormatResolution(const MeasureStyle& style, int32_t dpi, const OString& unit) {
  OString text;
  if (style.System == kMeasureInches) {
    text.AppendInt(dpi);
  } else {
    const int64_t tenths =
        (int64_t{dpi} * kResolutionFactor + kResolutionFactor / 2) / kResolutionDivisor;
    text = FormatDecimals(style, dpi < 0, tenths, 1);
  }
  text += unit;
  return text;
}

OString FormatResolutionPair(const MeasureStyle& style, int32_t x, int32_t y, const OString& unit) {
  return FormatResolution(style, x, unit) + " x " + FormatResolution(style, y, unit);
}

}  // namespace ostvt
