// The picture of a label on the Page Setup page: where its parts lie, in pixels of the control.
#pragma once

#include <cstdint>

namespace ostvt {

struct PreviewPoint {
  int32_t X;
  int32_t Y;
};

// Right and Bottom lie outside.
struct PreviewRect {
  int32_t Left;
  int32_t Top;
  int32_t Right;
  int32_t Bottom;

  int32_t Width() const { return Right - Left; }
  int32_t Height() const { return Bottom - Top; }
};

// The smallest label that is drawn, in both directions, even where the control has no room for it.
inline constexpr int32_t kPreviewMinimum = 22;
inline constexpr int32_t kFeedArrowPoints = 7;

// What the preview shows. Orientations as in DevMode::GetOrientation; a stock's size is in any unit
// and may be anything.
struct PreviewSettings {
  int32_t ClientWidth;
  int32_t ClientHeight;
  int32_t StockWidth;
  int32_t StockHeight;
  int32_t Orientation;
  bool Mirror;
  bool Negative;
};

// The sample picture in the label's middle.
struct SamplePlacement {
  int32_t Left;
  int32_t Top;
  bool FlipHorizontal;  // left to right
  bool FlipVertical;    // top to bottom
  bool Invert;
};

struct LabelPreview {
  PreviewRect Label;
  // Black; together the label without its four corner pixels.
  PreviewRect Wide;
  PreviewRect Tall;
  PreviewRect Inside;
  bool FillInside;  // with white
  SamplePlacement Sample;
  PreviewPoint FeedArrow[kFeedArrowPoints];  // a closed polygon; the first point is the tip
};

LabelPreview LayOutPreview(const PreviewSettings& settings, int32_t sampleWidth,
                           int32_t sampleHeight);

}  // namespace ostvt
