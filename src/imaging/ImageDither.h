// Turns a 24-bit picture into printable dots, in place: one record in, its pixels changed.
//
// Pixels are three bytes, blue, green, red; row y starts at byte y * width * 3 whatever `rowBytes`
// says. Nothing outside height * width * 3 bytes is touched. Re-entrant: a record belongs to one
// call at a time, and nothing is kept between calls.
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/DitherSetup.h"

namespace ostvt {

// Values of DitherSetup::method; 5 means the same as 4.
enum DitherMethod : uint16_t {
  kDitherNone = 0,
  kDitherOrdered = 1,
  kDitherHalftone = 2,
  kDitherScreen = 3,
  kDitherDiffusion = 4,
};

// Bits of DitherSetup::flags.
enum DitherFlags : uint8_t {
  kDitherMirror = 1,
  kDitherFlip = 2,
  kDitherInvert = 4,
};

enum DitherColorMode : uint32_t {
  kDitherGrey = 0,
  kDitherPalette = 1,
  kDitherPlanes = 2,           // every number above 4 means the same
  kDitherPlanesWithBlack = 3,  // 4 means the same
};

inline constexpr uint32_t kDitherPaletteSize = 16;

// A palette entry's order is the reverse of a pixel's.
struct DitherColor {
  uint8_t red;
  uint8_t green;
  uint8_t blue;
  uint8_t reserved;
};

#pragma pack(push, 1)
struct ImageDitherRecord {
  uint8_t* pixels;
  // Of both sizes the low 16 bits count, as a signed number; below 1 nothing is done. All 32 bits
  // of `width` place the rows, and all of `height` say whether there are rows below the last one,
  // which then take the error that is spread to them.
  uint32_t width;
  uint32_t height;
  int32_t rowBytes;  // not used
  DitherColor palette[kDitherPaletteSize];
  uint32_t paletteCount;
  uint32_t colorMode;
  uint32_t indexedOutput;  // not 0: a colour index goes to byte 0 of the pixel, the others stay
  int32_t nearestIndex;    // work fields: the last pixel's two palette entries, -1 for none
  int32_t secondIndex;
  int32_t originX;  // phase of matrices and screens
  int32_t originY;
  DitherSetup setup;
};
#pragma pack(pop)
static_assert(sizeof(DitherColor) == 4);
static_assert(sizeof(void*) != 8 || sizeof(ImageDitherRecord) == 136);
static_assert(offsetof(ImageDitherRecord, pixels) == 0);
static_assert(offsetof(ImageDitherRecord, width) == sizeof(void*));
static_assert(offsetof(ImageDitherRecord, height) == sizeof(void*) + 4);
static_assert(offsetof(ImageDitherRecord, rowBytes) == sizeof(void*) + 8);
static_assert(offsetof(ImageDitherRecord, palette) == sizeof(void*) + 12);
static_assert(offsetof(ImageDitherRecord, paletteCount) == sizeof(void*) + 76);
static_assert(offsetof(ImageDitherRecord, colorMode) == sizeof(void*) + 80);
static_assert(offsetof(ImageDitherRecord, indexedOutput) == sizeof(void*) + 84);
static_assert(offsetof(ImageDitherRecord, nearestIndex) == sizeof(void*) + 88);
static_assert(offsetof(ImageDitherRecord, secondIndex) == sizeof(void*) + 92);
static_assert(offsetof(ImageDitherRecord, originX) == sizeof(void*) + 96);
static_assert(offsetof(ImageDitherRecord, originY) == sizeof(void*) + 100);
static_assert(offsetof(ImageDitherRecord, setup) == sizeof(void*) + 104);

class ImageDither {
 public:
  // Selectors out of range take the nearest valid one; an unknown method only adjusts. A null
  // record, or one without pixels, is left alone.
  static void Dither(ImageDitherRecord* record);
  // The same at twice the size from origin 0, averaged back: two levels come back as five. The work
  // fields stay. Without a palette of 1 to 16 entries there is none. Where memory is short the
  // pixels stay as they are.
  static void DitherSmooth(ImageDitherRecord* record);

  // Sets `pixels` to none and both origins to 0; touches nothing else.
  static void Init(ImageDitherRecord* record);
  // `pixels` is not owned. A `rowBytes` of 0 becomes three times `width`.
  static void SetImage(ImageDitherRecord* record, uint8_t* pixels, uint32_t width, uint32_t height,
                       int32_t rowBytes);
  // Does nothing at all unless `count` is 1 to 16.
  static void SetPalette(ImageDitherRecord* record, const DitherColor* colors, uint32_t count);
  static void SetDitherSetup(ImageDitherRecord* record, const DitherSetup& setup);
  static void SetColorMode(ImageDitherRecord* record, uint32_t mode, bool indexed);
  // Three neighbouring entries of the screen table, from `index` on, which is limited to 0..19.
  static void GetScreenParameters(int32_t index, int32_t* a, int32_t* b, int32_t* c);
};

}  // namespace ostvt
