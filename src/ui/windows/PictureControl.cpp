#include "ui/windows/PictureControl.h"

#include <algorithm>
#include <cstring>

#include "platform/Module.h"
#include "ui/PictureData.h"

namespace ostvt {
namespace {

// Windows of the class may live on several threads.
SRWLOCK usersLock = SRWLOCK_INIT;
int users = 0;

HINSTANCE Instance() {
  void* module = platform::ModuleHandle();
  return module ? static_cast<HINSTANCE>(module) : GetModuleHandleW(nullptr);
}

// One control's content; at most one of the three kinds is there.
struct PictureState {
  DevicePicture Picture;
  HBITMAP Bitmap;
  bool Transparent;
  bool SolidFill;
  COLORREF Color;
};

PictureState* StateOf(HWND window) {
  return reinterpret_cast<PictureState*>(GetWindowLongPtrW(window, 0));
}

void Clear(PictureState* state) {
  if (state->Bitmap) DeleteObject(state->Bitmap);
  *state = {};
}

void DrawBitmap(HDC target, POINT place, HBITMAP bitmap, const BITMAP& size) {
  HDC source = CreateCompatibleDC(target);
  HGDIOBJ before = SelectObject(source, bitmap);
  BitBlt(target, place.x, place.y, size.bmWidth, size.bmHeight, source, 0, 0, SRCCOPY);
  SelectObject(source, before);
  DeleteDC(source);
}

// Null for a picture without a colour table.
HPALETTE MakePalette(const DevicePicture& picture, const PictureLayout& layout) {
  constexpr WORD kVersion = 0x300;
  constexpr uint32_t kMostColors = 256;
  if (layout.ColorCount == 0) return nullptr;
  struct {
    WORD Version;
    WORD Count;
    PALETTEENTRY Entries[kMostColors];
  } palette = {kVersion, static_cast<WORD>(layout.ColorCount), {}};
  for (uint32_t i = 0; i < layout.ColorCount; ++i) {
    const uint8_t* color = picture.Data + layout.ColorsOffset + i * 4;
    palette.Entries[i] = {color[2], color[1], color[0], 0};
  }
  return CreatePalette(reinterpret_cast<const LOGPALETTE*>(&palette));
}

void DrawPicture(HDC target, POINT place, const DevicePicture& picture,
                 const PictureLayout& layout) {
  HPALETTE palette = MakePalette(picture, layout);
  HPALETTE before = palette ? SelectPalette(target, palette, FALSE) : nullptr;
  if (palette) RealizePalette(target);
  const auto height = static_cast<UINT>(layout.Height);
  SetDIBitsToDevice(target, place.x, place.y, static_cast<DWORD>(layout.Width), height, 0, 0, 0,
                    height, picture.Data + layout.BitsOffset,
                    reinterpret_cast<const BITMAPINFO*>(picture.Data), DIB_RGB_COLORS);
  if (!palette) return;
  SelectPalette(target, before, FALSE);
  DeleteObject(palette);
}

// Gives the colour of the picture's top left corner back to the background.
void ClearBackground(HDC target, POINT corner, COLORREF background) {
  const COLORREF color = GetPixel(target, corner.x, corner.y);
  if (color == CLR_INVALID || color == background) return;
  HBRUSH brush = CreateSolidBrush(background);
  HGDIOBJ before = SelectObject(target, brush);
  ExtFloodFill(target, corner.x, corner.y, color, FLOODFILLSURFACE);
  SelectObject(target, before);
  DeleteObject(brush);
}

// Bitmap or picture, in the middle of the control and cut to it.
void PaintContent(HDC target, const RECT& client, const PictureState& state) {
  BITMAP size = {};
  PictureLayout layout;
  const bool isBitmap = state.Bitmap && GetObjectW(state.Bitmap, sizeof size, &size);
  if (isBitmap) {
    layout.Width = size.bmWidth;
    layout.Height = size.bmHeight;
  } else if (!ReadPictureLayout(state.Picture.Data, state.Picture.Size, &layout)) {
    return;
  }
  const POINT place = {(client.right - layout.Width) / 2, (client.bottom - layout.Height) / 2};
  const POINT corner = {std::max<LONG>(place.x, 0), std::max<LONG>(place.y, 0)};
  const int saved = SaveDC(target);
  IntersectClipRect(target, 0, 0, client.right, client.bottom);
  const COLORREF background = GetPixel(target, corner.x, corner.y);
  if (isBitmap) {
    DrawBitmap(target, place, state.Bitmap, size);
  } else {
    DrawPicture(target, place, state.Picture, layout);
  }
  if (state.Transparent && background != CLR_INVALID) ClearBackground(target, corner, background);
  RestoreDC(target, saved);
}

void Paint(HWND window, HDC target, const RECT& area) {
  const PictureState* state = StateOf(window);
  RECT client;
  if (!state || !GetClientRect(window, &client)) return;
  PaintContent(target, client, *state);
  RECT covered;
  if (state->SolidFill && IntersectRect(&covered, &area, &client)) {
    HBRUSH brush = CreateSolidBrush(state->Color);
    FillRect(target, &covered, brush);
    DeleteObject(brush);
  }
}

void PaintUpdate(HWND window) {
  // The corner that tells the colour must be painted for a part of the picture to be.
  const PictureState* state = StateOf(window);
  if (state && state->Transparent) InvalidateRect(window, nullptr, TRUE);
  RECT area;
  const bool hasArea = GetUpdateRect(window, &area, FALSE);
  PAINTSTRUCT paint;
  HDC target = BeginPaint(window, &paint);
  if (target) Paint(window, target, hasArea ? area : paint.rcPaint);
  EndPaint(window, &paint);
}

// The palette of the picture in the system's; true if that changed colours on the screen.
bool RealizeAgain(HWND window) {
  const PictureState* state = StateOf(window);
  PictureLayout layout;
  if (!state || !ReadPictureLayout(state->Picture.Data, state->Picture.Size, &layout)) return false;
  HPALETTE palette = MakePalette(state->Picture, layout);
  if (!palette) return false;
  HDC target = GetDC(window);
  HPALETTE before = SelectPalette(target, palette, FALSE);
  const bool changed = RealizePalette(target) > 0;
  SelectPalette(target, before, FALSE);
  ReleaseDC(window, target);
  DeleteObject(palette);
  if (changed) InvalidateRect(window, nullptr, TRUE);
  return changed;
}

LRESULT Change(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  PictureState* state = StateOf(window);
  if (!state) return 0;
  Clear(state);
  switch (message) {
    case kPictureSetPicture:
      if (const auto* picture = reinterpret_cast<const DevicePicture*>(lParam))
        state->Picture = *picture;
      state->Transparent = wParam != 0;
      break;
    case kPictureSetFill:
      state->SolidFill = true;
      state->Color = static_cast<COLORREF>(lParam);
      break;
    default:
      state->Bitmap = reinterpret_cast<HBITMAP>(lParam);
      state->Transparent = wParam != 0;
      break;
  }
  InvalidateRect(window, nullptr, TRUE);
  return 0;
}

LRESULT CALLBACK PictureProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(new PictureState{}));
      break;
    case WM_NCDESTROY: {
      PictureState* state = StateOf(window);
      SetWindowLongPtrW(window, 0, 0);
      if (state) Clear(state);
      delete state;
      break;
    }
    case WM_PAINT:
      PaintUpdate(window);
      return 0;
    case WM_PRINTCLIENT: {
      RECT client;
      if (GetClientRect(window, &client)) Paint(window, reinterpret_cast<HDC>(wParam), client);
      return 0;
    }
    case WM_QUERYNEWPALETTE:
      return RealizeAgain(window);
    case WM_PALETTECHANGED:
      if (reinterpret_cast<HWND>(wParam) != window) RealizeAgain(window);
      return 0;
    case kPictureSetPicture:
    case kPictureSetFill:
    case kPictureSetBitmap:
      return Change(window, message, wParam, lParam);
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

void RegisterPictureControl() {
  AcquireSRWLockExclusive(&usersLock);
  if (users++ == 0) {
    WNDCLASSW record = {};
    record.lpfnWndProc = PictureProcedure;
    record.cbWndExtra = sizeof(PictureState*);
    record.hInstance = Instance();
    record.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    record.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    record.lpszClassName = kPictureClass;
    RegisterClassW(&record);
  }
  ReleaseSRWLockExclusive(&usersLock);
}

void UnregisterPictureControl() {
  AcquireSRWLockExclusive(&usersLock);
  if (users > 0 && --users == 0) UnregisterClassW(kPictureClass, Instance());
  ReleaseSRWLockExclusive(&usersLock);
}

}  // namespace ostvt
