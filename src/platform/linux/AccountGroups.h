// The level of a user by the groups of this process.
#pragma once

#include <sys/types.h>

namespace ostvt::platform {

// As UserLevel without the environment: root and the members of `administrators`, a group's name.
// A name that no group has takes nobody in.
int LevelByGroup(uid_t user, const char* administrators);

}  // namespace ostvt::platform
