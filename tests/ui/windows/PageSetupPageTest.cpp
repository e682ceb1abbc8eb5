// The Page Setup page in a real window, by the messages that a user causes.
#include "ui/windows/PageSetupPage.h"

#include "settings/DriverOptions.h"
#include "settings/SessionEnd.h"
#include "settings/StockPapers.h"
#include "tests/ui/windows/PagesFixture.h"

namespace ostvt::test {
namespace {

constexpr char kPageSetup[] = "*:PAGE_SETUP";

class PageSetupPageTest : public PagesTest {
 protected:
  HWND Open() {
    if (!Printer) AddLabelPrinter();
    return Page = OpenPage(kPageSetup);
  }
  // The stock's item by its place, as the box shows it: USER, Shelf, Tag.
  void ChooseStock(int index) { Choose(Page, IDC_STOCK, index); }
  std::string FormName() {
    char16_t name[33] = {};
    memcpy(name, Settings().GetBlock() + 102, 64);
    return Utf8Name(OString(name));
  }
  COLORREF PreviewPixel(int x, int y) {
    const HWND picture = GetDlgItem(Page, IDC_PREVIEW);
    InvalidateRect(picture, nullptr, TRUE);
    UpdateWindow(picture);
    const HDC context = GetDC(picture);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(picture, context);
    return color;
  }

  HWND Page = nullptr;
};

TEST_F(PageSetupPageTest, ShowsTheStocksWithTheirSizes) {
  Open();
  EXPECT_EQ("<USER (100.0 mm x 150.0 mm)>;Shelf (50.0 mm x 25.0 mm);Tag (30.0 mm x 20.0 mm)",
            Lines(Page, IDC_STOCK));
}

TEST_F(PageSetupPageTest, OpeningAndCancellingChangesNothing) {
  AddLabelPrinter();
  Session().Windows = nullptr;
  const std::vector<uint8_t> block = Block();
  const std::string store = StoreDump();
  Open();
  EXPECT_EQ(0, SheetNotify(Page, PSN_RESET));
  EXPECT_FALSE(SheetChanged);
  ClosePages();
  EXPECT_EQ(block, Block());
  TheSession.reset();
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(PageSetupPageTest, CancelTakesEverythingBack) {
  Open();
  const std::vector<uint8_t> block = Block();
  ChooseStock(1);
  Click(Page, IDC_ORIENTATION_LANDSCAPE);
  Click(Page, IDC_MIRROR);
  EXPECT_NE(block, Block());
  EXPECT_TRUE(SheetChanged);
  SheetNotify(Page, PSN_RESET);
  EXPECT_EQ(block, Block());
}

TEST_F(PageSetupPageTest, ChosenStockIsTheDevModes) {
  Open();
  ChooseStock(2);
  EXPECT_EQ(258, PaperSize());
  EXPECT_EQ("Tag", FormName());
  EXPECT_EQ(300, Settings().GetPaperWidth());
  EXPECT_EQ(200, Settings().GetPaperLength());
  EXPECT_TRUE(SheetChanged);
  EXPECT_TRUE(IsEnabled(Page, IDC_STOCK_DELETE));
  ChooseStock(0);
  EXPECT_EQ(256, PaperSize());
  EXPECT_FALSE(IsEnabled(Page, IDC_STOCK_DELETE));
  EXPECT_FALSE(SheetChanged);
}

TEST_F(PageSetupPageTest, DevModeWithAStockThatIsNotOnTheListShowsAndWritesTheUserForm) {
  AddLabelPrinter();
  Settings().Set(&PublicDevMode::dmPaperSize, int16_t{300});
  Settings().ChangeFields(kFieldFormName, kFieldPaperSize);
  Open();
  EXPECT_EQ(0u, Lines(Page, IDC_STOCK).find("<USER"));
  EXPECT_EQ(256, PaperSize());
  EXPECT_EQ("USER", FormName());
}

TEST_F(PageSetupPageTest, UserFormKeepsTheDocumentsSizeWhileTheUserLooksAround) {
  AddLabelPrinter();
  Settings().Set(&PublicDevMode::dmPaperWidth, int16_t{600});
  Settings().Set(&PublicDevMode::dmPaperLength, int16_t{400});
  Open();
  // Less the margins at the sides, 1.27 mm each.
  EXPECT_EQ("<USER (57.5 mm x 40.0 mm)>", Lines(Page, IDC_STOCK).substr(0, 26));
  ChooseStock(1);
  ChooseStock(0);
  EXPECT_EQ(600, Settings().GetPaperWidth());
  EXPECT_EQ(400, Settings().GetPaperLength());
}

TEST_F(PageSetupPageTest, OrientationsAreInTheOrderOfTheirNumbers) {
  Open();
  for (int orientation : {1, 2, 3, 0}) {
    Click(Page, IDC_ORIENTATION_PORTRAIT + orientation);
    EXPECT_EQ(orientation, Settings().GetOrientation());
    EXPECT_TRUE(IsChecked(Page, IDC_ORIENTATION_PORTRAIT + orientation));
    EXPECT_EQ(orientation != 0, SheetChanged) << orientation;
  }
}

TEST_F(PageSetupPageTest, MirrorAndNegativeAreSwitches) {
  Open();
  Click(Page, IDC_MIRROR);
  EXPECT_TRUE(Settings().GetMirror());
  Click(Page, IDC_NEGATIVE);
  EXPECT_TRUE(Settings().GetNegative());
  EXPECT_TRUE(SheetChanged);
  Click(Page, IDC_MIRROR);
  Click(Page, IDC_NEGATIVE);
  EXPECT_FALSE(Settings().GetMirror() || Settings().GetNegative());
  EXPECT_FALSE(SheetChanged);
}

TEST_F(PageSetupPageTest, ModelWithoutMirrorAndInverseHidesThem) {
  ModelText text = WideModelText();
  text.Drawing = "Transform.Mirror=false\nTransform.Inverse=true\n";
  AddLabelPrinter(text);
  Open();
  EXPECT_FALSE(IsShown(Page, IDC_MIRROR));
  EXPECT_TRUE(IsShown(Page, IDC_NEGATIVE));
}

TEST_F(PageSetupPageTest, CopyrightIsTheManufacturersWithItsMacros) {
  Manufacturer += "Copyright=Made by us {C=2001-2004} {R}{zzz}.\n";
  AddLabelPrinter();
  Open();
  EXPECT_TRUE(IsShown(Page, IDC_COPYRIGHT));
  EXPECT_EQ("Made by us \xC2\xA9 2001-2004 \xC2\xAE.", Narrow(Page, IDC_COPYRIGHT));
  EXPECT_EQ(std::string::npos, Narrow(Page, IDC_DRIVER_COPYRIGHT).find('{'));
}

TEST_F(PageSetupPageTest, CopyrightThatIsEmptyIsHidden) {
  Open();
  EXPECT_FALSE(IsShown(Page, IDC_COPYRIGHT));
  EXPECT_TRUE(IsShown(Page, IDC_DRIVER_COPYRIGHT));
}

TEST_F(PageSetupPageTest, DeletedStockIsGoneFromTheStoreAndTheNextOneIsChosen) {
  Open();
  ChooseStock(1);
  DialogDriver user;
  user.Answer(IDYES);
  Click(Page, IDC_STOCK_DELETE);
  ASSERT_EQ(1u, user.Messages.size());
  EXPECT_EQ("Shelf|Do you want to delete this stock?", user.Messages[0]);
  EXPECT_EQ("Tag", StoredStock());
  EXPECT_EQ("Tag", FormName());
  // Tag's number is what a new session would give it.
  EXPECT_EQ(257, PaperSize());
  EXPECT_EQ("USER (100.0 mm x 150.0 mm);<Tag (30.0 mm x 20.0 mm)>", Lines(Page, IDC_STOCK));
}

TEST_F(PageSetupPageTest, ListThatCanNotBeSavedIsTold) {
  Open();
  ChooseStock(1);
  RefuseWrites();
  DialogDriver user;
  user.Answer(IDYES);
  user.Answer(IDOK);
  Click(Page, IDC_STOCK_DELETE);
  ASSERT_EQ(2u, user.Messages.size());
  EXPECT_EQ("Page Setup|The list of stocks could not be saved.", user.Messages[1]);
  EXPECT_EQ("USER (100.0 mm x 150.0 mm);<Tag (30.0 mm x 20.0 mm)>", Lines(Page, IDC_STOCK));
}

TEST_F(PageSetupPageTest, AfterTheLastStockTheOneBeforeIsChosen) {
  Open();
  ChooseStock(2);
  DialogDriver user;
  user.Answer(IDYES);
  Click(Page, IDC_STOCK_DELETE);
  EXPECT_EQ("Shelf", StoredStock());
  EXPECT_EQ("Shelf", FormName());
}

TEST_F(PageSetupPageTest, FocusLeavesTheDeleteButtonThatIsDisabled) {
  Open();
  ChooseStock(1);
  DialogDriver user;
  user.Answer(IDYES);
  user.Answer(IDYES);
  EnableWindow(Page, TRUE);  // as a sheet does
  SetFocus(GetDlgItem(Page, IDC_STOCK_DELETE));
  Click(Page, IDC_STOCK_DELETE);
  EXPECT_EQ(GetDlgItem(Page, IDC_STOCK_DELETE), GetFocus());
  Click(Page, IDC_STOCK_DELETE);
  EXPECT_FALSE(IsEnabled(Page, IDC_STOCK_DELETE));
  EXPECT_EQ(GetDlgItem(Page, IDC_STOCK), GetFocus());
}

// What a host does whose own window goes while a question of ours is open.
TEST_F(PageSetupPageTest, SheetThatEndsUnderAQuestionTakesPageAndSessionAfterIt) {
  static int ends;
  static HWND page;
  static DriverSession* session;
  Open();
  ChooseStock(1);
  ends = 0;
  page = Page;
  Pages.clear();
  session = TheSession.release();
  session->AtEnd = [](DriverSession*) { ++ends; };
  const MessageFunction before =
      SetMessageFunction([](HWND, const OString&, const OString&, uint32_t) {
        DestroyWindow(page);
        EndSession(session);
        EXPECT_EQ(0, ends);
        return int32_t{IDYES};
      });
  Click(Page, IDC_STOCK_DELETE);
  SetMessageFunction(before);
  EXPECT_EQ(1, ends);
  EXPECT_EQ("Shelf,Tag", StoredStock());
}

TEST_F(PageSetupPageTest, PageThatEndsUnderItsDialogLeavesTheSessionNothing) {
  Open();
  ChooseStock(1);
  DialogDriver user;
  user.Expect([&](HWND dialog) {
    DestroyWindow(Page);
    Pages.clear();
    Type(dialog, IDC_STOCK_NAME, L"Other");
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_EDIT);
  EXPECT_EQ(nullptr, Session().DialogArgument);
  EXPECT_EQ("Shelf,Tag", StoredStock());
}

TEST_F(PageSetupPageTest, NoKeepsTheStock) {
  Open();
  ChooseStock(1);
  DialogDriver user;
  user.Answer(IDNO);
  Click(Page, IDC_STOCK_DELETE);
  EXPECT_EQ("Shelf,Tag", StoredStock());
  EXPECT_EQ("Shelf", FormName());
}

TEST_F(PageSetupPageTest, NewStockStartsAsACopyAndIsSavedWithOk) {
  Open();
  ChooseStock(1);
  DialogDriver user;
  user.Expect([](HWND dialog) {
    EXPECT_EQ("New stock", Narrow(dialog, IDC_STOCK_NAME));
    EXPECT_EQ("50.0 mm", Narrow(dialog, IDC_STOCK_WIDTH));
    Type(dialog, IDC_STOCK_NAME, L"Narrow");
    Type(dialog, IDC_STOCK_WIDTH, L"1.5 in");
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_NEW);
  EXPECT_EQ("Narrow,Shelf,Tag", StoredStock());
  EXPECT_EQ("Narrow", FormName());
  EXPECT_EQ(257, PaperSize());
  EXPECT_EQ(381, Settings().GetPaperWidth());
  EXPECT_NE(std::string::npos, Lines(Page, IDC_STOCK).find("<Narrow (38.1 mm x 25.0 mm)>"));
  EXPECT_TRUE(IsEnabled(Page, IDC_STOCK_DELETE));
}

TEST_F(PageSetupPageTest, CancelledNewStockLeavesListAndDevMode) {
  Open();
  ChooseStock(1);
  const std::vector<uint8_t> block = Block();
  const std::string store = StoreDump();
  DialogDriver user;
  user.Expect([](HWND dialog) {
    Type(dialog, IDC_STOCK_NAME, L"Narrow");
    Press(dialog, IDCANCEL);
  });
  Click(Page, IDC_STOCK_NEW);
  EXPECT_EQ(block, Block());
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(PageSetupPageTest, EditedStockIsSavedAndCurrent) {
  Open();
  ChooseStock(2);
  DialogDriver user;
  user.Expect([](HWND dialog) {
    Type(dialog, IDC_STOCK_NAME, L"A tag");
    Type(dialog, IDC_STOCK_HEIGHT, L"22 mm");
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_EDIT);
  EXPECT_EQ("A tag,Shelf", StoredStock());
  EXPECT_EQ("A tag", FormName());
  EXPECT_EQ(257, PaperSize());
  EXPECT_EQ(220, Settings().GetPaperLength());
}

TEST_F(PageSetupPageTest, EditedUserFormGivesTheDocumentItsSize) {
  Open();
  DialogDriver user;
  user.Expect([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, IDC_STOCK_NAME));
    Type(dialog, IDC_STOCK_WIDTH, L"8 cm");
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_EDIT);
  EXPECT_EQ(256, PaperSize());
  EXPECT_EQ(825, Settings().GetPaperWidth());
}

TEST_F(PageSetupPageTest, LockedPageOffersNoChangeOfThePrinter) {
  AddLabelPrinter();
  Lock();
  Open();
  ChooseStock(1);
  EXPECT_FALSE(IsEnabled(Page, IDC_STOCK_NEW));
  EXPECT_FALSE(IsEnabled(Page, IDC_STOCK_DELETE));
  EXPECT_FALSE(IsEnabled(Page, IDC_PRESETS));
  EXPECT_TRUE(IsEnabled(Page, IDC_STOCK_EDIT));
  EXPECT_EQ(Utf8Name(ResourcesOf(&Session()).LoadText(488)), Narrow(Page, IDC_STOCK_EDIT));
  // The document's own settings are free.
  EXPECT_EQ(257, PaperSize());
  EXPECT_TRUE(IsEnabled(Page, IDC_ORIENTATION_LANDSCAPE));
  ChooseStock(0);
  EXPECT_EQ(Utf8Name(ResourcesOf(&Session()).LoadText(489)), Narrow(Page, IDC_STOCK_EDIT));
}

TEST_F(PageSetupPageTest, LockedUserFormIsSizedForTheDocumentAlone) {
  AddLabelPrinter();
  Lock();
  Open();
  const std::string store = StoreDump();
  DialogDriver user;
  user.Expect([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, IDC_MARGIN_LEFT));
    Type(dialog, IDC_STOCK_WIDTH, L"8 cm");
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_EDIT);
  EXPECT_EQ(825, Settings().GetPaperWidth());
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(PageSetupPageTest, LockedStockCanOnlyBeLookedAt) {
  AddLabelPrinter();
  Lock();
  Open();
  ChooseStock(1);
  const std::vector<uint8_t> block = Block();
  const std::string store = StoreDump();
  DialogDriver user;
  user.Expect([](HWND dialog) {
    for (int id = IDC_STOCK_NAME; id <= IDC_MARGIN_BOTTOM; ++id)
      EXPECT_FALSE(IsEnabled(dialog, id)) << id;
    Press(dialog, IDOK);
  });
  Click(Page, IDC_STOCK_EDIT);
  EXPECT_EQ(block, Block());
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(PageSetupPageTest, PageOfAnotherModelIsReadOnly) {
  AddLabelPrinter();
  memcpy(Settings().GetRecord().Trailer->TrailerModel, "xyz", 3);
  const std::vector<uint8_t> block = Block();
  Open();
  for (int id = IDC_STOCK; id <= IDC_ADVANCED; ++id) EXPECT_FALSE(IsEnabled(Page, id)) << id;
  EXPECT_EQ(2, SheetNotify(Page, PSN_APPLY));
  EXPECT_EQ(block, Block());
}

TEST_F(PageSetupPageTest, PageOfAnotherModelShowsWhoseDriverItIs) {
  Manufacturer += "Copyright=Made by us {C=2001-2004}.\n";
  AddLabelPrinter();
  memcpy(Settings().GetRecord().Trailer->TrailerModel, "xyz", 3);
  Open();
  EXPECT_EQ("Made by us \xC2\xA9 2001-2004.", Narrow(Page, IDC_COPYRIGHT));
  EXPECT_EQ(std::string::npos, Narrow(Page, IDC_DRIVER_COPYRIGHT).find('{'));
}

TEST_F(PageSetupPageTest, PresetThatMeansTheSameIsShown) {
  Open();
  EXPECT_EQ("Current settings;<Factory settings>", Lines(Page, IDC_PRESET));
  Click(Page, IDC_ORIENTATION_LANDSCAPE);
  EXPECT_EQ("Current settings;Factory settings", Lines(Page, IDC_PRESET));
  Click(Page, IDC_ORIENTATION_PORTRAIT);
  EXPECT_NE(std::string::npos, Lines(Page, IDC_PRESET).find('<'));
}

TEST_F(PageSetupPageTest, ChosenPresetIsLoadedAndThePageShowsIt) {
  AddLabelPrinter();
  DevMode landscape;
  landscape.Assign(Settings());
  landscape.SetOrientation(3);
  landscape.SetNegative(true);
  Session().GetPresets();
  auto* preset = new PresetItem;
  preset->SetBlock(landscape);
  preset->SetName("Sideways");
  Session().Presets.AddTail(preset);
  Session().Presets.Sort();
  Open();
  EXPECT_EQ("Current settings;<Factory settings>;Sideways", Lines(Page, IDC_PRESET));
  Choose(Page, IDC_PRESET, 2);
  EXPECT_EQ(3, Settings().GetOrientation());
  EXPECT_TRUE(Settings().GetNegative());
  EXPECT_EQ(preset->GetDevMode().GetPresetNameCrc(), Settings().GetPresetNameCrc());
  EXPECT_TRUE(IsChecked(Page, IDC_ORIENTATION_ROTATED_LANDSCAPE));
  EXPECT_FALSE(IsChecked(Page, IDC_ORIENTATION_PORTRAIT));
  EXPECT_TRUE(IsChecked(Page, IDC_NEGATIVE));
  EXPECT_EQ("Current settings;Factory settings;<Sideways>", Lines(Page, IDC_PRESET));
  EXPECT_TRUE(SheetChanged);
}

TEST_F(PageSetupPageTest, PresetOfADeletedStockIsTheUserFormOfItsSize) {
  AddLabelPrinter();
  Open();
  ChooseStock(1);
  auto* preset = new PresetItem;
  preset->SetBlock(Settings());
  preset->SetName("Shelves");
  Session().GetPresets();
  Session().Presets.AddTail(preset);
  DialogDriver user;
  user.Answer(IDYES);
  Click(Page, IDC_STOCK_DELETE);
  // Tag has the number now that Shelf had.
  EXPECT_EQ(257, PaperSize());
  SendMessageW(Page, PSM_QUERYSIBLINGS, kSiblingInitial, 0);
  Choose(Page, IDC_PRESET, 2);
  EXPECT_EQ(256, PaperSize());
  EXPECT_EQ(500, Settings().Get(&PublicDevMode::dmPaperWidth));
  EXPECT_EQ(250, Settings().Get(&PublicDevMode::dmPaperLength));
}

TEST_F(PageSetupPageTest, PresetThatNamesNoStockMeansItsNumber) {
  AddLabelPrinter();
  Open();
  ChooseStock(1);
  DevMode nameless;
  nameless.Assign(Settings());
  memset(nameless.GetBlock() + offsetof(PublicDevMode, dmFormName), 0,
         sizeof PublicDevMode{}.dmFormName);
  auto* preset = new PresetItem;
  preset->SetBlock(nameless);
  preset->SetName("Shelves");
  Session().GetPresets();
  Session().Presets.AddTail(preset);
  ChooseStock(2);
  SendMessageW(Page, PSM_QUERYSIBLINGS, kSiblingInitial, 0);
  Choose(Page, IDC_PRESET, 2);
  EXPECT_EQ(257, PaperSize());
  EXPECT_EQ("Shelf", FormName());
}

TEST_F(PageSetupPageTest, PresetsMadeInTheDialogAreOfferedAtOnce) {
  Open();
  Click(Page, IDC_ORIENTATION_LANDSCAPE);
  DialogDriver user;
  user.Expect([](HWND dialog) {
    Click(dialog, IDC_PRESET_NEW);
    Press(dialog, IDOK);
  });
  Click(Page, IDC_PRESETS);
  EXPECT_EQ("Current settings;Factory settings;<Preset 1>", Lines(Page, IDC_PRESET));
  PresetList stored;
  stored.Load(Model());
  ASSERT_NE(nullptr, stored.GetFirst());
  EXPECT_EQ("Preset 1", Utf8Name(stored.GetFirst()->Name));
}

TEST_F(PageSetupPageTest, AdvancedOpensItsTwoPages) {
  Open();
  FakeWindows windows;
  Session().Windows = &windows;
  Click(Page, IDC_ADVANCED);
  ASSERT_EQ(1u, windows.Calls.size());
  EXPECT_EQ("sheet Advanced *:ADVANCED/USER_COMMANDS *:ADVANCED/DRIVER_OPTIONS", windows.Calls[0]);
  EXPECT_EQ(Page, windows.Owner);
  Session().Windows = nullptr;
}

TEST_F(PageSetupPageTest, OptionsAppliedInASheetThatIsCancelledCount) {
  Open();
  ChooseStock(1);
  // As the sheet's own pages apply them.
  DriverOptions options;
  options.Bind(Session().Model);
  options.SetOverride(true);
  options.SetPrintableWidth(40000);
  options.SetMinimumPageWidth(10000);
  options.SetMaximumPageWidth(40000);
  options.SetMinimumPageLength(5000);
  options.SetMaximumPageLength(500000);
  ASSERT_TRUE(options.Commit());
  FakeWindows windows;
  windows.Result = IDCANCEL;
  Session().Windows = &windows;
  Click(Page, IDC_ADVANCED);
  Session().Windows = nullptr;
  // The chosen stock is too wide now: its size is cut to what can be printed.
  EXPECT_EQ("<USER (37.5 mm x 25.0 mm)>;Shelf (50.0 mm x 25.0 mm);Tag (30.0 mm x 20.0 mm)",
            Lines(Page, IDC_STOCK));
}

TEST_F(PageSetupPageTest, AboutPageOpensFirstOnceWhereTheMakerWantsIt) {
  Oem = "[VT]\nAbout.Template=*:ABOUT\nAbout.Default=Yes\n";
  AddLabelPrinter();
  const FakeWindows windows;
  Session().Windows = &windows;
  ASSERT_TRUE(Session().AddAboutPage());
  Session().Windows = nullptr;
  Open();
  EXPECT_EQ(-1, ShownPage);  // posted, not sent
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  EXPECT_EQ(2, ShownPage);
  ShownPage = -1;
  SheetNotify(Page, PSN_SETACTIVE);
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  EXPECT_EQ(-1, ShownPage);
}

TEST_F(PageSetupPageTest, AboutPageStaysClosedElsewhere) {
  Oem = "[VT]\nAbout.Default=No\n";
  AddLabelPrinter();
  Open();
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  EXPECT_EQ(-1, ShownPage);
}

TEST_F(PageSetupPageTest, PreviewShowsTheLabelTheSampleAndTheArrow) {
  Open();
  ChooseStock(1);  // twice as wide as high
  RECT client;
  GetClientRect(GetDlgItem(Page, IDC_PREVIEW), &client);
  const int middleX = client.right / 2;
  const int middleY = client.bottom / 2;
  EXPECT_EQ(GetSysColor(COLOR_3DFACE), PreviewPixel(0, 0));
  EXPECT_EQ(RGB(0, 0, 0), PreviewPixel(3, middleY));
  EXPECT_EQ(RGB(255, 255, 255), PreviewPixel(8, middleY));
  EXPECT_EQ(RGB(0, 0, 0), PreviewPixel(middleX - 4, middleY));
  EXPECT_EQ(RGB(255, 255, 255), PreviewPixel(middleX + 4, middleY));
  const int top = (client.bottom - (client.right - 6) / 2) / 2;
  EXPECT_EQ(RGB(240, 0, 0), PreviewPixel(middleX, top + 8));
  Click(Page, IDC_MIRROR);
  EXPECT_EQ(RGB(255, 255, 255), PreviewPixel(middleX - 4, middleY));
  EXPECT_EQ(RGB(0, 0, 0), PreviewPixel(middleX + 4, middleY));
  Click(Page, IDC_NEGATIVE);
  EXPECT_EQ(RGB(0, 0, 0), PreviewPixel(8, middleY));
  EXPECT_EQ(RGB(0, 0, 0), PreviewPixel(middleX - 4, middleY));
  EXPECT_EQ(RGB(255, 255, 255), PreviewPixel(middleX + 4, middleY));
}

TEST_F(PageSetupPageTest, ChangeByAnotherPageIsShown) {
  Open();
  Settings().SetOrientation(2);
  Settings().SetMirror(true);
  SendMessageW(Page, PSM_QUERYSIBLINGS, kSiblingUpdate, 1);
  EXPECT_TRUE(IsChecked(Page, IDC_ORIENTATION_ROTATED_PORTRAIT));
  EXPECT_TRUE(IsChecked(Page, IDC_MIRROR));
}

}  // namespace
}  // namespace ostvt::test
