// The bits of SymbologyCapability::Flags and HrFlags. Some mean the same in every symbology, others
// belong to the symbologies that their names or their comments tell.
#pragma once

#include <cstdint>

namespace ostvt {

// A set of symbologies: a bit for each number.
template <typename... Numbers>
constexpr uint64_t SymbologySet(Numbers... numbers) {
  return ((uint64_t{1} << numbers) | ...);
}

// Flags of all symbologies: ways of printing in which one can't be used.
inline constexpr uint32_t kRestrictsSerialization = 0x80000000;
inline constexpr uint32_t kRestrictsVariableData = 0x40000000;
inline constexpr uint32_t kRestrictsStatic = 0x20000000;
inline constexpr uint32_t kRestrictsTemplateFile = 0x10000000;

// Wide bars to narrow ones.
inline constexpr uint32_t kRatioVariable = 0x1000;
inline constexpr uint32_t kRatio2To1 = 0x2000;
inline constexpr uint32_t kRatio11To5 = 0x4000;
inline constexpr uint32_t kRatio9To4 = 0x8000;
inline constexpr uint32_t kRatio7To3 = 0x10000;
inline constexpr uint32_t kRatio12To5 = 0x20000;
inline constexpr uint32_t kRatio5To2 = 0x40000;
inline constexpr uint32_t kRatio13To5 = 0x80000;
inline constexpr uint32_t kRatio8To3 = 0x100000;
inline constexpr uint32_t kRatio11To4 = 0x200000;
inline constexpr uint32_t kRatio14To5 = 0x400000;
inline constexpr uint32_t kRatio3To1 = 0x800000;
inline constexpr uint32_t kAnyRatio = 0xFFF000;

// Code39, Code93.
inline constexpr uint32_t kFullAscii = 0x1;
// Code39.
inline constexpr uint32_t kCode39StartStopRequired = 0x2;
inline constexpr uint32_t kCode39CheckDigitRequired = 0x4;
inline constexpr uint32_t kCode39StartStopVariable = 0x8;
// Code128.
inline constexpr uint32_t kEncodesAutomatically = 0x1;
inline constexpr uint32_t kEncodesByItself = 0x2;  // Option 1 is no choice
// Codabar. The first one has two bits.
inline constexpr uint32_t kCodabarStartStopRequired = 0x80000001;
inline constexpr uint32_t kCodabarStartStopUppercase = 0x2;
// I-2/5, MSI, Telepen and the retail codes, which are UPC-A, UPC-E, EAN-13 and EAN-8.
inline constexpr uint32_t kCheckDigitRequired = 0x1;
inline constexpr uint32_t kNumberSystem1 = 0x2;  // UPC-A, UPC-E
inline constexpr uint32_t kGuardBarVariable = 0x4;
inline constexpr uint32_t kGuardBarWithoutText = 0x8;
// The supplements: the ways in which one can follow its bar code.
inline constexpr uint32_t kAttached1 = 0x1;
inline constexpr uint32_t kAttached2 = 0x2;
inline constexpr uint32_t kAttached3 = 0x4;
inline constexpr uint32_t kAttached4 = 0x8;
inline constexpr uint32_t kAttached5 = 0x10;
inline constexpr uint32_t kAnyAttached = 0x1F;
// PDF417.
inline constexpr uint32_t kPdfTruncated = 0x1;
inline constexpr uint32_t kPdfLevelAutomatic = 0x2;
inline constexpr uint32_t kPdfColumnsAutomatic = 0x4;
// DataMatrix. The first bits are its levels of correction, in this order.
inline constexpr uint16_t kDataMatrixLevels[] = {0,  10,  40,  50,  60,  70,  80,
                                                 90, 100, 110, 120, 130, 140, 200};
inline constexpr uint32_t kDataMatrixWhiteOnBlack = 0x4000;
inline constexpr uint32_t kDataMatrixNoRectangle = 0x8000;
inline constexpr uint32_t kDataMatrixNoFunctionCodes = 0x10000;
inline constexpr uint32_t kDataMatrixFormatIdAutomatic = 0x20000;
inline constexpr uint32_t kDataMatrixRectangle = 0x40000;
inline constexpr uint32_t kDataMatrixStructuredAppend = 0x80000;
inline constexpr uint32_t kDataMatrixFindsItsSize = 0x100000;
// MaxiCode.
inline constexpr uint32_t kMaxiCodeMode2 = 0x1;
inline constexpr uint32_t kMaxiCodeMode3 = 0x2;
inline constexpr uint32_t kMaxiCodeMode4 = 0x4;
inline constexpr uint32_t kMaxiCodeMode5 = 0x8;
inline constexpr uint32_t kMaxiCodeMode6 = 0x10;
inline constexpr uint32_t kMaxiCodeZipperBlock = 0x20;
inline constexpr uint32_t kMaxiCodeContrastBlock = 0x40;
inline constexpr uint32_t kMaxiCodeStructuredAppend = 0x80;
// QRCode, and MicroQRCode but for the models and appending.
inline constexpr uint32_t kQrModel1 = 0x1;
inline constexpr uint32_t kQrModel2 = 0x2;
inline constexpr uint32_t kQrModeManual = 0x4;
inline constexpr uint32_t kQrModeAutomatic = 0x8;
inline constexpr uint32_t kQrMaskManual = 0x10;
inline constexpr uint32_t kQrMaskAutomatic = 0x20;
inline constexpr uint32_t kQrStructuredAppend = 0x40;
// JapanPost.
inline constexpr uint32_t kHasHighPriority = 0x1;
// Codablock.
inline constexpr uint32_t kCodablockA = 0x1;
inline constexpr uint32_t kCodablockE = 0x2;
inline constexpr uint32_t kCodablockF = 0x4;
// MicroPDF417.
inline constexpr uint32_t kMicroPdfSizeAutomatic = 0x1;
// Aztec.
inline constexpr uint32_t kAztecFinderPattern = 0x1;
inline constexpr uint32_t kAztecCompact = 0x2;
inline constexpr uint32_t kAztecFull = 0x4;
inline constexpr uint32_t kAztecWhiteOnBlack = 0x8;
inline constexpr uint32_t kAztecErrorCorrection = 0x10;
inline constexpr uint32_t kAztecLayers = 0x20;
inline constexpr uint32_t kAztecStructuredAppend = 0x40;
// RSS and Composite.
inline constexpr uint32_t kRss14 = 0x1;
inline constexpr uint32_t kRssTruncated = 0x2;
inline constexpr uint32_t kRssStacked = 0x4;
inline constexpr uint32_t kRssOmnidirectional = 0x8;
inline constexpr uint32_t kRssLimited = 0x10;
inline constexpr uint32_t kRssExpanded = 0x20;
inline constexpr uint32_t kRssExpandedStacked = 0x40;
inline constexpr uint32_t kRssSegmentsManual = 0x10000;
// Composite: what the other part is besides.
inline constexpr uint32_t kCompositeEan8 = 0x100;
inline constexpr uint32_t kCompositeEan13 = 0x200;
inline constexpr uint32_t kCompositeUpcA = 0x400;
inline constexpr uint32_t kCompositeUpcE = 0x800;
inline constexpr uint32_t kComposite128CcAb = 0x1000;
inline constexpr uint32_t kComposite128CcC = 0x2000;
// Planet.
inline constexpr uint32_t kPlanet12Digits = 0x1;
inline constexpr uint32_t kPlanet14Digits = 0x2;
// Telepen.
inline constexpr uint32_t kTelepenNumeric = 0x2;

// HrFlags: what the human readable text can be made to look like.
inline constexpr uint32_t kHrOffsetVertical = 0x1;
inline constexpr uint32_t kHrOffsetHorizontal = 0x2;
inline constexpr uint32_t kHrAbove = 0x4;
inline constexpr uint32_t kHrBelow = 0x8;
inline constexpr uint32_t kHrLeft = 0x10;
inline constexpr uint32_t kHrRight = 0x20;
inline constexpr uint32_t kHrCenter = 0x40;
inline constexpr uint32_t kHrBar = 0x80;
inline constexpr uint32_t kHrCheckDigitShow = 0x100;
inline constexpr uint32_t kHrCheckDigitHide = 0x200;
inline constexpr uint32_t kHrStartStopShow = 0x400;
inline constexpr uint32_t kHrStartStopHide = 0x800;
inline constexpr uint32_t kHrFontSelect = 0x8000;
// Code39.
inline constexpr uint32_t kHrTranslationOn = 0x10000;
inline constexpr uint32_t kHrTranslationOff = 0x20000;
// The retail codes: the digits that stand apart. UPC-E has the small one in any case.
inline constexpr uint32_t kHrSplitDigitUpcE = 0x10000;
inline constexpr uint32_t kHrSplitDigitNone = 0x20000;
inline constexpr uint32_t kHrSplitDigitSmall = 0x50000;
inline constexpr uint32_t kHrSplitDigitFull = 0x90000;

}  // namespace ostvt
