#include "ui/Languages.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace ostvt {
namespace {

// A system and an archive with everything but what a test takes away.
class FakeNeeds final : public LanguageNeeds {
 public:
  bool HasCodePage(uint32_t codePage) override { return !MissingPages.contains(codePage); }
  bool HasModule(const OString& name) override {
    return !MissingModules.contains(name.GetNarrow());
  }

  std::set<uint32_t> MissingPages;
  std::set<std::string> MissingModules;
};

std::string Choose(const char* configured, const char* system, FakeNeeds needs = {}) {
  return ChooseLanguage(configured, system, "ost", needs).GetNarrow();
}

std::string Joined(const OStringArray& list) {
  std::string text;
  for (int32_t i = 0; i < list.Count; ++i) text += std::string(list[i].GetNarrow()) + ";";
  return text;
}

TEST(Languages, AbbreviationsMatchByTheirFirstLetters) {
  const struct {
    const char* Abbreviation;
    const char* Language;
  } rows[] = {
      {"CHS", "chs"}, {"cht", "cht"}, {"CSY", "csy"}, {"DAN", "dan"}, {"DEU", "deu"},
      {"DES", "deu"}, {"ELL", "ell"}, {"ENU", "enu"}, {"ENG", "enu"}, {"ESN", "esp"},
      {"FIN", "fin"}, {"FRA", "fra"}, {"FRC", "fra"}, {"HUN", "hun"}, {"ITA", "ita"},
      {"JPN", "jpn"}, {"KOR", "kor"}, {"NLD", "nld"}, {"NOR", "nor"}, {"PLK", "plk"},
      {"PTG", "ptg"}, {"PTB", "ptb"}, {"RUS", "rus"}, {"SVE", "sve"}, {"THA", "tha"},
      {"TRK", "trk"},
  };
  for (const auto& row : rows)
    EXPECT_STREQ(row.Language, LanguageOfAbbreviation(row.Abbreviation).GetNarrow());
}

TEST(Languages, AnUnknownAbbreviationIsEnglish) {
  EXPECT_STREQ("enu", LanguageOfAbbreviation("").GetNarrow());
  EXPECT_STREQ("enu", LanguageOfAbbreviation("JP").GetNarrow());
  EXPECT_STREQ("enu", LanguageOfAbbreviation("CHI").GetNarrow());
  EXPECT_STREQ("enu", LanguageOfAbbreviation("XDE").GetNarrow());
}

TEST(Languages, EachHasItsCodePage) {
  const struct {
    const char* Languages;
    uint32_t CodePage;
  } rows[] = {
      {"enufradeuitaespptbfindansvenornldptg", 1252},
      {"chs", 936},
      {"cht", 950},
      {"jpn", 932},
      {"csyplkhun", 1250},
      {"kor", 949},
      {"tha", 874},
      {"ell", 1253},
      {"trk", 1254},
      {"rus", 1251},
  };
  for (const auto& row : rows) {
    const std::string names = row.Languages;
    for (size_t i = 0; i < names.size(); i += 3)
      EXPECT_EQ(row.CodePage, CodePageOfLanguage(names.substr(i, 3).c_str())) << names.substr(i, 3);
  }
  EXPECT_EQ(0u, CodePageOfLanguage("lat"));
  EXPECT_EQ(1252u, CodePageOfLanguage("DEU"));
}

TEST(Languages, TheSettingSysMeansTheSystems) {
  EXPECT_EQ("deu", Choose("sys", "deu"));
  EXPECT_EQ("fra", Choose("fra", "deu"));
  EXPECT_EQ("fra", Choose("FRA", "deu"));
}

TEST(Languages, KoreanWithoutItsCodePageFallsBackToEnglish) {
  FakeNeeds needs;
  EXPECT_EQ("kor", Choose("sys", LanguageOfAbbreviation("ko").GetNarrow(), needs));
  needs.MissingPages = {949};
  EXPECT_EQ("enu", Choose("sys", LanguageOfAbbreviation("ko").GetNarrow(), needs));
}

TEST(Languages, OneOfTheModulesIsEnough) {
  FakeNeeds needs;
  needs.MissingModules = {"base-r[deu].dll"};
  EXPECT_EQ("deu", Choose("deu", "enu", needs));
  needs.MissingModules = {"ost-r[deu].dll"};
  EXPECT_EQ("deu", Choose("deu", "enu", needs));
  needs.MissingModules = {"base-r[deu].dll", "ost-r[deu].dll"};
  EXPECT_EQ("enu", Choose("deu", "enu", needs));
}

TEST(Languages, OneThatIsNotInTheTableIsEnglish) {
  EXPECT_EQ("enu", Choose("lat", "deu"));
  EXPECT_EQ("enu", Choose("", "deu"));
}

TEST(Languages, ModulesOfTheLanguageComeBeforeTheEnglishOnes) {
  OStringArray names;
  ListLanguageModules("ost", "deu", &names);
  EXPECT_EQ("base-r[deu].dll;ost-r[deu].dll;base-r[enu].dll;ost-r[enu].dll;", Joined(names));
  ListLanguageModules("ost", "enu", &names);
  EXPECT_EQ("base-r[enu].dll;ost-r[enu].dll;", Joined(names));
}

TEST(Languages, HelpFilesFallBackToEnglish) {
  OStringArray paths;
  ListHelpFiles("C:\\3", "ost", "Ostrel 4", "deu", &paths);
  EXPECT_EQ(
      "C:\\3\\ostOstrel 4deu.chm;C:\\3\\ostdeu.chm;C:\\3\\ostOstrel 4enu.chm;C:\\3\\ostenu.chm;",
      Joined(paths));
  ListHelpFiles("C:\\3", "ost", "Ostrel 4", "enu", &paths);
  EXPECT_EQ("C:\\3\\ostOstrel 4enu.chm;C:\\3\\ostenu.chm;", Joined(paths));
}

TEST(Languages, SignsNeedACodePageThatHasThem) {
  EXPECT_EQ(u'\u00A9', CopyrightSymbol("deu").GetWide()[0]);
  EXPECT_EQ(u'\u2122', TrademarkSymbol("csy").GetWide()[0]);
  EXPECT_EQ(u'\u00AE', RegisteredSymbol("trk").GetWide()[0]);
  EXPECT_EQ(1, CopyrightSymbol("deu").Length());
}

TEST(Languages, OthersGetPlainLetters) {
  for (const char* language : {"jpn", "kor", "tha", "lat"}) {
    EXPECT_STREQ("(C)", CopyrightSymbol(language).GetNarrow());
    EXPECT_STREQ("(TM)", TrademarkSymbol(language).GetNarrow());
    EXPECT_STREQ("(R)", RegisteredSymbol(language).GetNarrow());
  }
}

}  // namespace
}  // namespace ostvt
