// Dialog templates in the form that a 16-bit partner reads: the head alone, without controls.
//
//   u32 style, a zero byte, u8 controls, u16 x, y, cx, cy, then menu, class and title, each an
//   8-bit text with its NUL; where the style has bit 6, u16 point size and the font's face as well.
#pragma once

#include <cstdint>

namespace ostvt {

// `dialogTemplate` is a wide template, plain or extended, of which no more than `size` bytes are
// read: texts end there, and numbers behind are 0. A menu or class that is given as a number has no
// text and becomes an empty one. The length of the whole narrow form, of which as much as fits is
// written; 0 when even the fixed head is cut off. `buffer` may be null: nothing is written.
uint32_t MakeNarrowTemplate(const void* dialogTemplate, uint32_t size, void* buffer,
                            uint32_t bufferSize);

}  // namespace ostvt
