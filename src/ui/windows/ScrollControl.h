// Scroll bars and sliders of a page, which say by window properties what their steps mean:
// "psScrollType" 1 for a slider, "psScrollDivisor" the value of one step (below 1 counts as 1),
// "psScrollBuddy" the window that shows the value.
#pragma once

#include <cstdint>

#include "ui/windows/Controls.h"

namespace ostvt {

inline constexpr wchar_t kScrollTypeProperty[] = L"psScrollType";
inline constexpr wchar_t kScrollDivisorProperty[] = L"psScrollDivisor";
inline constexpr wchar_t kScrollBuddyProperty[] = L"psScrollBuddy";
inline constexpr uintptr_t kScrollSlider = 1;

// Moves the bar as the user asked, and its buddy with it. True when the page is to be told of
// `value`: always for a slider, for a scroll bar when its position has changed. `thumb` is what the
// message says of it; where the bar knows better, as for ranges beyond 16 bits, that counts.
bool FollowScroll(HWND bar, uint32_t code, uint32_t thumb, int32_t* value);

}  // namespace ostvt
