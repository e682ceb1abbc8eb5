// What the key store must do with the real registry.
#ifdef _WIN32

#include <gtest/gtest.h>

#include <string>

#include "platform/KeyStore.h"
#include "platform/windows/Win32.h"
#include "tests/support/TestStore.h"

namespace ostvt::platform {
namespace {

constexpr char16_t kBase[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store";

class RegistryKeyStore : public ::testing::Test {
 protected:
  RegistryKeyStore() : Key(OpenKey(Hive::kCurrentUser, kBase, true)) {}
  ~RegistryKeyStore() override { CloseKey(Key); }

  test::TestStore Store;
  KeyHandle Key;
};

TEST_F(RegistryKeyStore, ValueNameThatDoesNotFitEndsTheEnumeration) {
  std::u16string longest(261, u'v');
  ASSERT_EQ(1, WriteValue(Key, u"a", "x", 1, kValueBinary));
  ASSERT_EQ(1, WriteValue(Key, longest.c_str(), "x", 1, kValueBinary));
  char16_t name[kNameUnits];
  int fitting = 0;
  while (EnumerateValue(Key, fitting, name)) ++fitting;
  int count = 0;
  EXPECT_TRUE(QueryKey(Key, nullptr, &count));
  EXPECT_EQ(2, count);
  EXPECT_LT(fitting, 2);
}

TEST_F(RegistryKeyStore, ReadOnlyKeyIsOpenedGladlyAndTakesNoWrites) {
  ASSERT_EQ(1, WriteValue(Key, u"V", "1", 1, kValueBinary));
  // Everybody may read, nobody may write.
  SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
  PSID everybody = nullptr;
  ASSERT_TRUE(
      AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody));
  alignas(ACL) BYTE storage[256];
  ACL* list = reinterpret_cast<ACL*>(storage);
  ASSERT_TRUE(InitializeAcl(list, sizeof(storage), ACL_REVISION));
  ASSERT_TRUE(AddAccessAllowedAce(list, ACL_REVISION, KEY_READ | WRITE_DAC, everybody));
  SECURITY_DESCRIPTOR descriptor;
  InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
  HKEY guard = nullptr;
  ASSERT_EQ(ERROR_SUCCESS,
            RegOpenKeyExW(HKEY_CURRENT_USER, AsWide(kBase), 0, READ_CONTROL | WRITE_DAC, &guard));
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeySecurity(guard, DACL_SECURITY_INFORMATION, &descriptor));

  char byte = 0;
  for (bool create : {false, true}) {
    KeyHandle key = OpenKey(Hive::kCurrentUser, kBase, create);
    EXPECT_NE(nullptr, key);
    EXPECT_EQ(1, ReadValue(key, u"V", &byte, 1, nullptr));
    EXPECT_EQ(-1, WriteValue(key, u"V", "2", 1, kValueBinary));
    EXPECT_FALSE(DeleteValue(key, u"V"));
    CloseKey(key);
  }
  EXPECT_EQ('1', byte);

  SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE);
  EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(guard, DACL_SECURITY_INFORMATION, &descriptor));
  RegCloseKey(guard);
  FreeSid(everybody);
}

}  // namespace
}  // namespace ostvt::platform

#endif
