#include "ui/Languages.h"

namespace ostvt {
namespace {

// The first whose letters an abbreviation begins with is its language: longer ones before shorter
// ones that they begin with.
struct Abbreviation {
  const char* Letters;
  const char* Language;
};
constexpr Abbreviation kAbbreviations[] = {
    {"chs", "chs"}, {"cht", "cht"}, {"cs", "csy"}, {"da", "dan"}, {"de", "deu"}, {"el", "ell"},
    {"en", "enu"},  {"es", "esp"},  {"fi", "fin"}, {"fr", "fra"}, {"hu", "hun"}, {"it", "ita"},
    {"jpn", "jpn"}, {"ko", "kor"},  {"nl", "nld"}, {"no", "nor"}, {"pl", "plk"}, {"ptg", "ptg"},
    {"pt", "ptb"},  {"ru", "rus"},  {"sv", "sve"}, {"th", "tha"}, {"tr", "trk"},
};

struct LanguagePage {
  const char* Language;
  uint32_t CodePage;
};
constexpr LanguagePage kLanguagePages[] = {
    {"enu", 1252}, {"fra", 1252}, {"deu", 1252}, {"ita", 1252}, {"esp", 1252}, {"ptb", 1252},
    {"fin", 1252}, {"dan", 1252}, {"sve", 1252}, {"nor", 1252}, {"nld", 1252}, {"ptg", 1252},
    {"chs", 936},  {"cht", 950},  {"jpn", 932},  {"csy", 1250}, {"plk", 1250}, {"hun", 1250},
    {"kor", 949},  {"tha", 874},  {"ell", 1253}, {"trk", 1254}, {"rus", 1251},
};

constexpr char kCommonStem[] = "base";

// The signs lie at the same numbers in all code pages from this one on.
constexpr uint32_t kFirstPageWithSigns = 1250;
constexpr char16_t kCopyrightSign = 0x00A9;
constexpr char16_t kTrademarkSign = 0x2122;
constexpr char16_t kRegisteredSign = 0x00AE;

OString Symbol(const OString& language, char16_t sign, const char* letters) {
  if (CodePageOfLanguage(language) >= kFirstPageWithSigns) return OString(sign);
  return letters;
}

}  // namespace

OString LanguageOfAbbreviation(const OString& abbreviation) {
  OString lower = abbreviation;
  lower.MakeLower();
  for (const Abbreviation& row : kAbbreviations) {
    if (lower.Find(row.Letters) == 0) return row.Language;
  }
  return kEnglish;
}

uint32_t CodePageOfLanguage(const OString& language) {
  for (const LanguagePage& row : kLanguagePages) {
    if (language.CompareNoCase(row.Language) == 0) return row.CodePage;
  }
  return 0;
}

OString LanguageModuleName(const OString& stem, const OString& language) {
  return stem + "-r[" + language + "].dll";
}

void ListLanguageModules(const OString& prefix, const OString& language, OStringArray* names) {
  names->SetSize(0);
  names->Add(LanguageModuleName(kCommonStem, language));
  names->Add(LanguageModuleName(prefix, language));
  if (language == kEnglish) return;
  names->Add(LanguageModuleName(kCommonStem, kEnglish));
  names->Add(LanguageModuleName(prefix, kEnglish));
}

OString ChooseLanguage(const OString& configured, const OString& system, const OString& prefix,
                       LanguageNeeds& needs) {
  OString language = configured.CompareNoCase(kSystemLanguage) == 0 ? system : configured;
  language.MakeLower();
  const uint32_t codePage = CodePageOfLanguage(language);
  if (codePage == 0 || language == kEnglish) return kEnglish;
  if (!needs.HasCodePage(codePage)) return kEnglish;
  if (!needs.HasModule(LanguageModuleName(kCommonStem, language)) &&
      !needs.HasModule(LanguageModuleName(prefix, language)))
    return kEnglish;
  return language;
}

void ListHelpFiles(const OString& directory, const OString& prefix, const OString& modelName,
                   const OString& language, OStringArray* paths) {
  paths->SetSize(0);
  const OString head = directory + "\\" + prefix;
  const auto add = [&](const OString& of) {
    paths->Add(head + modelName + of + ".chm");
    paths->Add(head + of + ".chm");
  };
  add(language);
  if (!(language == kEnglish)) add(kEnglish);
}

OString CopyrightSymbol(const OString& language) { return Symbol(language, kCopyrightSign, "(C)"); }
OString TrademarkSymbol(const OString& language) {
  return Symbol(language, kTrademarkSign, "(TM)");
}
OString RegisteredSymbol(const OString& language) {
  return Symbol(language, kRegisteredSign, "(R)");
}

}  // namespace ostvt
