// How a model comes to its encodings. Which of them come first: EncodingOrderTest.
#include <algorithm>

#include "platform/CodePages.h"
#include "tests/model/EncodingLists.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class PrinterModelEncodings : public ModelFixture {
 protected:
  // The font section's lines, the section of the encodings, and groups "Bitmap" and "Scalable" of
  // the encoding classes of those names.
  PrinterModel& Built(const std::string& fontLines, const std::string& encodings,
                      const TestPrinterOptions& options = {}) {
    DefineChain("Font=Font:F\n");
    Define("Font.d", "[F]\nEncodings=Encodings:E\n" + fontLines);
    Define("Encodings.d", "[E]\n" + encodings);
    Define("FontGroup.d",
           "[Bitmap.pfg]\nFont=One\nEncoding.Class=Bitmap\n"
           "[Scalable]\nFont=Two\nEncoding.Class=Scalable\n"
           "[Empty]\nEncoding.Class=Empty\n"
           "[Classless]\nFont=Three\n");
    return InstallAndOpen(options);
  }
  static std::string Encodings(PrinterModel& model) {
    OStringArray list = ListOf("rest of before");
    model.GetEncodings(&list);
    return TextOf(list);
  }
  // Where the order is that of a hash.
  static std::string Sorted(PrinterModel& model) {
    OStringArray list;
    model.GetEncodings(&list);
    list.Sort();
    return TextOf(list);
  }
  static std::string Charsets(PrinterModel& model) {
    ByteArray charsets;
    charsets.Add(99);
    model.GetCharacterSets(&charsets);
    return TextOf(charsets);
  }
  static std::string Preferred() {
    return "Encodings.Preferred." + std::to_string(platform::AnsiCodePage()) + "=";
  }
};

constexpr char kThree[] =
    "A.Classes=Bitmap;Other\nB.Classes=Scalable\nC.Classes=Symbol\nA.Description=x\n";

TEST_F(PrinterModelEncodings, ClassOfAFontGroupSelects) {
  EXPECT_EQ("A", Encodings(Built("Fonts=FontGroup:Bitmap.pfg\n", kThree)));
}

TEST_F(PrinterModelEncodings, ClassesOfSeveralGroupsSelect) {
  EXPECT_EQ("A,B", Sorted(Built("Fonts=Bitmap,FontGroup:Scalable.pfg,Bitmap\n", kThree)));
}

TEST_F(PrinterModelEncodings, ClassesOfDownloadedFontsSelect) {
  EXPECT_EQ("B,C", Sorted(Built("Encodings.TrueType.Class=scalable\n"
                                "Encodings.TTSymbolFont.Class=SYMBOL\n",
                                kThree)));
}

TEST_F(PrinterModelEncodings, ClassesAreComparedWholeAndWithoutRegardToCase) {
  EXPECT_EQ("A,B", Sorted(Built("Fonts=Bitmap\n",
                                "A.Classes=x;BITMAP\nB.Classes=bitmap\nC.Classes=Bitmap2\n"
                                "D.Classes=Bit;map\nF.Classes=x; Bitmap\n"
                                "G.Classes=\n")));
}

TEST_F(PrinterModelEncodings, GroupWithoutFontsOrWithoutAClassSelectsNothing) {
  EXPECT_EQ("", Encodings(Built("Fonts=Empty,Classless,Nowhere\n",
                                "A.Classes=Empty\nB.Classes=\nC.Classes=Bitmap\n")));
}

TEST_F(PrinterModelEncodings, NameEndsAtTheFirstPoint) {
  EXPECT_EQ("ISO-8859-1,X", Sorted(Built("Fonts=Bitmap\n",
                                         "ISO-8859-1.Classes=Bitmap\nX.y.Classes=Bitmap\n"
                                         "Classes=Bitmap\nZ.Class=Bitmap\n")));
}

TEST_F(PrinterModelEncodings, MakersWordForAKeyIsNoSecondEncoding) {
  EXPECT_EQ("1252", Encodings(Built("Fonts=Bitmap\n",
                                    "1252.Classes=Other\n1252.Classes(VT)=Bitmap\n"
                                    "1250.Classes=Bitmap\n1250.Classes(VT)=Other\n"
                                    "1251.Classes(KD)=Bitmap\n")));
}

TEST_F(PrinterModelEncodings, MakersWordAloneIsAnEncoding) {
  EXPECT_EQ("1252", Encodings(Built("Fonts=Bitmap\n", "1252.Classes(VT)=Bitmap\n")));
}

TEST_F(PrinterModelEncodings, MissingSectionsGiveAnEmptyList) {
  DefineChain("Font=Font:F\n");
  Define("Font.d", "[F]\nEncodings.TrueType.Class=T\nX.Classes=T\n");
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ("", Encodings(model));
  EXPECT_EQ("", Charsets(model));
  EXPECT_FALSE(model.IsUnicodeModel());
}

TEST_F(PrinterModelEncodings, PreferredListOfTheSystemsPageComesFirst) {
  EXPECT_EQ("B,Nowhere,A", Encodings(Built("Fonts=Bitmap,Scalable\n" + Preferred() +
                                               "B,Nowhere\nEncodings.Preferred.Default=A\n",
                                           kThree)));
}

TEST_F(PrinterModelEncodings, PreferredDefaultCountsWhereThePageHasNoList) {
  EXPECT_EQ("B,A", Encodings(Built("Fonts=Bitmap,Scalable\nEncodings.Preferred.1=A\n"
                                   "Encodings.Preferred.Default=B;A\n",
                                   kThree)));
}

TEST_F(PrinterModelEncodings, PreferredDefaultAnsiMeansWindowsPages) {
  const std::string ansi = std::to_string(platform::AnsiCodePage());
  PrinterModel& model =
      Built("Fonts=Bitmap\nEncodings.Preferred.Default=ansi\n",
            "UTF-8.Classes=Bitmap\n1255.Classes=Bitmap\n" + ansi + ".Classes=Bitmap\n");
  EXPECT_EQ(ansi + ",1255,UTF-8", Encodings(model));
}

TEST_F(PrinterModelEncodings, WithoutPreferenceTheSystemsPagesDecide) {
  const std::string ansi = std::to_string(platform::AnsiCodePage());
  PrinterModel& model = Built(
      "Fonts=Bitmap\n", "UTF-8.Classes=Bitmap\n1255.Classes=Bitmap\n" + ansi + ".Classes=Bitmap\n");
  EXPECT_EQ("UTF-8," + ansi + ",1255", Encodings(model));
}

TEST_F(PrinterModelEncodings, ClassesAreKeptInTheStoreAndReadFromThere) {
  PrinterModel& model = Built("Fonts=Bitmap\n", kThree);
  model.GetStore().WriteString("MODEL:FontEncodings/C.Classes", "Bitmap");
  EXPECT_EQ("A,C", Sorted(model));
  EXPECT_EQ(
      "Scalable",
      std::string(model.GetStore().ReadString("MODEL:FontEncodings/B.Classes", "-").GetNarrow()));
  EXPECT_LT(model.GetStore().GetValueSize("MODEL:FontEncodings/A.Description"), 0);
}

TEST_F(PrinterModelEncodings, ListIsBuiltOnceForAModel) {
  PrinterModel& model = Built("Fonts=Bitmap\n", kThree);
  EXPECT_EQ("A", Encodings(model));
  model.GetStore().WriteString("MODEL:FontEncodings/C.Classes", "Bitmap");
  EXPECT_EQ("A", Encodings(model));
  EXPECT_EQ("A,C", Sorted(Open()));
  model.RebuildEncodings();
  EXPECT_EQ("A,C", Sorted(model));
}

TEST_F(PrinterModelEncodings, EmptyListIsBuiltAgain) {
  PrinterModel& model = Built("", kThree);
  EXPECT_EQ("", Encodings(model));
  OStringArray groups = ListOf("Bitmap");
  model.GetStore().WriteMultiString("MODEL:Font Groups", groups);
  EXPECT_EQ("A", Encodings(model));
}

TEST_F(PrinterModelEncodings, ExpansionFontsBringTheirEncodings) {
  PrinterModel& model = Built("Fonts=Bitmap\n", "1250.Classes=Bitmap\n1251.Classes=Scalable\n");
  EXPECT_EQ("1250", Encodings(model));
  EXPECT_EQ("238", Charsets(model));
  model.SetExpansionFonts(ListOf("Scalable"));
  EXPECT_EQ("1250,1251", Sorted(model));
  ByteArray charsets;
  model.GetCharacterSets(&charsets);
  EXPECT_EQ(2, charsets.Count);
}

TEST_F(PrinterModelEncodings, AdministratorsTableRedirectsTheSection) {
  DefineChain("Font=Font:F\n");
  Define("Font.d", "[F]\nEncodings=Encodings:E\nEncodings.TrueType.Class=T\n");
  Define("Encodings.d", "[E]\nA.Classes=T\n[Mine]\nB.Classes=T\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteString("Settings:Table/Encodings", "Mine");
  EXPECT_EQ("B", Encodings(model));
}

TEST_F(PrinterModelEncodings, UnicodeModelHasCharacterSet1Alone) {
  PrinterModel& model = Built("Fonts=Bitmap\n", "UTF-8.Classes=Bitmap\n1252.Classes=Bitmap\n");
  EXPECT_EQ("1", Charsets(model));
  EXPECT_TRUE(model.IsUnicodeModel());
}

TEST_F(PrinterModelEncodings, OtherModelsAreNotUnicode) {
  PrinterModel& model = Built("Fonts=Bitmap\n", "1252.Classes=Bitmap\n850.Classes=Bitmap\n");
  EXPECT_EQ("0", Charsets(model));
  EXPECT_FALSE(model.IsUnicodeModel());
}

}  // namespace
}  // namespace ostvt::test
