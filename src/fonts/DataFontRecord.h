// The stored form of a data font: a header that looks like a font's, and a body by its kind.
//
// Little-endian, no padding. Bar codes take 168 bytes, the body zero-padded; RFID fonts 228. Dot
// values are dots of the header's resolution. What is reserved is carried through as it stands.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

inline constexpr uint32_t kDataFontLinear = 1;  // a bar code
inline constexpr uint32_t kDataFontMatrix = 2;  // a two-dimensional one
inline constexpr uint32_t kDataFontRfid = 3;

inline constexpr uint32_t kDataFontNameSize = 32;
inline constexpr uint32_t kDataFontOption = 0x00000002;            // always on for RFID
inline constexpr uint32_t kDataFontExplicitCodePage = 0x80000000;  // CodePage counts

#pragma pack(push, 1)

struct DataFontHeader {
  uint16_t Weight = 400;
  uint16_t Reserved1 = 0;
  uint8_t Italic = 0;
  uint8_t Underline = 0;
  uint8_t StrikeOut = 0;
  uint8_t CharacterSet = 0;  // the system's number
  uint8_t OutputPrecision = 0;
  uint8_t ClipPrecision = 0;
  uint8_t Quality = 0;
  uint8_t PitchAndFamily = 0x30;
  char Name[kDataFontNameSize] = {};  // zero-padded; a name that fills it has no terminator
  uint32_t Kind = 0;                  // kDataFont...
  uint32_t Resolution = 300;          // dots per inch
  uint32_t Flags = 0;
  uint32_t CodePage = 0;
  uint8_t Reserved2[12] = {};
};

// Offsets are told from the header's start on.
struct LinearBody {
  uint16_t Size;  // 96
  uint8_t Reserved1[26];
  uint32_t Height;  // in dots, 0 to 9999
  uint16_t Symbology;
  uint16_t NarrowBar;  // in dots
  uint8_t Reserved2[6];
  uint16_t RatioWhole;  // the ratio is a hundred times this and the next
  uint16_t RatioHundredths;
  uint16_t Rotation;  // 0 to 3
  uint16_t CheckDigit;
  uint16_t CheckDigitShown;  // in the human readable text
  uint16_t HumanReadable;
  uint16_t HumanReadableBelow;  // 0: above
  uint16_t Option1;             // by the symbology
  uint16_t Option2;
  uint8_t Reserved3[8];
  uint16_t Supplement;  // 0 none, 2, 5, 65535 either
  uint8_t Reserved4[2];
  uint16_t Reserved5;  // 1
  uint16_t Reserved6;  // 1
  uint8_t Reserved7[12];
  uint16_t HighPriority;
  uint8_t Reserved8[6];
};

struct MatrixBody {
  uint16_t Size;  // 72
  uint8_t Reserved1[4];
  uint16_t Symbology;
  uint8_t Reserved2[16];
  uint16_t Rotation;
  uint16_t NarrowBar;  // in dots
  uint8_t Reserved3[4];
  uint16_t HumanReadable;
  uint16_t HumanReadableBelow;  // 0: above
  uint8_t Reserved4[8];
  uint16_t Words[8];  // by the symbology
  uint8_t Reserved5[12];
};

struct RfidBody {
  uint16_t Size;  // 156
  uint8_t Reserved1[10];
  uint32_t TagType;  // one bit
  uint16_t DataFormat;
  uint16_t WriteProtect;
  uint16_t StartBlock;
  uint16_t Segment;    // one bit
  uint32_t EpcFormat;  // 65535 none, 0 custom
  char CustomFormat[128];
};

#pragma pack(pop)

inline constexpr uint32_t kLinearBodySize = sizeof(LinearBody);
inline constexpr uint32_t kMatrixBodySize = sizeof(MatrixBody);
inline constexpr uint32_t kRfidBodySize = sizeof(RfidBody);
inline constexpr uint32_t kDataFontHeaderSize = sizeof(DataFontHeader);
inline constexpr uint32_t kBarCodeBlobSize = kDataFontHeaderSize + kLinearBodySize;
inline constexpr uint32_t kRfidBlobSize = kDataFontHeaderSize + kRfidBodySize;
// Shorter ones don't even say how large their body is.
inline constexpr uint32_t kLeastDataFontBlob = kDataFontHeaderSize + 2;

static_assert(kDataFontHeaderSize == 72);
static_assert(kLinearBodySize == 96);
static_assert(kMatrixBodySize == 72);
static_assert(kRfidBodySize == 156);
static_assert(kBarCodeBlobSize == 168);
static_assert(kRfidBlobSize == 228);

static_assert(offsetof(DataFontHeader, Weight) == 0);
static_assert(offsetof(DataFontHeader, Reserved1) == 2);
static_assert(offsetof(DataFontHeader, Italic) == 4);
static_assert(offsetof(DataFontHeader, Underline) == 5);
static_assert(offsetof(DataFontHeader, StrikeOut) == 6);
static_assert(offsetof(DataFontHeader, CharacterSet) == 7);
static_assert(offsetof(DataFontHeader, OutputPrecision) == 8);
static_assert(offsetof(DataFontHeader, ClipPrecision) == 9);
static_assert(offsetof(DataFontHeader, Quality) == 10);
static_assert(offsetof(DataFontHeader, PitchAndFamily) == 11);
static_assert(offsetof(DataFontHeader, Name) == 12);
static_assert(offsetof(DataFontHeader, Kind) == 44);
static_assert(offsetof(DataFontHeader, Resolution) == 48);
static_assert(offsetof(DataFontHeader, Flags) == 52);
static_assert(offsetof(DataFontHeader, CodePage) == 56);
static_assert(offsetof(DataFontHeader, Reserved2) == 60);

static_assert(72 + offsetof(LinearBody, Height) == 100);
static_assert(72 + offsetof(LinearBody, Symbology) == 104);
static_assert(72 + offsetof(LinearBody, NarrowBar) == 106);
static_assert(72 + offsetof(LinearBody, RatioWhole) == 114);
static_assert(72 + offsetof(LinearBody, RatioHundredths) == 116);
static_assert(72 + offsetof(LinearBody, Rotation) == 118);
static_assert(72 + offsetof(LinearBody, CheckDigit) == 120);
static_assert(72 + offsetof(LinearBody, CheckDigitShown) == 122);
static_assert(72 + offsetof(LinearBody, HumanReadable) == 124);
static_assert(72 + offsetof(LinearBody, HumanReadableBelow) == 126);
static_assert(72 + offsetof(LinearBody, Option1) == 128);
static_assert(72 + offsetof(LinearBody, Option2) == 130);
static_assert(72 + offsetof(LinearBody, Supplement) == 140);
static_assert(72 + offsetof(LinearBody, Reserved5) == 144);
static_assert(72 + offsetof(LinearBody, Reserved6) == 146);
static_assert(72 + offsetof(LinearBody, HighPriority) == 160);

static_assert(72 + offsetof(MatrixBody, Symbology) == 78);
static_assert(72 + offsetof(MatrixBody, Rotation) == 96);
static_assert(72 + offsetof(MatrixBody, NarrowBar) == 98);
static_assert(72 + offsetof(MatrixBody, HumanReadable) == 104);
static_assert(72 + offsetof(MatrixBody, HumanReadableBelow) == 106);
static_assert(72 + offsetof(MatrixBody, Words) == 116);

static_assert(72 + offsetof(RfidBody, TagType) == 84);
static_assert(72 + offsetof(RfidBody, DataFormat) == 88);
static_assert(72 + offsetof(RfidBody, WriteProtect) == 90);
static_assert(72 + offsetof(RfidBody, StartBlock) == 92);
static_assert(72 + offsetof(RfidBody, Segment) == 94);
static_assert(72 + offsetof(RfidBody, EpcFormat) == 96);
static_assert(72 + offsetof(RfidBody, CustomFormat) == 100);

}  // namespace ostvt
