// Which pages a sheet gets.
#include "settings/DriverSession.h"
#include "tests/settings/FakeWindows.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

using Names = std::vector<std::string>;

class SessionWithStorages : public DriverSession {
 public:
  void GetCacheInfo(CacheInfo* record) override {
    *record = CacheInfo();
    record->count = Storages;
  }
  int32_t Storages = 0;
};

class SessionPages : public SettingsTest {
 protected:
  void Open(const ModelText& text = ModelText()) {
    AddPrinter(text);
    Session.Windows = &Windows;
    Session.NoShadowPush = true;
    Session.Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, Session.Model);
  }
  Names Pages(uint32_t flags, int32_t count) {
    Windows.Calls.clear();
    EXPECT_EQ(count, Session.RegisterPages(flags)) << flags;
    return Windows.Calls;
  }
  void OpenWithOem(const char* lines) {
    ModelText text;
    text.Oem = lines;
    Open(text);
  }

  FakeWindows Windows;
  SessionWithStorages Session;
};

TEST_F(SessionPages, DocumentSheetSetsUpPageThenGraphics) {
  Open();
  EXPECT_EQ((Names{"page *:PAGE_SETUP", "page *:GRAPHICS"}), Pages(6, 2));
}

TEST_F(SessionPages, EveryBitHasItsPagesInOneOrder) {
  Open();
  Session.Storages = 1;
  EXPECT_EQ((Names{"page *:PAGE_SETUP", "page *:GRAPHICS", "page *:TOOLS", "page *:CACHE/SETTINGS",
                   "page *:CACHE/CONTENTS"}),
            Pages(15, 5));
  EXPECT_EQ(Names{}, Pages(0, 0));
}

TEST_F(SessionPages, FontsPageNeedsAFontOfAnyKind) {
  Open();
  EXPECT_EQ(Names{"page *:TOOLS"}, Pages(1, 1));
  Session.OptionalFonts.Add(std::make_unique<OptionalFont>());
  EXPECT_EQ((Names{"page *:FONTS", "page *:TOOLS"}), Pages(1, 2));
}

TEST_F(SessionPages, CachePagesNeedAStorage) {
  Open();
  EXPECT_EQ(Names{}, Pages(8, 0));
}

TEST_F(SessionPages, PagesThatAreNotThereAreNotCounted) {
  Open();
  Windows.RefusesPages = true;
  EXPECT_EQ((Names{"page *:PAGE_SETUP", "page *:GRAPHICS"}), Pages(6, 0));
}

TEST_F(SessionPages, WithoutWindowsThereAreNone) {
  Open();
  Session.Windows = nullptr;
  EXPECT_EQ(0, Session.RegisterPages(15));
  EXPECT_FALSE(Session.AddAboutPage());
}

TEST_F(SessionPages, SixteenBitPathKeepsTheNamesForLater) {
  Open();
  const PathFlags path(false, false);
  EXPECT_EQ(Names{}, Pages(7, 3));
  ASSERT_EQ(3, Session.PendingPageNames.Count);
  EXPECT_STREQ("*:PAGE_SETUP", Session.PendingPageNames[0].GetNarrow());
  EXPECT_STREQ("*:TOOLS", Session.PendingPageNames[2].GetNarrow());
}

TEST_F(SessionPages, AboutPageIsTheMakers) {
  OpenWithOem("[.default]\nAbout.Template=*:OTHER\n\n[VT]\nAbout.Template=*:ABOUT\n");
  EXPECT_TRUE(Session.AddAboutPage());
  EXPECT_EQ(Names{"page *:ABOUT"}, Windows.Calls);
  EXPECT_FALSE(Session.IsAboutFirst());
}

TEST_F(SessionPages, WithoutATemplateThereIsNoAboutPage) {
  Open();
  EXPECT_FALSE(Session.AddAboutPage());
  EXPECT_EQ(Names{}, Windows.Calls);
}

TEST_F(SessionPages, AboutPageIsFirstOnlyByDefaultAndUntilItIsKeptClosed) {
  OpenWithOem("[VT]\nAbout.Template=*:ABOUT\nAbout.Default=Yes\n");
  EXPECT_TRUE(Session.AddAboutPage());
  EXPECT_TRUE(Session.IsAboutFirst());
  Session.KeepAboutClosed();
  EXPECT_FALSE(Session.IsAboutFirst());
}

TEST_F(SessionPages, AboutPageThatTheSheetHasNotIsNotFirst) {
  OpenWithOem("[VT]\nAbout.Default=Yes\n");
  EXPECT_FALSE(Session.AddAboutPage());
  EXPECT_FALSE(Session.IsAboutFirst());
}

}  // namespace
}  // namespace ostvt::test
