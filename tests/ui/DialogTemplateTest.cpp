#include "ui/DialogTemplate.h"

#include <gtest/gtest.h>

#include "tests/support/GuardedBlock.h"
#include "tests/ui/TemplateBytes.h"

namespace ostvt {
namespace {

using test::kStyleFont;
using test::TemplateBytes;
using Bytes = std::vector<uint8_t>;

Bytes Patch(const Bytes& source, const char* face = "MS Shell Dlg", bool wideRichEdit = true) {
  const test::GuardedBlock block(source);
  Buffer result;
  PatchDialogTemplate(block.Data(), static_cast<uint32_t>(source.size()), {face, wideRichEdit},
                      &result);
  EXPECT_EQ(0u, result.Size % 4);
  return Bytes(result.Data, result.Data + result.Size);
}

Bytes RoundedUp(Bytes bytes) {
  while (bytes.size() % 4 != 0) bytes.push_back(0);
  return bytes;
}

TemplateBytes PlainTemplate(std::u16string_view face) {
  TemplateBytes bytes;
  bytes.PlainHead(kStyleFont, 1).Word(0).Word(0).Text(u"Title").Word(8).Text(face);
  return bytes;
}

TEST(DialogTemplate, PlainFontIsReplaced) {
  const Bytes source = PlainTemplate(u"Arial").PlainControl(100, u"Button", u"OK").Bytes;
  const Bytes expected = PlainTemplate(u"MS Shell Dlg").PlainControl(100, u"Button", u"OK").Bytes;
  EXPECT_EQ(RoundedUp(expected), Patch(source));
}

TEST(DialogTemplate, AShorterFontMovesTheControlsForward) {
  const Bytes source =
      PlainTemplate(u"A very long name of a face").PlainControl(100, u"Button", u"OK").Bytes;
  const Bytes expected = PlainTemplate(u"MS").PlainControl(100, u"Button", u"OK").Bytes;
  EXPECT_EQ(RoundedUp(expected), Patch(source, "MS"));
}

TEST(DialogTemplate, ControlsStayAlignedForAnyLengthOfTheFace) {
  for (const char16_t* old : {u"", u"a", u"ab", u"abc"}) {
    for (const char* face : {"", "x", "xy", "xyz"}) {
      std::u16string wide;
      for (const char* unit = face; *unit; ++unit) wide += static_cast<char16_t>(*unit);
      EXPECT_EQ(RoundedUp(PlainTemplate(wide).PlainControl(9, u"Edit", u"").Bytes),
                Patch(PlainTemplate(old).PlainControl(9, u"Edit", u"").Bytes, face));
    }
  }
}

TEST(DialogTemplate, ExtendedFontGetsTheDefaultCharacterSet) {
  const auto make = [](std::u16string_view face, uint32_t charset) {
    TemplateBytes bytes;
    bytes.ExtendedHead(kStyleFont, 0).Word(0).Word(0).Text(u"T");
    bytes.Word(9).Word(400).Byte(1).Byte(charset).Text(face).Align();
    return bytes.Dword(0xAABBCCDD).Bytes;
  };
  EXPECT_EQ(make(u"MS Shell Dlg", 1), Patch(make(u"Helv", 0xEE)));
}

TEST(DialogTemplate, NumbersInPlaceOfNamesAreOneWordMore) {
  const auto make = [](std::u16string_view face) {
    TemplateBytes bytes;
    bytes.PlainHead(kStyleFont, 0).Word(0xFFFF).Word(0).Word(0xFFFF).Word(0x8002);
    bytes.Word(0xFFFF).Word(77).Word(8).Text(face).Align();
    return bytes.Dword(0x01020304).Bytes;
  };
  EXPECT_EQ(make(u"MS Shell Dlg"), Patch(make(u"X")));
}

TEST(DialogTemplate, NamesOfMenuAndClassAreSkipped) {
  const auto make = [](std::u16string_view face) {
    TemplateBytes bytes;
    bytes.PlainHead(kStyleFont, 0).Text(u"menu").Text(u"class").Text(u"").Word(8).Text(face);
    return bytes.Align().Dword(5).Bytes;
  };
  EXPECT_EQ(make(u"MS Shell Dlg"), Patch(make(u"X")));
}

TEST(DialogTemplate, WithoutAFontNothingIsDone) {
  TemplateBytes plain;
  plain.PlainHead(0x80C80000, 1).Word(0).Word(0).Text(u"T").PlainControl(5, u"RichEdit20A", u"");
  plain.Dword(0).Dword(0).Dword(0).Dword(0).Dword(0).Dword(0);
  EXPECT_EQ(RoundedUp(plain.Bytes), Patch(plain.Bytes));
  TemplateBytes extended;
  extended.ExtendedHead(0x80C80000, 0).Word(0).Word(0).Text(u"T").Word(8).Word(0);
  EXPECT_EQ(RoundedUp(extended.Bytes), Patch(extended.Bytes));
}

// In the extended form the bit counts in the style, not where a plain style would lie.
TEST(DialogTemplate, TheStyleIsLookedForByTheForm) {
  TemplateBytes extended;
  extended.Word(1).Word(0xFFFF).Dword(kStyleFont).Dword(kStyleFont).Dword(0);
  extended.Word(0).Word(0).Word(0).Word(0).Word(0).Word(0).Word(0).Word(0);
  extended.Word(8).Dword(0).Text(u"Arial");
  EXPECT_EQ(RoundedUp(extended.Bytes), Patch(extended.Bytes));
}

TEST(DialogTemplate, MessageFontStays) {
  TemplateBytes bytes;
  bytes.PlainHead(kStyleFont, 1).Word(0).Word(0).Text(u"T").Word(0x7FFF);
  bytes.PlainControl(5, u"Static", u"A");
  EXPECT_EQ(RoundedUp(bytes.Bytes), Patch(bytes.Bytes));
}

TEST(DialogTemplate, SizeIsRoundedUp) {
  Bytes source = PlainTemplate(u"Arial").Align().Byte(1).Byte(2).Byte(3).Bytes;
  const Bytes result = Patch(source, "Arial");
  source.push_back(0);
  EXPECT_EQ(source, result);
}

Bytes RichTemplate(std::u16string_view name) {
  TemplateBytes bytes = PlainTemplate(u"F");
  bytes.PlainControl(5, name, u"").Dword(0);
  return bytes.Bytes;
}

TEST(DialogTemplate, RichEditInAnyCaseBecomesWide) {
  for (const char16_t* name : {u"RichEdit20A", u"RICHEDIT20A", u"richedit20a", u"rIcHeDiT20a"})
    EXPECT_EQ(RoundedUp(RichTemplate(u"RichEdit20W")), Patch(RichTemplate(name), "F"));
  EXPECT_EQ(RoundedUp(RichTemplate(u"RichEdit50A")), Patch(RichTemplate(u"RichEdit50A"), "F"));
}

TEST(DialogTemplate, RichEditIsRewrittenOnlyOnTheNtPlatform) {
  const Bytes source = RichTemplate(u"RichEdit20A");
  EXPECT_EQ(RoundedUp(source), Patch(source, "F", false));
}

TEST(DialogTemplate, EveryRichEditBecomesWide) {
  const auto make = [](std::u16string_view name) {
    TemplateBytes bytes = PlainTemplate(u"F");
    return bytes.PlainControl(5, name, name).PlainControl(6, name, u"").Dword(0).Bytes;
  };
  EXPECT_EQ(RoundedUp(make(u"RichEdit20W")), Patch(make(u"RichEdit20A"), "F"));
}

// The last place looked at is 24 bytes before the end: the name and one unit more.
TEST(DialogTemplate, RichEditAtTheVeryEndStays) {
  const auto make = [](std::u16string_view name, bool oneMore) {
    TemplateBytes bytes = PlainTemplate(u"F").Align();
    if (!oneMore) bytes.Word(0);
    for (const char16_t unit : name) bytes.Word(unit);
    if (oneMore) bytes.Word(0);
    EXPECT_EQ(0u, bytes.Bytes.size() % 4);
    return bytes.Bytes;
  };
  EXPECT_EQ(make(u"RichEdit20W", true), Patch(make(u"RichEdit20A", true), "F"));
  EXPECT_EQ(make(u"RichEdit20A", false), Patch(make(u"RichEdit20A", false), "F"));
}

// Up to the end of the face name every cut leaves the template as it is; what is cut behind it is
// the system's to refuse.
TEST(DialogTemplate, ADamagedOneIsUsedUnpatched) {
  TemplateBytes plain = PlainTemplate(u"Arial");
  TemplateBytes extended;
  extended.ExtendedHead(kStyleFont, 0).Text(u"m").Word(0xFFFF).Word(3).Text(u"T");
  extended.Word(9).Word(400).Byte(0).Byte(0).Text(u"Arial");
  for (const Bytes& whole : {plain.Bytes, extended.Bytes}) {
    for (size_t size = 1; size < whole.size(); ++size) {
      const Bytes cut(whole.begin(), whole.begin() + static_cast<long>(size));
      EXPECT_EQ(RoundedUp(cut), Patch(cut)) << size;
    }
    EXPECT_NE(RoundedUp(whole), Patch(whole));
  }
}

TEST(DialogTemplate, NoTemplateGivesNoBytes) {
  Buffer result;
  PatchDialogTemplate(nullptr, 100, {}, &result);
  EXPECT_EQ(0u, result.Size);
}

TEST(DialogTemplate, RichEditBoxesOfEitherKindAreFound) {
  for (const char16_t* type : {u"RichEdit20A", u"RICHEDIT20W"}) {
    const Bytes source = PlainTemplate(u"Arial").PlainControl(100, type, u"").Bytes;
    const test::GuardedBlock block(source);
    EXPECT_TRUE(UsesRichEdit(block.Data(), static_cast<uint32_t>(source.size())));
  }
  Bytes source = PlainTemplate(u"Arial").PlainControl(100, u"RichEdit", u"Rich text").Bytes;
  source.push_back(0);
  const test::GuardedBlock block(source);
  EXPECT_FALSE(UsesRichEdit(block.Data(), static_cast<uint32_t>(source.size())));
  EXPECT_FALSE(UsesRichEdit(block.Data(), 3));
  EXPECT_FALSE(UsesRichEdit(nullptr, 0));
}

}  // namespace
}  // namespace ostvt
