// Needs windows: runs on a display of its own.
#include <gtest/gtest.h>

#include <thread>

#include "companions/netmon/MonitorExports.h"
#include "platform/windows/Win32.h"
#include "tests/netmon/NetmonFixture.h"

namespace ostvt::test {
namespace {

constexpr const wchar_t* kClassName = L"Vantrel Status Monitor";
constexpr int kText = 100;
constexpr int kTries = 1000;
constexpr DWORD kStep = 20;  // milliseconds

std::wstring TextOf(HWND window) {
  wchar_t text[200] = {};
  GetWindowTextW(window, text, 200);
  return text;
}

// The window of that printer, as soon as it says something.
HWND WaitForWindow(const wchar_t* printer) {
  for (int i = 0; i < kTries; ++i) {
    HWND window = FindWindowW(kClassName, printer);
    if (window && !TextOf(GetDlgItem(window, kText)).empty()) return window;
    Sleep(kStep);
  }
  return nullptr;
}

// As rundll32 calls it, on a thread of its own, since it stays until the window is closed.
std::thread Open(const char* command) {
  return std::thread([command] { StatusMonitor(nullptr, nullptr, command, SW_SHOWNORMAL); });
}

TEST(StatusWindow, TellsWhetherThePrinterAnswersUntilItIsClosed) {
  const LittlePrinter machine;
  const TestPrinter printer(AtPort(machine.PortName()));
  ASSERT_TRUE(printer.IsReady());
  std::thread runner = Open("open \"Test Printer\"");
  HWND window = WaitForWindow(L"Test Printer");
  EXPECT_EQ(L"The printer is connected.", TextOf(GetDlgItem(window, kText)));
  StatusMonitor(nullptr, nullptr, "close \"Test Printer\"", SW_SHOWNORMAL);
  runner.join();
  EXPECT_EQ(nullptr, FindWindowW(kClassName, L"Test Printer"));
}

TEST(StatusWindow, PrinterThatDoesNotAnswerIsNeverConnected) {
  LittlePrinter machine;
  machine.StopListening();
  const TestPrinter printer(AtPort(machine.PortName()));
  ASSERT_TRUE(printer.IsReady());
  std::thread runner = Open("open \"Test Printer\"");
  HWND window = WaitForWindow(L"Test Printer");
  EXPECT_EQ(L"The printer doesn't answer.", TextOf(GetDlgItem(window, kText)));
  PostMessageW(window, WM_CLOSE, 0, 0);
  runner.join();
}

TEST(StatusWindow, CloseOfAnotherPrinterLeavesTheWindow) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  std::thread runner = Open("open \"Test Printer\"");
  HWND window = WaitForWindow(L"Test Printer");
  EXPECT_EQ(L"The printer's port can't be asked.", TextOf(GetDlgItem(window, kText)));
  StatusMonitor(nullptr, nullptr, "close \"Another\"", SW_SHOWNORMAL);
  EXPECT_EQ(window, FindWindowW(kClassName, L"Test Printer"));
  PostMessageW(window, WM_CLOSE, 0, 0);
  runner.join();
}

}  // namespace
}  // namespace ostvt::test
