#include "platform/Locale.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace ostvt::platform {
namespace {

TEST(Locale, OneSetByATestTakesTheSystemsPlace) {
  UserLocale locale;
  locale.UsesInches = true;
  locale.LeadingZero = false;
  locale.DecimalSeparator = u"::";
  locale.Language = "XYZ";
  SetUserLocale(&locale);
  const UserLocale answer = GetUserLocale();
  SetUserLocale(nullptr);
  EXPECT_TRUE(answer.UsesInches);
  EXPECT_FALSE(answer.LeadingZero);
  EXPECT_EQ(u"::", answer.DecimalSeparator);
  EXPECT_EQ("XYZ", answer.Language);
  EXPECT_NE("XYZ", GetUserLocale().Language);
}

TEST(Locale, TheSystemSeparatesDecimals) { EXPECT_FALSE(GetUserLocale().DecimalSeparator.empty()); }

#ifndef _WIN32

TEST(Locale, TheLocaleOfNoLanguageIsPlain) {
  const char* before = getenv("LC_ALL");
  const std::string kept = before ? before : "";
  setenv("LC_ALL", "C", 1);
  const UserLocale locale = GetUserLocale();
  if (before) {
    setenv("LC_ALL", kept.c_str(), 1);
  } else {
    unsetenv("LC_ALL");
  }
  EXPECT_EQ("", locale.Language);
  EXPECT_EQ(u".", locale.DecimalSeparator);
  EXPECT_EQ(u"", locale.ThousandSeparator);
  EXPECT_FALSE(locale.UsesInches);
}

#else

TEST(Locale, AnAbbreviationHasThreeLetters) { EXPECT_EQ(3u, GetUserLocale().Language.size()); }

#endif

}  // namespace
}  // namespace ostvt::platform
