#include "ui/LabelPreview.h"

#include <algorithm>
#include <utility>

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

constexpr int32_t kRoom = 6;      // that a label leaves of the control in both directions
constexpr int32_t kTallRoom = 8;  // that one leaves whose height decides

// Pointing up from the origin.
constexpr PreviewPoint kArrow[kFeedArrowPoints] = {{0, 0},   {6, 6},  {2, 6}, {2, 15},
                                                   {-2, 15}, {-2, 6}, {-6, 6}};

PreviewRect Inset(const PreviewRect& rect, int32_t x, int32_t y) {
  return {rect.Left + x, rect.Top + y, rect.Right - x, rect.Bottom - y};
}

PreviewRect FitLabel(const PreviewSettings& settings) {
  int32_t stockWidth = std::max(settings.StockWidth, 1);
  int32_t stockHeight = std::max(settings.StockHeight, 1);
  if (settings.Orientation & 1) std::swap(stockWidth, stockHeight);

  int32_t width = settings.ClientWidth - kRoom;
  int32_t height = MulDivRound(stockHeight, width, stockWidth);
  if (height > settings.ClientHeight - kRoom) {
    height = settings.ClientHeight - kTallRoom;
    width = MulDivRound(stockWidth, height, stockHeight);
  }
  width = std::max(width, kPreviewMinimum);
  height = std::max(height, kPreviewMinimum);
  const int32_t left = (settings.ClientWidth - width) / 2;
  const int32_t top = (settings.ClientHeight - height) / 2;
  return {left, top, left + width, top + height};
}

// The arrow's origin lies on the edge that leaves the printer first, and its tip points there.
void PlaceArrow(const PreviewRect& label, int32_t orientation,
                PreviewPoint (&points)[kFeedArrowPoints]) {
  const bool turned = (orientation & 1) != 0;
  const bool flipped = (orientation & 2) != 0;
  PreviewPoint origin = {label.Left + label.Width() / 2, label.Top + label.Height() / 2};
  if (turned) {
    origin.X = flipped ? label.Right - 1 : label.Left;
  } else {
    origin.Y = flipped ? label.Bottom - 1 : label.Top;
  }
  for (int i = 0; i < kFeedArrowPoints; ++i) {
    PreviewPoint point = kArrow[i];
    if (flipped) point.Y = -point.Y;
    if (turned) std::swap(point.X, point.Y);
    points[i] = {origin.X + point.X, origin.Y + point.Y};
  }
}

}  // namespace

LabelPreview LayOutPreview(const PreviewSettings& settings, int32_t sampleWidth,
                           int32_t sampleHeight) {
  LabelPreview preview;
  preview.Label = FitLabel(settings);
  preview.Wide = Inset(preview.Label, 0, 1);
  preview.Tall = Inset(preview.Label, 1, 0);
  preview.Inside = Inset(preview.Label, 1, 1);
  preview.FillInside = !settings.Negative;

  const bool turned = (settings.Orientation & 1) != 0;
  preview.Sample.Left = (settings.ClientWidth - sampleWidth) / 2;
  preview.Sample.Top = (settings.ClientHeight - sampleHeight) / 2;
  preview.Sample.FlipHorizontal = settings.Mirror && !turned;
  preview.Sample.FlipVertical = settings.Mirror && turned;
  preview.Sample.Invert = settings.Negative;

  PlaceArrow(preview.Label, settings.Orientation, preview.FeedArrow);
  return preview;
}

}  // namespace ostvt
