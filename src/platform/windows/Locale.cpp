#include "platform/Locale.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

// Longer than any answer that is asked for here.
constexpr int kAnswerUnits = 16;

std::u16string Ask(LCTYPE item) {
  char16_t answer[kAnswerUnits] = {};
  const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, item, AsWide(answer), kAnswerUnits);
  return std::u16string(answer, length > 0 ? static_cast<size_t>(length) - 1 : 0);
}

}  // namespace

UserLocale GetSystemLocale() {
  UserLocale locale;
  locale.UsesInches = Ask(LOCALE_IMEASURE) == u"1";
  locale.LeadingZero = Ask(LOCALE_ILZERO) == u"1";
  locale.DecimalSeparator = Ask(LOCALE_SDECIMAL);
  locale.ThousandSeparator = Ask(LOCALE_STHOUSAND);
  for (const char16_t unit : Ask(LOCALE_SABBREVLANGNAME).substr(0, 3))
    locale.Language += unit < 0x80 ? static_cast<char>(unit) : '?';
  return locale;
}

}  // namespace ostvt::platform
