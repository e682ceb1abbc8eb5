#include "fonts/BarCodeFont.h"

#include <algorithm>

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

constexpr int32_t kMilsPerInch = 1000;
constexpr int32_t kDefaultBarMils = 15;
constexpr int32_t kLargestHeight = 9999;

// A resolution from outside may be any number; one that isn't a resolution gives 0.
int32_t ResolutionOf(const DataFontHeader& header) {
  return header.Resolution > INT32_MAX ? 0 : static_cast<int32_t>(header.Resolution);
}

int32_t ToMils(uint32_t dots, const DataFontHeader& header) {
  // Beyond that the product would leave its bits, and a great length come back as none.
  const auto limited = static_cast<int32_t>(std::min<uint32_t>(dots, INT32_MAX / kMilsPerInch));
  return MulDivRound(limited, kMilsPerInch, ResolutionOf(header));
}

int32_t ToDots(int32_t mils, const DataFontHeader& header) {
  return std::max(MulDivRound(mils, ResolutionOf(header), kMilsPerInch), 0);
}

}  // namespace

BarCodeFont::BarCodeFont(uint32_t resolution) : DataFont(&Linear, sizeof(Linear)), Linear{} {
  Header.Kind = kDataFontLinear;
  Header.Resolution = resolution;
  ClearBody();
  SetHumanReadable(kHumanReadableAbove);
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

int32_t BarCodeFont::GetNarrowBarMils() const { return ToMils(GetNarrowBar(), Header); }

void BarCodeFont::SetNarrowBarMils(int32_t mils) {
  SetNarrowBar(static_cast<uint16_t>(std::min(ToDots(mils, Header), UINT16_MAX)));
}

void BarCodeFont::Rescale(uint32_t resolution) {
  if (Header.Resolution == resolution) {
    if (!IsMatrix()) Linear.Height = std::min<uint32_t>(Linear.Height, kLargestHeight);
    return;
  }
  const int32_t height = GetHeightMils();
  const int32_t narrowBar = GetNarrowBarMils();
  const bool hadBar = GetNarrowBar() > 0 && ResolutionOf(Header) > 0;
  Header.Resolution = resolution;
  SetHeightMils(height);
  SetNarrowBarMils(narrowBar);
  // A bar too fine for the resolution is still a bar.
  if (GetNarrowBar() == 0 && hadBar && ResolutionOf(Header) > 0) SetNarrowBar(1);
}

}  // namespace ostvt
