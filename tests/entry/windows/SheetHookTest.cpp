#include "entry/SheetHook.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/windows/Win32.h"
#include "settings/DriverSession.h"

namespace ostvt::test {
namespace {

constexpr UINT kSelectTab = WM_USER + 101;
constexpr UINT kGetTabControl = WM_USER + 116;

std::vector<UINT> pageMessages;
int tabSelected = -1;
HWND tabControl = nullptr;

LRESULT CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  pageMessages.push_back(message);
  if (message == WM_COMMAND) return 55;
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK SheetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kGetTabControl) return reinterpret_cast<LRESULT>(tabControl);
  if (message == kSelectTab) tabSelected = static_cast<int>(wParam);
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK TabsProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == 0x1304) return 6;  // six tabs
  return DefWindowProcW(window, message, wParam, lParam);
}

void Register(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW record = {};
  record.lpfnWndProc = procedure;
  record.hInstance = GetModuleHandleW(nullptr);
  record.lpszClassName = name;
  RegisterClassW(&record);
}

class TestSession : public DriverSession {
 public:
  bool DoAction(ActionContext*, int32_t action) override {
    Done.push_back(action);
    return true;
  }
  uint32_t GetActionFlags(ActionContext*, int32_t) override { return 1; }
  std::vector<int32_t> Done;
};

// A sheet with a page as the host's own, in message-only windows: nothing is shown.
class SheetHook : public testing::Test {
 protected:
  void SetUp() override {
    Register(L"OstvtTestSheet", SheetProcedure);
    Register(L"OstvtTestPage", PageProcedure);
    Register(L"OstvtTestTabs", TabsProcedure);
    Sheet = Create(L"OstvtTestSheet", HWND_MESSAGE, 0);
    tabControl = Create(L"OstvtTestTabs", HWND_MESSAGE, 0);
    Page = Create(L"OstvtTestPage", Sheet, 0);
    ASSERT_NE(Page, nullptr) << GetLastError();
    pageMessages.clear();
    tabSelected = -1;
  }
  void TearDown() override {
    RemoveSheetHook(&Session);
    DestroyWindow(Sheet);
    DestroyWindow(tabControl);
  }
  static HWND Create(const wchar_t* name, HWND parent, int id) {
    bool isChild = parent != HWND_MESSAGE;
    return CreateWindowExW(0, name, L"", isChild ? WS_CHILD : 0, 0, 0, 10, 10, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
  }
  HWND AddControl(int id) { return Create(L"STATIC", Page, id); }
  LRESULT PressTestButton() { return SendMessageW(Page, WM_COMMAND, MAKEWPARAM(3007, 0), 0); }
  static void RunMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }

  TestSession Session;
  HWND Sheet = nullptr;
  HWND Page = nullptr;
};

TEST_F(SheetHook, HostsTestButtonPrintsTheDriversPage) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  EXPECT_EQ(PressTestButton(), 55);  // not yet
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 0);
  EXPECT_EQ(Session.Done, std::vector<int32_t>{1});
  // Other notifications of the button, and other buttons, stay the page's own.
  EXPECT_EQ(SendMessageW(Page, WM_COMMAND, MAKEWPARAM(3007, 5), 0), 55);
  EXPECT_EQ(SendMessageW(Page, WM_COMMAND, MAKEWPARAM(3006, 0), 0), 55);
  EXPECT_EQ(Session.Done.size(), 1u);
}

TEST_F(SheetHook, OtherMessagesReachThePage) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  pageMessages.clear();
  SendMessageW(Page, WM_APP, 0, 0);
  EXPECT_EQ(pageMessages, std::vector<UINT>{WM_APP});
}

TEST_F(SheetHook, PageWithoutTheButtonIsNotTaken) {
  HWND title = AddControl(3001);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 55);
  EXPECT_TRUE(Session.Done.empty());
}

TEST_F(SheetHook, OtherPageEndsTheWatch) {
  HWND title = AddControl(3001);
  AddControl(3007);
  HWND first = AddControl(3227);
  AddControl(3228);
  InstallSheetHook(&Session, false);
  SendMessageW(first, BM_SETCHECK, 1, 0);
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 55);
}

TEST_F(SheetHook, OneOfTheTwoControlsDoesNotEndTheWatch) {
  HWND title = AddControl(3001);
  AddControl(3007);
  HWND first = AddControl(3227);
  InstallSheetHook(&Session, false);
  SendMessageW(first, BM_SETCHECK, 1, 0);
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 0);
}

TEST_F(SheetHook, LastTabIsSelectedWhenTheAboutPageMayOpenFirst) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, true);
  SetWindowTextW(title, L"Printer");
  RunMessages();
  EXPECT_EQ(tabSelected, 5);
}

TEST_F(SheetHook, NoTabIsSelectedWhenTheAboutPageIsKeptClosed) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  RunMessages();
  EXPECT_EQ(tabSelected, -1);
}

TEST_F(SheetHook, EndOfTheSessionGivesThePageBack) {
  HWND title = AddControl(3001);
  AddControl(3007);
  LONG_PTR before = GetWindowLongPtrW(Page, GWLP_WNDPROC);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  EXPECT_NE(GetWindowLongPtrW(Page, GWLP_WNDPROC), before);
  RemoveSheetHook(&Session);
  EXPECT_EQ(GetWindowLongPtrW(Page, GWLP_WNDPROC), before);
  EXPECT_EQ(PressTestButton(), 55);
}

TEST_F(SheetHook, DestructorOfTheSessionGivesThePageBack) {
  HWND title = AddControl(3001);
  AddControl(3007);
  LONG_PTR before = GetWindowLongPtrW(Page, GWLP_WNDPROC);
  {
    TestSession session;
    InstallSheetHook(&session, false);
    SetWindowTextW(title, L"Printer");
    EXPECT_NE(GetWindowLongPtrW(Page, GWLP_WNDPROC), before);
  }
  EXPECT_EQ(GetWindowLongPtrW(Page, GWLP_WNDPROC), before);
  EXPECT_EQ(PressTestButton(), 55);
}

TEST_F(SheetHook, DestructorOfTheSessionEndsTheWatch) {
  HWND title = AddControl(3001);
  AddControl(3007);
  {
    TestSession session;
    InstallSheetHook(&session, false);
  }
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 55);
}

TEST_F(SheetHook, EndOfTheSessionEndsTheWatch) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  RemoveSheetHook(&Session);
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 55);
}

LRESULT CALLBACK OverlayProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto below = reinterpret_cast<WNDPROC>(GetPropW(window, L"Below"));
  return CallWindowProcW(below, window, message, wParam, lParam);
}

TEST_F(SheetHook, EndOfTheSessionBelowAnotherSubclassLeavesAWorkingPage) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  LONG_PTR ours =
      SetWindowLongPtrW(Page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OverlayProcedure));
  SetPropW(Page, L"Below", reinterpret_cast<HANDLE>(ours));
  RemoveSheetHook(&Session);
  EXPECT_EQ(PressTestButton(), 55);
  EXPECT_TRUE(Session.Done.empty());
}

TEST_F(SheetHook, PageMayGoBeforeTheSession) {
  HWND title = AddControl(3001);
  AddControl(3007);
  InstallSheetHook(&Session, false);
  SetWindowTextW(title, L"Printer");
  DestroyWindow(Page);
  EXPECT_EQ(pageMessages.back(), static_cast<UINT>(WM_NCDESTROY));
  RemoveSheetHook(&Session);
}

TEST_F(SheetHook, NullSessionIsPassedOver) {
  InstallSheetHook(nullptr, false);
  RemoveSheetHook(nullptr);
  RemoveSheetHook(&Session);
  EXPECT_EQ(PressTestButton(), 55);
}

TEST_F(SheetHook, OtherThreadsAreNotWatched) {
  HWND title = AddControl(3001);
  AddControl(3007);
  HANDLE thread = CreateThread(
      nullptr, 0,
      [](void* session) -> DWORD {
        InstallSheetHook(static_cast<DriverSession*>(session), false);
        return 0;
      },
      static_cast<DriverSession*>(&Session), 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  SetWindowTextW(title, L"Printer");
  EXPECT_EQ(PressTestButton(), 55);
}

}  // namespace
}  // namespace ostvt::test
