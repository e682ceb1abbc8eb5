// Who runs this process.
#pragma once

namespace ostvt::platform {

inline constexpr int kLevelGuest = 0;
inline constexpr int kLevelUser = 1;
inline constexpr int kLevelPowerUser = 2;
inline constexpr int kLevelAdministrator = 3;

// The level of the calling thread's user, by the first of the built-in groups that its token is a
// member of: administrators, power users, users, guests; none counts as guest. On Linux root and
// the members of kPrinterAdministrators are administrators, all others users; there the
// environment's OSTVT_USER_LEVEL ("0" to "3") takes its place where set.
int UserLevel();

// The group of printer administrators on Linux.
inline constexpr char kPrinterAdministrators[] = "lpadmin";

}  // namespace ostvt::platform
