// What the editor of bar code fonts offers.
#include "fonts/BarCodeChoices.h"

#include <random>

#include "fonts/BarCodeRules.h"
#include "tests/fonts/DataFontBlobs.h"
#include "tests/fonts/EncodingTexts.h"

namespace ostvt::test {
namespace {

using Field = BarCodeField;

CapabilitiesData Model(uint32_t flags = 0, uint16_t symbology = 0) {
  CapabilitiesData record = {};
  for (SymbologyCapability& row : record.Rows) row.Present = 1;
  if (symbology < kSymbologyRows) record.Rows[symbology].Flags = flags;
  return record;
}

BarCodeFont* Made(std::unique_ptr<BarCodeFont>* font, uint16_t symbology) {
  *font = std::make_unique<BarCodeFont>();
  (*font)->SetSymbology(symbology);
  return font->get();
}

std::vector<uint16_t> Values(uint16_t symbology, Field field, uint32_t flags) {
  std::unique_ptr<BarCodeFont> font;
  std::vector<uint16_t> values = {1};
  ListFieldValues(*Made(&font, symbology), field, Model(flags, symbology), &values);
  return values;
}

std::vector<int32_t> Ratios(uint16_t symbology, uint16_t narrowBar, uint32_t flags) {
  std::unique_ptr<BarCodeFont> font;
  Made(&font, symbology)->Linear.NarrowBar = narrowBar;
  std::vector<RatioChoice> choices;
  ListRatios(*font, Model(flags, symbology), &choices);
  std::vector<int32_t> ratios;
  for (const RatioChoice& choice : choices) ratios.push_back(choice.Ratio);
  return ratios;
}

TEST(BarCodeChoices, SymbologiesOfTheModelWithoutTheSupplements) {
  std::vector<uint16_t> numbers = {99};
  ListSymbologies(Model(), &numbers);
  ASSERT_EQ(36u, numbers.size());
  EXPECT_EQ(10, numbers[10]);
  EXPECT_EQ(13, numbers[11]);
  EXPECT_EQ(37, numbers[35]);
  CapabilitiesData some = {};
  some.Rows[37].Present = some.Rows[12].Present = some.Rows[1].Present = 1;
  ListSymbologies(some, &numbers);
  EXPECT_EQ((std::vector<uint16_t>{1, 37}), numbers);
}

TEST(BarCodeChoices, DataMatrixThatFindsItsSizeIsNotListed) {
  std::vector<uint16_t> numbers;
  ListSymbologies(Model(0x100000, 16), &numbers);
  EXPECT_EQ(35u, numbers.size());
  EXPECT_EQ(0, std::count(numbers.begin(), numbers.end(), 16));
}

TEST(BarCodeChoices, RatiosThatWholeDotsMakeWellEnough) {
  // 10 dots make all of them; 1 dot makes 2 and 3 only, 3 dots nothing within a tenth but thirds.
  EXPECT_EQ((std::vector<int32_t>{0, 200, 210, 220, 230, 240, 250, 260, 270, 280, 290, 300}),
            Ratios(0, 10, 0));
  EXPECT_EQ((std::vector<int32_t>{0, 200, 300}), Ratios(0, 1, 0));
  EXPECT_EQ((std::vector<int32_t>{0, 200, 230, 240, 260, 270, 300}), Ratios(0, 3, 0));
  EXPECT_EQ((std::vector<int32_t>{0, 230, 240}), Ratios(5, 3, 0x10000));
  EXPECT_EQ((std::vector<int32_t>{0, 200, 300}), Ratios(6, 4, 0x802000));
}

TEST(BarCodeChoices, RatiosAreOfferedForFiveSymbologiesAndBarsOfSomeWidth) {
  for (uint16_t number = 0; number < 40; ++number) {
    if (BarCodeFont font; font.SetSymbology(number), font.IsMatrix()) continue;
    const bool has = number < 2 || (number >= 4 && number <= 6);
    EXPECT_EQ(has ? 12u : 0u, Ratios(number, 10, 0).size()) << number;
    EXPECT_TRUE(Ratios(number, 0, 0).empty());
  }
}

TEST(BarCodeChoices, ResolutionOf0OffersNoRatio) {
  BarCodeFont font;
  font.Header.Resolution = 0;
  std::vector<RatioChoice> choices = {{0, 1600}};
  ListRatios(font, Model(), &choices);
  EXPECT_TRUE(choices.empty());
}

TEST(BarCodeChoices, RatioMessagesAndSelection) {
  std::unique_ptr<BarCodeFont> font;
  Made(&font, 0)->Linear.NarrowBar = 3;
  std::vector<RatioChoice> choices;
  ListRatios(*font, Model(), &choices);
  EXPECT_EQ(1600, choices[0].Message);
  EXPECT_EQ(1601, choices[1].Message);
  EXPECT_EQ(1604, choices[2].Message);  // 230
  EXPECT_EQ(1611, choices.back().Message);
  EXPECT_EQ(0, FindRatio(choices, 0));
  EXPECT_EQ(0, FindRatio(choices, 199));
  EXPECT_EQ(1, FindRatio(choices, 229));
  EXPECT_EQ(2, FindRatio(choices, 230));
  EXPECT_EQ(6, FindRatio(choices, 999));
  EXPECT_EQ(-1, FindRatio({}, 250));
}

TEST(BarCodeChoices, FixedWidths) {
  const struct {
    uint16_t Symbology;
    uint16_t Dots;  // of 1000 an inch
  } fixed[] = {{13, 25}, {33, 25}, {17, 35}, {19, 20}, {20, 20}, {21, 20}, {22, 20}, {23, 20}};
  for (uint16_t number = 0; number < 38; ++number) {
    uint16_t expected = 0;
    for (const auto& each : fixed) {
      if (each.Symbology == number) expected = each.Dots;
    }
    EXPECT_EQ(expected == 0, HasBarChoice(number)) << number;
    BarCodeFont font;
    font.Header.Resolution = 1000;
    font.SetNarrowBarMils(12);
    ChooseSymbology(&font, number, Model());
    EXPECT_EQ(expected == 0 ? 12 : expected, font.GetNarrowBarMils()) << number;
  }
  EXPECT_EQ(12u, LargestNarrowBar(203));
  EXPECT_EQ(0u, LargestNarrowBar(15));
}

TEST(BarCodeChoices, Code128OptionsThatLeaveNoChoice) {
  BarCodeFont font;
  font.SetSymbology(3);
  font.Linear.Option1 = 5;
  font.Linear.Option2 = 1;
  ApplyFixedSettings(&font, Model());
  EXPECT_EQ(5, uint16_t{font.Linear.Option1});
  EXPECT_EQ(0, uint16_t{font.Linear.Option2});
  font.Linear.Option2 = 1;
  ApplyFixedSettings(&font, Model(0x2, 3));  // automatic only
  EXPECT_EQ(0, uint16_t{font.Linear.Option1});
  EXPECT_EQ(1, uint16_t{font.Linear.Option2});
}

TEST(BarCodeChoices, FieldsOfEachSymbology) {
  using List = std::vector<uint16_t>;
  EXPECT_EQ((List{0, 2, 3, 4, 5}), Values(3, Field::kOption1, 0));
  EXPECT_TRUE(Values(3, Field::kOption1, 0x2).empty());  // automatic only
  EXPECT_EQ((List{97, 98, 99, 100}), Values(4, Field::kOption2, 0));
  EXPECT_EQ((List{65535, 0, 1, 2, 3, 4, 5, 6, 7, 8}), Values(15, Field::kWord1, 0));
  EXPECT_EQ(31u, Values(15, Field::kWord3, 0).size());
  EXPECT_EQ(30u, Values(28, Field::kWord3, 0x1).size());
  EXPECT_EQ((List{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}), Values(28, Field::kWord5, 0));
  EXPECT_EQ((List{0, 50, 200}), Values(16, Field::kWord1, 0x2009));
  EXPECT_EQ((List{3, 6}), Values(17, Field::kWord1, 0x12));
  EXPECT_EQ((List{2}), Values(18, Field::kWord1, 0x2));
  EXPECT_EQ((List{9}), Values(18, Field::kWord2, 0x2));
  EXPECT_EQ((List{9, 0, 1, 2, 3, 4, 5, 6, 7}), Values(37, Field::kWord2, 0x10));
  EXPECT_EQ((List{76, 77, 81, 72}), Values(37, Field::kWord3, 0));
  EXPECT_EQ((List{0, 65, 75, 66, 77}), Values(18, Field::kWord4, 0x2));
  EXPECT_EQ(20u, Values(25, Field::kWord1, 0).size());
  EXPECT_EQ(20u, Values(26, Field::kWord1, 0).size());
  EXPECT_EQ(15u, Values(14, Field::kWord1, 0).size());
  EXPECT_TRUE(Values(29, Field::kWord1, 0).empty());
  EXPECT_TRUE(Values(15, Field::kWord0, 0).empty());
}

TEST(BarCodeChoices, SupplementsThatTheModelAttaches) {
  using List = std::vector<uint16_t>;
  std::unique_ptr<BarCodeFont> font;
  List values;
  for (uint16_t number = 0; number < 38; ++number) {
    CapabilitiesData record = Model();
    const bool has = number >= 7 && number <= 10;
    ListFieldValues(*Made(&font, number), Field::kSupplement, record, &values);
    EXPECT_EQ(has ? List{0} : List{}, values) << number;
    record.Rows[12].Flags = 0x1;
    ListFieldValues(*font, Field::kSupplement, record, &values);
    EXPECT_EQ(has ? (List{0, 5}) : List{}, values) << number;
    record.Rows[11].Flags = 0x10;
    ListFieldValues(*font, Field::kSupplement, record, &values);
    EXPECT_EQ(has ? (List{0, 2, 5, 65535}) : List{}, values) << number;
  }
}

TEST(BarCodeChoices, InvalidFieldLeavesTheListsOfOthers) {
  std::unique_ptr<BarCodeFont> font;
  Made(&font, 18)->Matrix.Words[2] = 3;  // a mask by hand; model 2
  std::vector<uint16_t> values;
  ListFieldValues(*font, Field::kWord1, Model(0x1, 18), &values);
  EXPECT_EQ((std::vector<uint16_t>{1}), values);
  ListFieldValues(*font, Field::kWord2, Model(0x1, 18), &values);
  EXPECT_EQ((std::vector<uint16_t>{9}), values);
}

TEST(BarCodeChoices, FontOfAnotherKindThanItsSymbologysIsOfferedNothing) {
  BarCodeFont font;
  font.Linear.Symbology = 18;
  std::vector<uint16_t> values = {1};
  ListFieldValues(font, Field::kWord1, Model(0x3, 18), &values);
  EXPECT_TRUE(values.empty());
  font.Linear.Symbology = 15;
  EXPECT_FALSE(HasFieldSwitch(font, Field::kWord2, Model()));
}

TEST(BarCodeChoices, TextsOfFieldValues) {
  const NumberTexts texts;
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 0, texts) == "#1600");
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 1, texts) == "1");
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 6, texts) == "6");
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 2, texts) == "#1662");
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 4, texts) == "#1664");
  EXPECT_TRUE(FieldValueText(3, Field::kOption1, 5, texts) == "#1992");
  EXPECT_TRUE(FieldValueText(4, Field::kOption1, 99, texts) == "c");
  EXPECT_TRUE(FieldValueText(15, Field::kWord1, 65535, texts) == "#1600");
  EXPECT_TRUE(FieldValueText(15, Field::kWord1, 0, texts) == "0");
  EXPECT_TRUE(FieldValueText(15, Field::kWord3, 0, texts) == "#1600");
  EXPECT_TRUE(FieldValueText(16, Field::kWord1, 0, texts) == "0");
  EXPECT_TRUE(FieldValueText(18, Field::kWord2, 9, texts) == "#1600");
  EXPECT_TRUE(FieldValueText(18, Field::kWord3, 81, texts) == "Q");
  EXPECT_TRUE(FieldValueText(14, Field::kWord1, 8, texts) == "H");
  EXPECT_TRUE(FieldValueText(14, Field::kWord1, 14, texts) == "T48");
  EXPECT_TRUE(FieldValueText(14, Field::kWord1, 15, texts) == "");
  EXPECT_TRUE(FieldValueText(25, Field::kWord1, 20, texts) == "20");
  for (const uint16_t number : {uint16_t{7}, uint16_t{8}, uint16_t{9}, uint16_t{10}}) {
    EXPECT_TRUE(FieldValueText(number, Field::kSupplement, 65535, texts) == "#1600") << number;
    EXPECT_TRUE(FieldValueText(number, Field::kSupplement, 5, texts) == "5") << number;
  }
}

TEST(BarCodeChoices, SwitchesThatTheModelHas) {
  const struct {
    uint16_t Symbology;
    Field Of;
    uint32_t Flag;
  } cases[] = {{16, Field::kWord4, 0x4000},
               {17, Field::kWord2, 0x20},
               {17, Field::kWord3, 0x40},
               {21, Field::kHighPriority, 0x1}};
  std::unique_ptr<BarCodeFont> font;
  for (const auto& each : cases) {
    Made(&font, each.Symbology);
    EXPECT_TRUE(HasFieldSwitch(*font, each.Of, Model(each.Flag, each.Symbology)));
    EXPECT_FALSE(HasFieldSwitch(*font, each.Of, Model(~each.Flag, each.Symbology)));
  }
  EXPECT_TRUE(HasFieldSwitch(*Made(&font, 3), Field::kOption2, Model()));
  font->Linear.Option1 = 5;
  EXPECT_FALSE(HasFieldSwitch(*font, Field::kOption2, Model()));
  EXPECT_TRUE(HasFieldSwitch(*Made(&font, 15), Field::kWord2, Model(~1u, 15)));
  EXPECT_FALSE(HasFieldSwitch(*font, Field::kWord2, Model(0x1, 15)));
  EXPECT_TRUE(HasFieldSwitch(*Made(&font, 28), Field::kWord2, Model(0x1, 28)));
  EXPECT_FALSE(HasFieldSwitch(*Made(&font, 0), Field::kOption2, Model()));
}

TEST(BarCodeChoices, HumanReadableOfASymbology) {
  CapabilitiesData record = Model();
  record.Rows[37].HumanReadable = 2;
  EXPECT_EQ(kHumanReadableChoice, HumanReadableOf(37, record));
  EXPECT_EQ(0, HumanReadableOf(38, record));
}

TEST(BarCodeChoices, CodabarKeepsItsStartAndStopOnlyAsLowerCase) {
  BarCodeFont font;
  EXPECT_FALSE(font.SetStartStop('A', 'B'));  // Code 39
  font.SetSymbology(4);
  EXPECT_TRUE(font.SetStartStop('B', 'd'));
  EXPECT_EQ(98, BlobOf(font)[128]);
  EXPECT_EQ(100, BlobOf(font)[130]);
  for (const char other : {'e', 'E', '@', '`', '1', '\0', '\xFF'}) {
    EXPECT_FALSE(font.SetStartStop('a', other));
    EXPECT_FALSE(font.SetStartStop(other, 'a'));
  }
  EXPECT_EQ(98, BlobOf(font)[128]);
}

CapabilitiesData AnyModel(std::mt19937* random) {
  CapabilitiesData record = Model();
  for (SymbologyCapability& row : record.Rows) row.Flags = static_cast<uint32_t>((*random)());
  record.Rows[16].Flags &= ~0x100000u;  // else it isn't listed
  return record;
}

TEST(BarCodeChoices, ChosenSymbologyIsPrintableOnAnyModelThatOffersAValue) {
  std::mt19937 random(7);
  std::vector<uint16_t> values;
  for (int i = 0; i < 4000; ++i) {
    CapabilitiesData record = AnyModel(&random);
    if (i % 2 == 0) record.Rows[11].Flags = record.Rows[12].Flags = 0;
    const auto number = static_cast<uint16_t>(random() % 38);
    BarCodeFont font;
    font.Linear.Option1 = 5;
    font.Linear.Supplement = 65535;
    ChooseSymbology(&font, number, record);
    if (number >= 16 && number <= 18) {
      ListFieldValues(font, Field::kWord1, record, &values);
      EXPECT_EQ(!values.empty(), IsPrintable(font, record)) << number;
    } else {
      EXPECT_TRUE(IsPrintable(font, record)) << number;
    }
  }
}

TEST(BarCodeChoices, StartValueThatIsNotOfferedBecomesTheFirstOffered) {
  BarCodeFont font;
  ChooseSymbology(&font, 16, Model(0x22, 16));
  EXPECT_EQ(10, uint16_t{font.Matrix.Words[1]});
  ChooseSymbology(&font, 16, Model(0x2022, 16));
  EXPECT_EQ(200, uint16_t{font.Matrix.Words[1]});
  ChooseSymbology(&font, 28, Model(0x1, 28));
  EXPECT_EQ(1, uint16_t{font.Matrix.Words[3]});
  EXPECT_EQ(65535, uint16_t{font.Matrix.Words[1]});
}

TEST(BarCodeChoices, EveryOfferedValueCanBePrintedWhateverTheModelHas) {
  std::mt19937 random(5);
  std::vector<uint16_t> values;
  for (int i = 0; i < 4000; ++i) {
    const CapabilitiesData record = AnyModel(&random);
    BarCodeFont font;
    ChooseSymbology(&font, static_cast<uint16_t>(random() % 38), record);
    if (!IsPrintable(font, record)) continue;
    const auto field = static_cast<Field>(random() % 12);
    ListFieldValues(font, field, record, &values);
    if (HasFieldSwitch(font, field, record)) values = {0, 1};
    for (const uint16_t value : values) {
      SetBarCodeField(&font, field, value);
      EXPECT_TRUE(IsPrintable(font, record)) << font.GetSymbology();
    }
  }
}

}  // namespace
}  // namespace ostvt::test
