#include "ui/windows/PictureControl.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace ostvt {
namespace {

constexpr int kSide = 8;
constexpr COLORREF kBack = RGB(10, 20, 30);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

// A control of eight by eight pixels and memory to paint it into.
class PictureControlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    RegisterPictureControl();
    Control = CreateWindowExW(0, kPictureClass, L"", WS_POPUP, 0, 0, kSide, kSide, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, Control);
    Target = CreateCompatibleDC(nullptr);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, kSide, -kSide, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    Surface = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(nullptr, Surface);
    Old = SelectObject(Target, Surface);
    HBRUSH brush = CreateSolidBrush(kBack);
    const RECT all = {0, 0, kSide, kSide};
    FillRect(Target, &all, brush);
    DeleteObject(brush);
  }
  void TearDown() override {
    SelectObject(Target, Old);
    DeleteObject(Surface);
    DeleteDC(Target);
    DestroyWindow(Control);
    UnregisterPictureControl();
  }
  void Paint() { SendMessageW(Control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(Target), 0); }
  COLORREF At(int x, int y) { return GetPixel(Target, x, y); }

  // A header of 40 bytes, two colours, and rows of one bit a pixel, the last row first.
  static std::vector<uint8_t> Picture(int32_t width, int32_t height,
                                      const std::vector<uint8_t>& rows) {
    BITMAPINFOHEADER header = {40, width, height, 1, 1, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<uint8_t> bytes(sizeof header);
    memcpy(bytes.data(), &header, sizeof header);
    for (const char byte : {'\xFF', '\0', '\0', '\0', '\0', '\0', '\xFF', '\0'})  // blue, red
      bytes.push_back(static_cast<uint8_t>(byte));
    for (const uint8_t row : rows) {
      bytes.push_back(row);
      bytes.insert(bytes.end(), 3, 0);
    }
    return bytes;
  }
  void SetPicture(const std::vector<uint8_t>& bytes, bool transparent) {
    const DevicePicture picture = {bytes.data(), static_cast<uint32_t>(bytes.size())};
    SendMessageW(Control, 1025, transparent, reinterpret_cast<LPARAM>(&picture));
  }
  HBITMAP Bitmap(int width, int height, COLORREF color) {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HDC memory = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(memory, bitmap);
    HBRUSH brush = CreateSolidBrush(color);
    const RECT all = {0, 0, width, height};
    FillRect(memory, &all, brush);
    DeleteObject(brush);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return bitmap;
  }

  HWND Control = nullptr;
  HDC Target = nullptr;
  HBITMAP Surface = nullptr;
  HGDIOBJ Old = nullptr;
};

TEST_F(PictureControlTest, WithoutContentNothingIsPainted) {
  Paint();
  EXPECT_EQ(kBack, At(0, 0));
  EXPECT_EQ(kBack, At(4, 4));
}

// Two by two pixels: blue, red / red, red.
TEST_F(PictureControlTest, APictureStandsInTheMiddle) {
  const std::vector<uint8_t> picture = Picture(2, 2, {0xC0, 0x40});
  SetPicture(picture, false);
  Paint();
  EXPECT_EQ(kBack, At(2, 3));
  EXPECT_EQ(kBlue, At(3, 3));
  EXPECT_EQ(kRed, At(4, 3));
  EXPECT_EQ(kRed, At(3, 4));
  EXPECT_EQ(kBack, At(5, 4));
}

TEST_F(PictureControlTest, TheColourOfATransparentPicturesCornerGivesWay) {
  // Blue all around a red middle: only what hangs together with the corner goes.
  const std::vector<uint8_t> picture = Picture(4, 4, {0x10, 0x40, 0x20, 0x00});
  SetPicture(picture, true);
  Paint();
  EXPECT_EQ(kBack, At(2, 2));
  EXPECT_EQ(kBack, At(5, 2));
  EXPECT_EQ(kRed, At(4, 3));
  EXPECT_EQ(kRed, At(3, 4));
  EXPECT_EQ(kRed, At(5, 5));
  EXPECT_EQ(kBack, At(2, 5));
}

TEST_F(PictureControlTest, AnOpaquePictureKeepsItsCorner) {
  const std::vector<uint8_t> picture = Picture(4, 4, {0x00, 0x40, 0x20, 0x00});
  SetPicture(picture, false);
  Paint();
  EXPECT_EQ(kBlue, At(2, 2));
}

TEST_F(PictureControlTest, ADamagedPictureIsNotShown) {
  std::vector<uint8_t> picture = Picture(2, 2, {0xC0, 0x40});
  picture.pop_back();
  SetPicture(picture, false);
  Paint();
  EXPECT_EQ(kBack, At(3, 3));
}

TEST_F(PictureControlTest, ABitmapStandsInTheMiddleCutToTheControl) {
  SendMessageW(Control, 1027, FALSE, reinterpret_cast<LPARAM>(Bitmap(2, 4, kGreen)));
  Paint();
  EXPECT_EQ(kBack, At(2, 2));
  EXPECT_EQ(kGreen, At(3, 2));
  EXPECT_EQ(kGreen, At(4, 5));
  EXPECT_EQ(kBack, At(4, 6));
  SendMessageW(Control, 1027, FALSE, reinterpret_cast<LPARAM>(Bitmap(100, 100, kRed)));
  Paint();
  EXPECT_EQ(kRed, At(0, 0));
  EXPECT_EQ(kRed, At(7, 7));
}

TEST_F(PictureControlTest, APictureTakesThePlaceOfABitmap) {
  HBITMAP bitmap = Bitmap(8, 8, kGreen);
  SendMessageW(Control, 1027, FALSE, reinterpret_cast<LPARAM>(bitmap));
  const std::vector<uint8_t> picture = Picture(2, 2, {0xC0, 0xC0});
  SetPicture(picture, false);
  Paint();
  EXPECT_EQ(kBack, At(0, 0));
  EXPECT_EQ(kRed, At(3, 3));
  BITMAP record;
  EXPECT_EQ(0, GetObjectW(bitmap, sizeof record, &record));  // the control's, and gone
}

TEST_F(PictureControlTest, ASolidFillCoversTheControl) {
  SendMessageW(Control, 1026, 0, static_cast<LPARAM>(kGreen));
  Paint();
  EXPECT_EQ(kGreen, At(0, 0));
  EXPECT_EQ(kGreen, At(7, 7));
}

TEST_F(PictureControlTest, TheClassStaysUntilItsLastUseEnds) {
  RegisterPictureControl();
  UnregisterPictureControl();
  WNDCLASSW record;
  EXPECT_NE(0, GetClassInfoW(GetModuleHandleW(nullptr), kPictureClass, &record));
}

TEST(PictureClass, EndsWithItsLastUse) {
  RegisterPictureControl();
  UnregisterPictureControl();
  WNDCLASSW record;
  EXPECT_EQ(0, GetClassInfoW(GetModuleHandleW(nullptr), kPictureClass, &record));
}

}  // namespace
}  // namespace ostvt
