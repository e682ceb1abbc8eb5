#include "fonts/BarCodeFont.h"

#include <algorithm>

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

constexpr int32_t kMilsPerInch = 1000;
constexpr int32_t kDefaultHeightMils = 65;
constexpr int32_t kDefaultBarMils = 15;
constexpr int32_t kLargestHeight = 9999;

// A resolution from outside may be any number; one that isn't a resolution gives 0.
int32_t ResolutionOf(const DataFontHeader& header) {
  return header.Resolution > INT32_MAX ? 0 : static_cast<int32_t>(header.Resolution);
}

int32_t ToMils(uint32_t dots, const DataFontHeader& header) {
  const auto limited = static_cast<int32_t>(std::min<uint32_t>(dots, INT32_MAX));
  return MulDivRound(limited, kMilsPerInch, ResolutionOf(header));
}

int32_t ToDots(int32_t mils, const DataFontHeader& header) {
  return std::max(MulDivRound(mils, ResolutionOf(header), kMilsPerInch), 0);
}

}  // namespace

BarCodeFont::BarCodeFont() : DataFont(&Linear, sizeof(Linear)), Linear{} {
  Header.Kind = kDataFontLinear;
  Linear.Size = kLinearBodySize;
  Linear.CheckDigitShown = 1;
  Linear.HumanReadable = 1;
  Linear.Reserved5 = 1;
  Linear.Reserved6 = 1;
  SetHeightMils(kDefaultHeightMils);
  SetNarrowBarMils(kDefaultBarMils);
}

std::unique_ptr<DataFont> BarCodeFont::Clone() const {
  auto copy = std::make_unique<BarCodeFont>();
  copy->CopyFrom(*this);
  return copy;
}

int32_t BarCodeFont::GetHeightMils() const {
  return IsMatrix() ? 0 : ToMils(Linear.Height, Header);
}

void BarCodeFont::SetHeightMils(int32_t mils) {
  if (IsMatrix()) return;
  Linear.Height = static_cast<uint32_t>(std::min(ToDots(mils, Header), kLargestHeight));
}

int32_t BarCodeFont::GetNarrowBarMils() const {
  return ToMils(IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar, Header);
}

void BarCodeFont::SetNarrowBarMils(int32_t mils) {
  const auto dots = static_cast<uint16_t>(std::min(ToDots(mils, Header), UINT16_MAX));
  (IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar) = dots;
}

void BarCodeFont::Rescale(uint32_t resolution) {
  if (Header.Resolution == resolution) return;
  const int32_t height = GetHeightMils();
  const int32_t narrowBar = GetNarrowBarMils();
  const bool hadBar =
      (IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar) > 0 && ResolutionOf(Header) > 0;
  Header.Resolution = resolution;
  SetHeightMils(height);
  SetNarrowBarMils(narrowBar);
  const uint16_t dots = IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar;
  // A bar too fine for the resolution is still a bar.
  if (dots > 0 || !hadBar || ResolutionOf(Header) == 0) return;
  (IsMatrix() ? Matrix.NarrowBar : Linear.NarrowBar) = 1;
}

}  // namespace ostvt
