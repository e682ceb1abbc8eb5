#include "platform/Accounts.h"

#include <gtest/gtest.h>

#include <vector>

#ifdef _WIN32
#include "platform/windows/Win32.h"
//
#include <sddl.h>
#else
#include <grp.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ostvt::platform {
namespace {

#ifdef _WIN32

// The groups of the process's own token, read one by one.
bool TokenHas(const wchar_t* sidText) {
  PSID sid = nullptr;
  ConvertStringSidToSidW(sidText, &sid);
  HANDLE token = nullptr;
  OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token);
  DWORD size = 0;
  GetTokenInformation(token, TokenGroups, nullptr, 0, &size);
  std::vector<BYTE> room(size);
  GetTokenInformation(token, TokenGroups, room.data(), size, &size);
  auto* groups = reinterpret_cast<TOKEN_GROUPS*>(room.data());
  bool has = false;
  for (DWORD i = 0; i < groups->GroupCount; i++) {
    if (EqualSid(groups->Groups[i].Sid, sid) && (groups->Groups[i].Attributes & SE_GROUP_ENABLED))
      has = true;
  }
  CloseHandle(token);
  LocalFree(sid);
  return has;
}

TEST(Accounts, LevelIsThatOfTheHighestBuiltinGroupOfTheToken) {
  int expected = TokenHas(L"S-1-5-32-544")   ? 3
                 : TokenHas(L"S-1-5-32-547") ? 2
                 : TokenHas(L"S-1-5-32-545") ? 1
                                             : 0;
  EXPECT_EQ(expected, UserLevel());
}

// A token without its administrators' group stands for a plain user.
TEST(Accounts, ThreadThatActsForAnotherHasThatOnesLevel) {
  PSID administrators = nullptr;
  ASSERT_TRUE(ConvertStringSidToSidW(L"S-1-5-32-544", &administrators));
  HANDLE token = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &token));
  SID_AND_ATTRIBUTES disabled = {administrators, 0};
  HANDLE restricted = nullptr;
  ASSERT_TRUE(CreateRestrictedToken(token, 0, 1, &disabled, 0, nullptr, 0, nullptr, &restricted));
  HANDLE acting = nullptr;
  ASSERT_TRUE(DuplicateToken(restricted, SecurityImpersonation, &acting));
  ASSERT_TRUE(SetThreadToken(nullptr, acting));
  int level = UserLevel();
  RevertToSelf();
  int expected = TokenHas(L"S-1-5-32-547") ? 2 : TokenHas(L"S-1-5-32-545") ? 1 : 0;
  EXPECT_EQ(expected, level);
  CloseHandle(acting);
  CloseHandle(restricted);
  CloseHandle(token);
  LocalFree(administrators);
}

#else

class Accounts : public ::testing::Test {
 protected:
  void SetUp() override { unsetenv("OSTVT_USER_LEVEL"); }
  void TearDown() override { unsetenv("OSTVT_USER_LEVEL"); }
};

// The level of user `id` in group `group` and no other, asked in a process of its own.
int LevelOf(uid_t id, gid_t group) {
  pid_t child = fork();
  if (child == 0) {
    bool changed = setgroups(1, &group) == 0 && setgid(group) == 0 && setuid(id) == 0;
    _exit(changed ? UserLevel() : 99);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr uid_t kNobody = 65534;

TEST_F(Accounts, EnvironmentTakesThePlaceOfTheLevel) {
  for (int level = 0; level <= 3; level++) {
    const char text[] = {static_cast<char>('0' + level), '\0'};
    setenv("OSTVT_USER_LEVEL", text, 1);
    EXPECT_EQ(level, UserLevel());
  }
}

TEST_F(Accounts, EnvironmentThatIsNoLevelIsIgnored) {
  int own = UserLevel();
  for (const char* text : {"", "4", "-1", "00", "a", "3 "}) {
    setenv("OSTVT_USER_LEVEL", text, 1);
    EXPECT_EQ(own, UserLevel()) << text;
  }
}

TEST_F(Accounts, RootIsAdministrator) {
  if (geteuid() != 0) GTEST_SKIP() << "not root";
  EXPECT_EQ(kLevelAdministrator, UserLevel());
}

TEST_F(Accounts, OthersAreUsers) {
  if (geteuid() != 0) {
    EXPECT_GE(UserLevel(), kLevelUser);
    return;
  }
  EXPECT_EQ(kLevelUser, LevelOf(kNobody, kNobody));
}

TEST_F(Accounts, PrinterAdministratorsAreAdministrators) {
  const group* administrators = getgrnam(kPrinterAdministrators);
  if (geteuid() != 0 || !administrators) GTEST_SKIP() << "no such group here, or not root";
  EXPECT_EQ(kLevelAdministrator, LevelOf(kNobody, administrators->gr_gid));
}

#endif

}  // namespace
}  // namespace ostvt::platform
