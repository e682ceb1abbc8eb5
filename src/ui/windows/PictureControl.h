// The window class "prtbitmap": a control that shows one picture or one colour.
#pragma once

#include <cstdint>

#include "ui/windows/Controls.h"

namespace ostvt {

inline constexpr wchar_t kPictureClass[] = L"prtbitmap";

// Messages. For the first and the third `wParam` is the transparent flag: the colour of the
// picture's top left corner gives way to the background.
inline constexpr UINT kPictureSetPicture = 1025;  // lParam: DevicePicture*, may be null
inline constexpr UINT kPictureSetFill = 1026;     // lParam: COLORREF
inline constexpr UINT kPictureSetBitmap = 1027;   // lParam: HBITMAP, the control's from then on

// A bitmap header with its colours and bits, as a resource has them; the memory stays its owner's
// and outlives the control's use of it. A damaged one isn't shown.
struct DevicePicture {
  const uint8_t* Data;
  uint32_t Size;
};

// Each makes or ends one use of the class; the last use unregisters it.
void RegisterPictureControl();
void UnregisterPictureControl();

}  // namespace ostvt
