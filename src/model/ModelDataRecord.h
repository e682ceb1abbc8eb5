// The compact form of what a model's definition says about media, drawing and ports.
//
// Little-endian, no padding; cached and copied as these 184 bytes. Texts end in a NUL inside their
// field. Yes/no fields hold 0 or 1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/Measure.h"

namespace ostvt {

struct ResolutionPair {
  uint16_t X;  // dots per inch
  uint16_t Y;
};

struct ModelData {
  char CompanyName[32];
  char ProductName[32];
  char FontsPrefix[12];
  Measure UnprintableWidth;
  Measure StockUnprintableWidth;
  Measure PrintableX;
  Measure PrintableY;
  Measure DefaultX;
  Measure DefaultY;
  Measure MinimumY;
  Measure MaximumY;
  Measure MinimumX;
  Measure MaximumX;
  uint16_t ColorFlags;    // kColor...
  uint8_t ColorDefault;   // 1 monochrome, 2 colour
  uint8_t StockTracking;  // kTracking...
  uint8_t Orientation;    // quarter turns, 0 to 3
  uint8_t Flip180;
  uint8_t Mirror;
  uint8_t Inverse;
  uint16_t LineThicknessMaximum;
  uint8_t LineThicknessAnchor;  // 0 centre, 1 outer edge, 2 inner edge
  uint8_t LineAnchor;           // ModelDefinition::ParseAlignment
  uint16_t BoxThicknessMaximum;
  uint8_t BoxThicknessAnchor;
  uint8_t BoxAnchor;
  uint8_t BoxFill;
  uint8_t BarCodeAnchor;
  uint8_t BarCodeAnchorRelative;
  uint8_t TextWhiteOnBlackBackground;
  uint8_t TextAnchor;
  uint8_t TextAnchorRelative;
  uint16_t TextFlags;  // kText...
  uint16_t MapResolution;
  uint16_t CopiesLimit;         // 1 to 32767
  uint16_t DownloadFlags;       // kDownload...
  uint16_t BidirectionalPorts;  // kPort...
  uint8_t JobMonitoringDefault;
  uint8_t StatusMonitorDefault;
  uint16_t StatusPorts;           // kPort...
  ResolutionPair Resolutions[8];  // as listed; the first with a zero in it ends them
};

inline constexpr uint32_t kModelDataSize = 184;
inline constexpr int32_t kResolutionPairs = 8;
inline constexpr uint16_t kCopiesLimitMaximum = 32767;

inline constexpr uint16_t kColorSpot2 = 1;
inline constexpr uint16_t kColorSpot3 = 2;
inline constexpr uint16_t kColorSpot4 = 4;
inline constexpr uint16_t kColorProcessCmy = 8;
inline constexpr uint16_t kColorProcessCmyk = 16;
inline constexpr uint16_t kColorSpectrum16 = 32;
inline constexpr uint16_t kColorSpectrum24 = 64;
inline constexpr uint16_t kColorSpectrum32 = 128;

inline constexpr uint8_t kTrackingRight = 0;   // what is too wide is cut at the left
inline constexpr uint8_t kTrackingLeft = 1;    // at the right
inline constexpr uint8_t kTrackingCenter = 2;  // at both sides

inline constexpr uint16_t kTextRotates = 1;
inline constexpr uint16_t kTextRotatesAnyAngle = 2;
inline constexpr uint16_t kTextScalesAnisotropic = 4;
inline constexpr uint16_t kTextVertical = 8;
inline constexpr uint16_t kTextFixedSize = 16;

inline constexpr uint16_t kDownloadTrueType = 1;
inline constexpr uint16_t kDownloadBitmap = 2;
inline constexpr uint16_t kDownloadBitmapAt0 = 4;
inline constexpr uint16_t kDownloadBitmapAt90 = 8;
inline constexpr uint16_t kDownloadSymbolTrueType = 16;

inline constexpr uint16_t kPortSerial = 1;
inline constexpr uint16_t kPortParallel = 2;
inline constexpr uint16_t kPortUsb = 4;
inline constexpr uint16_t kPortTcpIp = 8;
inline constexpr uint16_t kPortFirewire = 16;

static_assert(sizeof(Measure) == 4);
static_assert(sizeof(ModelData) == kModelDataSize);
static_assert(offsetof(ModelData, CompanyName) == 0);
static_assert(offsetof(ModelData, ProductName) == 32);
static_assert(offsetof(ModelData, FontsPrefix) == 64);
static_assert(offsetof(ModelData, UnprintableWidth) == 76);
static_assert(offsetof(ModelData, StockUnprintableWidth) == 80);
static_assert(offsetof(ModelData, PrintableX) == 84);
static_assert(offsetof(ModelData, PrintableY) == 88);
static_assert(offsetof(ModelData, DefaultX) == 92);
static_assert(offsetof(ModelData, DefaultY) == 96);
static_assert(offsetof(ModelData, MinimumY) == 100);
static_assert(offsetof(ModelData, MaximumY) == 104);
static_assert(offsetof(ModelData, MinimumX) == 108);
static_assert(offsetof(ModelData, MaximumX) == 112);
static_assert(offsetof(ModelData, ColorFlags) == 116);
static_assert(offsetof(ModelData, ColorDefault) == 118);
static_assert(offsetof(ModelData, StockTracking) == 119);
static_assert(offsetof(ModelData, Orientation) == 120);
static_assert(offsetof(ModelData, Flip180) == 121);
static_assert(offsetof(ModelData, Mirror) == 122);
static_assert(offsetof(ModelData, Inverse) == 123);
static_assert(offsetof(ModelData, LineThicknessMaximum) == 124);
static_assert(offsetof(ModelData, LineThicknessAnchor) == 126);
static_assert(offsetof(ModelData, LineAnchor) == 127);
static_assert(offsetof(ModelData, BoxThicknessMaximum) == 128);
static_assert(offsetof(ModelData, BoxThicknessAnchor) == 130);
static_assert(offsetof(ModelData, BoxAnchor) == 131);
static_assert(offsetof(ModelData, BoxFill) == 132);
static_assert(offsetof(ModelData, BarCodeAnchor) == 133);
static_assert(offsetof(ModelData, BarCodeAnchorRelative) == 134);
static_assert(offsetof(ModelData, TextWhiteOnBlackBackground) == 135);
static_assert(offsetof(ModelData, TextAnchor) == 136);
static_assert(offsetof(ModelData, TextAnchorRelative) == 137);
static_assert(offsetof(ModelData, TextFlags) == 138);
static_assert(offsetof(ModelData, MapResolution) == 140);
static_assert(offsetof(ModelData, CopiesLimit) == 142);
static_assert(offsetof(ModelData, DownloadFlags) == 144);
static_assert(offsetof(ModelData, BidirectionalPorts) == 146);
static_assert(offsetof(ModelData, JobMonitoringDefault) == 148);
static_assert(offsetof(ModelData, StatusMonitorDefault) == 149);
static_assert(offsetof(ModelData, StatusPorts) == 150);
static_assert(offsetof(ModelData, Resolutions) == 152);

}  // namespace ostvt
