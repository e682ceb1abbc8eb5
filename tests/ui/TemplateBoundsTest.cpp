#include "ui/TemplateBounds.h"

#include <gtest/gtest.h>

#include "core/LittleEndian.h"
#include "tests/ui/TemplateBytes.h"

namespace ostvt::test {
namespace {

using Bytes = std::vector<uint8_t>;

constexpr size_t kPlainCount = 8;
constexpr size_t kExtendedCount = 16;

Bytes Kept(const Bytes& bytes) {
  Buffer dialog;
  dialog.Resize(static_cast<uint32_t>(bytes.size()));
  std::copy(bytes.begin(), bytes.end(), dialog.Data);
  KeepTemplateInside(&dialog);
  return {dialog.Data, dialog.Data + dialog.Size};
}

TemplateBytes Plain(uint32_t controls) {
  TemplateBytes bytes;
  return bytes.PlainHead(kStyleFont, controls).Word(0).Word(0).Text(u"T").Word(8).Text(u"Arial");
}

TemplateBytes Extended(uint32_t controls) {
  TemplateBytes bytes;
  return bytes.ExtendedHead(0, controls).Word(0).Word(0).Text(u"T");
}

TemplateBytes& ExtendedControl(TemplateBytes& bytes, uint32_t extra) {
  bytes.Align().Dword(0).Dword(0).Dword(0x50010000).Word(1).Word(2).Word(30).Word(12).Dword(77);
  bytes.Word(0xFFFF).Word(0x80).Text(u"OK").Word(extra);
  for (uint32_t i = 0; i < extra; ++i) bytes.Byte(9);
  return bytes;
}

TEST(TemplateBounds, SoundTemplateStaysAsItIs) {
  const Bytes plain =
      Plain(2).PlainControl(5, u"Static", u"&Name").PlainControl(6, u"Edit", u"").Align().Bytes;
  EXPECT_EQ(plain, Kept(plain));
  TemplateBytes extended = Extended(2);
  const Bytes withData = ExtendedControl(ExtendedControl(extended, 6), 0).Align().Bytes;
  EXPECT_EQ(withData, Kept(withData));
  EXPECT_EQ(Plain(0).Align().Bytes, Kept(Plain(0).Align().Bytes));
}

TEST(TemplateBounds, ControlsThatBreakOffAreNotCounted) {
  const Bytes two = Plain(2).PlainControl(5, u"Static", u"A").PlainControl(6, u"Edit", u"").Bytes;
  const size_t second = Plain(2).PlainControl(5, u"Static", u"A").Align().Bytes.size();
  for (size_t size = second; size < two.size(); size += 2) {
    const Bytes kept = Kept(Bytes(two.begin(), two.begin() + static_cast<long>(size)));
    EXPECT_EQ(1, ReadLittleWord(&kept[kPlainCount])) << size;
  }
  const Bytes more = Plain(0xFFFF).PlainControl(5, u"Static", u"A").Align().Bytes;
  EXPECT_EQ(1, ReadLittleWord(&Kept(more)[kPlainCount]));
}

TEST(TemplateBounds, DataOfAControlLiesInsideToo) {
  TemplateBytes bytes = Extended(1);
  Bytes whole = ExtendedControl(bytes, 6).Bytes;
  EXPECT_EQ(1, ReadLittleWord(&Kept(whole)[kExtendedCount]));
  whole.resize(whole.size() - 2);
  EXPECT_EQ(0, ReadLittleWord(&Kept(whole)[kExtendedCount]));
}

// The length counts itself or doesn't, by who reads it.
TEST(TemplateBounds, PlainControlWithDataEndsTheDialog) {
  TemplateBytes bytes = Plain(2).PlainControl(5, u"Static", u"A");
  bytes.Bytes.resize(bytes.Bytes.size() - 2);
  bytes.Word(4).Dword(0).PlainControl(6, u"Edit", u"").Align();
  EXPECT_EQ(0, ReadLittleWord(&Kept(bytes.Bytes)[kPlainCount]));
}

// Two bytes of data may be skipped as one word or as none.
TEST(TemplateBounds, DataOfOddLengthEndsTheDialog) {
  TemplateBytes bytes = Extended(2);
  const Bytes odd = ExtendedControl(ExtendedControl(bytes, 1), 0).Align().Bytes;
  EXPECT_EQ(0, ReadLittleWord(&Kept(odd)[kExtendedCount]));
}

TEST(TemplateBounds, NumberForATitleLeavesNoControls) {
  TemplateBytes bytes;
  bytes.PlainHead(0, 1).Word(0).Word(0).Word(0xFFFF).Word(7);
  const Bytes kept = Kept(bytes.PlainControl(5, u"Static", u"A").Align().Bytes);
  EXPECT_EQ(0, ReadLittleWord(&kept[kPlainCount]));
  EXPECT_EQ(Bytes(64, 0), Bytes(kept.end() - 64, kept.end()));
}

TEST(TemplateBounds, MessageFontHasNoFace) {
  TemplateBytes bytes;
  bytes.PlainHead(kStyleFont, 1).Word(0).Word(0).Text(u"T").Word(0x7FFF);
  const Bytes sound = bytes.PlainControl(5, u"Static", u"A").Align().Bytes;
  EXPECT_EQ(sound, Kept(sound));
}

TEST(TemplateBounds, BrokenHeadGoesOnWithZerosAndHasNoControls) {
  TemplateBytes extended;
  extended.ExtendedHead(kStyleFont, 3).Text(u"m").Word(0xFFFF).Word(3).Text(u"T");
  extended.Word(9).Word(400).Byte(0).Byte(0).Text(u"Arial");
  for (const Bytes& whole : {Plain(3).Bytes, extended.Bytes}) {
    const size_t count = whole[0] == 1 ? kExtendedCount : kPlainCount;
    for (size_t size = 0; size < whole.size(); size += 4) {
      const Bytes kept = Kept(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
      ASSERT_LE(size + 64, kept.size());
      EXPECT_EQ(0u, kept.size() % 4);
      EXPECT_EQ(0, ReadLittleWord(&kept[count])) << size;
      EXPECT_EQ(Bytes(kept.size() - size, 0),
                Bytes(kept.begin() + static_cast<long>(size), kept.end()));
    }
  }
}

}  // namespace
}  // namespace ostvt::test
