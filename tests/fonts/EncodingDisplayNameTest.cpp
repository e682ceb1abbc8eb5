#include "fonts/EncodingDisplayName.h"

#include "tests/fonts/EncodingTexts.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

const NumberTexts kTexts;

std::string Shown(const char* name, PrinterModel* model = nullptr) {
  return EncodingDisplayName(name, model, kTexts).GetNarrow();
}

TEST(EncodingDisplayName, CodePages) {
  const struct {
    const char* Name;
    const char* Text;
  } rows[] = {{"437", "#1241 (OEM)"},   {"850", "#1241 (OEM)"},   {"858", "#1241 (OEM)"},
              {"1252", "#1241 (ANSI)"}, {"852", "#1242 (OEM)"},   {"1250", "#1242 (ANSI)"},
              {"855", "#1243 (OEM)"},   {"1251", "#1243 (ANSI)"}, {"737", "#1244 (OEM)"},
              {"1253", "#1244 (ANSI)"}, {"857", "#1245 (OEM)"},   {"1254", "#1245 (ANSI)"},
              {"862", "#1246 (OEM)"},   {"1255", "#1246 (ANSI)"}, {"864", "#1247 (OEM)"},
              {"1256", "#1247 (ANSI)"}, {"775", "#1248 (OEM)"},   {"1257", "#1248 (ANSI)"},
              {"1258", "#1249 (ANSI)"}, {"949", "#1253 (ANSI)"},  {"860", "#1259 (OEM)"},
              {"861", "#1258 (OEM)"},   {"863", "#1260 (OEM)"},   {"865", "#1261 (OEM)"},
              {"866", "#1300 (OEM)"},   {"869", "#1263 (OEM)"}};
  for (const auto& row : rows) EXPECT_EQ(row.Text, Shown(row.Name));
}

TEST(EncodingDisplayName, ThaiWindowsPageIsShownAsOem) { EXPECT_EQ("#1250 (OEM)", Shown("874")); }

TEST(EncodingDisplayName, EastAsianPagesTellTheirStandard) {
  EXPECT_EQ("#1251 (ANSI, ShiftJIS)", Shown("932"));
  EXPECT_EQ("#1252 (ANSI, GB2312)", Shown("936"));
  EXPECT_EQ("#1254 (ANSI, Big5)", Shown("950"));
}

TEST(EncodingDisplayName, IsoParts) {
  const int messages[] = {0,    1241, 1316, 1317, 1318, 1243, 1294, 1291,
                          1293, 1292, 1261, 1289, 0,    1248, 1262, 1241};
  for (int part = 0; part < 16; ++part) {
    const std::string text =
        messages[part] ? "#" + std::to_string(messages[part]) + " (ISO)" : std::string();
    EXPECT_EQ(text, Shown(("ISO-8859-" + std::to_string(part)).c_str())) << part;
  }
}

TEST(EncodingDisplayName, SetsOf7Bits) {
  const int rows[][2] = {{4, 1257},  {6, 1256},  {11, 1282}, {15, 1277},
                         {17, 1272}, {21, 1273}, {60, 1283}, {69, 1274}};
  for (const auto& row : rows) {
    EXPECT_EQ("#" + std::to_string(row[1]) + " (7-bit)",
              Shown(("ISO-" + std::to_string(row[0])).c_str()));
  }
}

TEST(EncodingDisplayName, Unicode) {
  EXPECT_EQ("UTF-8 (Unicode)", Shown("UTF-8"));
  EXPECT_EQ("UTF-16 (Unicode)", Shown("UTF-16"));
}

TEST(EncodingDisplayName, NamedSetOfJapan) { EXPECT_EQ("#1275 (JIS)", Shown("JIS")); }

TEST(EncodingDisplayName, UnknownNameIsEmpty) {
  for (const char* name : {"", "1361", "500", "ISO-8859-12", "ISO-5", "Mac-Western", "UTF-7"})
    EXPECT_EQ("", Shown(name)) << name;
}

TEST(EncodingDisplayName, LeadingZerosAreTheSameNumber) {
  EXPECT_EQ("#1241 (OEM)", Shown("0437"));
  EXPECT_EQ("", Shown("437x"));
}

TEST(EncodingDisplayName, CharacterSetsOfDataFonts) {
  const int rows[][2] = {{222, 1250}, {128, 1251}, {134, 1252}, {129, 1253}, {136, 1254},
                         {238, 1242}, {204, 1243}, {0, 1241},   {161, 1244}, {162, 1245},
                         {177, 1246}, {178, 1247}, {186, 1248}, {163, 1249}};
  std::string expected[256];
  for (const auto& row : rows) expected[row[0]] = "#" + std::to_string(row[1]);
  for (int charset = 0; charset < 256; ++charset) {
    const OString text = CharacterSetDisplayName(static_cast<uint8_t>(charset), kTexts);
    EXPECT_EQ(expected[charset], text.GetNarrow()) << charset;
  }
}

TEST(EncodingDisplayName, CustomSetIsMarkedOnce) {
  EXPECT_STREQ("Mine [#2225]", CustomCharacterSetDisplayName("Mine", kTexts).GetNarrow());
  EXPECT_STREQ("Mine [#2225]", CustomCharacterSetDisplayName("Mine [#2225]", kTexts).GetNarrow());
  EXPECT_STREQ("[#2225] [#2225]", CustomCharacterSetDisplayName("[#2225]", kTexts).GetNarrow());
  EXPECT_STREQ(" [#2225]", CustomCharacterSetDisplayName("", kTexts).GetNarrow());
}

class EncodingDescription : public ModelFixture {
 protected:
  std::string ShownFor(const std::string& description) {
    DefineChain("Font=Font:F\n");
    Define("Font.d", "[F]\nEncodings=Encodings:E\n");
    Define("Encodings.d", "[E]\nSigns.Description=" + description +
                              "\n1252.Description=Greek\n500.Description=Greek\n");
    InstallAndOpen();
    return Shown("Signs", Models.back().get());
  }
};

TEST_F(EncodingDescription, FirstItemIsALanguage) { EXPECT_EQ("#1244", ShownFor("Greek")); }

TEST_F(EncodingDescription, OtherItemsStandBehindIt) {
  EXPECT_EQ("#1241;Ostrel Symbols;Greek", ShownFor("Western;Ostrel Symbols;Greek"));
}

TEST_F(EncodingDescription, UnknownLanguageIsShownAsItStands) {
  EXPECT_EQ("Klingon;x", ShownFor("Klingon;x"));
}

TEST_F(EncodingDescription, MissingDescriptionIsEmpty) { EXPECT_EQ("", ShownFor("")); }

TEST_F(EncodingDescription, KnownNameNeedsNoDescription) {
  ShownFor("");
  EXPECT_EQ("#1241 (ANSI)", Shown("1252", Models.back().get()));
  EXPECT_EQ("#1244", Shown("500", Models.back().get()));
}

TEST_F(EncodingDescription, EveryLanguage) {
  const struct {
    const char* Name;
    int Message;
  } rows[] = {
      {"Arabic", 1247},    {"Cyrillic", 1243}, {"Czech", 1286},    {"Danish", 1281},
      {"Dutch", 1284},     {"English", 1271},  {"Estonian", 1295}, {"Finish", 1280},
      {"French", 1274},    {"German", 1273},   {"Greek", 1244},    {"Hebrew", 1246},
      {"Hungarian", 1290}, {"Italian", 1277},  {"Japanese", 1275}, {"Korean", 1288},
      {"Norwegian", 1283}, {"Polish", 1287},   {"Spanish", 1272},  {"Simplified Chinese", 1252},
      {"Swedish", 1282},   {"Thai", 1289},     {"Turkish", 1245},  {"Traditional Chinese", 1254},
      {"Western", 1241}};
  ShownFor("");
  PrinterModel& model = *Models.back();
  for (const auto& row : rows) {
    model.GetStore().WriteString("MODEL:FontEncodings/Signs.Description", row.Name);
    EXPECT_EQ("#" + std::to_string(row.Message), Shown("Signs", &model)) << row.Name;
  }
}

}  // namespace
}  // namespace ostvt::test
