#include "platform/Accounts.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

// The built-in domain's groups, the same on every machine in every language.
bool IsMemberOfBuiltin(DWORD relativeId) {
  SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
  PSID group = nullptr;
  if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, relativeId, 0, 0, 0, 0,
                                0, 0, &group))
    return false;
  BOOL isMember = FALSE;
  // No token of ours: the thread's, or the process's for a thread that acts for nobody else.
  bool asked = CheckTokenMembership(nullptr, group, &isMember);
  FreeSid(group);
  return asked && isMember;
}

}  // namespace

int UserLevel() {
  if (IsMemberOfBuiltin(DOMAIN_ALIAS_RID_ADMINS)) return kLevelAdministrator;
  if (IsMemberOfBuiltin(DOMAIN_ALIAS_RID_POWER_USERS)) return kLevelPowerUser;
  if (IsMemberOfBuiltin(DOMAIN_ALIAS_RID_USERS)) return kLevelUser;
  return kLevelGuest;  // the guests' group, or none
}

}  // namespace ostvt::platform
