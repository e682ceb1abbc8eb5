// The rendering half's lists of tags and formats, and what the editor makes of them.
#include "fonts/RFIDChoices.h"

#include <random>

#include "fonts/RFIDFont.h"
#include "tests/fonts/DataFontBlobs.h"
#include "tests/fonts/EncodingTexts.h"
#include "tests/support/GuardedBlock.h"

namespace ostvt::test {
namespace {

void PutText(std::vector<uint8_t>* block, const std::string& text, bool terminated = true) {
  block->insert(block->end(), text.begin(), text.end());
  if (terminated) block->push_back(0);
}

// Two tags, "One" and "Two".
std::vector<uint8_t> TagBlock() {
  std::vector<uint8_t> block;
  PutNumber(&block, 8, 2, 2);
  PutNumber(&block, 12, 4, 8);
  PutNumber(&block, 16, 4, 28);
  PutNumber(&block, 20, 4, 0x20000);
  PutNumber(&block, 24, 4, 32);
  PutText(&block, "One");
  PutText(&block, "Two");
  return block;
}

// "96" with a default text and "64" without one.
std::vector<uint8_t> FormatBlock() {
  std::vector<uint8_t> block;
  PutNumber(&block, 8, 2, 2);
  PutNumber(&block, 12, 2, 257);
  PutNumber(&block, 14, 2, 36);
  PutNumber(&block, 16, 2, 39);
  PutNumber(&block, 24, 2, 320);
  PutNumber(&block, 26, 2, 43);
  PutNumber(&block, 35, 1, 0);
  PutText(&block, "96");
  PutText(&block, "8.8");
  PutText(&block, "64");
  return block;
}

std::string Show(const std::vector<RfidTagChoice>& tags) {
  std::string text;
  for (const RfidTagChoice& tag : tags) {
    text += std::to_string(tag.Bit) + "=" + tag.Name.GetNarrow() + ";";
  }
  return text;
}

std::string Show(const std::vector<RfidFormatChoice>& formats) {
  std::string text;
  for (const RfidFormatChoice& each : formats) {
    text += std::to_string(each.Format) + "=" + each.Name.GetNarrow() + "(" +
            each.DefaultText.GetNarrow() + ");";
  }
  return text;
}

// What is read behind the block ends the program.
std::string Tags(const std::vector<uint8_t>& block) {
  const GuardedBlock guarded(block);
  return Show(ReadRfidTags(guarded.Data(), static_cast<uint32_t>(block.size())));
}

std::string Formats(const std::vector<uint8_t>& block) {
  const GuardedBlock guarded(block);
  return Show(ReadRfidFormats(guarded.Data(), static_cast<uint32_t>(block.size())));
}

TEST(RFIDChoices, AnswersAreRead) {
  EXPECT_EQ("8=One;131072=Two;", Tags(TagBlock()));
  EXPECT_EQ("257=96(8.8);320=64();", Formats(FormatBlock()));
}

TEST(RFIDChoices, NameWithoutATerminatorEndsWithTheBlock) {
  std::vector<uint8_t> tags = TagBlock();
  tags.pop_back();
  EXPECT_EQ("8=One;131072=Two;", Tags(tags));
  tags.pop_back();
  EXPECT_EQ("8=One;131072=Tw;", Tags(tags));
  std::vector<uint8_t> formats = FormatBlock();
  formats.resize(44);
  EXPECT_EQ("257=96(8.8);320=6();", Formats(formats));
}

TEST(RFIDChoices, EntriesWithNamesOutsideAreDropped) {
  std::vector<uint8_t> tags = TagBlock();
  PutNumber(&tags, 16, 4, static_cast<uint32_t>(tags.size()));
  EXPECT_EQ("131072=Two;", Tags(tags));
  PutNumber(&tags, 24, 4, 0xFFFFFFFF);
  EXPECT_EQ("", Tags(tags));
  std::vector<uint8_t> formats = FormatBlock();
  PutNumber(&formats, 16, 2, 46);  // the default text
  EXPECT_EQ("320=64();", Formats(formats));
  PutNumber(&formats, 26, 2, 65535);
  EXPECT_EQ("", Formats(formats));
}

TEST(RFIDChoices, EntriesWithoutATagAreDropped) {
  std::vector<uint8_t> tags = TagBlock();
  PutNumber(&tags, 12, 4, 0);
  EXPECT_EQ("131072=Two;", Tags(tags));
}

TEST(RFIDChoices, CountThatLiesIsHeldByTheBlock) {
  std::vector<uint8_t> tags = TagBlock();
  tags.resize(12 + 8 + 7);
  PutNumber(&tags, 8, 2, 65535);
  PutNumber(&tags, 16, 4, 0);
  EXPECT_EQ("8=;", Tags(tags));
  for (size_t size = 0; size < 12; ++size) {
    tags.resize(size);
    EXPECT_EQ("", Tags(tags)) << size;
    EXPECT_EQ("", Formats(tags)) << size;
  }
  EXPECT_TRUE(ReadRfidTags(nullptr, 0).empty());
}

TEST(RFIDChoices, AnyBytesStayInsideTheBlock) {
  std::mt19937 random(3);
  for (int i = 0; i < 3000; ++i) {
    std::vector<uint8_t> block = i % 2 == 0 ? TagBlock() : FormatBlock();
    block.resize(random() % (block.size() + 1));
    for (int change = 0; change < 4 && !block.empty(); ++change) {
      block[random() % block.size()] = static_cast<uint8_t>(random());
    }
    // Each text lies in the block, so all of them together are no longer than its entries times it.
    const size_t entries = block.size() < 12 ? 0 : (block.size() - 12) / 8;
    EXPECT_LE(Tags(block).size(), entries * (block.size() + 12));
    EXPECT_LE(Formats(block).size(), entries * (2 * block.size() + 9));
  }
}

// The rendering half's place.
struct Half {
  std::vector<uint8_t> Answer;
  int SecondResult = 1;
  std::vector<std::string> Calls;
};
Half* half = nullptr;

int AnswerEscape(platform::PrintContext context, int escape, const void* input, int inputSize,
                 void* output, int outputSize) {
  if (!context) return 0;
  uint32_t tag = 0;
  if (inputSize == 4) memcpy(&tag, input, 4);
  half->Calls.push_back(std::to_string(escape) + " in " + std::to_string(inputSize) + ":" +
                        std::to_string(tag) + " out " + std::to_string(outputSize));
  if (!output) return static_cast<int>(half->Answer.size());
  memcpy(output, half->Answer.data(), half->Answer.size());
  return half->SecondResult;
}

class RFIDEscapes : public testing::Test {
 protected:
  void SetUp() override {
    half = &Rendering;
    platform::SetEscapeFunction(AnswerEscape);
  }
  void TearDown() override { platform::SetEscapeFunction(nullptr); }
  Half Rendering;
  int Context = 0;
};

TEST_F(RFIDEscapes, SizeIsAskedForFirst) {
  Rendering.Answer = TagBlock();
  EXPECT_EQ("8=One;131072=Two;", Show(ListRfidTags(&Context)));
  EXPECT_EQ((std::vector<std::string>{"12005 in 0:0 out 0", "12005 in 0:0 out 36"}),
            Rendering.Calls);
}

TEST_F(RFIDEscapes, FormatsAreThoseOfTheTag) {
  Rendering.Answer = FormatBlock();
  EXPECT_EQ("257=96(8.8);320=64();", Show(ListRfidFormats(&Context, 0x20000)));
  EXPECT_EQ((std::vector<std::string>{"12006 in 4:131072 out 0", "12006 in 4:131072 out 46"}),
            Rendering.Calls);
}

TEST_F(RFIDEscapes, NoneAndCustomStandAroundTheFormats) {
  Rendering.Answer = FormatBlock();
  const NumberTexts texts;
  EXPECT_EQ("65535=#3152();257=96(8.8);320=64();0=#2225();",
            Show(ListRfidFormatChoices(&Context, 0x20000, texts)));
}

TEST_F(RFIDEscapes, WithoutAnAnswerTheListsAreEmpty) {
  EXPECT_TRUE(ListRfidTags(nullptr).empty());
  EXPECT_TRUE(ListRfidTags(&Context).empty());
  EXPECT_EQ(1u, Rendering.Calls.size());
  Rendering.Answer = TagBlock();
  Rendering.SecondResult = -1;
  EXPECT_TRUE(ListRfidTags(&Context).empty());
  Rendering.Answer.resize((1 << 20) + 1);
  Rendering.SecondResult = 1;
  EXPECT_TRUE(ListRfidTags(&Context).empty());
}

TEST(RFIDChoices, CustomTextIsShownForTagsThatTakeItWithAFormat) {
  for (uint32_t bit = 1; bit != 0; bit <<= 1) {
    const bool takes = bit == 1024 || bit == 2048 || bit == 4096 || bit == 0x10000 ||
                       bit == 0x20000 || bit == 0x40000 || bit == 0x80000;
    RFIDFont font;
    font.SetTagType(bit, nullptr);
    EXPECT_FALSE(ShowsCustomFormat(font)) << bit;
    font.SetFormat(kCustomEpcFormat);
    EXPECT_EQ(takes, ShowsCustomFormat(font)) << bit;
    font.SetFormat(257);
    EXPECT_EQ(takes, ShowsCustomFormat(font)) << bit;
  }
}

TEST(RFIDChoices, FormatsDefaultTextReplacesTheCustomOne) {
  RFIDFont font;
  font.SetFormat(257, "8.8");
  EXPECT_TRUE(font.GetCustomFormat() == "8.8");
  font.SetFormat(320);
  EXPECT_TRUE(font.GetCustomFormat() == "8.8");
  EXPECT_EQ(320u, font.GetFormat());
  font.SetFormat(258, "1");
  EXPECT_TRUE(font.GetCustomFormat() == "1");
}

TEST(RFIDChoices, CustomTextEndsInsideItsField) {
  const std::string text(200, 'c');
  RFIDFont font;
  font.SetCustomFormat(text.c_str());
  EXPECT_EQ(text.substr(0, 127), font.GetCustomFormat().GetNarrow());
  EXPECT_EQ(0, font.Body.CustomFormat[127]);
  memset(font.Body.CustomFormat, 'x', sizeof font.Body.CustomFormat);
  EXPECT_EQ(std::string(127, 'x'), font.GetCustomFormat().GetNarrow());
}

}  // namespace
}  // namespace ostvt::test
