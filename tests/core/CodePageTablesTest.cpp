#include "core/CodePageTables.h"

#include <gtest/gtest.h>

#include <map>

namespace ostvt {
namespace {

using Expected = std::map<uint32_t, int>;

// Every key below 70000, so that nothing else is known either.
template <typename Lookup>
Expected KnownTo(Lookup lookup) {
  Expected known;
  for (uint32_t key = 0; key < 70000; ++key) {
    if (lookup(key) != -1) known[key] = lookup(key);
  }
  return known;
}

TEST(CodePageTables, WindowsPages) {
  const Expected expected = {{2, 2},      {874, 222},  {932, 128},  {936, 134},
                             {949, 129},  {950, 136},  {1250, 238}, {1251, 204},
                             {1252, 0},   {1253, 161}, {1254, 162}, {1255, 177},
                             {1256, 178}, {1257, 186}, {1258, 163}, {1361, 130}};
  EXPECT_EQ(expected, KnownTo(CharsetOfWindowsCodePage));
}

TEST(CodePageTables, DosPages) {
  const Expected expected = {{437, 0},   {737, 161}, {775, 186}, {850, 0},  {852, 238}, {855, 204},
                             {857, 162}, {858, 0},   {860, 0},   {861, 0},  {862, 177}, {863, 0},
                             {864, 178}, {865, 0},   {866, 204}, {869, 161}};
  EXPECT_EQ(expected, KnownTo(CharsetOfDosCodePage));
}

TEST(CodePageTables, IsoNumbers) {
  const Expected expected = {{4, 0}, {6, 0}, {11, 0}, {15, 0}, {17, 0}, {21, 0}, {60, 0}, {69, 0}};
  EXPECT_EQ(expected, KnownTo(CharsetOfIsoNumber));
}

TEST(CodePageTables, IsoParts) {
  const Expected expected = {{1, 0},   {2, 238}, {3, 0},  {4, 0},    {5, 204},  {6, 178}, {7, 161},
                             {8, 177}, {9, 162}, {10, 0}, {11, 222}, {13, 186}, {14, 0},  {15, 0}};
  EXPECT_EQ(expected, KnownTo(CharsetOfIsoPart));
}

TEST(CodePageTables, ReverseLookupGivesTheFirstPage) {
  const std::map<int, uint32_t> expected = {{0, 1252},   {2, 2},      {128, 932},  {129, 949},
                                            {130, 1361}, {134, 936},  {136, 950},  {161, 1253},
                                            {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
                                            {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}};
  for (int charset = -1; charset < 300; ++charset) {
    auto found = expected.find(charset);
    EXPECT_EQ(found == expected.end() ? 0 : found->second, CodePageOfCharset(charset)) << charset;
  }
}

TEST(CodePageTables, NamesIgnoreAsciiCase) {
  EXPECT_EQ(128, CharsetOfName("JIS"));
  EXPECT_EQ(128, CharsetOfName("jis"));
  EXPECT_EQ(0, CharsetOfName("Mac-Western"));
  EXPECT_EQ(0, CharsetOfName("MAC-WESTERN"));
  EXPECT_EQ(-1, CharsetOfName("JIS "));
  EXPECT_EQ(-1, CharsetOfName("Mac"));
  EXPECT_EQ(-1, CharsetOfName(""));
}

}  // namespace
}  // namespace ostvt
