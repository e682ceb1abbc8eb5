#include "ui/windows/WindowText.h"

namespace ostvt {

OString TextOfWindow(HWND window) {
  if (!window) return OString();
  return ReadWindowText(GetWindowTextLengthW(window), [&](wchar_t* units, int room) {
    return GetWindowTextW(window, units, room);
  });
}

}  // namespace ostvt
