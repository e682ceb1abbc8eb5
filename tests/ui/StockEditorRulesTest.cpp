// The limits of the stock editor. Lengths in micrometres.
#include "ui/StockEditorRules.h"

#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

StockLimits Limits(MarginRule rule) {
  StockLimits limits;
  limits.MinimumWidth = 6350;
  limits.MinimumHeight = 5000;
  limits.MaximumWidth = 100000;
  limits.MaximumHeight = 500000;
  limits.Rule = rule;
  return limits;
}

StockData Stock(int32_t width, int32_t left, int32_t right) {
  return {width, 50000, left, right, 0, 0, kStockRemovable};
}

std::string Text(const StockData& stock) {
  return std::to_string(stock.LeftMargin) + "+" + std::to_string(stock.Width) + "+" +
         std::to_string(stock.RightMargin);
}

std::string TextOfHeight(const StockData& stock) {
  return std::to_string(stock.TopMargin) + "+" + std::to_string(stock.Height) + "+" +
         std::to_string(stock.BottomMargin);
}

std::string AfterWidth(MarginRule rule, int32_t left, int32_t right, int32_t width) {
  StockData stock = Stock(50000, left, right);
  ChangeStockWidth(Limits(rule), width, &stock);
  return Text(stock);
}

TEST(StockEditorRules, WidthStaysInsideTheLimits) {
  EXPECT_EQ("0+6350+0", AfterWidth(MarginRule::kLeft, 0, 0, 6349));
  EXPECT_EQ("0+6350+0", AfterWidth(MarginRule::kLeft, 0, 0, INT32_MIN));
  EXPECT_EQ("0+6350+0", AfterWidth(MarginRule::kLeft, 0, 0, 6350));
  EXPECT_EQ("0+100000+0", AfterWidth(MarginRule::kLeft, 0, 0, 100000));
  EXPECT_EQ("0+100000+0", AfterWidth(MarginRule::kLeft, 0, 0, INT32_MAX));
}

TEST(StockEditorRules, WidthThatFitsLeavesTheMargins) {
  EXPECT_EQ("2000+95000+3000", AfterWidth(MarginRule::kLeft, 2000, 3000, 95000));
  EXPECT_EQ("2000+95000+3000", AfterWidth(MarginRule::kRight, 2000, 3000, 95000));
  EXPECT_EQ("2000+95000+3000", AfterWidth(MarginRule::kBoth, 2000, 3000, 95000));
}

TEST(StockEditorRules, Rule0TakesTheExcessOffTheLeftMargin) {
  EXPECT_EQ("1000+96000+3000", AfterWidth(MarginRule::kLeft, 2000, 3000, 96000));
  EXPECT_EQ("0+97000+3000", AfterWidth(MarginRule::kLeft, 2000, 3000, 97000));
  EXPECT_EQ("0+98000+2000", AfterWidth(MarginRule::kLeft, 2000, 3000, 98000));
  EXPECT_EQ("0+100000+0", AfterWidth(MarginRule::kLeft, 2000, 3000, 100000));
}

TEST(StockEditorRules, Rule1TakesTheExcessOffTheRightMargin) {
  EXPECT_EQ("2000+96000+2000", AfterWidth(MarginRule::kRight, 2000, 3000, 96000));
  EXPECT_EQ("2000+98000+0", AfterWidth(MarginRule::kRight, 2000, 3000, 98000));
  EXPECT_EQ("1000+99000+0", AfterWidth(MarginRule::kRight, 2000, 3000, 99000));
}

TEST(StockEditorRules, Rule2HalvesWhatRemains) {
  EXPECT_EQ("2000+96000+2000", AfterWidth(MarginRule::kBoth, 2000, 3000, 96000));
  EXPECT_EQ("500+99000+500", AfterWidth(MarginRule::kBoth, 2000, 3000, 99000));
}

TEST(StockEditorRules, Rule2WithOneUnitLeftGivesMarginsOf0And0) {
  EXPECT_EQ("0+99999+0", AfterWidth(MarginRule::kBoth, 2000, 3000, 99999));
}

TEST(StockEditorRules, HugeMarginsDoNotOverflow) {
  EXPECT_EQ("0+50000+50000", AfterWidth(MarginRule::kLeft, 7, INT32_MAX, 50000));
  EXPECT_EQ("50000+50000+0", AfterWidth(MarginRule::kRight, INT32_MAX, 7, 50000));
  EXPECT_EQ("25000+50000+25000", AfterWidth(MarginRule::kBoth, INT32_MAX, INT32_MAX, 50000));
}

TEST(StockEditorRules, LeftMarginIsLimitedToWhatTheWidthLeavesThenTheRight) {
  for (const MarginRule rule : {MarginRule::kLeft, MarginRule::kRight}) {
    StockData stock = Stock(90000, 2000, 3000);
    ChangeLeftMargin(Limits(rule), 4000, &stock);
    EXPECT_EQ("4000+90000+3000", Text(stock));
    ChangeLeftMargin(Limits(rule), 9000, &stock);
    EXPECT_EQ("9000+90000+1000", Text(stock));
    ChangeLeftMargin(Limits(rule), 10001, &stock);
    EXPECT_EQ("10000+90000+0", Text(stock));
    ChangeRightMargin(Limits(rule), 5000, &stock);
    EXPECT_EQ("10000+90000+0", Text(stock));
    ChangeLeftMargin(Limits(rule), -1, &stock);
    EXPECT_EQ("0+90000+0", Text(stock));
    ChangeRightMargin(Limits(rule), 20000, &stock);
    EXPECT_EQ("0+90000+10000", Text(stock));
    ChangeRightMargin(Limits(rule), INT32_MIN, &stock);
    EXPECT_EQ("0+90000+0", Text(stock));
  }
}

TEST(StockEditorRules, Rule2GivesBothMarginsTheSameValue) {
  StockData stock = Stock(90000, 2000, 3000);
  ChangeLeftMargin(Limits(MarginRule::kBoth), 4000, &stock);
  EXPECT_EQ("4000+90000+4000", Text(stock));
  ChangeRightMargin(Limits(MarginRule::kBoth), 5001, &stock);
  EXPECT_EQ("5000+90000+5000", Text(stock));
  ChangeRightMargin(Limits(MarginRule::kBoth), -3, &stock);
  EXPECT_EQ("0+90000+0", Text(stock));
  stock.Width = 99999;
  ChangeLeftMargin(Limits(MarginRule::kBoth), 1, &stock);
  EXPECT_EQ("0+99999+0", Text(stock));
}

TEST(StockEditorRules, WidthBeyondTheMaximumLeavesNoMargin) {
  StockData stock = Stock(100001, 0, 0);
  ChangeLeftMargin(Limits(MarginRule::kLeft), 5, &stock);
  EXPECT_EQ("0+100001+0", Text(stock));
}

TEST(StockEditorRules, HeightStaysInsideMinimumAndWhatTheMarginsLeave) {
  StockData stock = Stock(50000, 0, 0);
  stock.TopMargin = 3000;
  stock.BottomMargin = 2000;
  ChangeStockHeight(Limits(MarginRule::kLeft), 600000, &stock);
  EXPECT_EQ("3000+495000+2000", TextOfHeight(stock));
  ChangeStockHeight(Limits(MarginRule::kLeft), 4999, &stock);
  EXPECT_EQ("3000+5000+2000", TextOfHeight(stock));
}

TEST(StockEditorRules, VerticalMarginsKeepThePageInsideTheMaximum) {
  StockData stock = Stock(50000, 0, 0);
  stock.Height = 490000;
  ChangeTopMargin(Limits(MarginRule::kLeft), -1, &stock);
  EXPECT_EQ("0+490000+0", TextOfHeight(stock));
  ChangeTopMargin(Limits(MarginRule::kLeft), 7000, &stock);
  ChangeBottomMargin(Limits(MarginRule::kLeft), 7000, &stock);
  EXPECT_EQ("7000+490000+3000", TextOfHeight(stock));
}

TEST(StockEditorRules, FittedWidthIsAtMostWhatTheMarginsLeave) {
  StockData stock = Stock(99000, 2000, 3000);
  FitStockWidth(Limits(MarginRule::kLeft), &stock);
  EXPECT_EQ("2000+95000+3000", Text(stock));
  stock.Width = 1;
  FitStockWidth(Limits(MarginRule::kLeft), &stock);
  EXPECT_EQ(1, stock.Width);
}

TEST(StockEditorRules, MarginsThatLeaveNothingGiveWay) {
  StockData stock = Stock(50000, 60000, 60000);
  FitStockWidth(Limits(MarginRule::kLeft), &stock);
  EXPECT_GE(stock.Width, Limits(MarginRule::kLeft).MinimumWidth);
  EXPECT_LE(stock.Width + stock.LeftMargin + stock.RightMargin,
            Limits(MarginRule::kLeft).MaximumWidth);
}

TEST(StockEditorRules, StockNamedUserInLowerCaseIsRefused) {
  EXPECT_EQ(StockNameFault::kReserved, CheckStockName("user"));
}

TEST(StockEditorRules, NamesOfTheUserFormAreRefusedInAnyCase) {
  for (const char* name : {"USER", "uSeR", "User Defined", "USER DEFINED", "user defined"})
    EXPECT_EQ(StockNameFault::kReserved, CheckStockName(name)) << name;
  for (const char* name : {"", " ", " \t "})
    EXPECT_EQ(StockNameFault::kEmpty, CheckStockName(name)) << name;
  for (const char* name : {"USERS", "User  Defined", "My USER", "%s%n"})
    EXPECT_EQ(StockNameFault::kNone, CheckStockName(name)) << name;
  // Only letters of the plain alphabet are folded.
  EXPECT_EQ(StockNameFault::kNone, CheckStockName(u"\uFF35\uFF33\uFF25\uFF32"));
}

std::string EditingText(int32_t flags, bool locked, bool forms) {
  StockItem stock;
  stock.Flags = flags;
  const StockEditing editing = GetStockEditing(stock, locked, forms);
  return std::string(editing.Name ? "N" : "-") + (editing.Size ? "S" : "-") +
         (editing.Margins ? "M" : "-");
}

TEST(StockEditorRules, WhatCanBeEditedFollowsTheKindOfStock) {
  EXPECT_EQ("NSM", EditingText(kStockRemovable, false, true));
  EXPECT_EQ("--M", EditingText(kStockRemovable, false, false));
  EXPECT_EQ("-SM", EditingText(kStockUserForm, false, true));
  EXPECT_EQ("-SM", EditingText(kStockUserForm | kStockRemovable, false, true));
  EXPECT_EQ("-SM", EditingText(kStockUserForm, false, false));
  EXPECT_EQ("--M", EditingText(0, false, true));
  EXPECT_EQ("---", EditingText(kStockRemovable, true, true));
  EXPECT_EQ("-S-", EditingText(kStockUserForm, true, true));
}

TEST(StockEditorRules, OnlyRemovableStocksThatAreNotTheUserFormAreDeletable) {
  const auto deletable = [](int32_t flags) {
    StockItem stock;
    stock.Flags = flags;
    return IsStockDeletable(stock);
  };
  EXPECT_TRUE(deletable(kStockRemovable));
  EXPECT_TRUE(deletable(kStockRemovable | kStockOfModel));
  EXPECT_FALSE(deletable(kStockUserForm | kStockRemovable));
  EXPECT_FALSE(deletable(kStockOfModel));
}

class StockLimitsOfModel : public SettingsTest {};

TEST_F(StockLimitsOfModel, MinimumIsTheModelsButAtMost6350) {
  ModelText text = WideModelText();  // at least 10 x 5 mm, at most 110 x 500 mm
  AddPrinter(text);
  const StockLimits limits = ReadStockLimits(*Model());
  EXPECT_EQ(6350, limits.MinimumWidth);
  EXPECT_EQ(5000, limits.MinimumHeight);
  EXPECT_EQ(110000, limits.MaximumWidth);
  EXPECT_EQ(500000, limits.MaximumHeight);
}

TEST_F(StockLimitsOfModel, RuleIsTheModelsTracking) {
  ModelText text = WideModelText();
  text.Model += "Stock.Tracking=Center\n";
  AddPrinter(text);
  const StockLimits limits = ReadStockLimits(*Model());
  EXPECT_EQ(MarginRule::kBoth, limits.Rule);
  EXPECT_TRUE(limits.LinkedMargins);
}

TEST_F(StockLimitsOfModel, OtherTrackingLeavesTheMarginsApart) {
  ModelText text = WideModelText();
  text.Model += "Stock.Tracking=Right\n";
  AddPrinter(text);
  const StockLimits limits = ReadStockLimits(*Model());
  EXPECT_EQ(MarginRule::kLeft, limits.Rule);
  EXPECT_FALSE(limits.LinkedMargins);
}

}  // namespace
}  // namespace ostvt::test
