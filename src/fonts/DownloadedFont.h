// A font that the driver sent to the printer's storage, or is to send.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"
#include "fonts/FontFields.h"
#include "fonts/FontInfo.h"

namespace ostvt {

enum DownloadedFontType : uint16_t {
  kDownloadedUnknown = 0,
  kDownloadedTrueType = 1,
  kDownloadedBitmap = 2,
  kDownloadedPostScript = 3,
  kDownloadedIntellifont = 4,
  kDownloadedSpeedo = 5,
};

inline constexpr uint16_t kDownloadedNormal = 0;
inline constexpr uint16_t kDownloadedTransient = 1;  // left out when all fonts are sent
inline constexpr uint16_t kDownloadedLocal = 2;      // deleting it sends nothing to the printer

struct DownloadedFontFields {
  bool IsBitmap() const { return Type == kDownloadedBitmap; }

  FontInfo Info = {};
  uint16_t Type = kDownloadedUnknown;
  uint16_t Status = kDownloadedNormal;
  OString FaceName = "Arial";  // the system's
  uint16_t Weight = 400;
  uint8_t Italic = 0;
  uint8_t CharacterSet = 0;  // the system's number
  // Bitmap fonts only.
  uint32_t PointSize = 120;  // tenths of a point
  uint32_t ScaleFactor = kWholeRatio;
  EncodingArray EncodingTable;  // printer's character code to Unicode; empty or kEncodingEntries
};

class DownloadedFont : public ListItem, public DownloadedFontFields {
 public:
  DownloadedFont* GetNext() const { return static_cast<DownloadedFont*>(Next); }
  // All but the place in a list.
  void TakeFieldsOf(const DownloadedFontFields& other) {
    static_cast<DownloadedFontFields&>(*this) = other;
  }
  // The same font, whatever it is called on the printer.
  bool IsSameAs(const DownloadedFontFields& other) const;
};

}  // namespace ostvt
