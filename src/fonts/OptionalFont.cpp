#include "fonts/OptionalFont.h"

#include "platform/CodePages.h"

namespace ostvt {

OptionalFont::OptionalFont()
    : CodePage(static_cast<uint16_t>(platform::AnsiCodePage())), SourceCodePage(CodePage) {}

OptionalFont::OptionalFont(const OptionalFont& other) { *this = other; }

OptionalFont& OptionalFont::operator=(const OptionalFont& other) {
  Name = other.Name;
  Provider = other.Provider;
  Type = other.Type;
  Category = other.Category;
  Description = other.Description;
  CharacterSet = other.CharacterSet;
  CodePage = other.CodePage;
  SourceCodePage = other.SourceCodePage;
  FileName = other.FileName;
  FontId = other.FontId;
  FontGroup = other.FontGroup;
  Location = other.Location;
  ScreenFont = other.ScreenFont;
  Italic = other.Italic;
  Weight = other.Weight;
  BaseSize = other.BaseSize;
  NominalWidth = other.NominalWidth;
  HorizontalRatio = other.HorizontalRatio;
  VerticalRatio = other.VerticalRatio;
  EncodingTable.Copy(other.EncodingTable);
  return *this;
}

}  // namespace ostvt
