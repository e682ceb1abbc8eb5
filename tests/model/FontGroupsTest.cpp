// What a model tells about fonts: groups of resident ones, and those of cards and packs.
#include "model/FontGroupInfo.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class FontGroups : public ModelFixture {
 protected:
  // With these lines in the font section.
  PrinterModel& OpenWith(const std::string& fontLines) {
    DefineChain("Font=Font:F\n");
    Define("Font.d", "[F]\n" + fontLines);
    return InstallAndOpen();
  }
  static std::string TextOf(const OStringArray& list) {
    std::string text;
    for (int32_t i = 0; i < list.Count; ++i) {
      text += (i == 0 ? "" : ",") + std::string(list[i].GetNarrow());
    }
    return text;
  }
  static std::string GroupsOf(PrinterModel& model) {
    OStringArray list;
    list.Add("rubbish");
    model.GetFontGroups(&list);
    return TextOf(list);
  }
  static std::string Stored(PrinterModel& model, const char* path) {
    OStringArray list;
    return model.GetStore().ReadMultiString(path, &list) ? TextOf(list) : "(none)";
  }
  static void Store(PrinterModel& model, const char* path, const std::string& list) {
    OStringArray array;
    array.Split(list.c_str(), ",");
    model.GetStore().WriteMultiString(path, array);
  }
};

constexpr char kGroups[] = "MODEL:Font Groups";
constexpr char kExpansion[] = "Settings:Expansion Fonts";
constexpr char kExcluded[] = "Settings:Excluded Fonts";

TEST_F(FontGroups, GroupIsItsBareNameInTheListAndInTheCache) {
  PrinterModel& model = OpenWith("Fonts=FontGroup:A.pfg,B,FontGroup:C,D.pfg\n");
  EXPECT_EQ("A,B,C,D", GroupsOf(model));
  EXPECT_EQ("A,B,C,D", Stored(model, kGroups));
}

TEST_F(FontGroups, EveryOccurrenceOfTheAffixesGoes) {
  PrinterModel& model = OpenWith("Fonts=FontGroup:FontGroup:A.pfg.pfg,x.pfgy\n");
  EXPECT_EQ("A,xy", GroupsOf(model));
}

TEST_F(FontGroups, GroupThatIsExpansionAndExcludedIsLeftOut) {
  PrinterModel& model = OpenWith("Fonts=FontGroup:A.pfg\n");
  Store(model, kExpansion, "FontGroup:Card.pfg,FontGroup:Pack.pfg");
  Store(model, kExcluded, "FontGroup:Card.pfg");
  EXPECT_EQ("A,Pack", GroupsOf(model));
}

TEST_F(FontGroups, ExcludedNamesAreComparedBareAndWithoutCase) {
  PrinterModel& model = OpenWith("Fonts=FontGroup:A.pfg,FontGroup:B.pfg,b,C\n");
  Store(model, kExcluded, "b,FontGroup:c.pfg");
  EXPECT_EQ("A", GroupsOf(model));
}

TEST_F(FontGroups, ExpansionGroupsComeLastAsOftenAsTheyStand) {
  PrinterModel& model = OpenWith("Fonts=A\n");
  Store(model, kExpansion, "C,B,C");
  EXPECT_EQ("A,C,B,C", GroupsOf(model));
}

TEST_F(FontGroups, ChangedExclusionNeedsAnInvalidatedCache) {
  PrinterModel& model = OpenWith("Fonts=A,B\n");
  EXPECT_EQ("A,B", GroupsOf(model));
  Store(model, kExcluded, "A");
  EXPECT_EQ("A,B", GroupsOf(model));
  model.Invalidate();
  EXPECT_EQ("B", GroupsOf(model));
}

TEST_F(FontGroups, StoredListIsTakenAsItStands) {
  PrinterModel& model = OpenWith("Fonts=A\n");
  Store(model, kGroups, "FontGroup:Z.pfg");
  Store(model, kExcluded, "Z");
  EXPECT_EQ("FontGroup:Z.pfg", GroupsOf(model));
}

TEST_F(FontGroups, EmptyListIsKeptToo) {
  PrinterModel& model = OpenWith("");
  EXPECT_EQ("(none)", Stored(model, kGroups));
  EXPECT_EQ("", GroupsOf(model));
  EXPECT_EQ("", Stored(model, kGroups));
  EXPECT_FALSE(model.HasFontGroups());
  Store(model, kExpansion, "A");
  EXPECT_FALSE(model.HasFontGroups());
  model.Invalidate();
  EXPECT_TRUE(model.HasFontGroups());
}

TEST_F(FontGroups, GroupsAreReadFromTheFontSection) {
  Define("Other.d", "[G]\nFonts=Wrong\n");
  DefineChain("Font=Font:F\nFontGroup=Other:G\nFonts=Wrong\n");
  Define("Font.d", "[F]\nFonts=Right\nFonts(VT)=Own,Right\n");
  EXPECT_EQ("Own,Right", GroupsOf(InstallAndOpen()));
}

TEST_F(FontGroups, GroupIsReadAndKept) {
  Define("FontGroup.d",
         "[A.pfg]\nFont=One,Two\nBitmap.ScaleToResolution=Yes\nEncoding.Class=Scalable\n"
         "RestrictedMethods=templatefile,STATICPAGE,FormatPage,Serialization,Static\n"
         "[A]\nFont=Wrong\n");
  PrinterModel& model = OpenWith("Fonts=A\n");
  FontGroupInfo info;
  ASSERT_TRUE(model.GetFontGroupInfo("A", &info));
  const auto check = [](const FontGroupInfo& group) {
    EXPECT_EQ("One,Two", TextOf(group.Fonts));
    EXPECT_TRUE(group.ScaleToResolution);
    EXPECT_TRUE(group.EncodingClass == "Scalable");
    EXPECT_EQ(0xF0000000u, group.Restrictions);
  };
  check(info);
  EXPECT_EQ("One,Two", Stored(model, "MODEL:FontGroup/A/Fonts"));
  EXPECT_EQ(1, model.GetStore().ReadByte("MODEL:FontGroup/A/Bitmap.ScaleToResolution", 9));
  EXPECT_TRUE(model.GetStore().ReadString("MODEL:FontGroup/A/Encoding.Class", "") == "Scalable");
  EXPECT_EQ("templatefile,STATICPAGE,FormatPage,Serialization,Static",
            Stored(model, "MODEL:FontGroup/A/RestrictedMethods"));
  FontGroupInfo again;
  ASSERT_TRUE(model.GetFontGroupInfo("A", &again));
  check(again);
}

TEST_F(FontGroups, EachMethodHasItsBit) {
  Define("FontGroup.d",
         "[T]\nFont=x\nRestrictedMethods=TemplateFile\n[S]\nFont=x\nRestrictedMethods=StaticPage\n"
         "[F]\nFont=x\nRestrictedMethods=FormatPage\n[N]\nFont=x\n"
         "RestrictedMethods=Serialization\n[V]\nFont=x\nRestrictedMethods=Static,VariableData\n");
  PrinterModel& model = OpenWith("");
  const auto bits = [&](const char* group) {
    FontGroupInfo info;
    EXPECT_TRUE(model.GetFontGroupInfo(group, &info));
    return info.Restrictions;
  };
  EXPECT_EQ(0x10000000u, bits("T"));
  EXPECT_EQ(0x20000000u, bits("S"));
  EXPECT_EQ(0x40000000u, bits("F"));
  EXPECT_EQ(0x80000000u, bits("N"));
  EXPECT_EQ(0u, bits("V"));
}

TEST_F(FontGroups, GroupWithoutRestrictionsKeepsNoEmptyValues) {
  Define("FontGroup.d", "[A]\nFont=One\n");
  PrinterModel& model = OpenWith("");
  FontGroupInfo info;
  info.ScaleToResolution = true;
  info.EncodingClass = "old";
  info.Restrictions = 1;
  for (int round = 0; round < 2; ++round) {  // from the definition, then from the store
    ASSERT_TRUE(model.GetFontGroupInfo("A", &info));
    EXPECT_FALSE(info.ScaleToResolution);
    EXPECT_TRUE(info.EncodingClass.IsEmpty());
    EXPECT_EQ(0u, info.Restrictions);
  }
  EXPECT_EQ(0, model.GetStore().ReadByte("MODEL:FontGroup/A/Bitmap.ScaleToResolution", 9));
  EXPECT_EQ(-1, model.GetStore().GetValueSize("MODEL:FontGroup/A/Encoding.Class"));
  EXPECT_EQ(-1, model.GetStore().GetValueSize("MODEL:FontGroup/A/RestrictedMethods"));
}

TEST_F(FontGroups, KeptGroupOutlivesItsDefinition) {
  PrinterModel& model = OpenWith("");
  Store(model, "MODEL:FontGroup/A/Fonts", "Kept");
  Store(model, "MODEL:FontGroup/A/RestrictedMethods", "StaticPage");
  FontGroupInfo info;
  ASSERT_TRUE(model.GetFontGroupInfo("A", &info));
  EXPECT_EQ("Kept", TextOf(info.Fonts));
  EXPECT_FALSE(info.ScaleToResolution);
  EXPECT_EQ(0x20000000u, info.Restrictions);
}

TEST_F(FontGroups, GroupWithoutFontsIsNoneAndNotKept) {
  Define("FontGroup.d", "[A]\nEncoding.Class=Scalable\n");
  PrinterModel& model = OpenWith("");
  FontGroupInfo info;
  info.EncodingClass = "untouched";
  for (const char* group : {"A", "Missing", "", "X:Y"}) {
    EXPECT_FALSE(model.GetFontGroupInfo(group, &info)) << group;
  }
  EXPECT_TRUE(info.EncodingClass == "untouched");
  EXPECT_FALSE(model.GetStore().GetKeyInfo("MODEL:FontGroup", nullptr, nullptr));
}

TEST_F(FontGroups, NameWithSeparatorsIsOneKey) {
  Define("FontGroup.d", "[A/B:100%]\nFont=One\n");
  PrinterModel& model = OpenWith("");
  FontGroupInfo info;
  EXPECT_TRUE(model.GetFontGroupInfo("A/B:100%", &info));
  OStringArray keys;
  EXPECT_EQ(1, model.GetStore().EnumerateKeys("MODEL:FontGroup", &keys));
  EXPECT_TRUE(keys[0] == "A/B:100%");
}

TEST_F(FontGroups, CustomFontsFollowDownloadsWhereNothingIsSaid) {
  EXPECT_FALSE(OpenWith("Download.TrueType=No\n").AllowsCustomFonts());
}

TEST_F(FontGroups, CustomFontsAreAllowedWithTrueTypeDownload) {
  EXPECT_TRUE(OpenWith("Download.TrueType=Yes\n").AllowsCustomFonts());
}

TEST_F(FontGroups, CustomFontsAreAllowedWithBitmapDownload) {
  EXPECT_TRUE(OpenWith("Download.Bitmap=Yes\n").AllowsCustomFonts());
}

TEST_F(FontGroups, CustomFontsSetToFalseStayFalseOnAModelThatCanDownload) {
  EXPECT_FALSE(OpenWith("Download.TrueType=Yes\nDownload.Bitmap=Yes\n~FontOptions.Custom=false\n")
                   .AllowsCustomFonts());
}

TEST_F(FontGroups, CustomFontsSetToTrueNeedNoDownload) {
  EXPECT_TRUE(OpenWith("~FontOptions.Custom=true\n").AllowsCustomFonts());
}

TEST_F(FontGroups, CustomFontsSetToNonsenseAreNotAllowed) {
  EXPECT_FALSE(OpenWith("Download.Bitmap=Yes\n~FontOptions.Custom=maybe\n").AllowsCustomFonts());
}

TEST_F(FontGroups, PredefinedFontsAreOfferedOnlyWhereItIsSaid) {
  EXPECT_FALSE(OpenWith("").AllowsPredefinedFonts());
}

TEST_F(FontGroups, PredefinedFontsAreOffered) {
  EXPECT_TRUE(OpenWith("~FontOptions.Predefined=Yes\n").AllowsPredefinedFonts());
}

TEST_F(FontGroups, ProvidersLeadToFontsAndFontsToValues) {
  Define("FontOptions.d",
         "[Card]\nSerif=OptionalFont:Serif\nSerif(VT)=OptionalFont:Own\nLost=\n"
         "Digits (KD)=OptionalFont:Serif\nTheirs(KD)=OptionalFont:Serif\n"
         "Only(VT)=OptionalFont:Serif\n");
  Define("OptionalFont.d", "[Serif]\nType=Bitmap\n[Own]\nType=TrueType\nFontID=7\nFontID(VT)=8\n");
  PrinterModel& model = OpenWith(
      "~FontOptions.Providers=Card,Empty\n~FontOptions.Card=FontOptions:Card\n"
      "Serif=OptionalFont:Serif\nType=Wrong\n");
  OStringArray list;
  model.GetFontProviders(&list);
  EXPECT_EQ("Card,Empty", TextOf(list));

  model.GetProviderFonts("Card", &list);
  list.Sort();
  // A maker's own word is no further font, but may be the only one; another maker's is none.
  EXPECT_EQ("Digits (KD),Lost,Only,Serif", TextOf(list));
  model.GetProviderFonts("Empty", &list);
  EXPECT_EQ(0, list.Count);

  const auto value = [&](const char* provider, const char* font, const char* key) {
    return std::string(model.GetProviderFontValue(provider, font, key).GetNarrow());
  };
  EXPECT_EQ("TrueType", value("Card", "Serif", "Type"));
  EXPECT_EQ("8", value("Card", "Serif", "FontID"));
  EXPECT_EQ("Bitmap", value("Card", "Digits (KD)", "Type"));
  EXPECT_EQ("Bitmap", value("Card", "Only", "Type"));
  EXPECT_EQ("", value("Card", "Serif", "Location"));
  // What leads nowhere doesn't leave the section in force that it was looked for in.
  EXPECT_EQ("", value("Card", "Lost", "Type"));
  EXPECT_EQ("", value("Card", "Missing", "Type"));
  EXPECT_EQ("", value("Empty", "Serif", "Type"));
}

TEST_F(FontGroups, NewExpansionFontsInvalidateTheModel) {
  PrinterModel& model = OpenWith("Fonts=A\n");
  EXPECT_EQ("A", GroupsOf(model));
  const uint32_t before = model.GetStore().ReadDword("MODEL:Synchronization", 0);
  OStringArray groups;
  groups.Add("FontGroup:Card.pfg");
  model.SetExpansionFonts(groups);
  EXPECT_EQ("FontGroup:Card.pfg", Stored(model, kExpansion));
  EXPECT_NE(before, model.GetStore().ReadDword("MODEL:Synchronization", 0));
  EXPECT_EQ("A,Card", GroupsOf(model));
  groups.SetSize(0);
  model.SetExpansionFonts(groups);
  EXPECT_EQ("A", GroupsOf(model));
}

TEST_F(FontGroups, NewExpansionFontsBringTheirEncodings) {
  Define("FontGroup.d", "[A]\nFont=a\nEncoding.Class=One\n[Card]\nFont=b\nEncoding.Class=Two\n");
  Define("Encodings.d", "[E]\n437.Classes=One\n852.Classes=Two\n");
  PrinterModel& model = OpenWith("Fonts=A\nEncodings=Encodings:E\n");
  OStringArray encodings;
  model.GetEncodings(&encodings);
  EXPECT_EQ("437", TextOf(encodings));
  OStringArray groups;
  groups.Add("FontGroup:Card.pfg");
  model.SetExpansionFonts(groups);
  model.GetEncodings(&encodings);
  encodings.Sort();
  EXPECT_EQ("437,852", TextOf(encodings));
}

}  // namespace
}  // namespace ostvt::test
