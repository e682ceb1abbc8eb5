#include "family/FamilyDriverSession.h"

#include "tests/settings/FakeWindows.h"
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

class FamilyPages : public SettingsTest {
 protected:
  using Names = std::vector<std::string>;
  // What a session with or without a model adds, and how many that is.
  std::pair<Names, int32_t> Of(uint32_t flags, bool hasModel = true) {
    const std::unique_ptr<DriverSession> session(CreateDriverSession());
    FakeWindows windows;
    session->Windows = &windows;
    if (hasModel) session->Initialize(nullptr, nullptr, 0, Printer->Name());
    windows.Calls.clear();
    const int32_t count = session->RegisterPages(flags);
    session->Windows = nullptr;
    return {windows.Calls, count};
  }
};

TEST_F(FamilyPages, FollowAllOthersStockFirst) {
  AddPrinter();
  EXPECT_EQ(
      std::pair(
          Names{"page *:PAGE_SETUP", "page *:GRAPHICS", "page PAGE_STOCK", "page PAGE_OPTIONS"}, 4),
      Of(6));
  const Names all = Of(7).first;
  ASSERT_GE(all.size(), 5u);
  EXPECT_EQ("page *:TOOLS", all[all.size() - 3]);
  EXPECT_EQ("page PAGE_STOCK", all[all.size() - 2]);
}

TEST_F(FamilyPages, NeedTheGraphicsBit) {
  AddPrinter();
  for (const uint32_t flags : {4u, 5u, 8u}) {
    for (const std::string& page : Of(flags).first) EXPECT_EQ("page *", page.substr(0, 6));
  }
}

TEST_F(FamilyPages, WithoutAModelThereAreNone) {
  AddPrinter();
  EXPECT_EQ(std::pair(Names{}, 0), Of(15, false));
  PathFlags flags(false, false);
  EXPECT_EQ(std::pair(Names{}, 0), Of(15, false));
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
