#include "model/DefinitionText.h"

#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <string>

#include "model/StringMap.h"

namespace ostvt {
namespace {

// The value of `key` in `section`; "-" if there is no such key.
std::string Read(const std::string& text, const char* key, const OString& section = "X") {
  // A copy of its own in the heap, so that a read past the end is seen.
  const std::unique_ptr<char[]> bytes(new char[text.size()]);
  text.copy(bytes.get(), text.size());
  DefinitionText definition(bytes.get(), static_cast<uint32_t>(text.size()));
  StringMap map;
  definition.ReadSection(section, &map);
  const OString* value = map.FindString(key);
  return value ? value->GetNarrow() : "-";
}

TEST(DefinitionText, CommentLineInsideASectionSetsNothing) {
  EXPECT_EQ(Read("[X]\n!a=b\n", "a"), "-");
  EXPECT_EQ(Read("[X]\n!a=b\n", "!a"), "-");
}

TEST(DefinitionText, CommentLineDoesNotEndASection) {
  EXPECT_EQ(Read("[X]\n![Y]\na=1\n", "a"), "1");
}

TEST(DefinitionText, CommentBeginsWithTheFirstCharacterOnly) {
  EXPECT_EQ(Read("[X]\n !a=b\n", "!a"), "b");
}

TEST(DefinitionText, WhatStandsLowerWinsWhicheverSectionItIsIn) {
  EXPECT_EQ(Read("[.default]\na=1\n[X]\na=2\n", "a"), "2");
  EXPECT_EQ(Read("[X]\na=2\n[.default]\na=1\n", "a"), "1");
}

TEST(DefinitionText, ListsGrow) {
  EXPECT_EQ(Read("[X]\na+=x\na+=y\n", "a"), "x,y");
  EXPECT_EQ(Read("[X]\na=x\na+=y\n", "a"), "x,y");
  EXPECT_EQ(Read("[X]\na+=x\na=y\n", "a"), "y");
}

TEST(DefinitionText, ListsGrowFromTheDefaultSectionOn) {
  EXPECT_EQ(Read("[.default]\na=x\n[Y]\na+=z\n[X]\na+=y\n", "a"), "x,y");
}

TEST(DefinitionText, AnEmptyListGrowsWithoutComma) {
  EXPECT_EQ(Read("[X]\na=\na+=y\n", "a"), "y");
  EXPECT_EQ(Read("[X]\na=x\na+=\n", "a"), "x,");
}

TEST(DefinitionText, GrowingOneSectionLeavesTheOthers) {
  const std::string text = "[.default]\na=d\n[X]\na+=x\n[Y]\na+=y\n";
  DefinitionText definition(text.data(), static_cast<uint32_t>(text.size()));
  StringMap x, y, again;
  definition.ReadSection("X", &x);
  definition.ReadSection("Y", &y);
  definition.ReadSection("X", &again);
  EXPECT_STREQ(x.GetString("a", "").GetNarrow(), "d,x");
  EXPECT_STREQ(y.GetString("a", "").GetNarrow(), "d,y");
  EXPECT_STREQ(again.GetString("a", "").GetNarrow(), "d,x");
}

TEST(DefinitionText, KeysAndValuesAreTrimmed) {
  EXPECT_EQ(Read("[X]\n  key  =  value  \n", "key"), "value");
  EXPECT_EQ(Read("[X]\n\tkey\t+=\t value \t\n", "key"), "value");
}

TEST(DefinitionText, ValueMayHoldFurtherEqualsSigns) {
  EXPECT_EQ(Read("[X]\na=b=c\n", "a"), "b=c");
}

TEST(DefinitionText, PlusEqualsAnywhereSplitsTheLineThere) {
  EXPECT_EQ(Read("[X]\na=b+=c\n", "a=b"), "c");
  EXPECT_EQ(Read("[X]\na+=b+=c\n", "a"), "b+=c");
  EXPECT_EQ(Read("[X]\na+ =b\n", "a+"), "b");
}

TEST(DefinitionText, KeysDifferByCase) { EXPECT_EQ(Read("[X]\nColor=1\n", "color"), "-"); }

TEST(DefinitionText, HeadersAreComparedExactly) {
  EXPECT_EQ(Read("[x ]\na=1\n", "a", "x"), "-");
  EXPECT_EQ(Read("[X]\na=1\n", "a", "x"), "-");
  EXPECT_EQ(Read("[x] \na=1\n", "a", "x"), "-");
  EXPECT_EQ(Read(" [x]\na=1\n", "a", "x"), "-");
  EXPECT_EQ(Read("[x]\na=1\n", "a", "x"), "1");
}

TEST(DefinitionText, AnyOtherHeaderEndsTheSection) {
  EXPECT_EQ(Read("[X]\na=1\n[Y]\na=2\n", "a"), "1");
  EXPECT_EQ(Read("[X]\na=1\n[Y=\na=2\n", "a"), "1");
}

TEST(DefinitionText, ASectionMayBeContinued) {
  EXPECT_EQ(Read("[X]\na=1\n[Y]\nb=2\n[X]\na=3\n", "a"), "3");
}

TEST(DefinitionText, LinesOutsideSectionsArePassedOver) {
  EXPECT_EQ(Read("a=1\n[Y]\n", "a"), "-");
  EXPECT_EQ(Read("a=1\n[X]\n", "a"), "-");
}

TEST(DefinitionText, LinesWithoutEqualsArePassedOver) {
  EXPECT_EQ(Read("[X]\na\n+\na=1\n", "a"), "1");
  EXPECT_EQ(Read("[X]\na\n", "a"), "-");
}

TEST(DefinitionText, CarriageReturnsAreDroppedAnywhere) {
  EXPECT_EQ(Read("[X]\r\na=1\r\n", "a"), "1");
  EXPECT_EQ(Read("[\rX]\na\rb=1\r2\n", "ab"), "12");
}

TEST(DefinitionText, LastLineCountsWithoutLineFeed) { EXPECT_EQ(Read("[X]\na=1", "a"), "1"); }

TEST(DefinitionText, NulEndsTheText) {
  EXPECT_EQ(Read(std::string("[X]\na=1\0\nb=2\n", 13), "a"), "1");
  EXPECT_EQ(Read(std::string("[X]\na=1\0\nb=2\n", 13), "b"), "-");
}

TEST(DefinitionText, AKeyWithoutTextIsThereAndEmpty) { EXPECT_EQ(Read("[X]\na=\n", "a"), ""); }

TEST(DefinitionText, TheDefaultSectionCanBeReadByItself) {
  EXPECT_EQ(Read("[.default]\na+=1\n", "a", ".default"), "1");
}

TEST(DefinitionText, ASectionNameBeyondAsciiIsFound) {
  EXPECT_EQ(Read("[\xC4rger]\na=1\n", "a", u"\u00C4rger"), "1");
}

TEST(DefinitionText, BytesThatAreNoTextDoNoHarm) {
  EXPECT_EQ(Read("", "a"), "-");
  EXPECT_EQ(Read("\n", "a"), "-");
  EXPECT_EQ(Read("\r", "a"), "-");
  EXPECT_EQ(Read("=", "a"), "-");
  EXPECT_EQ(Read("[", "a"), "-");
  EXPECT_EQ(Read("[X]\n+=", ""), "");
  EXPECT_EQ(Read("[X]\n=", ""), "");
  EXPECT_EQ(Read(std::string("\0[X]\na=1", 8), "a"), "-");
  DefinitionText none(nullptr, 5);
  StringMap map;
  none.ReadSection("X", &map);
  EXPECT_EQ(map.Values.Count, 0);
}

TEST(DefinitionText, AListOfManyLinesTakesTimeInProportion) {
  constexpr int kLines = 150000;
  std::string text = "[X]\n";
  for (int i = 0; i < kLines; ++i) text += "a+=12345678901234567890\n";
  const std::clock_t start = std::clock();
  const std::string list = Read(text, "a");
  // Copying the list for each line moves more than 200 gigabytes.
  EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
  EXPECT_EQ(list.size(), 21u * kLines - 1);
  EXPECT_EQ(list.substr(list.size() - 23), "90,12345678901234567890");
}

TEST(DefinitionText, AnAssignmentAmidAListStartsItAnew) {
  EXPECT_EQ(Read("[X]\na+=x\na+=y\na=1\na+=2\na+=3\n", "a"), "1,2,3");
  EXPECT_EQ(Read("[X]\na+=x\na=\na+=\na+=2\n", "a"), "2");
}

TEST(DefinitionText, KeysOfOneHashKeepTheirOwnLists) {
  const char* const keys[] = {"plumless", "buckeroo"};
  ASSERT_EQ(NameMap::HashOf(keys[0]), NameMap::HashOf(keys[1]));
  const std::string text = "[X]\nplumless+=1\nbuckeroo+=2\nplumless+=3\nbuckeroo=4\n";
  EXPECT_EQ(Read(text, keys[0]), "1,3");
  EXPECT_EQ(Read(text, keys[1]), "4");
}

TEST(DefinitionText, ATextOfMoreThanFourMegabytesReadsAsEmpty) {
  std::string text = "[X]\na=1\n";
  text.resize(4 << 20, '!');
  EXPECT_EQ(Read(text, "a"), "1");
  text += '!';
  EXPECT_EQ(Read(text, "a"), "-");
}

}  // namespace
}  // namespace ostvt
