// The channel of a real window, as a 16-bit partner opens it.
#include <gtest/gtest.h>

#include "platform/Channel.h"
#include "platform/windows/Win32.h"

namespace ostvt::test {
namespace {

constexpr UINT kWake = 1025;
constexpr UINT kFinished = 1027;

int wakes = 0;

LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kWake) ++wakes;
  return DefWindowProcW(window, message, wParam, lParam);
}

class ChannelWindow : public testing::Test {
 protected:
  void SetUp() override {
    WNDCLASSW record = {};
    record.lpfnWndProc = Receive;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = L"X16_Channel";
    ASSERT_NE(0, RegisterClassW(&record));
    Window = CreateWindowW(L"X16_Channel", L"Chan 7", WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr,
                           record.hInstance, nullptr);
    ASSERT_NE(nullptr, Window);
    wakes = 0;
  }
  void TearDown() override {
    DestroyWindow(Window);
    UnregisterClassW(L"X16_Channel", GetModuleHandleW(nullptr));
  }

  HWND Window = nullptr;
};

TEST_F(ChannelWindow, IsFoundByClassAndName) {
  EXPECT_EQ(platform::FindChannel("Chan 7"), Window);
  EXPECT_EQ(platform::FindChannel("Chan"), nullptr);
  EXPECT_EQ(platform::FindChannel(nullptr), nullptr);
}

TEST_F(ChannelWindow, IsHiddenAndFoundAllTheSame) {
  EXPECT_FALSE(IsWindowVisible(Window));
  EXPECT_NE(platform::FindChannel("Chan 7"), nullptr);
}

TEST_F(ChannelWindow, SentMessageHasArrivedAtTheReturn) {
  platform::SendToChannel(Window, kWake);
  EXPECT_EQ(wakes, 1);
}

TEST_F(ChannelWindow, PostedMessageWaitsWithItsValue) {
  platform::PostToChannel(Window, kFinished, 2);
  MSG message = {};
  ASSERT_TRUE(PeekMessageW(&message, Window, kFinished, kFinished, PM_REMOVE));
  EXPECT_EQ(message.wParam, 2u);
  EXPECT_EQ(message.lParam, 0);
}

TEST_F(ChannelWindow, MessageToNoWindowIsNotThisThreads) {
  platform::PostToChannel(nullptr, kFinished, 2);
  MSG message = {};
  EXPECT_FALSE(PeekMessageW(&message, nullptr, kFinished, kFinished, PM_REMOVE));
}

}  // namespace
}  // namespace ostvt::test
