#include "settings/NarrowTemplate.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/GuardedBlock.h"

namespace ostvt::test {
namespace {

using Bytes = std::vector<uint8_t>;

void PutWord(Bytes* bytes, uint32_t value) {
  bytes->push_back(static_cast<uint8_t>(value));
  bytes->push_back(static_cast<uint8_t>(value >> 8));
}

void PutWide(Bytes* bytes, const std::u16string& text) {
  for (const char16_t unit : text) PutWord(bytes, unit);
  PutWord(bytes, 0);
}

// Style 0x80C800C4, which has bit 6; extended style 0x11223344; 5 controls at 10, -2, 300 x 160.
Bytes PlainHead() {
  return {0xC4, 0x00, 0xC8, 0x80, 0x44, 0x33, 0x22, 0x11, 5,
          0,    10,   0,    0xFE, 0xFF, 0x2C, 0x01, 0xA0, 0x00};
}

// The same with version 1, signature, help id 0x55667788 and the extended style in front.
Bytes ExtendedHead() {
  return {1,    0,    0xFF, 0xFF, 0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11, 0xC4,
          0x00, 0xC8, 0x80, 5,    0,    10,   0,    0xFE, 0xFF, 0x2C, 0x01, 0xA0, 0x00};
}

// What both become.
Bytes NarrowHead() {
  return {0xC4, 0x00, 0xC8, 0x80, 0, 5, 10, 0, 0xFE, 0xFF, 0x2C, 0x01, 0xA0, 0x00};
}

// No menu, no class, title "Page", 8 points "Dlg".
Bytes PlainTemplate() {
  Bytes bytes = PlainHead();
  PutWide(&bytes, u"");
  PutWide(&bytes, u"");
  PutWide(&bytes, u"Page");
  PutWord(&bytes, 8);
  PutWide(&bytes, u"Dlg");
  return bytes;
}

Bytes NarrowTemplate() {
  Bytes bytes = NarrowHead();
  bytes.insert(bytes.end(), {0, 0, 'P', 'a', 'g', 'e', 0, 8, 0, 'D', 'l', 'g', 0});
  return bytes;
}

// The template in memory of just its size, the result in memory of just its room.
Bytes Convert(const Bytes& bytes, uint32_t room = 1000) {
  GuardedBlock source(bytes);
  const uint32_t size = static_cast<uint32_t>(bytes.size());
  const uint32_t length = MakeNarrowTemplate(source.Data(), size, nullptr, 0);
  GuardedBlock target(room);
  EXPECT_EQ(MakeNarrowTemplate(source.Data(), size, target.Data(), room), length);
  Bytes result = target.Copy();
  for (size_t i = length; i < result.size(); ++i) EXPECT_EQ(0xCD, result[i]) << i;
  result.resize(std::min<size_t>(length, room));
  return result;
}

TEST(NarrowTemplate, PlainHeadBecomesNarrow) {
  EXPECT_EQ(NarrowTemplate(), Convert(PlainTemplate()));
}

TEST(NarrowTemplate, ExtendedHeadBecomesTheSame) {
  Bytes bytes = ExtendedHead();
  PutWide(&bytes, u"");
  PutWide(&bytes, u"");
  PutWide(&bytes, u"Page");
  PutWord(&bytes, 8);
  PutWord(&bytes, 700);    // weight
  PutWord(&bytes, 0x101);  // italic, character set
  PutWide(&bytes, u"Dlg");
  EXPECT_EQ(NarrowTemplate(), Convert(bytes));
}

TEST(NarrowTemplate, SignatureInTheSecondWordMakesItExtendedWhateverTheVersion) {
  Bytes bytes = ExtendedHead();
  bytes[0] = 0x77;
  PutWide(&bytes, u"");
  PutWide(&bytes, u"");
  PutWide(&bytes, u"");
  const Bytes result = Convert(bytes);
  EXPECT_EQ(NarrowHead(), Bytes(result.begin(), result.begin() + 14));
}

TEST(NarrowTemplate, WithoutTheFontStyleThereIsNoFont) {
  Bytes bytes = PlainTemplate();
  bytes[0] = 0x84;  // all but bit 6
  Bytes expected = NarrowTemplate();
  expected[0] = 0x84;
  expected.resize(expected.size() - 6);
  EXPECT_EQ(expected, Convert(bytes));
}

TEST(NarrowTemplate, MenuAndClassAreTexts) {
  Bytes bytes = PlainHead();
  bytes[0] = 0;
  PutWide(&bytes, u"Menu");
  PutWide(&bytes, u"Class");
  PutWide(&bytes, u"T");
  Bytes expected = NarrowHead();
  expected[0] = 0;
  for (const char c : std::string("Menu\0Class\0T\0", 13))
    expected.push_back(static_cast<uint8_t>(c));
  EXPECT_EQ(expected, Convert(bytes));
}

TEST(NarrowTemplate, NumbersOfMenuAndClassBecomeEmptyTexts) {
  Bytes bytes = PlainHead();
  bytes[0] = 0;
  PutWord(&bytes, 0xFFFF);
  PutWord(&bytes, 101);
  PutWord(&bytes, 0xFFFF);
  PutWord(&bytes, 0x80);
  PutWide(&bytes, u"T");
  Bytes expected = NarrowHead();
  expected[0] = 0;
  expected.insert(expected.end(), {0, 0, 'T', 0});
  EXPECT_EQ(expected, Convert(bytes));
}

TEST(NarrowTemplate, ControlsAreNotCarried) {
  Bytes bytes = PlainTemplate();
  bytes.insert(bytes.end(), 500, 0x33);
  EXPECT_EQ(NarrowTemplate(), Convert(bytes));
}

TEST(NarrowTemplate, CountOfControlsKeepsItsLowByte) {
  Bytes bytes = PlainTemplate();
  bytes[9] = 3;  // 0x305
  EXPECT_EQ(NarrowTemplate(), Convert(bytes));
}

TEST(NarrowTemplate, ShortBufferGetsWhatFitsAndTheWholeLength) {
  const Bytes whole = NarrowTemplate();
  for (uint32_t room = 0; room <= whole.size(); ++room) {
    EXPECT_EQ(Bytes(whole.begin(), whole.begin() + room), Convert(PlainTemplate(), room)) << room;
  }
}

TEST(NarrowTemplate, LengthIsAskedForWithoutABuffer) {
  const Bytes bytes = PlainTemplate();
  const uint32_t size = static_cast<uint32_t>(bytes.size());
  EXPECT_EQ(27u, MakeNarrowTemplate(bytes.data(), size, nullptr, 0));
  EXPECT_EQ(27u, MakeNarrowTemplate(bytes.data(), size, nullptr, 1000));
}

TEST(NarrowTemplate, HeadThatIsCutOffGivesNothing) {
  for (const Bytes& head : {PlainHead(), ExtendedHead()}) {
    for (size_t size = 0; size < head.size(); ++size) {
      EXPECT_TRUE(Convert(Bytes(head.begin(), head.begin() + static_cast<int>(size))).empty())
          << size;
    }
  }
  EXPECT_EQ(0u, MakeNarrowTemplate(nullptr, 100, nullptr, 0));
}

TEST(NarrowTemplate, WhatIsCutOffBehindTheHeadIsEmpty) {
  Bytes expected = NarrowHead();
  expected.insert(expected.end(), {0, 0, 0, 0, 0, 0});  // three texts, point size, face
  EXPECT_EQ(expected, Convert(PlainHead()));
  // "Pa" and half a unit
  Bytes bytes = PlainTemplate();
  bytes.resize(18 + 4 + 5);
  expected = NarrowHead();
  expected.insert(expected.end(), {0, 0, 'P', 'a', 0, 0, 0, 0});
  EXPECT_EQ(expected, Convert(bytes));
}

TEST(NarrowTemplate, NumberThatIsCutOffIsAnEmptyText) {
  Bytes bytes = PlainHead();
  PutWord(&bytes, 0xFFFF);
  bytes.push_back(1);
  Bytes expected = NarrowHead();
  expected.insert(expected.end(), {0, 0, 0, 0, 0, 0});
  EXPECT_EQ(expected, Convert(bytes));
}

}  // namespace
}  // namespace ostvt::test
