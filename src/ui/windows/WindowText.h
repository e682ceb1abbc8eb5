// Texts and numbers in the system's windows.
#pragma once

#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

// The whole text of a window; empty for null.
OString TextOfWindow(HWND window);

// Reads a text into a new string: `read(units, room)` fills at most `room` units, terminator
// included, and gives how many it wrote without it.
template <typename Read>
OString ReadWindowText(LRESULT length, Read read) {
  OString text;
  if (length <= 0) return text;
  const int room = static_cast<int>(length) + 1;
  char16_t* units = text.GetWideBuffer(room);
  const auto written = static_cast<int>(read(platform::AsWide(units), room));
  units[written < 0 ? 0 : (written < room ? written : room)] = 0;
  return text;
}

}  // namespace ostvt
