#include "ui/windows/SheetWindows.h"

#include <gtest/gtest.h>

#include "platform/Module.h"
#include "settings/SheetHost.h"
#include "tests/ui/windows/PagesFixture.h"
#include "ui/PlatformWindows.h"
#include "ui/windows/ActivationContext.h"
#include "ui/windows/PageTable.h"

namespace ostvt::test {
namespace {

constexpr char kDialog[] = "*:TEST/^DIALOG";

class RunDialogTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    TestPage::Record_ = &Record;
    ResourcesOf(&Session()).AddModule(new UResourceFile(FirstModule(), false));
    Copies = Session().DevModeBuffer.GetCopies();
    Record.ChangesAtStart = true;
  }
  void TearDown() override {
    EXPECT_EQ(0, Record.Pages);
    TestPage::Record_ = nullptr;
    UiTest::TearDown();
  }
  int32_t Run(int32_t command, const char* name = kDialog) {
    Record.CommandAtStart = command;
    return RunSessionDialog(&Session(), nullptr, name, StartPage<TestPage>);
  }

  PageRecord Record;
  int32_t Copies = 0;
};

TEST_F(RunDialogTest, OkGivesOneAndKeepsTheDeviceMode) {
  EXPECT_EQ(1, Run(1));
  EXPECT_EQ(Copies + 1, Session().DevModeBuffer.GetCopies());
  EXPECT_EQ("init;update initial;can apply;apply;destroy;", Record.TakenSteps());
}

TEST_F(RunDialogTest, CancelGivesTwoAndTheDeviceModeAsItWas) {
  Session().DevModeBuffer.SetCopies(Copies + 20);  // not what was saved at the session's start
  EXPECT_EQ(2, Run(2));
  EXPECT_EQ(Copies + 20, Session().DevModeBuffer.GetCopies());
  EXPECT_EQ("init;update initial;reset;destroy;", Record.TakenSteps());
}

TEST_F(RunDialogTest, WithoutATemplateItIsNotShown) {
  EXPECT_EQ(0, Run(1, "*:TEST/^NONE"));
  EXPECT_EQ(nullptr, CreateSessionDialog(&Session(), nullptr, "*:TEST/^NONE", StartPage<TestPage>));
  EXPECT_EQ("", Record.Taken());
}

// What a page runs has two answers only.
TEST_F(RunDialogTest, APageTakesNotShownForCancelled) {
  UPage page;
  page.Session = &Session();
  EXPECT_EQ(2, page.RunDialog("*:TEST/^NONE", StartPage<TestPage>));
}

TEST_F(RunDialogTest, AModelessDialogIsLeftToItsPage) {
  HWND window = CreateSessionDialog(&Session(), nullptr, kDialog, StartPage<TestPage>);
  ASSERT_NE(nullptr, window);
  EXPECT_EQ(Copies + 1, Session().DevModeBuffer.GetCopies());
  DestroyWindow(window);
}

class AddPageTest : public UiTest {
 protected:
  struct Call {
    uint32_t Function;
    intptr_t First;
    intptr_t Second;
  };
  static intptr_t Callback(void* sheet, uint32_t function, intptr_t first, intptr_t second) {
    auto* test = static_cast<AddPageTest*>(sheet);
    test->Calls.push_back({function, first, second});
    if (function == kSheetInsertPage) {
      memcpy(&test->Inserted, reinterpret_cast<const void*>(second), sizeof test->Inserted);
      return test->KnowsInsert;
    }
    return test->KnowsAdd;
  }
  bool Add(const char* name) {
    Session().SheetHandle = this;
    Session().SheetCallback = Callback;
    return PlatformWindows()->AddPage(&Session(), name);
  }

  std::vector<Call> Calls;
  InsertPageInfo Inserted = {};
  bool KnowsInsert = true;
  bool KnowsAdd = true;
};

TEST_F(AddPageTest, APageIsInsertedAsTheLastChild) {
  EXPECT_TRUE(Add("*:PAGE_SETUP"));
  ASSERT_EQ(1u, Calls.size());
  EXPECT_EQ(17u, Calls[0].Function);
  EXPECT_EQ(32, Inserted.cbSize);
  EXPECT_EQ(4, Inserted.Type);
  EXPECT_EQ(3, Inserted.Mode);
  EXPECT_NE(0u, Inserted.dwData1);
  DestroyPropertySheetPage(reinterpret_cast<HPROPSHEETPAGE>(Inserted.dwData1));
}

TEST_F(AddPageTest, AHostThatCannotInsertIsAskedToAdd) {
  KnowsInsert = false;
  EXPECT_TRUE(Add("*:PAGE_SETUP"));
  ASSERT_EQ(2u, Calls.size());
  EXPECT_EQ(0u, Calls[1].Function);
  EXPECT_EQ(static_cast<intptr_t>(Inserted.dwData1), Calls[1].First);
  DestroyPropertySheetPage(reinterpret_cast<HPROPSHEETPAGE>(Inserted.dwData1));
}

TEST_F(AddPageTest, AHostThatTakesNoneIsTold) {
  KnowsInsert = KnowsAdd = false;
  EXPECT_FALSE(Add("*:PAGE_SETUP"));
}

TEST_F(AddPageTest, ATemplateWithoutAPageIsNotAdded) {
  EXPECT_EQ(nullptr, FindStartProcedure("*:GRAPHICS"));
  EXPECT_FALSE(Add("*:GRAPHICS"));
  EXPECT_FALSE(Add("*:page_setup"));
  EXPECT_TRUE(Calls.empty());
}

TEST_F(AddPageTest, WithoutAHostNothingIsAdded) {
  EXPECT_FALSE(PlatformWindows()->AddPage(&Session(), "*:PAGE_SETUP"));
}

TEST_F(AddPageTest, DialogsWithoutAPageAreNotShown) {
  EXPECT_EQ(0, PlatformWindows()->RunDialog(&Session(), nullptr, "*:NONE"));
  const char* const names[] = {"*:NONE"};
  EXPECT_EQ(0, PlatformWindows()->RunSheet(&Session(), nullptr, "Title", names));
}

// None of the pages has a template: what the host's sheet needs stays as it was.
TEST_F(AddPageTest, ASheetThatCannotBeShownIsCancelled) {
  Session().SheetCallback = Callback;
  Session().SheetHandle = this;
  Session().DevModeBuffer.SetCopies(5);
  Session().SavedDevMode.SetCopies(3);
  const uint32_t crc = Session().DevModeCrc;
  const char* const names[] = {"*:ADVANCED/DRIVER_OPTIONS"};
  EXPECT_EQ(0, PlatformWindows()->RunSheet(&Session(), nullptr, "Title", names));
  EXPECT_EQ(5, Session().DevModeBuffer.GetCopies());
  EXPECT_EQ(3, Session().SavedDevMode.GetCopies());
  EXPECT_EQ(crc, Session().DevModeCrc);
  EXPECT_EQ(Callback, Session().SheetCallback);
  EXPECT_TRUE(Calls.empty());
}

// A host's sheet with a page of its own beside those of the session, closed as soon as it is shown.
class HostSheet {
 public:
  // `button` is what closes it. The sheet's answer, above 0 for OK.
  INT_PTR Run(std::vector<HPROPSHEETPAGE> pages, int button) {
    Current = this;
    Button = button;
    DLGTEMPLATE dialog[2] = {};
    dialog[0].style = WS_CHILD | WS_VISIBLE;
    dialog[0].cx = dialog[0].cy = 80;
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = dialog;
    page.pszTitle = L"Host";
    page.pfnDlgProc = OwnPage;
    pages.push_back(CreatePropertySheetPageW(&page));
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_USECALLBACK;
    header.pszCaption = L"Host";
    header.nPages = static_cast<UINT>(pages.size());
    header.phpage = pages.data();
    header.pfnCallback = Initialized;
    return PropertySheetW(&header);
  }
  int Tabs = 0;
  std::string Steps;  // what its own page was told

 private:
  static int CALLBACK Initialized(HWND sheet, UINT message, LPARAM) {
    if (message != PSCB_INITIALIZED) return 0;
    Current->Sheet = sheet;
    PostMessageW(sheet, WM_COMMAND, static_cast<WPARAM>(Current->Button), 0);
    return 0;
  }
  static INT_PTR CALLBACK OwnPage(HWND, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_NOTIFY) return FALSE;
    switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
      case static_cast<UINT>(PSN_SETACTIVE): {
        const auto tabs =
            reinterpret_cast<HWND>(SendMessageW(Current->Sheet, PSM_GETTABCONTROL, 0, 0));
        Current->Tabs = static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
        Current->Steps += "active;";
        break;
      }
      case static_cast<UINT>(PSN_APPLY):
        Current->Steps += "apply;";
        break;
      case static_cast<UINT>(PSN_RESET):
        Current->Steps += "reset;";
        break;
      default:
        break;
    }
    return FALSE;
  }

  static inline HostSheet* Current = nullptr;
  int Button = 0;
  HWND Sheet = nullptr;
};

std::vector<uint8_t> BytesOfBlock(const DevMode& devMode) {
  return {devMode.GetBlock(), devMode.GetBlock() + devMode.GetSize()};
}

// The page is added all the same; that it can't be made is the sheet's to find.
TEST_F(AddPageTest, ASheetSurvivesAPageWhoseTemplateIsMissing) {
  ASSERT_EQ(nullptr, ResourcesOf(&Session()).LoadTemplate("*:PAGE_SETUP"));
  const std::vector<uint8_t> block = BytesOfBlock(Session().DevModeBuffer);
  const std::vector<uint8_t> saved = BytesOfBlock(Session().SavedDevMode);
  const uint32_t crc = Session().DevModeCrc;
  const struct {
    int Button;
    const char* Steps;
  } rows[] = {{IDOK, "active;apply;"}, {IDCANCEL, "active;reset;"}};
  for (const auto& row : rows) {
    ASSERT_TRUE(Add("*:PAGE_SETUP"));
    ASSERT_TRUE(Inserted.dwData1);
    HostSheet sheet;
    const INT_PTR result =
        sheet.Run({reinterpret_cast<HPROPSHEETPAGE>(Inserted.dwData1)}, row.Button);
    EXPECT_EQ(row.Button == IDOK, result > 0) << result;
    EXPECT_EQ(row.Steps, sheet.Steps);
    EXPECT_GE(sheet.Tabs, 1);
    EXPECT_EQ(block, BytesOfBlock(Session().DevModeBuffer));
    EXPECT_EQ(saved, BytesOfBlock(Session().SavedDevMode));
    EXPECT_EQ(crc, Session().DevModeCrc);
    EXPECT_FALSE(Session().IsApplied);
  }
}

// Windows of the session over one of a program, as its actions open them.
class OwnedWindowsTest : public PagesTest {
 protected:
  void SetUp() override {
    PagesTest::SetUp();
    AddLabelPrinter();
  }
  // The owner waits while the window is open, and lives on as it was.
  void ExpectOwnerWaits(HWND window) {
    EXPECT_FALSE(IsWindowEnabled(Sheet));
    EXPECT_EQ(Sheet, GetWindow(window, GW_OWNER));
  }
  void ExpectOwnerIsBack() {
    ASSERT_TRUE(IsWindow(Sheet));
    EXPECT_TRUE(IsWindowEnabled(Sheet));
    EXPECT_TRUE(IsWindowVisible(Sheet));
    EXPECT_EQ(Sheet, GetLastActivePopup(Sheet));
  }
};

TEST_F(OwnedWindowsTest, ASheetHoldsItsOwnerWhileItIsOpen) {
  const char* const names[] = {"*:ADVANCED/USER_COMMANDS", "*:ADVANCED/DRIVER_OPTIONS"};
  for (const int button : {IDOK, IDCANCEL}) {
    DialogDriver user;
    user.Expect([&](HWND sheet) {
      ExpectOwnerWaits(sheet);
      PostMessageW(sheet, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
    EXPECT_EQ(button, PlatformWindows()->RunSheet(&Session(), Sheet, "Title", names));
    ExpectOwnerIsBack();
  }
}

TEST_F(OwnedWindowsTest, ADialogHoldsItsOwnerWhileItIsOpen) {
  for (const int button : {IDOK, IDCANCEL}) {
    DialogDriver user;
    user.Expect([&](HWND dialog) {
      ExpectOwnerWaits(dialog);
      Press(dialog, button);
    });
    EXPECT_EQ(button, PlatformWindows()->RunDialog(&Session(), Sheet, "*:PAGE_SETUP/^PRESETS"));
    ExpectOwnerIsBack();
  }
}

TEST_F(OwnedWindowsTest, AnOwnerStaysAsItIsWhenNothingCanBeShown) {
  const char* const names[] = {"*:NONE"};
  EXPECT_EQ(0, PlatformWindows()->RunSheet(&Session(), Sheet, "Title", names));
  ExpectOwnerIsBack();
  EXPECT_EQ(0, PlatformWindows()->RunDialog(&Session(), Sheet, "*:NONE"));
  ExpectOwnerIsBack();
}

TEST(ActivationContext, ComesFromTheManifestBesideTheSystem) {
  const TempDirectory directory;
  const std::u16string path = std::filesystem::path(directory.Path()).u16string();
  const platform::SystemPlaces places = {path.c_str(), path.c_str()};
  platform::SetSystemPlaces(&places);
  {
    ActivationContext none;
    EXPECT_EQ(nullptr, none.Get());
    directory.Put("Vantrel.Drivers.manifest",
                  "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">"
                  "</assembly>");
    EXPECT_EQ(nullptr, none.Get());  // looked for once
    ActivationContext context;
    HANDLE handle = context.Get();
    EXPECT_NE(nullptr, handle);
    EXPECT_EQ(handle, context.Get());
    HANDLE active = nullptr;
    {
      ActivationContext::Scope scope(handle);
      GetCurrentActCtx(&active);
      EXPECT_EQ(handle, active);
      ReleaseActCtx(active);
    }
    GetCurrentActCtx(&active);
    EXPECT_NE(handle, active);
  }
  platform::SetSystemPlaces(nullptr);
}

}  // namespace
}  // namespace ostvt::test
