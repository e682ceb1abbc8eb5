// The preview's geometry, worked by hand.
#include "ui/LabelPreview.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt::test {
namespace {

std::string Text(const PreviewRect& rect) {
  return std::to_string(rect.Left) + "," + std::to_string(rect.Top) + " " +
         std::to_string(rect.Width()) + "x" + std::to_string(rect.Height());
}

std::string Arrow(const LabelPreview& preview) {
  std::string text;
  for (const PreviewPoint& point : preview.FeedArrow)
    text += "(" + std::to_string(point.X) + "," + std::to_string(point.Y) + ")";
  return text;
}

struct FitRow {
  const char* What;
  int32_t ClientWidth, ClientHeight, StockWidth, StockHeight, Orientation;
  const char* Label;
};

constexpr FitRow kFits[] = {
    // 100 wide leaves 94; 94 / 2 = 47 high.
    {"the width decides", 100, 80, 100000, 50000, 0, "3,16 94x47"},
    // 94 high is more than 74: 72 high, and 72 wide.
    {"the height decides, by 8", 100, 80, 50000, 50000, 0, "14,4 72x72"},
    // 94 x 74 / 94 is exactly 74, which is not more than 80 - 6.
    {"exactly the room of the test stays", 100, 80, 94000, 74000, 0, "3,3 94x74"},
    // 75 is more than 74: 72, and 94 * 72 / 75 = 90.24.
    {"one more falls by three", 100, 80, 94000, 75000, 0, "5,4 90x72"},
    {"landscape turns the stock", 100, 80, 50000, 100000, 1, "3,16 94x47"},
    {"rotated portrait doesn't", 100, 80, 100000, 50000, 2, "3,16 94x47"},
    {"rotated landscape does", 100, 80, 50000, 100000, 3, "3,16 94x47"},
    // 94 * 5 / 100 = 4.7, drawn as 22.
    {"a flat label is 22 high", 100, 80, 100000, 5000, 0, "3,29 94x22"},
    // 72 high, 3.6 wide.
    {"a narrow label is 22 wide", 100, 80, 5000, 100000, 0, "39,4 22x72"},
    // 94 * 1 / 3 = 31.33; 94 * 5 / 8 = 58.75.
    {"rounds down below a half", 100, 80, 300, 100, 0, "3,24 94x31"},
    {"rounds up above it", 100, 80, 800, 500, 0, "3,10 94x59"},
    {"no size counts as a square", 100, 80, 0, 0, 0, "14,4 72x72"},
    {"a negative size likewise", 100, 80, -5, -1000, 0, "14,4 72x72"},
};

TEST(LabelPreview, LabelFitsTheControl) {
  for (const FitRow& row : kFits) {
    const LabelPreview preview = LayOutPreview({row.ClientWidth, row.ClientHeight, row.StockWidth,
                                                row.StockHeight, row.Orientation, false, false},
                                               0, 0);
    EXPECT_EQ(row.Label, Text(preview.Label)) << row.What;
  }
}

TEST(LabelPreview, VerySmallClientAreaStillDrawsALabelOf22By22) {
  for (const int32_t client : {0, 1, 6, 10, 22, 27}) {
    const LabelPreview preview =
        LayOutPreview({client, client, 100000, 50000, 0, false, false}, 0, 0);
    EXPECT_EQ(22, preview.Label.Width()) << client;
    EXPECT_EQ(22, preview.Label.Height()) << client;
  }
  EXPECT_EQ("-6,-6 22x22", Text(LayOutPreview({10, 10, 1, 1, 0, false, false}, 0, 0).Label));
}

TEST(LabelPreview, TwoRectanglesCutTheCorners) {
  const LabelPreview preview = LayOutPreview({100, 80, 100000, 50000, 0, false, false}, 0, 0);
  EXPECT_EQ("3,17 94x45", Text(preview.Wide));
  EXPECT_EQ("4,16 92x47", Text(preview.Tall));
  EXPECT_EQ("4,17 92x45", Text(preview.Inside));
}

TEST(LabelPreview, NegativeLeavesTheInsideBlackAndInvertsTheSample) {
  const LabelPreview plain = LayOutPreview({100, 80, 100, 50, 0, false, false}, 64, 44);
  EXPECT_TRUE(plain.FillInside);
  EXPECT_FALSE(plain.Sample.Invert);
  const LabelPreview negative = LayOutPreview({100, 80, 100, 50, 0, false, true}, 64, 44);
  EXPECT_FALSE(negative.FillInside);
  EXPECT_TRUE(negative.Sample.Invert);
}

TEST(LabelPreview, SampleStandsInTheMiddle) {
  const LabelPreview preview = LayOutPreview({100, 80, 100, 50, 0, false, false}, 64, 44);
  EXPECT_EQ(18, preview.Sample.Left);
  EXPECT_EQ(18, preview.Sample.Top);
}

TEST(LabelPreview, MirrorTurnsTheSampleByOrientation) {
  for (int32_t orientation = 0; orientation < 4; ++orientation) {
    const SamplePlacement plain =
        LayOutPreview({100, 80, 100, 50, orientation, false, false}, 64, 44).Sample;
    EXPECT_FALSE(plain.FlipHorizontal || plain.FlipVertical) << orientation;
    const SamplePlacement mirrored =
        LayOutPreview({100, 80, 100, 50, orientation, true, false}, 64, 44).Sample;
    EXPECT_EQ(orientation % 2 == 0, mirrored.FlipHorizontal) << orientation;
    EXPECT_EQ(orientation % 2 == 1, mirrored.FlipVertical) << orientation;
  }
}

TEST(LabelPreview, FeedArrowPointsToTheEdgeThatComesFirst) {
  // The label is 3,16 94x47 in each: its middle is 50,39, its last column 96, its last row 62.
  const auto arrow = [](int32_t orientation) {
    const bool turned = orientation % 2 == 1;
    return Arrow(LayOutPreview(
        {100, 80, turned ? 50 : 100, turned ? 100 : 50, orientation, false, false}, 0, 0));
  };
  EXPECT_EQ("(50,16)(56,22)(52,22)(52,31)(48,31)(48,22)(44,22)", arrow(0));
  EXPECT_EQ("(3,39)(9,45)(9,41)(18,41)(18,37)(9,37)(9,33)", arrow(1));
  EXPECT_EQ("(50,62)(56,56)(52,56)(52,47)(48,47)(48,56)(44,56)", arrow(2));
  EXPECT_EQ("(96,39)(90,45)(90,41)(81,41)(81,37)(90,37)(90,33)", arrow(3));
}

}  // namespace
}  // namespace ostvt::test
