// Pictures of windows as PNG files.
#pragma once

#include <windows.h>

#include <string>

namespace sheetshots {

// The window with its frame, as the screen shows it. False when it can't be written.
bool SaveWindow(HWND window, const std::wstring& path);

}  // namespace sheetshots
