// The record of a downloaded font and its texts.
#include "fonts/FontInfo.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace ostvt::test {
namespace {

std::vector<uint8_t> BytesOf(const FontInfo& info) {
  std::vector<uint8_t> bytes(sizeof(info));
  memcpy(bytes.data(), &info, sizeof(info));
  return bytes;
}

TEST(FontInfo, FieldsLieWhereOthersReadThem) {
  FontInfo info = {};
  info.Request = 0x0101;
  info.Orientation = 0x0202;
  SetFullName(&info, u"Ab\u4E00");
  info.CellHeight = 0x0303;
  info.EmHeight = 0x0404;
  info.AverageWidth = 0x0505;
  info.MaximumWidth = 0x0606;
  info.Ascent = 0x0707;
  info.Descent = 0x0808;
  info.InternalLeading = 0x0909;
  info.CharacterCount = 0x0A0A;
  info.DataSize = 0x0B0B0B0B;
  SetFileId(&info, "I");
  SetFileName(&info, "N");
  SetFilePath(&info, "P");
  info.Location = 0x0C0C0C0C;
  std::vector<uint8_t> expected(348);
  const auto fill = [&](size_t offset, size_t size, uint8_t value) {
    memset(expected.data() + offset, value, size);
  };
  fill(0, 2, 1);
  fill(2, 2, 2);
  const uint8_t name[] = {'A', 0, 'b', 0, 0, 0x4E};
  memcpy(expected.data() + 4, name, sizeof(name));
  for (uint8_t i = 0; i < 8; ++i) fill(132 + 2u * i, 2, static_cast<uint8_t>(3 + i));
  fill(148, 4, 0x0B);
  expected[152] = 'I';
  expected[216] = 'N';
  expected[280] = 'P';
  fill(344, 4, 0x0C);
  EXPECT_EQ(expected, BytesOf(info));
}

TEST(FontInfo, TextsAreCutToTheirFields) {
  FontInfo info = {};
  SetFullName(&info, OString(std::u16string(70, u'n').c_str()));
  SetFileId(&info, OString(std::string(64, 'i').c_str()));
  SetFileName(&info, OString(std::string(63, 'f').c_str()));
  SetFilePath(&info, OString(std::string(500, 'p').c_str()));
  EXPECT_EQ(std::string(63, 'n'), GetFullName(info).GetNarrow());
  EXPECT_EQ(std::string(63, 'i'), GetFileId(info).GetNarrow());
  EXPECT_EQ(std::string(63, 'f'), GetFileName(info).GetNarrow());
  EXPECT_EQ(std::string(63, 'p'), GetFilePath(info).GetNarrow());
  EXPECT_EQ(0, info.FullName[63]);
  EXPECT_EQ(0, info.FilePath[63]);
}

TEST(FontInfo, NameIsNotCutInsideACharacter) {
  FontInfo info = {};
  const std::u16string name = std::u16string(62, u'n') + u"\U0001F600";
  SetFullName(&info, name.c_str());
  EXPECT_EQ(62, GetFullName(info).Length());
  SetFullName(&info, name.c_str() + 1);
  EXPECT_TRUE(GetFullName(info) == name.c_str() + 1);
}

TEST(FontInfo, ShorterTextLeavesNothingOfTheOldOne) {
  FontInfo info = {};
  SetFileName(&info, "LONGER.TTF");
  SetFileName(&info, "A");
  SetFullName(&info, "Longer");
  SetFullName(&info, "");
  for (size_t i = 1; i < 64; ++i) EXPECT_EQ(0, info.FileName[i]);
  for (const char16_t unit : info.FullName) EXPECT_EQ(0, unit);
}

TEST(FontInfo, StoredTextsWithoutTerminatorEndWithTheirFields) {
  FontInfo info;
  memset(static_cast<void*>(&info), 'x', sizeof(info));
  EXPECT_EQ(64, GetFullName(info).Length());
  EXPECT_EQ(std::string(64, 'x'), GetFileId(info).GetNarrow());
  EXPECT_EQ(std::string(64, 'x'), GetFileName(info).GetNarrow());
  EXPECT_EQ(std::string(64, 'x'), GetFilePath(info).GetNarrow());
}

}  // namespace
}  // namespace ostvt::test
