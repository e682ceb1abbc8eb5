#include "ui/windows/ScrollControl.h"

#include "core/OString.h"
#include "ui/ScrollRule.h"

namespace ostvt {
namespace {

int32_t DivisorOf(HWND bar) {
  return static_cast<int32_t>(reinterpret_cast<intptr_t>(GetPropW(bar, kScrollDivisorProperty)));
}

void ShowValue(HWND bar, int32_t value) {
  HWND buddy = static_cast<HWND>(GetPropW(bar, kScrollBuddyProperty));
  if (!buddy) return;
  OString text;
  text.Format(u"%ld", value);
  SetWindowTextW(buddy, platform::AsWide(text.GetWide()));
}

}  // namespace

bool FollowScroll(HWND bar, uint32_t code, uint32_t thumb, int32_t* value) {
  if (reinterpret_cast<uintptr_t>(GetPropW(bar, kScrollTypeProperty)) == kScrollSlider) {
    const auto position = static_cast<int32_t>(SendMessageW(bar, TBM_GETPOS, 0, 0));
    *value = ScrollValue(position, DivisorOf(bar));
    ShowValue(bar, *value);
    return true;
  }

  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  if (!GetScrollInfo(bar, SB_CTL, &info)) return false;  // an up-down control sends these too
  int32_t maximum = info.nMax;
  if (info.nPage > 1) maximum -= static_cast<int32_t>(info.nPage) - 1;
  const bool isWhole = static_cast<uint16_t>(info.nTrackPos) == thumb;
  const int32_t position = ScrolledPosition({info.nMin, maximum, info.nPos}, code,
                                            isWhole ? info.nTrackPos : static_cast<int32_t>(thumb));
  if (position == info.nPos) return false;
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(bar, SB_CTL, &info, TRUE);
  *value = ScrollValue(position, DivisorOf(bar));
  ShowValue(bar, *value);
  return true;
}

}  // namespace ostvt
