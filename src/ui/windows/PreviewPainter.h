// Draws the preview of a label.
#pragma once

#include "ui/LabelPreview.h"
#include "ui/windows/Controls.h"

namespace ostvt {

// A new bitmap of that size, the caller's; null when the system has no memory for it. `sample`, of
// one bit a pixel, may be null.
HBITMAP PaintPreview(int32_t width, int32_t height, const LabelPreview& preview, HBITMAP sample);

}  // namespace ostvt
