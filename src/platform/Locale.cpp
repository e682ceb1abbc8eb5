#include "platform/Locale.h"

namespace ostvt::platform {
namespace {
const UserLocale* userLocale = nullptr;
}  // namespace

UserLocale GetUserLocale() { return userLocale ? *userLocale : GetSystemLocale(); }

void SetUserLocale(const UserLocale* locale) { userLocale = locale; }

}  // namespace ostvt::platform
