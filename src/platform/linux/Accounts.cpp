#include "platform/Accounts.h"

#include <errno.h>
#include <grp.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "platform/linux/AccountGroups.h"

namespace ostvt::platform {
namespace {

// The group's entry is as long as its list of members; this is where asking for more room stops.
constexpr size_t kLongestEntry = 1 << 20;

bool FindGroup(const char* name, gid_t* id) {
  std::vector<char> room(1024);
  for (;;) {
    group entry;
    group* found = nullptr;
    int error = getgrnam_r(name, &entry, room.data(), room.size(), &found);
    if (error == ERANGE && room.size() < kLongestEntry) {
      room.resize(room.size() * 4);
      continue;
    }
    if (error != 0 || !found) return false;
    *id = found->gr_gid;
    return true;
  }
}

bool IsMemberOf(gid_t id) {
  if (getegid() == id) return true;
  int count = getgroups(0, nullptr);
  if (count <= 0) return false;
  std::vector<gid_t> groups(static_cast<size_t>(count));
  count = getgroups(count, groups.data());
  if (count <= 0) return false;
  return std::find(groups.begin(), groups.begin() + count, id) != groups.begin() + count;
}

}  // namespace

int LevelByGroup(uid_t user, const char* administrators) {
  if (user == 0) return kLevelAdministrator;
  gid_t id;
  return FindGroup(administrators, &id) && IsMemberOf(id) ? kLevelAdministrator : kLevelUser;
}

int UserLevel() {
  const char* configured = getenv("OSTVT_USER_LEVEL");
  if (configured && configured[0] >= '0' && configured[0] <= '3' && configured[1] == '\0')
    return configured[0] - '0';
  return LevelByGroup(geteuid(), kPrinterAdministrators);
}

}  // namespace ostvt::platform
