#include "family/FamilyDriverSession.h"

#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

TEST(FamilyDriverSession, FileNamesAreRequiredUpperCaseOfAtMost128) {
  const std::unique_ptr<DriverSession> session(CreateDriverSession());
  ASSERT_NE(nullptr, session);
  NameRules rules;
  rules.allowed = "abc";
  rules.forbidden = "xyz";
  rules.hasFontIds = true;
  session->GetFileNameRules(&rules);
  EXPECT_TRUE(rules.required);
  EXPECT_TRUE(rules.upperCase);
  EXPECT_EQ(128, rules.maxLength);
  EXPECT_TRUE(rules.allowed.IsEmpty());
  EXPECT_TRUE(rules.forbidden.IsEmpty());
  EXPECT_TRUE(rules.hasFontIds);
}

TEST(FamilyDriverSession, FontRulesAreTheBases) {
  const std::unique_ptr<DriverSession> session(CreateDriverSession());
  NameRules rules;
  session->GetFontNameRules(&rules);
  EXPECT_EQ(0, rules.maxLength);
  CacheInfo cache;
  session->GetCacheInfo(&cache);
  EXPECT_EQ(0, cache.count);
}

class FamilySession : public SettingsTest {};

TEST_F(FamilySession, FactoriesWorkTogether) {
  AddPrinter(ColorModelText());
  const std::unique_ptr<DriverSession> session(CreateDriverSession());
  session->Initialize(nullptr, nullptr, 0, Printer->Name());
  ASSERT_NE(nullptr, session->Model);
  EXPECT_EQ(1516u, session->DevModeBuffer.GetSize());
  EXPECT_EQ(2, session->DevModeBuffer.GetColor());
}

TEST_F(FamilySession, OneThatWasNeverInitializedOwnsNothingAndCanBeDeleted) {
  DriverSession* session = CreateDriverSession();
  ASSERT_NE(nullptr, session);
  EXPECT_EQ(nullptr, session->Model);
  EXPECT_EQ(0u, session->DevModeBuffer.GetSize());
  delete session;
}

}  // namespace
}  // namespace ostvt::test
