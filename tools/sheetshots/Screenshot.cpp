#include "Screenshot.h"

#include <objidl.h>
// Behind its own needs.
#include <gdiplus.h>

namespace sheetshots {
namespace {

// The system's PNG encoder.
constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

class GdiPlus {
 public:
  GdiPlus() {
    Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&Token, &input, nullptr);
  }
  ~GdiPlus() { Gdiplus::GdiplusShutdown(Token); }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

 private:
  ULONG_PTR Token = 0;
};

HBITMAP CopyOfScreen(const RECT& area) {
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

bool SaveWindow(HWND window, const std::wstring& path) {
  const GdiPlus library;
  RECT area = {};
  if (!GetWindowRect(window, &area)) return false;
  HBITMAP copy = CopyOfScreen(area);
  bool isSaved = false;
  {
    Gdiplus::Bitmap bitmap(copy, nullptr);
    isSaved = bitmap.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  }
  DeleteObject(copy);
  return isSaved;
}

}  // namespace sheetshots
