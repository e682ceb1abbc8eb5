// Which driver options a model's page offers.
#include "ui/DriverOptionRows.h"

#include "model/ModelDataRecord.h"
#include "settings/DevMode.h"
#include "settings/DriverOptions.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class DriverOptionRows : public SettingsTest {
 protected:
  void Open(const ModelText& text) {
    AddPrinter(text);
    Options.Bind(Model());
  }
  // Null where it isn't offered.
  const OfferedOption* Find(DriverOption option) {
    Offered = GetOfferedOptions(Model(), Options, Document);
    for (const OfferedOption& each : Offered) {
      if (each.Source == OptionSource::kPrinter && each.Option == option) return &each;
    }
    return nullptr;
  }

  DriverOptions Options;
  DevMode Document;
  std::vector<OfferedOption> Offered;
};

TEST_F(DriverOptionRows, NoModelOffersNothing) {
  EXPECT_TRUE(GetOfferedOptions(nullptr, Options, Document).empty());
}

TEST_F(DriverOptionRows, PlainModelOffersNoBarCodesAndNoStatus) {
  Open(ModelText());
  EXPECT_EQ(nullptr, Find(DriverOption::kFunctionCharacter));
  EXPECT_EQ(nullptr, Find(DriverOption::kOfficeCompatibility));
  EXPECT_EQ(nullptr, Find(DriverOption::kMonitorStatus));
  EXPECT_EQ(nullptr, Find(DriverOption::kQueryInterval));
  EXPECT_NE(nullptr, Find(DriverOption::kDisableCopiesLimit));
  EXPECT_NE(nullptr, Find(DriverOption::kLogFile));
}

TEST_F(DriverOptionRows, StatusPortsOfferTheStatusOptions) {
  ModelText text;
  text.Features = "Status.Ports=USB\n";
  Open(text);
  ASSERT_NE(nullptr, Find(DriverOption::kWriteTimeout));
  EXPECT_EQ(OptionKind::kTime, Find(DriverOption::kWriteTimeout)->Kind);
  EXPECT_EQ(OptionKind::kFlag, Find(DriverOption::kSystemTrayIcon)->Kind);
}

TEST_F(DriverOptionRows, SpecificationsCanBeEditedOnlyWhileTheyAreInForce) {
  Open(ModelText());
  EXPECT_TRUE(Find(DriverOption::kOverride)->IsEnabled);
  for (auto option = DriverOption::kXResolution; option <= DriverOption::kMaximumPageLength;
       option = static_cast<DriverOption>(static_cast<int32_t>(option) + 1)) {
    Options.SetOverride(false);
    EXPECT_FALSE(Find(option)->IsEnabled);
    Options.SetOverride(true);
    EXPECT_TRUE(Find(option)->IsEnabled);
  }
  EXPECT_TRUE(Find(DriverOption::kLogging)->IsEnabled);
}

TEST_F(DriverOptionRows, CopiesLimitIsOfferedWhereTheModelHasOne) {
  ModelText text;
  text.Method = "Copies.Limit=32767\n";
  Open(text);
  EXPECT_EQ(nullptr, Find(DriverOption::kDisableCopiesLimit));
  // What is switched on can be switched off again.
  Options.SetDisableCopiesLimit(true);
  EXPECT_NE(nullptr, Find(DriverOption::kDisableCopiesLimit));
}

TEST_F(DriverOptionRows, EachHasItsKind) {
  EXPECT_EQ(OptionKind::kCharacter, GetOptionKind(DriverOption::kFunctionCharacter));
  EXPECT_EQ(OptionKind::kFlag, GetOptionKind(DriverOption::kOverride));
  EXPECT_EQ(OptionKind::kResolution, GetOptionKind(DriverOption::kXResolution));
  EXPECT_EQ(OptionKind::kResolution, GetOptionKind(DriverOption::kYResolution));
  EXPECT_EQ(OptionKind::kLength, GetOptionKind(DriverOption::kPrintableWidth));
  EXPECT_EQ(OptionKind::kTracking, GetOptionKind(DriverOption::kTracking));
  EXPECT_EQ(OptionKind::kLength, GetOptionKind(DriverOption::kMaximumPageLength));
  EXPECT_EQ(OptionKind::kText, GetOptionKind(DriverOption::kDirectory));
  EXPECT_EQ(OptionKind::kTime, GetOptionKind(DriverOption::kQueryInterval));
}

TEST_F(DriverOptionRows, ResolutionsAreTheModelsAndTheOneInForce) {
  Open(ModelText());  // 203, 300x150
  EXPECT_EQ((std::vector<int32_t>{0, 203, 300}), GetResolutionChoices(*Model(), true, 0));
  EXPECT_EQ((std::vector<int32_t>{0, 150, 203}), GetResolutionChoices(*Model(), false, 203));
  EXPECT_EQ((std::vector<int32_t>{0, 203, 300, 600}), GetResolutionChoices(*Model(), true, 600));
}

TEST_F(DriverOptionRows, DocumentsAdvancedLengthStandsBehindThePrintersOptions) {
  Open(ModelText());
  Document.Allocate();
  Document.SetDefaults(Model());
  Offered = GetOfferedOptions(Model(), Options, Document);
  const OfferedOption uses = Offered[Offered.size() - 2];
  EXPECT_EQ(OptionSource::kUsesAdvancedLength, uses.Source);
  EXPECT_EQ(0, GetOptionNumber(uses, Options, Document));
  EXPECT_FALSE(Offered.back().IsEnabled);
  SetOptionNumber(uses, 1, &Options, &Document);
  Offered = GetOfferedOptions(Model(), Options, Document);
  const OfferedOption length = Offered.back();
  EXPECT_EQ(OptionSource::kAdvancedLength, length.Source);
  EXPECT_TRUE(length.IsEnabled);
  EXPECT_EQ(6350, GetOptionNumber(length, Options, Document));
  SetOptionNumber(length, 12700, &Options, &Document);
  // Where the platform's records have them.
  EXPECT_EQ(0x10, Document.GetBlock()[384 + 1028]);
  int32_t stored = 0;
  memcpy(&stored, Document.GetBlock() + 384 + 1032, sizeof stored);
  EXPECT_EQ(12700, stored);
}

TEST_F(DriverOptionRows, NumbersStayInsideTheirBounds) {
  Open(ModelText());
  const OfferedOption length = *Find(DriverOption::kMinimumPageWidth);
  EXPECT_EQ(0, LimitOption(length, -5));
  EXPECT_EQ(1000, LimitOption(length, 1000));
  EXPECT_EQ(3276700, LimitOption(length, INT32_MAX));
  EXPECT_EQ(2, LimitOption(*Find(DriverOption::kTracking), 3));
}

}  // namespace
}  // namespace ostvt::test
