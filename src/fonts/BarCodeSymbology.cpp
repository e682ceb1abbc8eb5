// The settings that every bar code has, and what remains of a font when its symbology changes.
#include <algorithm>

#include "core/Memory.h"
#include "fonts/BarCodeFont.h"
#include "fonts/SymbologyRules.h"

namespace ostvt {
namespace {

constexpr int32_t kHundredths = 100;
constexpr uint16_t kLastRotation = 3;
constexpr int32_t kStartHeightMils = 65;
constexpr uint16_t kFirstStartStop = 'a';

// Codabar's character as it is kept; 0 for what is none.
uint16_t StartStopOf(uint16_t code) {
  if (code >= 'A' && code <= 'D') return static_cast<uint16_t>(code - 'A' + 'a');
  return code >= 'a' && code <= 'd' ? code : uint16_t{0};
}

}  // namespace

void BarCodeFont::SetRotation(uint16_t quarterTurns) {
  (IsMatrix() ? Matrix.Rotation : Linear.Rotation) = std::min(quarterTurns, kLastRotation);
}

int32_t BarCodeFont::GetRatio() const {
  return IsMatrix() ? 0 : Linear.RatioWhole * kHundredths + Linear.RatioHundredths;
}

void BarCodeFont::SetRatio(int32_t hundredths) {
  if (IsMatrix()) return;
  const int32_t ratio = std::clamp(hundredths, 0, UINT16_MAX * kHundredths);
  Linear.RatioWhole = static_cast<uint16_t>(ratio / kHundredths);
  Linear.RatioHundredths = static_cast<uint16_t>(ratio % kHundredths);
}

uint16_t BarCodeFont::GetHumanReadable() const {
  const uint16_t isOn = IsMatrix() ? Matrix.HumanReadable : Linear.HumanReadable;
  const uint16_t below = IsMatrix() ? Matrix.HumanReadableBelow : Linear.HumanReadableBelow;
  if (isOn == 0) return kNoHumanReadable;
  return below > 0 ? kHumanReadableBelow : kHumanReadableAbove;
}

// Text that is switched off keeps its place.
void BarCodeFont::SetHumanReadable(uint16_t choice) {
  const uint16_t isOn = choice == kNoHumanReadable ? 0 : 1;
  const uint16_t below = choice == kHumanReadableBelow ? 1 : 0;
  (IsMatrix() ? Matrix.HumanReadable : Linear.HumanReadable) = isOn;
  if (isOn != 0) (IsMatrix() ? Matrix.HumanReadableBelow : Linear.HumanReadableBelow) = below;
}

// Of the header's kind.
void BarCodeFont::ClearBody() {
  Linear = LinearBody{};
  if (IsMatrix()) {
    Matrix.Size = kMatrixBodySize;
    return;
  }
  Linear.Size = kLinearBodySize;
  Linear.CheckDigitShown = 1;
  Linear.Reserved5 = 1;
  Linear.Reserved6 = 1;
  SetHeightMils(kStartHeightMils);
}

bool BarCodeFont::SetStartStop(char start, char stop) {
  const uint16_t first = StartStopOf(static_cast<uint8_t>(start));
  const uint16_t last = StartStopOf(static_cast<uint8_t>(stop));
  if (GetSymbology() != kCodabar || IsMatrix() || first == 0 || last == 0) return false;
  Linear.Option1 = first;
  Linear.Option2 = last;
  return true;
}

void BarCodeFont::SettleStartStop() {
  if (GetSymbology() != kCodabar || IsMatrix()) return;
  const uint16_t first = StartStopOf(Linear.Option1);
  const uint16_t last = StartStopOf(Linear.Option2);
  Linear.Option1 = first != 0 ? first : kFirstStartStop;
  Linear.Option2 = last != 0 ? last : kFirstStartStop;
}

void BarCodeFont::SetSymbology(uint16_t number) {
  const SymbologyRule& rule = RuleOfSymbology(number);
  const uint16_t rotation = GetRotation();
  const uint16_t narrowBar = GetNarrowBar();
  const uint16_t humanReadable = GetHumanReadable();
  const bool isOtherKind = Header.Kind != rule.Kind;
  Header.Kind = rule.Kind;
  if (isOtherKind || IsMatrix()) ClearBody();
  (IsMatrix() ? Matrix.Symbology : Linear.Symbology) = number;
  SetRotation(rotation);
  SetNarrowBar(narrowBar);
  SetHumanReadable(humanReadable);
  if (IsMatrix()) {
    for (size_t i = 0; i < std::size(Matrix.Words); ++i) Matrix.Words[i] = rule.StartWords[i];
  } else if (rule.SetsOptions) {
    Linear.Option1 = rule.StartOptions;
    Linear.Option2 = rule.StartOptions;
  }
}

}  // namespace ostvt
