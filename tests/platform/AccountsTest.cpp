#include "platform/Accounts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#ifdef _WIN32
#include "platform/windows/Win32.h"
//
#include <sddl.h>
#else
#include <grp.h>
#include <stdlib.h>
#include <unistd.h>

#include "platform/linux/AccountGroups.h"
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

constexpr uid_t kSomebody = 12345;

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
  EXPECT_EQ(kLevelAdministrator, LevelByGroup(0, "no such group"));
}

TEST_F(Accounts, OthersAreUsers) {
  EXPECT_EQ(kLevelUser, LevelByGroup(kSomebody, "no such group"));
}

TEST_F(Accounts, MembersOfTheGroupAreAdministrators) {
  const group* own = getgrgid(getegid());
  ASSERT_NE(nullptr, own);
  EXPECT_EQ(kLevelAdministrator, LevelByGroup(kSomebody, own->gr_name));
}

TEST_F(Accounts, MembersOfOtherGroupsAreUsers) {
  std::vector<gid_t> mine(static_cast<size_t>(getgroups(0, nullptr)));
  getgroups(static_cast<int>(mine.size()), mine.data());
  mine.push_back(getegid());
  std::string foreign;
  setgrent();
  while (const group* entry = getgrent()) {
    if (std::find(mine.begin(), mine.end(), entry->gr_gid) == mine.end()) foreign = entry->gr_name;
  }
  endgrent();
  ASSERT_NE("", foreign);
  EXPECT_EQ(kLevelUser, LevelByGroup(kSomebody, foreign.c_str()));
}

TEST_F(Accounts, LevelIsThatOfTheProcess) {
  EXPECT_EQ(LevelByGroup(geteuid(), kPrinterAdministrators), UserLevel());
}

#endif

}  // namespace
}  // namespace ostvt::platform
