// Links between keys, which anybody may make below a key that is open to everybody.
#ifdef _WIN32

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/windows/Win32.h"
#include "store/ORegistry.h"
#include "tests/store/StoreText.h"
#include "tests/support/TestStore.h"

namespace ostvt {
namespace {

using test::Joined;

constexpr char16_t kBase[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store";
constexpr REGSAM kLinkRights = KEY_CREATE_LINK | KEY_SET_VALUE | KEY_QUERY_VALUE | DELETE;

// "LOCAL:Tests-Store/From/Link" leads to a key beside "From".
class RegistryLink : public ::testing::Test {
 protected:
  RegistryLink() {
    Registry.WriteByte("LOCAL:Tests-Store/From/Plain/V", 1);
    Registry.WriteByte("LOCAL:Tests-Store/To/V", 2);
    Registry.WriteByte("LOCAL:Tests-Store/To/Below/V", 3);
  }
  // What clears the test's keys would go through a link.
  ~RegistryLink() override {
    for (const std::u16string& name : Made) {
      platform::KeyHandle parent = Parent();
      platform::DeleteKey(parent, name.c_str());
      platform::CloseKey(parent);
    }
  }
  static platform::KeyHandle Parent() {
    const std::u16string path = std::u16string(kBase) + u"\\From";
    return platform::OpenKey(platform::Hive::kLocalMachine, path.c_str(), false);
  }
  void MakeLink(const char16_t* name, const char16_t* target) {
    const std::u16string path = std::u16string(kBase) + u"\\From\\" + name;
    const std::u16string full = std::u16string(u"\\Registry\\Machine\\") + kBase + u"\\" + target;
    HKEY link = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_LOCAL_MACHINE, platform::AsWide(path.c_str()), 0,
                                             nullptr, REG_OPTION_CREATE_LINK | REG_OPTION_VOLATILE,
                                             kLinkRights, nullptr, &link, nullptr));
    Made.push_back(name);
    // Without a terminator.
    const DWORD size = static_cast<DWORD>(full.size() * sizeof(char16_t));
    EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK,
                                            reinterpret_cast<const BYTE*>(full.data()), size));
    RegCloseKey(link);
  }
  void ExpectTargetWhole() {
    EXPECT_EQ(2, Registry.ReadByte("LOCAL:Tests-Store/To/V", 0));
    EXPECT_EQ(3, Registry.ReadByte("LOCAL:Tests-Store/To/Below/V", 0));
  }
  std::string Keys(const char* path) const {
    OStringArray names;
    return Registry.EnumerateKeys(path, &names) < 0 ? "(none)" : Joined(names);
  }

  test::TestStore Store;
  ORegistry Registry;
  std::vector<std::u16string> Made;
};

TEST_F(RegistryLink, IsToldFromOtherKeys) {
  MakeLink(u"Link", u"To");
  MakeLink(u"Loose", u"Nowhere");
  ASSERT_EQ(2, Registry.ReadByte("LOCAL:Tests-Store/From/Link/V", 0));
  platform::KeyHandle parent = Parent();
  EXPECT_TRUE(platform::IsLink(parent, u"Link"));
  EXPECT_TRUE(platform::IsLink(parent, u"Loose"));
  EXPECT_FALSE(platform::IsLink(parent, u"Plain"));
  EXPECT_TRUE(platform::IsLink(nullptr, u"Link"));
  platform::CloseKey(parent);
}

TEST_F(RegistryLink, ThatNobodyMayLookAtIsOneAllTheSame) {
  MakeLink(u"Link", u"To");
  const std::u16string path = std::u16string(kBase) + u"\\From\\Link";
  HKEY link = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_LOCAL_MACHINE, platform::AsWide(path.c_str()),
                                         REG_OPTION_OPEN_LINK, READ_CONTROL | WRITE_DAC, &link));
  alignas(ACL) BYTE storage[64];
  ACL* list = reinterpret_cast<ACL*>(storage);
  ASSERT_TRUE(InitializeAcl(list, sizeof(storage), ACL_REVISION));
  SECURITY_DESCRIPTOR descriptor;
  InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeySecurity(link, DACL_SECURITY_INFORMATION, &descriptor));
  platform::KeyHandle parent = Parent();
  EXPECT_TRUE(platform::IsLink(parent, u"Link"));
  Registry.Delete("LOCAL:Tests-Store/From/Link", true);
  ExpectTargetWhole();
  RegCloseKey(link);
  platform::CloseKey(parent);
}

TEST_F(RegistryLink, RecursiveDeleteLeavesWhatALinkBelowLeadsTo) {
  MakeLink(u"Link", u"To");
  EXPECT_TRUE(Registry.Delete("LOCAL:Tests-Store/From", true));
  EXPECT_EQ("To", Keys("LOCAL:Tests-Store"));
  ExpectTargetWhole();
}

TEST_F(RegistryLink, DeletedItselfLeavesWhatItLeadsTo) {
  for (const bool recursive : {false, true}) {
    MakeLink(u"Link", u"To");
    EXPECT_TRUE(Registry.Delete("LOCAL:Tests-Store/From/Link", recursive));
    EXPECT_EQ("Plain", Keys("LOCAL:Tests-Store/From"));
    ExpectTargetWhole();
  }
}

TEST_F(RegistryLink, MatchingDeleteLeavesWhatItLeadsTo) {
  MakeLink(u"Link", u"To");
  EXPECT_TRUE(Registry.DeleteMatching("LOCAL:Tests-Store/From/*"));
  EXPECT_EQ("", Keys("LOCAL:Tests-Store/From"));
  ExpectTargetWhole();
}

// Two that lead back would each double the branch at every level.
TEST_F(RegistryLink, ExportPassesOverLinks) {
  MakeLink(u"Back", u"From");
  MakeLink(u"Back 2", u"From");
  MakeLink(u"Link", u"To");
  OStringArray lines;
  EXPECT_TRUE(Registry.ExportBranch("LOCAL:Tests-Store/From", &lines, 0));
  EXPECT_EQ(
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Tests-Store\\From],,"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Tests-Store\\From\\Plain],"
      "\"V\"=hex:01,",
      Joined(lines));
}

}  // namespace
}  // namespace ostvt

#endif
