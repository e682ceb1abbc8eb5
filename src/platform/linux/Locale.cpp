#include "platform/Locale.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>

#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

// Of the system's measurement item; 1 is metric.
constexpr char kUsCustomary = 2;

// Names whose first letters differ from the platform's abbreviations; longer ones first.
struct Abbreviation {
  std::string_view Name;
  const char* Letters;
};
constexpr Abbreviation kAbbreviations[] = {
    {"ja", "JPN"},    {"zh_TW", "CHT"}, {"zh_HK", "CHT"}, {"zh", "CHS"},
    {"pt_PT", "PTG"}, {"nb", "NOR"},    {"nn", "NOR"},
};

// `name`: "de_DE.UTF-8", "C", "POSIX".
std::string AbbreviationOf(std::string_view name) {
  for (const Abbreviation& row : kAbbreviations) {
    if (name.substr(0, row.Name.size()) == row.Name) return row.Letters;
  }
  const std::string_view language = name.substr(0, name.find_first_of("_.@"));
  if (language.size() != 2) return "";
  std::string letters;
  for (const char letter : language)
    letters += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  return letters;
}

}  // namespace

UserLocale GetSystemLocale() {
  UserLocale answer;
  answer.DecimalSeparator = u".";
  const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
  if (!locale) return answer;  // the environment names one that isn't installed
  const char* measurement = nl_langinfo_l(_NL_MEASUREMENT_MEASUREMENT, locale);
  answer.UsesInches = measurement && *measurement == kUsCustomary;
  const std::u16string decimal = FromUtf8(nl_langinfo_l(RADIXCHAR, locale));
  if (!decimal.empty()) answer.DecimalSeparator = decimal;
  answer.ThousandSeparator = FromUtf8(nl_langinfo_l(THOUSEP, locale));
  answer.Language = AbbreviationOf(nl_langinfo_l(_NL_LOCALE_NAME(LC_MESSAGES), locale));
  freelocale(locale);
  return answer;
}

}  // namespace ostvt::platform
