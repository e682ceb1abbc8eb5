// What a model can do natively: pens and shapes, serialisation, and its bar code symbologies.
//
// Little-endian, no padding; cached and copied as these 1948 bytes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/SymbologyFlags.h"

namespace ostvt {

// One symbology, by its number in the table of Symbologies.h.
struct SymbologyCapability {
  uint16_t Present;        // kSymbology...
  uint16_t HumanReadable;  // kHumanReadable..., 0 none
  uint32_t Flags;          // of SymbologyFlags.h, as the next
  uint32_t HrFlags;        // kHr...
  uint16_t HrWeight;
  uint16_t HrSize;
  char HrFontName[32];
};

struct DefaultFontRecord {
  uint16_t Weight;
  uint16_t Size;
  char Name[32];  // the maker's prefix, a blank, then the definition's name, which may be empty
};

inline constexpr uint16_t kSymbologyRows = 38;
inline constexpr uint16_t kDefaultFonts = 2;
inline constexpr int32_t kDefaultFontText = 0;
inline constexpr int32_t kDefaultFontBarCode = 1;

struct CapabilitiesData {
  uint16_t Size;
  uint16_t RowSize;
  uint16_t FirstRow;  // offset in this record
  uint16_t RowCount;
  uint16_t Reserved1;
  uint16_t LineFlags;  // kLine...
  uint16_t BoxFlags;   // kBox...
  uint16_t DrawUnsupported1D;
  uint16_t DrawUnsupported2D;
  uint16_t HasLine;
  uint16_t HasBox;
  uint16_t DrawUnsupported1DFirst;
  uint16_t DrawUnsupported2DFirst;
  uint16_t FeatureFlags;  // kFeature...
  int32_t SerializationCountLimit;
  int32_t SerializationStepLimit;
  uint16_t RolloverExpands;        // bit 0
  uint16_t NoSerializationCopies;  // bit 0
  uint16_t DefaultFontCount;
  uint16_t DefaultFontSize;
  uint16_t FirstDefaultFont;  // offset in this record
  uint8_t Reserved2[6];
  SymbologyCapability Rows[kSymbologyRows];
  DefaultFontRecord DefaultFonts[kDefaultFonts];
};

inline constexpr uint16_t kSymbologySupported = 1;
inline constexpr uint16_t kSymbologyColor = 2;

inline constexpr uint16_t kHumanReadableOn = 1;      // always
inline constexpr uint16_t kHumanReadableChoice = 2;  // on or off

inline constexpr uint16_t kLineSupported = 1;
inline constexpr uint16_t kLineColor = 2;
inline constexpr uint16_t kLineDiagonal = 4;
inline constexpr uint16_t kLineWhite = 16;
inline constexpr uint16_t kLineDiagonalWhite = 32;
inline constexpr uint16_t kLineInverse = 64;
inline constexpr uint16_t kLineDiagonalInverse = 128;

inline constexpr uint16_t kBoxSupported = 1;
inline constexpr uint16_t kBoxColor = 2;
inline constexpr uint16_t kBoxEllipse = 8;
inline constexpr uint16_t kBoxRounded = 16;
inline constexpr uint16_t kBoxCircle = 32;
inline constexpr uint16_t kBoxWhite = 64;
inline constexpr uint16_t kBoxInverse = 128;

inline constexpr uint16_t kFeatureSerialization = 1;
inline constexpr uint16_t kFeatureStaticFields = 2;
inline constexpr uint16_t kFeatureVariableData = 4;
inline constexpr uint16_t kFeatureStaticGraphics = 8;
inline constexpr uint16_t kFeatureStaticGraphicsOnly = 16;  // and no variable ones beside them
inline constexpr uint16_t kFeatureCacheGraphic = 32;
inline constexpr uint16_t kFeatureCacheFormat = 64;
inline constexpr uint16_t kFeatureCache = 128;
inline constexpr uint16_t kFeatureTemplateExport = 256;

static_assert(sizeof(SymbologyCapability) == 48);
static_assert(offsetof(SymbologyCapability, Present) == 0);
static_assert(offsetof(SymbologyCapability, HumanReadable) == 2);
static_assert(offsetof(SymbologyCapability, Flags) == 4);
static_assert(offsetof(SymbologyCapability, HrFlags) == 8);
static_assert(offsetof(SymbologyCapability, HrWeight) == 12);
static_assert(offsetof(SymbologyCapability, HrSize) == 14);
static_assert(offsetof(SymbologyCapability, HrFontName) == 16);
static_assert(sizeof(DefaultFontRecord) == 36);
static_assert(offsetof(DefaultFontRecord, Size) == 2);
static_assert(offsetof(DefaultFontRecord, Name) == 4);
static_assert(sizeof(CapabilitiesData) == 1948);
static_assert(offsetof(CapabilitiesData, Size) == 0);
static_assert(offsetof(CapabilitiesData, RowSize) == 2);
static_assert(offsetof(CapabilitiesData, FirstRow) == 4);
static_assert(offsetof(CapabilitiesData, RowCount) == 6);
static_assert(offsetof(CapabilitiesData, Reserved1) == 8);
static_assert(offsetof(CapabilitiesData, LineFlags) == 10);
static_assert(offsetof(CapabilitiesData, BoxFlags) == 12);
static_assert(offsetof(CapabilitiesData, DrawUnsupported1D) == 14);
static_assert(offsetof(CapabilitiesData, DrawUnsupported2D) == 16);
static_assert(offsetof(CapabilitiesData, HasLine) == 18);
static_assert(offsetof(CapabilitiesData, HasBox) == 20);
static_assert(offsetof(CapabilitiesData, DrawUnsupported1DFirst) == 22);
static_assert(offsetof(CapabilitiesData, DrawUnsupported2DFirst) == 24);
static_assert(offsetof(CapabilitiesData, FeatureFlags) == 26);
static_assert(offsetof(CapabilitiesData, SerializationCountLimit) == 28);
static_assert(offsetof(CapabilitiesData, SerializationStepLimit) == 32);
static_assert(offsetof(CapabilitiesData, RolloverExpands) == 36);
static_assert(offsetof(CapabilitiesData, NoSerializationCopies) == 38);
static_assert(offsetof(CapabilitiesData, DefaultFontCount) == 40);
static_assert(offsetof(CapabilitiesData, DefaultFontSize) == 42);
static_assert(offsetof(CapabilitiesData, FirstDefaultFont) == 44);
static_assert(offsetof(CapabilitiesData, Reserved2) == 46);
static_assert(offsetof(CapabilitiesData, Rows) == 52);
static_assert(offsetof(CapabilitiesData, DefaultFonts) == 1876);

}  // namespace ostvt
