// The numbered actions as another program runs them, with a window of its own for their owner.
#include <gtest/gtest.h>

#include "HostEnvironment.h"
#include "SheetUser.h"
#include "SpoolerInstall.h"

namespace host {
namespace {

constexpr unsigned kExists = 1;  // bit of an action's flags

class ActionOfAProgram : public testing::Test {
 protected:
  ActionOfAProgram()
      : Module(LoadLibraryW((spooldemo::DriverDirectory() + L"\\3\\ostvt.dll").c_str())) {}
  ~ActionOfAProgram() override {
    if (Module) FreeLibrary(Module);
  }
  void SetUp() override {
    ASSERT_NE(nullptr, Module);
    ASSERT_TRUE(Printer.IsReady());
    ASSERT_TRUE(
        Take("DAL_Printer_Open", &OpenSession) && Take("DAL_Printer_Close", &CloseSession) &&
        Take("DAL_Printer_ActionUI", &ActionUI) && Take("DAL_Printer_ActionFlag", &ActionFlag));
    Parent = CreateWindowExW(0, L"Static", L"A program", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                             300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, Parent);
    Session = OpenSession(Printer.Get());
    ASSERT_NE(nullptr, Session);
  }
  void TearDown() override {
    if (Session) CloseSession(Session);
    if (Parent) DestroyWindow(Parent);
  }
  template <typename Function>
  bool Take(const char* name, Function** function) {
    *function = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(Module, name)));
    return *function != nullptr;
  }

  void ExpectWindowIsBack(int action) {
    ASSERT_TRUE(IsWindow(Parent)) << action;
    EXPECT_TRUE(IsWindowEnabled(Parent)) << action;
    EXPECT_TRUE(IsWindowVisible(Parent)) << action;
    EXPECT_EQ(Parent, GetLastActivePopup(Parent)) << action;
  }

  HMODULE Module;
  HostPrinter Printer{L"Host Test Actions"};
  HWND Parent = nullptr;
  void* Session = nullptr;
  void*(WINAPI* OpenSession)(void*) = nullptr;
  void(WINAPI* CloseSession)(void*) = nullptr;
  int(WINAPI* ActionUI)(void*, void*, int) = nullptr;
  unsigned(WINAPI* ActionFlag)(void*, int) = nullptr;
};

// None of these needs an answer of the user; what is open all the same is cancelled.
TEST_F(ActionOfAProgram, LeavesItsWindowEnabledAndAlive) {
  for (int action = 0; action <= 50; ++action) {
    const unsigned flags = ActionFlag(Session, action);
    int done = -1;
    EXPECT_TRUE(sheetuser::Attend([&] { done = ActionUI(Session, Parent, action); }, [] {}));
    if ((flags & kExists) == 0) {
      EXPECT_EQ(0, done) << action;
    }
    ExpectWindowIsBack(action);
  }
}

// The printer's port asks for a file, over the program's window.
TEST_F(ActionOfAProgram, HoldsItsWindowOnlyWhileItsOwnIsOpen) {
  for (const int action : {1, 2, 4}) {
    bool isDone = false;
    const auto run = [&] { ActionUI(Session, Parent, action); };
    EXPECT_TRUE(sheetuser::Attend(run, [&] {
      HWND cancel = sheetuser::WaitForControl(IDCANCEL);
      ASSERT_NE(nullptr, cancel) << "no window";
      HWND window = sheetuser::SheetOf(cancel);
      EXPECT_NE(Parent, window);
      EXPECT_EQ(Parent, GetWindow(window, GW_OWNER));
      EXPECT_FALSE(IsWindowEnabled(Parent));
      sheetuser::Close(window, IDCANCEL);
      ASSERT_TRUE(sheetuser::WaitUntilGone(window));
      isDone = true;
    }));
    EXPECT_TRUE(isDone) << action;
    ExpectWindowIsBack(action);
  }
}

}  // namespace
}  // namespace host
