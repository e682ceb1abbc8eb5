// Downloaded fonts in memory and in the store.
#include "fonts/DownloadedFontList.h"

#include <cstddef>

#include "core/Crc.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

DownloadedFont* Named(const OString& fullName, uint16_t type = kDownloadedTrueType) {
  auto* font = new DownloadedFont;
  SetFullName(&font->Info, fullName);
  font->Type = type;
  return font;
}

class DownloadedFonts : public FontTest {
 protected:
  std::string Names() const { return NamesOf(List); }
  static std::string NamesOf(const DownloadedFontList& list) {
    std::string names;
    for (const DownloadedFont* font = list.GetFirst(); font; font = font->GetNext()) {
      names += (names.empty() ? "" : ",") + std::string(GetFullName(font->Info).GetNarrow());
    }
    return names;
  }
  static OString Key(const char* number, const char* value) {
    return OString("Fonts:Downloaded Font ") + number + ":: " + value;
  }
  void PutInfo(const char* number, const OString& fullName) {
    FontInfo info = {};
    SetFullName(&info, fullName);
    Store().WriteBinary(Key(number, "FontInfo"), &info, sizeof(info));
  }
  uint32_t Dword(const char* number, const char* value) {
    return Store().ReadDword(Key(number, value), 0xBAD);
  }
  int32_t Size(const char* number, const char* value) {
    return Store().GetValueSize(Key(number, value));
  }

  DownloadedFontList List;
};

TEST_F(DownloadedFonts, NewNodeHasItsDefaults) {
  const DownloadedFont font;
  const FontInfo none = {};
  EXPECT_EQ(0, CompareBytes(&none, &font.Info, sizeof(none)));
  EXPECT_EQ(0, font.Type);
  EXPECT_EQ(0, font.Status);
  EXPECT_TRUE(font.FaceName == "Arial");
  EXPECT_EQ(400, font.Weight);
  EXPECT_EQ(0, font.Italic);
  EXPECT_EQ(0, font.CharacterSet);
  EXPECT_EQ(120u, font.PointSize);
  EXPECT_EQ(0x10000u, font.ScaleFactor);
  EXPECT_EQ(0, font.EncodingTable.Count);
}

TEST_F(DownloadedFonts, NodesKnowTheirListAndTheirPlace) {
  DownloadedFont* a = Named("A");
  DownloadedFont* b = Named("B");
  DownloadedFont* c = Named("C");
  EXPECT_TRUE(List.Append(a));
  EXPECT_TRUE(List.Append(c));
  EXPECT_FALSE(List.Append(nullptr));
  EXPECT_TRUE(List.InsertBefore(b, c));
  EXPECT_EQ("A,B,C", Names());
  EXPECT_EQ(&List, b->Owner);
  EXPECT_TRUE(List.Detach(a));
  EXPECT_FALSE(List.Detach(a));
  EXPECT_EQ("B,C", Names());
  EXPECT_EQ(2, List.GetCount());
  delete a;
  delete c;
  EXPECT_EQ("B", Names());
  List.Clear();
  EXPECT_EQ(0, List.GetCount());
}

TEST_F(DownloadedFonts, FileIdsAreComparedExactly) {
  DownloadedFont* font = Named("A");
  SetFileId(&font->Info, "E12");
  List.Append(font);
  EXPECT_TRUE(List.FileIdExists("E12"));
  EXPECT_FALSE(List.FileIdExists("e12"));
  EXPECT_FALSE(List.FileIdExists("E1"));
  EXPECT_FALSE(List.FileIdExists("E*"));
  EXPECT_FALSE(List.FileIdExists(""));
}

TEST_F(DownloadedFonts, FileNamesAreComparedWithoutTheirEnding) {
  for (const char* name : {" SANS .TTF.BAK", "MONO", ".HID"}) {
    DownloadedFont* font = Named(name);
    SetFileName(&font->Info, name);
    List.Append(font);
  }
  EXPECT_TRUE(List.FileNameExists("SANS"));
  EXPECT_FALSE(List.FileNameExists("SANS.TTF"));
  EXPECT_FALSE(List.FileNameExists("sans"));
  EXPECT_TRUE(List.FileNameExists("MONO"));
  EXPECT_TRUE(List.FileNameExists(""));
  EXPECT_FALSE(List.FileNameExists("HID"));
}

TEST_F(DownloadedFonts, SameFontHasTheSameNameInAnyCase) {
  List.Append(Named("Sans"));
  std::unique_ptr<DownloadedFont> other(Named("sANS", kDownloadedPostScript));
  other->PointSize = 5;
  EXPECT_EQ(List.GetFirst(), List.FindSame(*other));
  other->Type = kDownloadedBitmap;
  EXPECT_EQ(nullptr, List.FindSame(*other));
  other.reset(Named("Sans 2"));
  EXPECT_EQ(nullptr, List.FindSame(*other));
}

TEST_F(DownloadedFonts, SameBitmapFontHasTheSameSizeScaleAndTable) {
  List.Append(Named("Sans", kDownloadedBitmap));
  std::unique_ptr<DownloadedFont> other(Named("Sans", kDownloadedBitmap));
  EXPECT_EQ(List.GetFirst(), List.FindSame(*other));
  other->PointSize = 121;
  EXPECT_EQ(nullptr, List.FindSame(*other));
  other->PointSize = 120;
  other->ScaleFactor = 1;
  EXPECT_EQ(nullptr, List.FindSame(*other));
  other->ScaleFactor = kWholeRatio;
  other->EncodingTable.SetSize(kEncodingEntries);
  EXPECT_EQ(nullptr, List.FindSame(*other));  // 256 zeros are not no table
  List.GetFirst()->EncodingTable.SetSize(kEncodingEntries);
  EXPECT_EQ(List.GetFirst(), List.FindSame(*other));
  other->EncodingTable[255] = 1;
  EXPECT_EQ(nullptr, List.FindSame(*other));
}

TEST_F(DownloadedFonts, FontIsStoredUnderItsNumber) {
  for (int i = 1; i <= 123; ++i) List.Append(Named(OString::FromInt(i, 1)));
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(123u, Store().ReadDword("Fonts:Downloaded Font Total", 0));
  for (const auto& [number, name] :
       {std::pair("01", "1"), std::pair("07", "7"), std::pair("10", "10"), std::pair("23", "23"),
        std::pair("123", "123")}) {
    FontInfo info;
    ASSERT_EQ(348, Store().ReadBinary(Key(number, "FontInfo"), &info, sizeof(info))) << number;
    EXPECT_EQ(std::string(name), GetFullName(info).GetNarrow());
  }
  // The values lie in one key, the colon a plain one in their names.
  OStringArray values;
  EXPECT_EQ(123 * 7 + 1, Store().EnumerateValues("DATA:Downloaded Fonts", &values));
  EXPECT_TRUE(values.Find("Downloaded Font 07: FontInfo") >= 0);
  EXPECT_TRUE(values.Find("Downloaded Font Total") >= 0);
}

TEST_F(DownloadedFonts, TrueTypeFontIsStoredValueByValue) {
  DownloadedFont* font = Named("Sans");
  font->Status = kDownloadedLocal;
  font->Italic = 255;
  font->Weight = 700;
  font->FaceName = "Verdana";
  font->CharacterSet = 204;
  List.Append(font);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(1u, Dword("01", "Type"));
  EXPECT_EQ(2u, Dword("01", "Status"));
  EXPECT_EQ(348, Size("01", "FontInfo"));
  EXPECT_EQ(1, Size("01", "Italic"));
  EXPECT_EQ(255, Store().ReadByte(Key("01", "Italic"), 0));
  EXPECT_EQ(700u, Dword("01", "Weight"));
  EXPECT_TRUE(Store().ReadString(Key("01", "Face Name"), "") == "Verdana");
  EXPECT_EQ(1, Size("01", "Character Set"));
  EXPECT_EQ(204, Store().ReadByte(Key("01", "Character Set"), 0));
  for (const char* value : {"Point Size", "Scale Factor", "Encoding Table"}) {
    EXPECT_EQ(-1, Size("01", value)) << value;
  }
}

TEST_F(DownloadedFonts, BitmapFontIsStoredWithSizeScaleAndTable) {
  DownloadedFont* font = Named("Sans", kDownloadedBitmap);
  font->PointSize = 95;
  font->ScaleFactor = 0x8000;
  font->EncodingTable.SetSize(kEncodingEntries);
  font->EncodingTable[1] = 0x1234;
  List.Append(font);
  List.Append(Named("Mono", kDownloadedBitmap));
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(95u, Dword("01", "Point Size"));
  EXPECT_EQ(0x8000u, Dword("01", "Scale Factor"));
  uint8_t table[512];
  ASSERT_EQ(512, Store().ReadBinary(Key("01", "Encoding Table"), table, 512));
  EXPECT_EQ(0x34, table[2]);
  EXPECT_EQ(0x12, table[3]);
  EXPECT_EQ(-1, Size("02", "Encoding Table"));
}

// The table of the font that lay there before must not become this one's.
TEST_F(DownloadedFonts, FontWithoutATableDoesNotInheritOne) {
  DownloadedFont* font = Named("Sans", kDownloadedBitmap);
  font->EncodingTable.SetSize(kEncodingEntries);
  font->EncodingTable[0] = 7;
  List.Append(font);
  EXPECT_TRUE(List.Save(Model()));
  font->EncodingTable.SetSize(0);
  EXPECT_TRUE(List.Save(Model()));
  List.Load(Model());
  EXPECT_EQ(std::vector<uint16_t>(256, 0), Entries(List.GetFirst()->EncodingTable));
}

TEST_F(DownloadedFonts, WhatIsStoredComesBack) {
  DownloadedFont* font = Named(u"S\u00E4ns", kDownloadedBitmap);
  font->Status = kDownloadedLocal;
  font->Info.Location = 'E';
  font->FaceName = u"\u6807";
  font->Weight = 700;
  font->Italic = 1;
  font->CharacterSet = 128;
  font->PointSize = 95;
  font->ScaleFactor = 0x8000;
  font->EncodingTable.SetSize(kEncodingEntries);
  font->EncodingTable[255] = 1;
  List.Append(font);
  List.Append(Named("B", kDownloadedSpeedo));
  EXPECT_TRUE(List.Save(Model()));
  DownloadedFontList other;
  other.Load(Model());
  EXPECT_EQ(Names(), NamesOf(other));
  EXPECT_EQ(List.Signature(), other.Signature());
  EXPECT_NE(0u, other.Signature());
}

TEST_F(DownloadedFonts, Status1ComesBackAs0) {
  DownloadedFont* font = Named("Sans");
  font->Status = kDownloadedTransient;
  List.Append(font);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(1, font->Status);
  EXPECT_EQ(0u, Dword("01", "Status"));
  Store().WriteDword(Key("01", "Status"), 1u);  // as others may have written it
  List.Load(Model());
  ASSERT_EQ("Sans", Names());
  EXPECT_EQ(0, List.GetFirst()->Status);
}

TEST_F(DownloadedFonts, RequestIsNeitherStoredNorRead) {
  DownloadedFont* font = Named("Sans");
  font->Info.Request = kFontRequestDelete;
  List.Append(font);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(3, uint16_t{font->Info.Request});
  FontInfo info = {};
  ASSERT_EQ(348, Store().ReadBinary(Key("01", "FontInfo"), &info, sizeof(info)));
  EXPECT_EQ(0, uint16_t{info.Request});
  info.Request = 0x102;  // as others may have written it
  Store().WriteBinary(Key("01", "FontInfo"), &info, sizeof(info));
  List.Load(Model());
  ASSERT_EQ("Sans", Names());
  EXPECT_EQ(0, uint16_t{List.GetFirst()->Info.Request});
}

TEST_F(DownloadedFonts, StoredTextsThatFillTheirFieldsAreEnded) {
  FontInfo info;
  FillBytes(&info, 'x', sizeof(info));
  Store().WriteBinary(Key("01", "FontInfo"), &info, sizeof(info));
  Store().WriteDword("Fonts:Downloaded Font Total", 1u);
  List.Load(Model());
  ASSERT_EQ(1, List.GetCount());
  const FontInfo& read = List.GetFirst()->Info;
  EXPECT_EQ(0x7878, int{read.FullName[62]});
  EXPECT_EQ(0, int{read.FullName[63]});
  for (const auto* field : {&read.FileId, &read.FileName, &read.FilePath}) {
    EXPECT_EQ('x', (*field)[62]);
    EXPECT_EQ(0, (*field)[63]);
  }
  EXPECT_EQ(0x78787878u, uint32_t{read.Location});
}

TEST_F(DownloadedFonts, TotalOf0LeavesOlderValuesInPlaceUnread) {
  List.Append(Named("A"));
  List.Append(Named("B"));
  EXPECT_TRUE(List.Save(Model()));
  List.Clear();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(0u, Store().ReadDword("Fonts:Downloaded Font Total", 9));
  EXPECT_EQ(348, Size("01", "FontInfo"));
  EXPECT_EQ(348, Size("02", "FontInfo"));
  List.Load(Model());
  EXPECT_EQ("", Names());
}

TEST_F(DownloadedFonts, TotalThatIsNoneIsHeldBetween0And9999) {
  PutInfo("01", "A");
  PutInfo("9999", "Last");
  PutInfo("10000", "Behind");
  const auto load = [&](uint32_t total) {
    Store().WriteDword("Fonts:Downloaded Font Total", total);
    List.Load(Model());
    return Names();
  };
  EXPECT_EQ("", load(0xFFFFFFFF));
  EXPECT_EQ("", load(0x80000000));
  EXPECT_EQ("A", load(9998));
  EXPECT_EQ("A,Last", load(0x7FFFFFFF));
}

TEST_F(DownloadedFonts, FontWithoutItsWholeInfoIsDropped) {
  Store().WriteDword("Fonts:Downloaded Font Total", 4u);
  const std::vector<uint8_t> bytes(400, 1);
  Store().WriteBinary(Key("01", "FontInfo"), bytes.data(), 347);
  Store().WriteBinary(Key("02", "FontInfo"), bytes.data(), 349);
  Store().WriteDword(Key("03", "Type"), 1u);
  PutInfo("04", "Whole");
  List.Load(Model());
  ASSERT_EQ("Whole", Names());
  // Nothing else is there: defaults.
  EXPECT_EQ(0, List.GetFirst()->Type);
  EXPECT_TRUE(List.GetFirst()->FaceName == "Arial");
  EXPECT_EQ(400, List.GetFirst()->Weight);
}

TEST_F(DownloadedFonts, BitmapFontAlwaysGetsATable) {
  Store().WriteDword("Fonts:Downloaded Font Total", 3u);
  const std::vector<uint8_t> bytes(600, 1);
  for (const auto& [number, size] :
       {std::pair("01", 0), std::pair("02", 3), std::pair("03", 600)}) {
    PutInfo(number, number);
    Store().WriteDword(Key(number, "Type"), 2u);
    if (size > 0) Store().WriteBinary(Key(number, "Encoding Table"), bytes.data(), size);
  }
  List.Load(Model());
  std::vector<uint16_t> expected(256, 0);
  EXPECT_EQ(expected, Entries(List.GetFirst()->EncodingTable));
  expected[0] = 0x101;
  expected[1] = 1;
  EXPECT_EQ(expected, Entries(List.GetFirst()->GetNext()->EncodingTable));
  EXPECT_EQ(std::vector<uint16_t>(256, 0x101),
            Entries(List.GetFirst()->GetNext()->GetNext()->EncodingTable));
}

TEST_F(DownloadedFonts, ListKnowsModelAndUser) {
  List.Load(Model());
  EXPECT_EQ(300, List.VerticalResolution);
  EXPECT_TRUE(List.RotatesTextFreely);
  EXPECT_TRUE(List.Enabled);
  EXPECT_TRUE(List.AllowsMagnification);
  EXPECT_TRUE(List.AlwaysUsesClosest);
  Store().WriteByte("Settings:Fonts/Downloaded:: Enabled", 0);
  List.Load(Model());
  EXPECT_FALSE(List.Enabled);
  EXPECT_TRUE(List.AllowsMagnification);
  Store().WriteByte("Settings:Fonts/Downloaded:: Allow Magnifications", 0);
  Store().WriteByte("Settings:Fonts/Downloaded:: Always Use Closest", 0);
  List.Load(Model());
  EXPECT_FALSE(List.AllowsMagnification);
  EXPECT_FALSE(List.AlwaysUsesClosest);
}

TEST_F(DownloadedFonts, SignatureChangesWithEveryField) {
  DownloadedFont* font = Named("A");
  List.Append(font);
  uint32_t last = List.Signature();
  const auto changed = [&] {
    const uint32_t before = last;
    last = List.Signature();
    return before != last;
  };
  EXPECT_FALSE(changed());
  font->Info.Location = 1;
  EXPECT_TRUE(changed());
  font->Type = 5;
  EXPECT_TRUE(changed());
  font->Status = 2;
  EXPECT_TRUE(changed());
  font->FaceName = "B";
  EXPECT_TRUE(changed());
  font->Weight = 1;
  EXPECT_TRUE(changed());
  font->Italic = 1;
  EXPECT_TRUE(changed());
  font->CharacterSet = 1;
  EXPECT_TRUE(changed());
  font->PointSize = 1;
  EXPECT_TRUE(changed());
  font->ScaleFactor = 1;
  EXPECT_TRUE(changed());
  font->EncodingTable.SetSize(kEncodingEntries);
  EXPECT_TRUE(changed());
}

TEST_F(DownloadedFonts, NoModelMeansNoFonts) {
  List.Append(Named("A"));
  EXPECT_FALSE(List.Save(nullptr));
  List.Load(nullptr);
  EXPECT_EQ(0, List.GetCount());
}

}  // namespace
}  // namespace ostvt::test
