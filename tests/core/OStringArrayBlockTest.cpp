// The block forms of lists, against bytes written by hand.
#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>

#include "core/OStringArray.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

using namespace std::string_literals;

std::string Joined(std::initializer_list<OString> texts, BlockMode mode, uint32_t codePage = 0) {
  OStringArray list;
  for (const OString& text : texts) list.Add(text);
  Buffer block;
  block.Resize(3);
  list.JoinBlock(&block, mode, codePage);
  EXPECT_EQ(block.Size == 0, block.Data == nullptr);
  EXPECT_EQ(block.Size, CountedSize(block.Data));
  return std::string(reinterpret_cast<char*>(block.Data), block.Size);
}

std::u16string JoinedWide(std::initializer_list<OString> texts, BlockMode mode) {
  OStringArray list;
  for (const OString& text : texts) list.Add(text);
  Buffer block;
  list.JoinBlockWide(&block, mode);
  std::u16string units(block.Size / 2, u'\0');
  if (block.Size) memcpy(units.data(), block.Data, block.Size);
  return units;
}

// In a heap block of exactly this size, so that reading behind it is seen.
std::string Split(const std::string& bytes, BlockMode mode, uint32_t codePage = 0) {
  auto block = std::make_unique<char[]>(bytes.size());
  memcpy(block.get(), bytes.data(), bytes.size());
  OStringArray list;
  list.Add("old");
  list.SplitBlock(block.get(), static_cast<uint32_t>(bytes.size()), mode, codePage);
  std::string text;
  for (int32_t i = 0; i < list.Count; ++i) {
    EXPECT_EQ(codePage, list[i].GetCodePage());
    text += "[" + NarrowOf(list[i]) + "]";
  }
  return text;
}

// `extra` bytes behind the units, at an odd address.
std::u16string SplitWide(const std::u16string& units, BlockMode mode, uint32_t extra = 0) {
  size_t size = units.size() * 2 + extra;
  auto block = std::make_unique<char[]>(size + 1);
  memcpy(block.get() + 1, units.data(), units.size() * 2);
  OStringArray list;
  list.SplitBlockWide(block.get() + 1, static_cast<uint32_t>(size), mode);
  std::u16string text;
  for (int32_t i = 0; i < list.Count; ++i) text += u"[" + WideOf(list[i]) + u"]";
  return text;
}

TEST(OStringBlock, TerminatedLeavesOutEmptyStrings) {
  EXPECT_EQ("a\0bc\0\0"s, Joined({"a", "", "bc"}, BlockMode::kTerminated));
  EXPECT_EQ("\0"s, Joined({}, BlockMode::kTerminated));
  EXPECT_EQ("\0"s, Joined({"", ""}, BlockMode::kTerminated));
}

TEST(OStringBlock, TerminatedWithEmptyStringReadsBackAsTwo) {
  EXPECT_EQ("[a][b]",
            Split(Joined({"a", "", "b"}, BlockMode::kTerminated), BlockMode::kTerminated));
}

TEST(OStringBlock, TerminatedEndsAtTheFirstEmptyString) {
  EXPECT_EQ("[a]", Split("a\0\0b\0\0"s, BlockMode::kTerminated));
  EXPECT_EQ("", Split("\0a\0"s, BlockMode::kTerminated));
}

TEST(OStringBlock, MissingFinalNulEndsTheLastString) {
  EXPECT_EQ("[a][bc]", Split("a\0bc"s, BlockMode::kTerminated));
  EXPECT_EQ("[a][bc]", Split("a\0bc\0"s, BlockMode::kTerminated));
  EXPECT_EQ("[a][bc]", Split("\x02\0a\0bc"s, BlockMode::kCounted));
  EXPECT_EQ("[a][bc]", Split("\x09\0a\0bc"s, BlockMode::kSized));
}

TEST(OStringBlock, CountedHoldsEveryString) {
  EXPECT_EQ("\x03\0a\0\0bc\0"s, Joined({"a", "", "bc"}, BlockMode::kCounted));
  EXPECT_EQ("\0\0"s, Joined({}, BlockMode::kCounted));
  EXPECT_EQ("[a][][bc]", Split("\x03\0a\0\0bc\0"s, BlockMode::kCounted));
  EXPECT_EQ("", Split("\0\0"s, BlockMode::kCounted));
}

TEST(OStringBlock, CountIsALimitAndNoMore) {
  EXPECT_EQ("[a]", Split("\x01\0a\0b\0"s, BlockMode::kCounted));
  EXPECT_EQ("[a][b]", Split("\xFF\xFF"
                            "a\0b\0"s,
                            BlockMode::kCounted));
  EXPECT_EQ("", Split("\x02"s, BlockMode::kCounted));
}

TEST(OStringBlock, SizedIsWrittenWithTheWholeSize) {
  EXPECT_EQ("\x08\0a\0\0bc\0"s, Joined({"a", "", "bc"}, BlockMode::kSized));
  EXPECT_EQ("\x02\0"s, Joined({}, BlockMode::kSized));
}

TEST(OStringBlock, SizedIsReadWithTheSizeBehindTheField) {
  // Ours claims two bytes too many: clipped to the block.
  EXPECT_EQ("[a][][bc]", Split("\x08\0a\0\0bc\0"s, BlockMode::kSized));
  EXPECT_EQ("[a][][bc]", Split("\x06\0a\0\0bc\0x\0"s, BlockMode::kSized));
  EXPECT_EQ("[a][][b]", Split("\x04\0a\0\0bc\0"s, BlockMode::kSized));
  EXPECT_EQ("", Split("\0\0a\0"s, BlockMode::kSized));
  EXPECT_EQ("", Split("\x05"s, BlockMode::kSized));
}

TEST(OStringBlock, LinesEndInCrLf) {
  EXPECT_EQ("a\r\n\r\nbc\r\n", Joined({"a", "", "bc"}, BlockMode::kLines));
  EXPECT_EQ("", Joined({}, BlockMode::kLines));
  EXPECT_EQ("[a][][bc]", Split("a\r\n\r\nbc\r\n", BlockMode::kLines));
}

TEST(OStringBlock, LineThatEndsInABareLfLosesItsLastCharacter) {
  EXPECT_EQ("[a][c]", Split("ab\nc\r\n", BlockMode::kLines));
}

TEST(OStringBlock, LineOfABareLfIsEmpty) {
  EXPECT_EQ("[][a]", Split("\na\r\n", BlockMode::kLines));
  EXPECT_EQ("[][][]", Split("\n\nx\n", BlockMode::kLines));
}

TEST(OStringBlock, TextBehindTheLastLfIsDropped) {
  EXPECT_EQ("[a]", Split("a\r\nbc", BlockMode::kLines));
  EXPECT_EQ("", Split("abc", BlockMode::kLines));
}

TEST(OStringBlock, EmptyBlockReadsAsNothing) {
  for (BlockMode mode :
       {BlockMode::kTerminated, BlockMode::kCounted, BlockMode::kSized, BlockMode::kLines}) {
    EXPECT_EQ("", Split("", mode));
    EXPECT_EQ(u"", SplitWide(u"", mode));
    EXPECT_EQ(u"", SplitWide(u"", mode, 1));
    OStringArray list;
    list.SplitBlock(nullptr, 10, mode);
    EXPECT_EQ(0, list.Count);
  }
}

TEST(OStringBlock, NumbersBeyond65535Fail) {
  OStringArray list;
  list.SetSize(65535);
  Buffer block;
  list.JoinBlock(&block, BlockMode::kCounted);
  EXPECT_EQ(2u + 65535u, block.Size);
  list.SetSize(65536);
  list.JoinBlock(&block, BlockMode::kCounted);
  EXPECT_EQ(0u, block.Size);
  list.JoinBlockWide(&block, BlockMode::kCounted);
  EXPECT_EQ(0u, block.Size);

  list.SetSize(0);
  list.Add(std::string(65535 - 3, 'x').c_str());
  list.JoinBlock(&block, BlockMode::kSized);
  ASSERT_EQ(65535u, block.Size);
  EXPECT_EQ(0xFF, block.Data[0]);
  EXPECT_EQ(0xFF, block.Data[1]);
  list.JoinBlockWide(&block, BlockMode::kSized);
  EXPECT_EQ(0u, block.Size);
  list[0] += 'x';
  list.JoinBlock(&block, BlockMode::kSized);
  EXPECT_EQ(0u, block.Size);
  list.JoinBlock(&block, BlockMode::kTerminated);
  EXPECT_EQ(65535u, block.Size);
}

TEST(OStringBlock, CodePageAppliesToCopies) {
  OStringArray list;
  list.Add(InPage(1251, "\xC6"));
  Buffer block;
  list.JoinBlock(&block, BlockMode::kTerminated, kCodePageUtf8);
  EXPECT_EQ("\xD0\x96\0\0"s, std::string(reinterpret_cast<char*>(block.Data), block.Size));
  EXPECT_EQ(1251u, list[0].GetCodePage());
  EXPECT_STREQ("\xC6", list[0].GetNarrow());
  list.JoinBlock(&block, BlockMode::kTerminated);
  EXPECT_EQ("\xC6\0\0"s, std::string(reinterpret_cast<char*>(block.Data), block.Size));
}

TEST(OStringBlock, CodePageIsSetOnNewStrings) {
  EXPECT_EQ("[\xD0\x96]", Split("\xD0\x96\r\n", BlockMode::kLines, kCodePageUtf8));
  OStringArray list;
  list.SplitBlock("\xC6\0", 3, BlockMode::kTerminated, 1251);
  EXPECT_EQ(u"\u0416", WideOf(list[0]));
}

TEST(OStringBlock, WideFormsUseUnitsThroughout) {
  using namespace std::string_literals;
  EXPECT_EQ(u"a\0\u0416c\0\0"s, JoinedWide({"a", "", u"\u0416c"}, BlockMode::kTerminated));
  EXPECT_EQ(u"\u0003a\0\0\u0416\0"s, JoinedWide({"a", "", u"\u0416"}, BlockMode::kCounted));
  EXPECT_EQ(u"a\r\n\u0416\r\n"s, JoinedWide({"a", u"\u0416"}, BlockMode::kLines));
  EXPECT_EQ(u"\0"s, JoinedWide({}, BlockMode::kTerminated));
}

TEST(OStringBlock, WideSizeCountsBytes) {
  EXPECT_EQ(u"\u000Aa\0\u0416\0"s, JoinedWide({"a", u"\u0416"}, BlockMode::kSized));
  EXPECT_EQ(u"[a][\u0416]", SplitWide(u"\u000Aa\0\u0416\0"s, BlockMode::kSized));
  EXPECT_EQ(u"[a]", SplitWide(u"\u0004a\0b\0"s, BlockMode::kSized));
  EXPECT_EQ(u"[a][b]", SplitWide(u"\u0007a\0b\0"s, BlockMode::kSized));
}

TEST(OStringBlock, WideFormsReadBack) {
  EXPECT_EQ(u"[a][\u0416c]", SplitWide(u"a\0\u0416c\0\0x\0"s, BlockMode::kTerminated));
  EXPECT_EQ(u"[a][][\u0416]", SplitWide(u"\u0003a\0\0\u0416\0"s, BlockMode::kCounted));
  EXPECT_EQ(u"[a][\u0416]", SplitWide(u"a\r\n\u0416\r\nrest"s, BlockMode::kLines));
}

TEST(OStringBlock, OddByteAtTheEndOfAWideBlockIsIgnored) {
  EXPECT_EQ(u"[a][b]", SplitWide(u"a\0b"s, BlockMode::kTerminated, 1));
}

}  // namespace
}  // namespace ostvt
