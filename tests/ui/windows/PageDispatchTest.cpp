#include "ui/windows/PageDispatch.h"

#include <gtest/gtest.h>

#include "settings/DevModeRecord.h"
#include "tests/ui/TemplateBytes.h"
#include "tests/ui/windows/UiFixture.h"
#include "ui/windows/ScrollControl.h"
#include "ui/windows/UControl.h"

namespace ostvt::test {
namespace {

constexpr int kEdit = 100;
constexpr int kButton = 101;
constexpr int kScrollBar = 102;
constexpr int kSlider = 103;
constexpr int kBuddy = 104;
constexpr wchar_t kSheetClass[] = L"ui test sheet";

// Stands in for a property sheet: notes what pages tell it.
std::string* sheetLog = nullptr;

LRESULT CALLBACK SheetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (sheetLog && message == PSM_CHANGED) *sheetLog += "changed;";
  if (sheetLog && message == PSM_UNCHANGED) *sheetLog += "unchanged;";
  if (message == PSM_QUERYSIBLINGS) {
    for (HWND page = GetWindow(window, GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT))
      SendMessageW(page, message, wParam, lParam);
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

class NotingControl : public UControl {
 public:
  ~NotingControl() override = default;
  void OnUpdate() override { TestPage::Note("control update"); }
  void OnNotify(NMHDR*) override { TestPage::Note("control notify"); }
  void OnScroll() override { TestPage::Note("control scroll"); }
  bool OnDrawItem(const DRAWITEMSTRUCT*) override {
    TestPage::Note("control draw");
    return Draws;
  }
  bool Draws = false;
};

class PageDispatchTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    TestPage::Record_ = &Record;
    sheetLog = &Log;
    WNDCLASSW sheetClass = {};
    sheetClass.lpfnWndProc = SheetProcedure;
    sheetClass.lpszClassName = kSheetClass;
    sheetClass.hInstance = GetModuleHandleW(nullptr);
    RegisterClassW(&sheetClass);
    Sheet = CreateWindowExW(0, kSheetClass, L"", WS_POPUP, 0, 0, 300, 300, nullptr, nullptr,
                            sheetClass.hInstance, nullptr);
    ASSERT_NE(nullptr, Sheet);
  }
  void TearDown() override {
    if (Page) DestroyWindow(Page);
    DestroyWindow(Sheet);
    EXPECT_EQ(0, Record.Pages);
    TestPage::Record_ = nullptr;
    sheetLog = nullptr;
    UiTest::TearDown();
  }

  static TemplateBytes Template(uint32_t style) {
    TemplateBytes bytes;
    bytes.PlainHead(style, 8).Word(0).Word(0).Text(u"Test");
    bytes.PlainControl(kEdit, u"Edit", u"");
    bytes.PlainControl(kButton, u"Button", u"Go");
    bytes.PlainControl(kScrollBar, u"ScrollBar", u"");
    bytes.PlainControl(kSlider, u"msctls_trackbar32", u"");
    bytes.PlainControl(kBuddy, u"Static", u"");
    bytes.PlainControl(1, u"Button", u"OK").PlainControl(2, u"Button", u"Cancel");
    bytes.PlainControl(9, u"Button", u"Help").Align();
    return bytes;
  }

  void StartDialog() {
    ResourcesOf(&Session()).LoadTemplate("none");  // the classes of its controls
    const TemplateBytes bytes = Template(WS_POPUP);
    const DialogStart start = {0, &Session()};
    Start(bytes, nullptr, reinterpret_cast<LPARAM>(&start));
  }
  void StartInSheet() {
    ResourcesOf(&Session()).LoadTemplate("none");
    const TemplateBytes bytes = Template(WS_CHILD);
    PROPSHEETPAGEW description = {};
    description.dwSize = 96;
    description.lParam = reinterpret_cast<LPARAM>(&Session());
    Start(bytes, Sheet, reinterpret_cast<LPARAM>(&description));
  }
  void Start(const TemplateBytes& bytes, HWND parent, LPARAM record) {
    Page = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                      reinterpret_cast<const DLGTEMPLATE*>(bytes.Bytes.data()),
                                      parent, StartPage<TestPage>, record);
    ASSERT_NE(nullptr, Page);
    ASSERT_NE(nullptr, TestPage::Last);
    First = Record.TakenSteps();
  }
  // The session's device mode is then another model's.
  void MakeForeign() {
    memcpy(Session().DevModeBuffer.GetRecord().Trailer->TrailerModel, "xyz", 3);
  }
  LRESULT Notify(int id, UINT code, HWND from) {
    NMHDR header = {from, static_cast<UINT_PTR>(id), code};
    return SendMessageW(Page, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
  }
  LRESULT SheetNotify(int code) { return Notify(0, static_cast<UINT>(code), Sheet); }
  void Command(int id, int code = 0) {
    SendMessageW(Page, WM_COMMAND, MAKEWPARAM(id, code),
                 reinterpret_cast<LPARAM>(GetDlgItem(Page, id)));
  }
  HWND Item(int id) { return GetDlgItem(Page, id); }
  std::string TakenLog() {
    std::string text;
    text.swap(Log);
    return text;
  }

  PageRecord Record;
  std::string Log;
  std::string First;  // what the start called
  HWND Sheet = nullptr;
  HWND Page = nullptr;
};

TEST_F(PageDispatchTest, APropertyPageStartsWithItsChecksumAndUpdate) {
  StartInSheet();
  EXPECT_EQ("init in sheet;update initial;", First);
  EXPECT_EQ(&Session(), TestPage::Last->Session);
  EXPECT_FALSE(TestPage::Last->IsChanged());
  Session().DevModeBuffer.SetCopies(7);
  EXPECT_TRUE(TestPage::Last->IsChanged());
}

TEST_F(PageDispatchTest, ADialogHasNoChecksum) {
  StartDialog();
  EXPECT_EQ("init;update initial;", First);
  EXPECT_EQ(0u, TestPage::Last->GetChecksum());
  Session().DevModeBuffer.SetCopies(7);
  EXPECT_FALSE(TestPage::Last->IsChanged());
}

TEST_F(PageDispatchTest, APageOfAnotherModelIsReadOnly) {
  MakeForeign();
  StartInSheet();
  EXPECT_EQ("init in sheet;", First);
  EXPECT_EQ(nullptr, TestPage::Last->Record());
  EXPECT_FALSE(IsWindowEnabled(Item(kEdit)));
  EXPECT_FALSE(IsWindowEnabled(Item(kButton)));
  EXPECT_TRUE(IsWindowEnabled(Item(1)));
  EXPECT_TRUE(IsWindowEnabled(Item(2)));
  EXPECT_TRUE(IsWindowEnabled(Item(9)));
}

TEST_F(PageDispatchTest, ApplyWithoutAPrivateBlockKeepsThePageAndNeverApplies) {
  MakeForeign();
  StartInSheet();
  EXPECT_EQ(2, SheetNotify(PSN_APPLY));
  EXPECT_EQ("", Record.Taken());
}

TEST_F(PageDispatchTest, ApplyMakesTheSettingsTheUnchangedOnes) {
  StartInSheet();
  SheetNotify(PSN_SETACTIVE);
  Session().DevModeBuffer.SetCopies(7);
  Record.Taken();
  TakenLog();
  EXPECT_EQ(0, SheetNotify(PSN_APPLY));
  EXPECT_EQ("can apply;apply;update;", Record.Taken());
  EXPECT_EQ("unchanged;", TakenLog());
  EXPECT_EQ(7, Session().SavedDevMode.GetCopies());
}

TEST_F(PageDispatchTest, ApplyThatIsRefusedKeepsThePage) {
  StartInSheet();
  Record.Applies = false;
  EXPECT_EQ(2, SheetNotify(PSN_APPLY));
  EXPECT_EQ("can apply;update;", Record.Taken());
}

TEST_F(PageDispatchTest, ActivationTellsThePageItsSheet) {
  StartInSheet();
  EXPECT_EQ(nullptr, TestPage::Last->Sheet);
  EXPECT_EQ(0, SheetNotify(PSN_SETACTIVE));
  EXPECT_EQ(Sheet, TestPage::Last->Sheet);
  EXPECT_EQ("active;update;", Record.Taken());
  EXPECT_EQ("unchanged;", TakenLog());
}

TEST_F(PageDispatchTest, LeavingNeedsBothConsents) {
  StartInSheet();
  EXPECT_EQ(0, SheetNotify(PSN_KILLACTIVE));
  EXPECT_EQ("can apply;inactive;update;", Record.Taken());
  Record.LetsGo = false;
  EXPECT_EQ(1, SheetNotify(PSN_KILLACTIVE));
  Record.Taken();
  Record.LetsGo = true;
  Record.Applies = false;
  EXPECT_EQ(1, SheetNotify(PSN_KILLACTIVE));
  EXPECT_EQ("can apply;update;", Record.Taken());
}

TEST_F(PageDispatchTest, ResetGoesBackToTheSavedSettings) {
  StartInSheet();
  const int32_t copies = Session().DevModeBuffer.GetCopies();
  Session().DevModeBuffer.SetCopies(copies + 5);
  EXPECT_EQ(0, SheetNotify(PSN_RESET));
  EXPECT_EQ("reset;update;", Record.Taken());
  EXPECT_EQ(copies, Session().DevModeBuffer.GetCopies());
}

TEST_F(PageDispatchTest, ResetOfAnotherModelDoesNothing) {
  MakeForeign();
  StartInSheet();
  EXPECT_EQ(0, SheetNotify(PSN_RESET));
  EXPECT_EQ("", Record.Taken());
}

TEST_F(PageDispatchTest, HelpComesFromTheSheetTheKeyAndTheButton) {
  StartInSheet();
  EXPECT_EQ(0, SheetNotify(PSN_HELP));
  EXPECT_EQ("help;update;", Record.Taken());
  HELPINFO info = {};
  SendMessageW(Page, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
  EXPECT_EQ("help;", Record.Taken());
  Command(9);
  EXPECT_EQ("help;", Record.Taken());
}

TEST_F(PageDispatchTest, ACommandThatIsNotHandledRefreshes) {
  StartInSheet();
  SheetNotify(PSN_SETACTIVE);
  Record.Taken();
  TakenLog();
  Command(kButton, 5);
  EXPECT_EQ("command 101 5;", Record.Taken().substr(0, 14));
  EXPECT_EQ("", TakenLog());
  Record.CommandHandled = false;
  Session().DevModeBuffer.SetCopies(9);
  Command(kButton, 300);
  EXPECT_EQ("command 101 300;update;", Record.Taken());
  EXPECT_EQ("changed;", TakenLog());
}

TEST_F(PageDispatchTest, AnEditWithTheFocusIsSelectedThoughItsCommandWasHandled) {
  StartDialog();
  SetWindowTextW(Item(kEdit), L"12345");
  SendMessageW(Item(kEdit), EM_SETSEL, 2, 2);
  Record.Taken();
  Command(kEdit, EN_SETFOCUS);
  EXPECT_EQ("command 100 256;", Record.Taken());
  EXPECT_EQ(MAKELRESULT(0, 5), SendMessageW(Item(kEdit), EM_GETSEL, 0, 0));
}

TEST_F(PageDispatchTest, OkInASheetIsAnOrdinaryCommand) {
  StartInSheet();
  Command(1);
  EXPECT_EQ("command 1 0", Record.Taken().substr(0, 11));
}

TEST_F(PageDispatchTest, AnotherCodeOfTheThreeIsAnOrdinaryCommand) {
  StartDialog();
  Command(1, 300);
  Command(9, 300);
  EXPECT_EQ("command 1 300;command 9 300;", Record.Taken());
}

TEST_F(PageDispatchTest, NotificationsGoToTheControlThenToThePage) {
  StartInSheet();
  NotingControl control;
  ASSERT_TRUE(control.Attach(TestPage::Last, kButton));
  EXPECT_EQ(0, Notify(kButton, static_cast<UINT>(-12), Item(kButton)));
  EXPECT_EQ("control notify;notify 101 -12;", Record.Taken());
  Record.NotifyHandled = false;
  Notify(kEdit, static_cast<UINT>(-12), Item(kEdit));
  EXPECT_EQ("notify 100 -12;update;control update;", Record.Taken());
}

TEST_F(PageDispatchTest, ADrawingGoesToThePageWhenTheControlDoesNotDrawIt) {
  StartDialog();
  NotingControl control;
  ASSERT_TRUE(control.Attach(TestPage::Last, kButton));
  DRAWITEMSTRUCT item = {};
  item.CtlID = kButton;
  SendMessageW(Page, WM_DRAWITEM, kButton, reinterpret_cast<LPARAM>(&item));
  EXPECT_EQ("control draw;draw 101;", Record.Taken());
  control.Draws = true;
  SendMessageW(Page, WM_DRAWITEM, kButton, reinterpret_cast<LPARAM>(&item));
  EXPECT_EQ("control draw;", Record.Taken());
  item.CtlID = kEdit;
  SendMessageW(Page, WM_DRAWITEM, kEdit, reinterpret_cast<LPARAM>(&item));
  EXPECT_EQ("draw 100;", Record.Taken());
}

TEST_F(PageDispatchTest, AScrollStopsAtAControlThatHasAWrapper) {
  StartDialog();
  SetScrollRange(Item(kScrollBar), SB_CTL, 0, 100, FALSE);
  NotingControl control;
  ASSERT_TRUE(control.Attach(TestPage::Last, kScrollBar));
  SendMessageW(Page, WM_HSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(Item(kScrollBar)));
  EXPECT_EQ("control scroll;", Record.Taken());
}

TEST_F(PageDispatchTest, AScrollBarMovesAndTellsItsValue) {
  StartDialog();
  HWND bar = Item(kScrollBar);
  SetScrollRange(bar, SB_CTL, 0, 100, FALSE);
  SetScrollPos(bar, SB_CTL, 20, FALSE);
  SetPropW(bar, kScrollDivisorProperty, reinterpret_cast<HANDLE>(5));
  SetPropW(bar, kScrollBuddyProperty, Item(kBuddy));
  SendMessageW(Page, WM_HSCROLL, SB_PAGEDOWN, reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ("command 102 3 150;", Record.Taken());
  EXPECT_EQ(30, GetScrollPos(bar, SB_CTL));
  EXPECT_STREQ("150", TestPage::Last->ControlText(kBuddy).GetNarrow());
  SendMessageW(Page, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 77), reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ("command 102 4 385;", Record.Taken());
  EXPECT_EQ(77, GetScrollPos(bar, SB_CTL));
  SendMessageW(Page, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 77), reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ("", Record.Taken());
}

TEST_F(PageDispatchTest, AMissingScrollDivisorCountsAsOne) {
  StartDialog();
  HWND bar = Item(kScrollBar);
  SetScrollRange(bar, SB_CTL, 0, 100, FALSE);
  SendMessageW(Page, WM_HSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ("command 102 1 1;", Record.Taken());
}

TEST_F(PageDispatchTest, ASliderAlwaysTellsItsValue) {
  StartDialog();
  HWND slider = Item(kSlider);
  SendMessageW(slider, TBM_SETRANGE, FALSE, MAKELPARAM(0, 50));
  SendMessageW(slider, TBM_SETPOS, TRUE, 12);
  SetPropW(slider, kScrollTypeProperty, reinterpret_cast<HANDLE>(1));
  SetPropW(slider, kScrollDivisorProperty, reinterpret_cast<HANDLE>(10));
  SetPropW(slider, kScrollBuddyProperty, Item(kBuddy));
  SendMessageW(Page, WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(slider));
  EXPECT_EQ("command 103 8 120;", Record.Taken());
  EXPECT_STREQ("120", TestPage::Last->ControlText(kBuddy).GetNarrow());
}

TEST_F(PageDispatchTest, SiblingMessagesRefresh) {
  StartInSheet();
  SheetNotify(PSN_SETACTIVE);
  Record.Taken();
  TakenLog();
  TestPage::Last->SendToSiblings(7000, 0);
  EXPECT_EQ("update;", Record.Taken());
  TestPage::Last->SendToSiblings(7000, 5);
  EXPECT_EQ("update initial;", Record.Taken());
  TestPage::Last->SendToSiblings(7001, 0);
  EXPECT_EQ("update initial;", Record.Taken());
  TestPage::Last->SendToSiblings(7002, 42);
  EXPECT_EQ("private 42;", Record.Taken());
  TestPage::Last->SendToSiblings(7003, 1);
  EXPECT_EQ("", Record.Taken());
  EXPECT_EQ("", TakenLog());
}

TEST_F(PageDispatchTest, ANestedRefreshIsDropped) {
  StartInSheet();
  NotingControl control;
  ASSERT_TRUE(control.Attach(TestPage::Last, kButton));
  Record.RefreshesInUpdate = true;
  TestPage::Last->Refresh(false);
  EXPECT_EQ("update;control update;", Record.Taken());
  TestPage::Last->Refresh(true);
  EXPECT_EQ("update initial;control update;", Record.Taken());
}

TEST_F(PageDispatchTest, TimersAndPalettesReachThePage) {
  StartDialog();
  SendMessageW(Page, WM_TIMER, 33, 0);
  for (const UINT message : {783u, 784u, 785u}) SendMessageW(Page, message, 0, 0);
  EXPECT_EQ("timer 33;palette 783;palette 784;palette 785;", Record.Taken());
}

TEST_F(PageDispatchTest, TheSystemsOwnQuestionsAreLeftToIt) {
  StartDialog();
  EXPECT_EQ(TRUE, SendMessageW(Page, WM_QUERYENDSESSION, 0, 0));
  EXPECT_EQ("", Record.Taken());
}

TEST_F(PageDispatchTest, ThePageEndsWithItsWindow) {
  StartDialog();
  EXPECT_EQ(1, Record.Pages);
  DestroyWindow(Page);
  Page = nullptr;
  EXPECT_EQ("destroy;", Record.TakenSteps());
  EXPECT_EQ(0, Record.Pages);
}

TEST_F(PageDispatchTest, ControlsOfThePageByNumber) {
  StartDialog();
  TestPage& page = *TestPage::Last;
  page.SetNumber(kEdit, -42);
  EXPECT_STREQ("-42", page.ControlText(kEdit).GetNarrow());
  EXPECT_EQ(-42, page.GetNumber(kEdit));
  page.SetControlText(kEdit, " \t99999999999 mm");
  EXPECT_EQ(2000000000, page.GetNumber(kEdit));
  page.EnableAll(false, kEdit, kScrollBar);
  EXPECT_FALSE(IsWindowEnabled(Item(kEdit)));
  EXPECT_FALSE(IsWindowEnabled(Item(kScrollBar)));
  EXPECT_TRUE(IsWindowEnabled(Item(kSlider)));
  page.EnableControl(kEdit, true);
  EXPECT_TRUE(IsWindowEnabled(Item(kEdit)));
  page.SetControlText(kBuddy, "{C=1999}{X}");
  page.ExpandText(kBuddy);
  EXPECT_EQ(u'\u00A9', page.ControlText(kBuddy).GetWide()[0]);
  EXPECT_EQ(6, page.ControlText(kBuddy).Length());
  EXPECT_TRUE(page.ControlText(777).IsEmpty());
}

// The slots of the two tables, by what a pointer to a virtual member holds.
template <typename Member>
size_t SlotOf(Member member) {
  uintptr_t words[2] = {};
  static_assert(sizeof member == sizeof words);
  memcpy(words, &member, sizeof words);
  return (words[0] - 1) / sizeof(void*);
}

TEST(Slots, PagesHaveThemInOrder) {
  // A destructor takes two.
  EXPECT_EQ(2u, SlotOf(&UPage::GetText));
  EXPECT_EQ(3u, SlotOf(&UPage::GetMeasurement));
  EXPECT_EQ(4u, SlotOf(&UPage::OnDrawItem));
  EXPECT_EQ(5u, SlotOf(&UPage::Update));
  EXPECT_EQ(6u, SlotOf(&UPage::OnCommand));
  EXPECT_EQ(7u, SlotOf(&UPage::OnNotify));
  EXPECT_EQ(8u, SlotOf(&UPage::OnInitDialog));
  EXPECT_EQ(9u, SlotOf(&UPage::OnHelp));
  EXPECT_EQ(10u, SlotOf(&UPage::OnApply));
  EXPECT_EQ(11u, SlotOf(&UPage::OnReset));
  EXPECT_EQ(12u, SlotOf(&UPage::OnDestroy));
  EXPECT_EQ(13u, SlotOf(&UPage::IsChanged));
  EXPECT_EQ(14u, SlotOf(&UPage::GetChecksum));
  EXPECT_EQ(15u, SlotOf(&UPage::OnTimer));
  EXPECT_EQ(16u, SlotOf(&UPage::CanApply));
  EXPECT_EQ(17u, SlotOf(&UPage::CanCancel));
  EXPECT_EQ(18u, SlotOf(&UPage::OnSetActive));
  EXPECT_EQ(19u, SlotOf(&UPage::OnKillActive));
  EXPECT_EQ(20u, SlotOf(&UPage::OnPaletteMessage));
  EXPECT_EQ(21u, SlotOf(&UPage::OnPrivate));
  EXPECT_EQ(22u, SlotOf(&UPage::GetHelpTopic));
}

TEST(Slots, ControlsHaveThemInOrder) {
  EXPECT_EQ(2u, SlotOf(&UControl::Show));
  EXPECT_EQ(3u, SlotOf(&UControl::Enable));
  EXPECT_EQ(4u, SlotOf(&UControl::OnAdded));
  EXPECT_EQ(5u, SlotOf(&UControl::OnUpdate));
  EXPECT_EQ(6u, SlotOf(&UControl::OnNotify));
  EXPECT_EQ(7u, SlotOf(&UControl::OnScroll));
  EXPECT_EQ(8u, SlotOf(&UControl::OnDrawItem));
  EXPECT_EQ(9u, SlotOf(&UControl::OnPaint));
  EXPECT_EQ(10u, SlotOf(&UControl::OnMouseMove));
  EXPECT_EQ(11u, SlotOf(&UControl::OnLeftDown));
  EXPECT_EQ(12u, SlotOf(&UControl::OnLeftUp));
  EXPECT_EQ(13u, SlotOf(&UControl::OnLeftDouble));
  EXPECT_EQ(14u, SlotOf(&UControl::OnRightDown));
  EXPECT_EQ(15u, SlotOf(&UControl::OnRightUp));
  EXPECT_EQ(16u, SlotOf(&UControl::OnRightDouble));
  EXPECT_EQ(17u, SlotOf(&UControl::OnKeyDown));
  EXPECT_EQ(18u, SlotOf(&UControl::OnKeyUp));
  EXPECT_EQ(19u, SlotOf(&UControl::OnChar));
  EXPECT_EQ(20u, SlotOf(&UControl::OnAttach));
  EXPECT_EQ(21u, SlotOf(&UControl::OnDestroy));
  EXPECT_EQ(22u, SlotOf(&UControl::OnTimer));
}

}  // namespace
}  // namespace ostvt::test
