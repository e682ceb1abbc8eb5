// The record of a downloaded font that the printer's half of the driver gets, and the metrics that
// stand for it in a text. Little-endian, no padding.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/OString.h"

namespace ostvt {

#pragma pack(push, 1)

// Texts end at a NUL or with their field. FontInfo and its texts are read whole by others: fill
// them by the calls below, which keep the NUL.
struct FontInfo {
  uint16_t Request;      // kFontRequest...; 0 when stored
  uint16_t Orientation;  // of a bitmap download, 0 or 1
  char16_t FullName[64];
  uint16_t CellHeight;
  uint16_t EmHeight;  // the cell's without the internal leading
  uint16_t AverageWidth;
  uint16_t MaximumWidth;
  uint16_t Ascent;
  uint16_t Descent;
  uint16_t InternalLeading;
  uint16_t CharacterCount;  // of a bitmap font
  uint32_t DataSize;        // in bytes; 0 if unknown
  char FileId[64];
  char FileName[64];
  char FilePath[64];
  uint32_t Location;  // storage location code
};

// The platform's TEXTMETRICW.
struct FontMetrics {
  int32_t Height;
  int32_t Ascent;
  int32_t Descent;
  int32_t InternalLeading;
  int32_t ExternalLeading;
  int32_t AverageWidth;
  int32_t MaximumWidth;
  int32_t Weight;
  int32_t Overhang;
  int32_t AspectX;
  int32_t AspectY;
  char16_t FirstChar;
  char16_t LastChar;
  char16_t DefaultChar;
  char16_t BreakChar;
  uint8_t Italic;
  uint8_t Underlined;
  uint8_t StruckOut;
  uint8_t PitchAndFamily;
  uint8_t CharacterSet;
  uint8_t Reserved[3];
};

#pragma pack(pop)

inline constexpr uint16_t kFontRequestNone = 0;
inline constexpr uint16_t kFontRequestTrueType = 1;
inline constexpr uint16_t kFontRequestBitmap = 2;
inline constexpr uint16_t kFontRequestDelete = 3;
inline constexpr uint16_t kFontRequestFinish = 4;
inline constexpr uint16_t kFontRequestEnd = 5;

static_assert(sizeof(FontInfo) == 348);
static_assert(offsetof(FontInfo, Request) == 0);
static_assert(offsetof(FontInfo, Orientation) == 2);
static_assert(offsetof(FontInfo, FullName) == 4);
static_assert(offsetof(FontInfo, CellHeight) == 132);
static_assert(offsetof(FontInfo, EmHeight) == 134);
static_assert(offsetof(FontInfo, AverageWidth) == 136);
static_assert(offsetof(FontInfo, MaximumWidth) == 138);
static_assert(offsetof(FontInfo, Ascent) == 140);
static_assert(offsetof(FontInfo, Descent) == 142);
static_assert(offsetof(FontInfo, InternalLeading) == 144);
static_assert(offsetof(FontInfo, CharacterCount) == 146);
static_assert(offsetof(FontInfo, DataSize) == 148);
static_assert(offsetof(FontInfo, FileId) == 152);
static_assert(offsetof(FontInfo, FileName) == 216);
static_assert(offsetof(FontInfo, FilePath) == 280);
static_assert(offsetof(FontInfo, Location) == 344);
static_assert(sizeof(FontMetrics) == 60);
static_assert(offsetof(FontMetrics, Ascent) == 4);
static_assert(offsetof(FontMetrics, Descent) == 8);
static_assert(offsetof(FontMetrics, InternalLeading) == 12);
static_assert(offsetof(FontMetrics, ExternalLeading) == 16);
static_assert(offsetof(FontMetrics, AverageWidth) == 20);
static_assert(offsetof(FontMetrics, MaximumWidth) == 24);
static_assert(offsetof(FontMetrics, Weight) == 28);
static_assert(offsetof(FontMetrics, Overhang) == 32);
static_assert(offsetof(FontMetrics, AspectX) == 36);
static_assert(offsetof(FontMetrics, AspectY) == 40);
static_assert(offsetof(FontMetrics, FirstChar) == 44);
static_assert(offsetof(FontMetrics, LastChar) == 46);
static_assert(offsetof(FontMetrics, DefaultChar) == 48);
static_assert(offsetof(FontMetrics, BreakChar) == 50);
static_assert(offsetof(FontMetrics, Italic) == 52);
static_assert(offsetof(FontMetrics, Underlined) == 53);
static_assert(offsetof(FontMetrics, StruckOut) == 54);
static_assert(offsetof(FontMetrics, PitchAndFamily) == 55);
static_assert(offsetof(FontMetrics, CharacterSet) == 56);
static_assert(offsetof(FontMetrics, Reserved) == 57);

OString GetFullName(const FontInfo& info);
OString GetFileId(const FontInfo& info);
OString GetFileName(const FontInfo& info);
OString GetFilePath(const FontInfo& info);
// Cut to 63 units or bytes; the rest of the field is zero.
void SetFullName(FontInfo* info, const OString& text);
void SetFileId(FontInfo* info, const OString& text);
void SetFileName(FontInfo* info, const OString& text);
void SetFilePath(FontInfo* info, const OString& text);

}  // namespace ostvt
