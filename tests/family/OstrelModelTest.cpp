#include "family/OstrelModel.h"

#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class OstrelModelTest : public SettingsTest {
 protected:
  // The factory's model is the family's.
  OstrelModel* Ostrel() { return static_cast<OstrelModel*>(Model()); }
  void AddWith(const std::string& features, const std::string& model = "") {
    ModelText text;
    text.Features = features;
    text.Model += model;
    AddPrinter(text);
  }
};

TEST_F(OstrelModelTest, PrinterWithoutADriverHasNoModel) {
  PrinterId id("No Such Printer");
  EXPECT_EQ(nullptr, CreatePrinterModel(id));
}

TEST_F(OstrelModelTest, DriverRecordWithoutADataFileHasNoModel) {
  TestPrinterOptions options;
  options.DataFile = u"";
  Printer = std::make_unique<TestPrinter>(options);
  // A spooler that takes no such driver leaves no printer: that has no model either.
  PrinterId id(Printer->Name());
  EXPECT_EQ(nullptr, CreatePrinterModel(id));
}

TEST_F(OstrelModelTest, MissingArchivesStillGiveAModel) {
  Printer = std::make_unique<TestPrinter>();
  ASSERT_TRUE(Printer->IsReady());
  ASSERT_NE(nullptr, Model());
  EXPECT_FALSE(Ostrel()->HasU1Commands());
  EXPECT_FALSE(Ostrel()->HasClock());
  EXPECT_EQ(Measure(0), Ostrel()->GetTopOfFormMaximum());
}

TEST_F(OstrelModelTest, U1CommandsAreAFeature) {
  AddWith("~Commands.U1=true\n");
  EXPECT_TRUE(Ostrel()->HasU1Commands());
}

TEST_F(OstrelModelTest, U1CommandsAreOffByDefault) {
  AddWith("");
  EXPECT_FALSE(Ostrel()->HasU1Commands());
}

TEST_F(OstrelModelTest, TopOfFormIsAMeasureOfTheModel) {
  AddWith("~TopOfForm.Maximum=99 mm\n", "~TopOfForm.Maximum=0.5 in\n");
  EXPECT_EQ(Measure(127000), Ostrel()->GetTopOfFormMaximum());
}

TEST_F(OstrelModelTest, TopOfFormBelowZeroIsNone) {
  AddWith("", "~TopOfForm.Maximum=-1 in\n");
  EXPECT_EQ(Measure(0), Ostrel()->GetTopOfFormMaximum());
}

TEST_F(OstrelModelTest, ClockGrowsTheRecordByItsFormats) {
  AddWith("~RTC=true\n");
  Buffer block;
  Ostrel()->GetClockInfo(&block);
  const uint8_t expected[28] = {28,  0,   1, 0, 8,   0,   18,  0,   '%', 'H', ':', '%', 'M', ':',
                                '%', 'S', 0, 0, '%', 'm', '-', '%', 'd', '-', '%', 'Y', 0,   0};
  ASSERT_EQ(28u, block.Size);
  EXPECT_EQ("", Difference(expected, block.Data, 28));
}

TEST_F(OstrelModelTest, RecordWithoutAClockIsItsHead) {
  AddWith("");
  Buffer block;
  Ostrel()->GetClockInfo(&block);
  const uint8_t expected[8] = {8};
  ASSERT_EQ(8u, block.Size);
  EXPECT_EQ("", Difference(expected, block.Data, 8));
}

}  // namespace
}  // namespace ostvt::test
