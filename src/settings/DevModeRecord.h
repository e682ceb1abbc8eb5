// The bytes of a device mode: public block, halftone block, model record, and the older narrow
// form.
//
// All numbers are little-endian. A whole block is PublicDevMode, HalftoneBlock, ModelRecord; in a
// block from elsewhere the parts lie where its own header says, so these records describe places
// and are laid over a block only behind a check of its length (DevMode does that).
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/DitherSetup.h"
#include "model/DevModeLayout.h"

namespace ostvt {

#pragma pack(push, 1)

// Lengths in tenths of a millimetre, resolutions in dots per inch.
struct PublicDevMode {
  char16_t dmDeviceName[32];
  uint16_t dmSpecVersion;
  uint16_t dmDriverVersion;
  uint16_t dmSize;
  uint16_t dmDriverExtra;
  uint32_t dmFields;
  int16_t dmOrientation;
  int16_t dmPaperSize;
  int16_t dmPaperLength;
  int16_t dmPaperWidth;
  int16_t dmScale;
  int16_t dmCopies;
  int16_t dmDefaultSource;
  int16_t dmPrintQuality;
  int16_t dmColor;
  int16_t dmDuplex;
  int16_t dmYResolution;
  int16_t dmTTOption;
  int16_t dmCollate;
  char16_t dmFormName[32];
  uint16_t dmLogPixels;
  uint32_t dmBitsPerPel;
  uint32_t dmPelsWidth;
  uint32_t dmPelsHeight;
  uint32_t dmDisplayFlags;
  uint32_t dmDisplayFrequency;
  uint32_t dmICMMethod;
  uint32_t dmICMIntent;
  uint32_t dmMediaType;
  uint32_t dmDitherType;
  uint32_t dmReserved1;
  uint32_t dmReserved2;
  uint32_t dmPanningWidth;
  uint32_t dmPanningHeight;
};

// CIE chromaticity in ten-thousandths.
struct CieColor {
  int32_t x;
  int32_t y;
  int32_t Y;
};

// The platform's DEVHTINFO.
struct HalftoneInfo {
  uint32_t HTFlags;
  uint32_t HTPatternSize;
  uint32_t DevPelsDPI;
  CieColor Red;
  CieColor Green;
  CieColor Blue;
  CieColor Cyan;
  CieColor Magenta;
  CieColor Yellow;
  CieColor AlignmentWhite;
  int32_t RedGamma;
  int32_t GreenGamma;
  int32_t BlueGamma;
  int32_t MagentaInCyanDye;
  int32_t YellowInCyanDye;
  int32_t CyanInMagentaDye;
  int32_t YellowInMagentaDye;
  int32_t CyanInYellowDye;
  int32_t MagentaInYellowDye;
};

// The platform's COLORADJUSTMENT.
struct ColorAdjustment {
  uint16_t caSize;
  uint16_t caFlags;
  uint16_t caIlluminantIndex;
  uint16_t caRedGamma;
  uint16_t caGreenGamma;
  uint16_t caBlueGamma;
  uint16_t caReferenceBlack;
  uint16_t caReferenceWhite;
  int16_t caContrast;
  int16_t caBrightness;
  int16_t caColorfulness;
  int16_t caRedGreenTint;
};

// Lies at offset dmSize.
struct HalftoneBlock {
  uint16_t Size;
  uint16_t Version;
  char Signature[4];  // "MDTN"
  struct HalftoneInfo HalftoneInfo;
  struct ColorAdjustment ColorAdjustment;
};

// The family's fields. Lengths in thousandths of a millimetre.
struct OstrelSettings {
  int32_t mediaKind;    // 0 to 2
  int32_t feedMode;     // 0 to 4
  int32_t feedOption;   // 0 to 1
  int32_t listA;        // 0 to 2
  int32_t listB;        // 0 to 2
  int32_t labelLength;  // 0 to 254000
  int32_t labelGap;     // 0 to 254000
  int32_t labelCount;   // 0 or above
  int32_t topOfForm;    // plus or minus the model's "~TopOfForm.Maximum"
  int32_t feedLength;   // 0 to 254000
  int32_t feedRate;     // 125 or above
  int32_t feedStop;     // 0 to 254000
  int32_t feedOffset;   // 0 to 254000
  int32_t printSpeed;   // 0 to 5
  int32_t darkness;     // -99 to 200 in percent, else 0 to 3
  uint16_t flags;       // bits 0 to 5: a group follows the printer; bit 7: darkness in percent
};

struct DevModeTrailer {
  char TrailerSignature[3];  // "vts"
  char TrailerModel[3];      // the family code
  uint16_t TrailerSize;      // record with trailer; older versions counted the bytes from 1024 on
};

// The last bytes of a block, found from its end.
struct ModelRecord {
  char CommandTexts[1020];  // four narrow texts: 256, 256, 256 and 252 bytes
  uint32_t PresetNameCrc;
  uint16_t RecordSize;  // bytes in use, without the trailer
  uint16_t RecordVersion;
  uint16_t ImageFlags;
  uint16_t reserved;
  int32_t AdvancedLength;
  struct DitherSetup DitherSetup;
  struct OstrelSettings OstrelSettings;
  uint16_t reserved2;
  DevModeTrailer Trailer;
};

// The older form with narrow text; a ModelRecord follows it.
struct NarrowDevMode {
  char dmDeviceName[32];
  uint16_t dmSpecVersion;
  uint16_t dmDriverVersion;
  uint16_t dmSize;
  uint16_t dmDriverExtra;
  uint32_t dmFields;
  int16_t dmOrientation;
  int16_t dmPaperSize;
  int16_t dmPaperLength;
  int16_t dmPaperWidth;
  int16_t dmScale;
  int16_t dmCopies;
  int16_t dmDefaultSource;
  int16_t dmPrintQuality;
  int16_t dmColor;
  int16_t dmDuplex;
  int16_t dmYResolution;
  int16_t dmTTOption;
  int16_t dmCollate;
  uint8_t unused[32];  // no form name here
  uint16_t dmLogPixels;
  uint32_t dmBitsPerPel;
  uint32_t dmPelsWidth;
  uint32_t dmPelsHeight;
  uint32_t dmDisplayFlags;
  uint32_t dmDisplayFrequency;
  uint32_t dmICMMethod;
  uint32_t dmICMIntent;
  uint32_t dmMediaType;
  uint32_t dmDitherType;
  uint32_t dmReserved1;
  uint32_t dmReserved2;
};

#pragma pack(pop)

// Sizes of a block made here.
inline constexpr uint16_t kPublicSize = 220;
inline constexpr uint16_t kHalftoneSize = 164;
inline constexpr uint16_t kModelRecordSize = 1132;  // with the trailer
inline constexpr uint16_t kDriverExtra = kHalftoneSize + kModelRecordSize;
inline constexpr uint32_t kDevModeSize = kPublicSize + kDriverExtra;
inline constexpr uint16_t kNarrowSize = 148;
inline constexpr uint32_t kNarrowDevModeSize = kNarrowSize + kModelRecordSize;

inline constexpr uint16_t kSpecVersion = 1025;
inline constexpr uint16_t kNarrowSpecVersion = 1024;
inline constexpr uint16_t kHalftoneVersion = 1;
inline constexpr char kHalftoneSignature[] = "MDTN";
inline constexpr uint16_t kRecordSize = 1124;
inline constexpr uint16_t kRecordVersion = 2;
inline constexpr char kTrailerSignature[] = "vts";
// A TrailerSize below this counts only what lies behind that many bytes of the record.
inline constexpr uint16_t kOldTrailerBase = 1024;

// Bits of dmFields.
inline constexpr uint32_t kFieldOrientation = 0x1;
inline constexpr uint32_t kFieldPaperSize = 0x2;
inline constexpr uint32_t kFieldPaperLength = 0x4;
inline constexpr uint32_t kFieldPaperWidth = 0x8;
inline constexpr uint32_t kFieldScale = 0x10;
inline constexpr uint32_t kFieldCopies = 0x100;
inline constexpr uint32_t kFieldDefaultSource = 0x200;
inline constexpr uint32_t kFieldPrintQuality = 0x400;
inline constexpr uint32_t kFieldColor = 0x800;
inline constexpr uint32_t kFieldDuplex = 0x1000;
inline constexpr uint32_t kFieldYResolution = 0x2000;
inline constexpr uint32_t kFieldTTOption = 0x4000;
inline constexpr uint32_t kFieldCollate = 0x8000;
inline constexpr uint32_t kFieldFormName = 0x10000;
inline constexpr uint32_t kFieldIcmMethod = 0x800000;
inline constexpr uint32_t kFieldIcmIntent = 0x1000000;
inline constexpr uint32_t kFieldMediaType = 0x2000000;
inline constexpr uint32_t kFieldDitherType = 0x4000000;

// Bits of ImageFlags.
inline constexpr uint16_t kImageTurned = 0x1;  // by 180 degrees
inline constexpr uint16_t kImageMirror = 0x2;
inline constexpr uint16_t kImageNegative = 0x4;
inline constexpr uint16_t kImageAdvancedLength = 0x10;  // AdvancedLength is in force

// Bit of OstrelSettings::flags.
inline constexpr uint16_t kDarknessInPercent = 0x80;

// dmPaperSize of the form whose size follows the device mode.
inline constexpr int16_t kUserPaperId = 256;

// The model's answers know these too.
static_assert(kPublicSize == kPublicDevModeSize);
static_assert(kDriverExtra == kDevModeExtra);
static_assert(kSpecVersion == kDevModeSpecVersion);

static_assert(sizeof(PublicDevMode) == kPublicSize);
static_assert(offsetof(PublicDevMode, dmDeviceName) == 0);
static_assert(offsetof(PublicDevMode, dmSpecVersion) == kSpecVersionOffset);
static_assert(offsetof(PublicDevMode, dmDriverVersion) == kDriverVersionOffset);
static_assert(offsetof(PublicDevMode, dmSize) == kSizeOffset);
static_assert(offsetof(PublicDevMode, dmDriverExtra) == kDriverExtraOffset);
static_assert(offsetof(PublicDevMode, dmFields) == 72);
static_assert(offsetof(PublicDevMode, dmOrientation) == 76);
static_assert(offsetof(PublicDevMode, dmPaperSize) == 78);
static_assert(offsetof(PublicDevMode, dmPaperLength) == 80);
static_assert(offsetof(PublicDevMode, dmPaperWidth) == 82);
static_assert(offsetof(PublicDevMode, dmScale) == 84);
static_assert(offsetof(PublicDevMode, dmCopies) == 86);
static_assert(offsetof(PublicDevMode, dmDefaultSource) == 88);
static_assert(offsetof(PublicDevMode, dmPrintQuality) == 90);
static_assert(offsetof(PublicDevMode, dmColor) == 92);
static_assert(offsetof(PublicDevMode, dmDuplex) == 94);
static_assert(offsetof(PublicDevMode, dmYResolution) == 96);
static_assert(offsetof(PublicDevMode, dmTTOption) == 98);
static_assert(offsetof(PublicDevMode, dmCollate) == 100);
static_assert(offsetof(PublicDevMode, dmFormName) == 102);
static_assert(offsetof(PublicDevMode, dmLogPixels) == 166);
static_assert(offsetof(PublicDevMode, dmBitsPerPel) == 168);
static_assert(offsetof(PublicDevMode, dmPelsWidth) == 172);
static_assert(offsetof(PublicDevMode, dmPelsHeight) == 176);
static_assert(offsetof(PublicDevMode, dmDisplayFlags) == 180);
static_assert(offsetof(PublicDevMode, dmDisplayFrequency) == 184);
static_assert(offsetof(PublicDevMode, dmICMMethod) == 188);
static_assert(offsetof(PublicDevMode, dmICMIntent) == 192);
static_assert(offsetof(PublicDevMode, dmMediaType) == 196);
static_assert(offsetof(PublicDevMode, dmDitherType) == 200);
static_assert(offsetof(PublicDevMode, dmReserved1) == 204);
static_assert(offsetof(PublicDevMode, dmReserved2) == 208);
static_assert(offsetof(PublicDevMode, dmPanningWidth) == 212);
static_assert(offsetof(PublicDevMode, dmPanningHeight) == 216);

static_assert(sizeof(HalftoneInfo) == 132);
static_assert(offsetof(HalftoneInfo, Red) == 12);
static_assert(offsetof(HalftoneInfo, AlignmentWhite) == 84);
static_assert(offsetof(HalftoneInfo, RedGamma) == 96);
static_assert(offsetof(HalftoneInfo, MagentaInCyanDye) == 108);
static_assert(offsetof(HalftoneInfo, MagentaInYellowDye) == 128);
static_assert(sizeof(ColorAdjustment) == 24);
static_assert(offsetof(ColorAdjustment, caReferenceWhite) == 14);
static_assert(offsetof(ColorAdjustment, caRedGreenTint) == 22);
static_assert(sizeof(HalftoneBlock) == kHalftoneSize);
static_assert(offsetof(HalftoneBlock, Size) == 0);
static_assert(offsetof(HalftoneBlock, Version) == 2);
static_assert(offsetof(HalftoneBlock, Signature) == 4);
static_assert(offsetof(HalftoneBlock, HalftoneInfo) == 8);
static_assert(offsetof(HalftoneBlock, ColorAdjustment) == 140);

static_assert(sizeof(ModelRecord) == kModelRecordSize);
static_assert(sizeof(OstrelSettings) == 62);
static_assert(sizeof(DevModeTrailer) == 8);
static_assert(offsetof(ModelRecord, CommandTexts) == 0);
static_assert(offsetof(ModelRecord, PresetNameCrc) == 1020);
static_assert(offsetof(ModelRecord, RecordSize) == 1024);
static_assert(offsetof(ModelRecord, RecordVersion) == 1026);
static_assert(offsetof(ModelRecord, ImageFlags) == 1028);
static_assert(offsetof(ModelRecord, reserved) == 1030);
static_assert(offsetof(ModelRecord, AdvancedLength) == 1032);
static_assert(offsetof(ModelRecord, DitherSetup) == 1036);
static_assert(offsetof(ModelRecord, OstrelSettings.mediaKind) == 1060);
static_assert(offsetof(ModelRecord, OstrelSettings.feedMode) == 1064);
static_assert(offsetof(ModelRecord, OstrelSettings.feedOption) == 1068);
static_assert(offsetof(ModelRecord, OstrelSettings.listA) == 1072);
static_assert(offsetof(ModelRecord, OstrelSettings.listB) == 1076);
static_assert(offsetof(ModelRecord, OstrelSettings.labelLength) == 1080);
static_assert(offsetof(ModelRecord, OstrelSettings.labelGap) == 1084);
static_assert(offsetof(ModelRecord, OstrelSettings.labelCount) == 1088);
static_assert(offsetof(ModelRecord, OstrelSettings.topOfForm) == 1092);
static_assert(offsetof(ModelRecord, OstrelSettings.feedLength) == 1096);
static_assert(offsetof(ModelRecord, OstrelSettings.feedRate) == 1100);
static_assert(offsetof(ModelRecord, OstrelSettings.feedStop) == 1104);
static_assert(offsetof(ModelRecord, OstrelSettings.feedOffset) == 1108);
static_assert(offsetof(ModelRecord, OstrelSettings.printSpeed) == 1112);
static_assert(offsetof(ModelRecord, OstrelSettings.darkness) == 1116);
static_assert(offsetof(ModelRecord, OstrelSettings.flags) == 1120);
static_assert(offsetof(ModelRecord, reserved2) == 1122);
static_assert(offsetof(ModelRecord, Trailer.TrailerSignature) == 1124);
static_assert(offsetof(ModelRecord, Trailer.TrailerModel) == 1127);
static_assert(offsetof(ModelRecord, Trailer.TrailerSize) == 1130);

static_assert(sizeof(NarrowDevMode) == kNarrowSize);
static_assert(offsetof(NarrowDevMode, dmSpecVersion) == 32);
static_assert(offsetof(NarrowDevMode, dmDriverVersion) == 34);
static_assert(offsetof(NarrowDevMode, dmSize) == 36);
static_assert(offsetof(NarrowDevMode, dmDriverExtra) == 38);
static_assert(offsetof(NarrowDevMode, dmFields) == 40);
static_assert(offsetof(NarrowDevMode, dmOrientation) == 44);
static_assert(offsetof(NarrowDevMode, dmCollate) == 68);
static_assert(offsetof(NarrowDevMode, unused) == 70);
static_assert(offsetof(NarrowDevMode, dmLogPixels) == 102);
static_assert(offsetof(NarrowDevMode, dmBitsPerPel) == 104);
static_assert(offsetof(NarrowDevMode, dmICMMethod) == 124);
static_assert(offsetof(NarrowDevMode, dmDitherType) == 136);
static_assert(offsetof(NarrowDevMode, dmReserved1) == 140);

}  // namespace ostvt
