// A font on a card or in a pack of the printer, or one that the user declares to be there.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "fonts/FontFields.h"
#include "platform/CodePages.h"

namespace ostvt {

inline constexpr uint16_t kOptionalFontTrueType = 1;
inline constexpr uint16_t kOptionalFontBitmap = 2;
inline constexpr uint16_t kOptionalFontPredefined = 0;  // of a font group of the model
inline constexpr uint16_t kOptionalFontCustom = 1;      // the user's own

struct OptionalFont {
  bool IsCustom() const { return Category == kOptionalFontCustom; }
  bool IsBitmap() const { return Type == kOptionalFontBitmap; }

  OString Name;  // the record's key; shown to applications
  OString Provider;
  uint16_t Type = kOptionalFontTrueType;
  uint16_t Category = kOptionalFontPredefined;
  OString Description;
  OString CharacterSet;  // the printer's
  // Custom fonts only, as the next.
  uint16_t CodePage = static_cast<uint16_t>(platform::AnsiCodePage());
  uint16_t SourceCodePage = CodePage;
  OString FileName;         // on the printer
  OString FontId;           // the printer's
  OString FontGroup;        // that the record came from
  uint32_t Location = '*';  // storage location code
  OString ScreenFont = "Arial";
  uint8_t Italic = 0;
  uint32_t Weight = 400;
  uint32_t BaseSize = 120;  // tenths of a point; bitmap fonts only
  uint32_t NominalWidth = kWholeRatio;
  uint32_t HorizontalRatio = kWholeRatio;
  uint32_t VerticalRatio = kWholeRatio;
  EncodingArray EncodingTable;  // printer's character code to Unicode; empty or kEncodingEntries
};

}  // namespace ostvt
