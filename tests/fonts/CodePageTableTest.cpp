#include "fonts/CodePageTable.h"

#include <gtest/gtest.h>

#include <vector>

#include "fonts/CodePageCharSet.h"
#include "fonts/ScriptCodePages.h"

namespace ostvt::test {
namespace {

std::vector<uint16_t> Built(uint32_t page) {
  WordArray table;
  table.Add(99);  // not to be seen any more
  BuildCodePageTable(page, &table);
  return {table.Data, table.Data + table.Count};
}

// ASCII without control characters, then `high` from code 128 on, 0 behind it.
std::vector<uint16_t> Expected(const std::vector<uint16_t>& high = {}) {
  std::vector<uint16_t> table(256);
  for (uint16_t code = 32; code < 128; ++code) table[code] = code;
  for (size_t i = 0; i < high.size(); ++i) table[128 + i] = high[i];
  return table;
}

std::vector<uint16_t> Range(int first, int last) {
  std::vector<uint16_t> range;
  for (int unit = first; unit <= last; ++unit) range.push_back(static_cast<uint16_t>(unit));
  return range;
}

TEST(CodePageTable, Page57002HasDevanagariIn128To255) {
  EXPECT_EQ(Expected(Range(0x0900, 0x097F)), Built(57002));
}

TEST(CodePageTable, Page64003HasSyriacIn128To207AndNothingBehind) {
  EXPECT_EQ(Expected(Range(0x0700, 0x074F)), Built(64003));
}

TEST(CodePageTable, EveryScriptStandsInTheOrderOfUnicode) {
  const struct {
    uint32_t Page;
    int First;
    int Last;
  } rows[] = {{64001, 0x0530, 0x058F}, {64003, 0x0700, 0x074F}, {64006, 0x0780, 0x07BF},
              {57002, 0x0900, 0x097F}, {57003, 0x0980, 0x09FF}, {57011, 0x0A00, 0x0A7F},
              {57010, 0x0A80, 0x0AFF}, {57007, 0x0B00, 0x0B7F}, {57004, 0x0B80, 0x0BFF},
              {57005, 0x0C00, 0x0C7F}, {57008, 0x0C80, 0x0CFF}, {57009, 0x0D00, 0x0D7F},
              {64007, 0x0D80, 0x0DFF}, {64004, 0x0E80, 0x0EFF}, {64002, 0x10A0, 0x10FF},
              {64005, 0x1780, 0x17FF}};
  for (const auto& row : rows)
    EXPECT_EQ(Expected(Range(row.First, row.Last)), Built(row.Page)) << row.Page;
  EXPECT_EQ(std::size(rows), ScriptCodePages().size());
}

TEST(CodePageTable, SymbolPageIsAllCodesAsTheyStand) {
  EXPECT_EQ(Expected(Range(0x80, 0xFF)), Built(2));
}

TEST(CodePageTable, InvalidPageLeavesOnlyAscii) {
  for (const uint32_t page :
       {0u, 1u, 3u, 42u, 57001u, 57012u, 64000u, 64008u, 65535u, 0x10000u + 1252u, 0xFFFFFFFFu})
    EXPECT_EQ(Expected(), Built(page)) << page;
}

TEST(CodePageTable, UnicodePagesHaveNoCharacterOfOneHighByte) {
  EXPECT_EQ(Expected(), Built(65000));
  EXPECT_EQ(Expected(), Built(65001));
}

TEST(CodePageTable, LeadBytesAreUndefinedAndSingleOnesDefined) {
  const std::vector<uint16_t> table = Built(932);
  EXPECT_EQ(0, table[0x81]);
  EXPECT_EQ(0, table[0x9F]);
  EXPECT_EQ(0xFF61, table[0xA1]);
  EXPECT_EQ(0xFF9F, table[0xDF]);
  EXPECT_EQ(0, table[0xE0]);
}

TEST(CodePageTable, PrivateUseIsUndefined) {
  // Where 932 and 874 have holes, systems put private characters; strictly asked, Windows has none.
  EXPECT_EQ(0, Built(932)[0xFD]);
  EXPECT_EQ(0, Built(932)[0xFF]);
  EXPECT_EQ(0, Built(874)[0xDB]);
}

TEST(CodePageTable, ControlCodesOfThePageAreDefinedAbove127Only) {
  const std::vector<uint16_t> table = Built(1252);
  EXPECT_EQ(0, table[31]);
  EXPECT_EQ(0x7F, table[127]);
  EXPECT_EQ(0x20AC, table[128]);
  EXPECT_EQ(0x81, table[129]);
}

TEST(ScriptCodePages, TestCharactersLieInTheirScripts) {
  for (const ScriptCodePage& script : ScriptCodePages()) {
    EXPECT_LE(script.First, script.Test) << script.Name;
    EXPECT_GE(script.Last, script.Test) << script.Name;
  }
}

TEST(ScriptCodePages, RowIsFoundByItsPage) {
  const ScriptCodePage* tamil = FindScriptCodePage(57004);
  ASSERT_NE(nullptr, tamil);
  EXPECT_STREQ("ISCII", tamil->Standard);
  EXPECT_STREQ("Tamil", tamil->Name);
  EXPECT_EQ(0x0B85, tamil->Test);
  EXPECT_EQ(4425, tamil->Message);
  const ScriptCodePage* lao = FindScriptCodePage(64004);
  ASSERT_NE(nullptr, lao);
  EXPECT_STREQ("", lao->Standard);
  EXPECT_EQ(0x0E81, lao->Test);
  EXPECT_EQ(4417, lao->Message);
  EXPECT_EQ(nullptr, FindScriptCodePage(57006));
  EXPECT_EQ(nullptr, FindScriptCodePage(1252));
}

TEST(ScriptCodePages, MessagesOfAllScripts) {
  std::vector<int> messages;
  for (const ScriptCodePage& script : ScriptCodePages()) messages.push_back(script.Message);
  EXPECT_EQ((std::vector<int>{4414, 4416, 4419, 4420, 4421, 4422, 4423, 4424, 4425, 4426, 4427,
                              4428, 4429, 4417, 4415, 4418}),
            messages);
}

TEST(CodePageCharSet, MissIs255OneWayAnd0TheOther) {
  EXPECT_EQ(222, CharSetFromCodePage(874));
  EXPECT_EQ(2, CharSetFromCodePage(2));
  EXPECT_EQ(255, CharSetFromCodePage(850));
  EXPECT_EQ(204, CharSetFromOemCodePage(866));
  EXPECT_EQ(255, CharSetFromOemCodePage(1252));
  EXPECT_EQ(1253, CodePageFromCharSet(161));
  EXPECT_EQ(2, CodePageFromCharSet(2));
  EXPECT_EQ(0, CodePageFromCharSet(1));
  EXPECT_EQ(0, CodePageFromCharSet(255));
}

}  // namespace
}  // namespace ostvt::test
