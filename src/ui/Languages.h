// The languages of the user interface, by their codes of three letters, and which modules and files
// a language has.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

// English, which every other language falls back to.
inline constexpr char kEnglish[] = "enu";
// The setting that stands for the system's language.
inline constexpr char kSystemLanguage[] = "sys";

// The language of the system's abbreviation ("DEU", "ENG"); English for one that has none here.
OString LanguageOfAbbreviation(const OString& abbreviation);
// 0 for a language that isn't known. Case is ignored.
uint32_t CodePageOfLanguage(const OString& language);

// "base-r[deu].dll".
OString LanguageModuleName(const OString& stem, const OString& language);
// The modules in the order in which they are looked into: those of the language, then the English
// ones; of each first the common, then the model's. `prefix` is the model's, as "ost".
void ListLanguageModules(const OString& prefix, const OString& language, OStringArray* names);

// What a system and an archive must have for a language to be used.
class LanguageNeeds {
 public:
  virtual bool HasCodePage(uint32_t codePage) = 0;
  virtual bool HasModule(const OString& name) = 0;

 protected:
  ~LanguageNeeds() = default;
};

// The language that is used: `configured`, or `system` where that is "sys"; English where the
// language isn't known or lacks its code page or both of its modules. Lower case.
OString ChooseLanguage(const OString& configured, const OString& system, const OString& prefix,
                       LanguageNeeds& needs);

// Paths where the help file may lie, the best first.
void ListHelpFiles(const OString& directory, const OString& prefix, const OString& modelName,
                   const OString& language, OStringArray* paths);

// Signs for pages whose language has them in its code page, else plain letters.
OString CopyrightSymbol(const OString& language);
OString TrademarkSymbol(const OString& language);
OString RegisteredSymbol(const OString& language);

}  // namespace ostvt
