// A caller's device mode of one version, made over into another.
#pragma once

#include <cstdint>

namespace ostvt {

// The bytes from a device mode's start to the end of its driver extra field: what a block must have
// before anything can be said about it.
inline constexpr int32_t kDevModeHeadSize = 72;

// Modes of the call.
inline constexpr uint32_t kConvert = 1;
inline constexpr uint32_t kConvertOld = 2;  // to the older public block of 188 bytes
inline constexpr uint32_t kDriverDefault = 4;

// Fits `input` into the public size that `output` states, and puts the driver's data behind it;
// private fields are never looked at. `input` has a head at least, and for a conversion that takes
// place the bytes that the head states; `output` has `*size` bytes; they may overlap. On success,
// and when the room is too small (error 122), `*size` is what is needed. Below the head's size the
// output says nothing yet and is not touched: `*size` is then what is needed for the old form, and
// otherwise stays. False with error 87 for a missing input or a public size below the head.
bool ConvertDevMode(const void* input, void* output, int32_t* size, bool toOldForm);

// The printer's driver default: the stored one, else made of the model and stored. `output` has
// `*size` bytes; needs kDevModeSize of them, else error 122. False when the printer or its model
// can't be had.
bool GetDriverDefault(const char16_t* printerName, void* output, int32_t* size);

}  // namespace ostvt
