// How the user's system writes numbers, and in which language it speaks. Asked anew at each call.
#pragma once

#include <string>

namespace ostvt::platform {

struct UserLocale {
  bool UsesInches = false;  // else metric
  bool LeadingZero = true;  // "0.5", not ".5"
  std::u16string DecimalSeparator;
  std::u16string ThousandSeparator;  // may be empty
  // Three letters after the platform's tables, the first two often the language's: "ENU", "DEU",
  // "CHT". Empty when the system doesn't say.
  std::string Language;
};

UserLocale GetUserLocale();
// The system's, for GetUserLocale alone.
UserLocale GetSystemLocale();

// For tests: takes the place of the system's until null is set; borrowed until then. Not to be
// called while others ask.
void SetUserLocale(const UserLocale* locale);

}  // namespace ostvt::platform
