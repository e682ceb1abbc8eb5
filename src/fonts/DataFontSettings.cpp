#include "fonts/DataFontSettings.h"

#include "fonts/CodePageCharSet.h"
#include "fonts/DataFontTable.h"
#include "fonts/MessageTexts.h"

namespace ostvt {
namespace {

constexpr int32_t kBarCodeNameMessage = 1615;
constexpr int32_t kRfidNameMessage = 1616;

constexpr uint32_t kUtf7 = 65000;
constexpr uint32_t kUtf8 = 65001;

// DOS pages have their Windows relatives' sets here.
struct PageSet {
  uint32_t CodePage;
  uint8_t CharacterSet;
};
constexpr PageSet kPageSets[] = {
    {737, 161},  {775, 186},  {850, 0},    {852, 238},  {855, 204},  {857, 162},
    {862, 177},  {866, 204},  {869, 161},  {874, 222},  {932, 128},  {936, 134},
    {949, 129},  {950, 136},  {1250, 238}, {1251, 204}, {1252, 0},   {1253, 161},
    {1254, 162}, {1255, 177}, {1256, 178}, {1257, 186}, {1258, 163},
};
constexpr uint8_t kDefaultCharacterSet = 1;

uint8_t CharacterSetOf(uint32_t codePage) {
  for (const PageSet& each : kPageSets) {
    if (each.CodePage == codePage) return each.CharacterSet;
  }
  return kDefaultCharacterSet;
}

}  // namespace

void NameDataFont(DataFont* font, const OString& typed, const MessageTexts& texts) {
  font->SetName(typed);
  if (!font->GetName().IsEmpty()) return;
  font->SetName(texts.GetMessage(font->IsRfid() ? kRfidNameMessage : kBarCodeNameMessage));
}

DataFont* FindOtherOfName(const DataFontTable& table, const OString& name, const DataFont* edited) {
  DataFont* found = table.Find(name);
  return found == edited ? nullptr : found;
}

void SetDataFontCodePage(DataFont* font, uint32_t codePage) {
  font->Header.Flags |= kDataFontExplicitCodePage;
  font->Header.CodePage = codePage;
  font->Header.CharacterSet = CharacterSetOf(codePage);
}

uint32_t GetDataFontCodePage(const DataFont& font) {
  const bool isExplicit = (font.Header.Flags & kDataFontExplicitCodePage) != 0;
  return isExplicit ? font.Header.CodePage : CodePageFromCharSet(font.Header.CharacterSet);
}

bool IsUnicodeDataFont(const DataFont& font) {
  if ((font.Header.Flags & kDataFontExplicitCodePage) == 0) return false;
  return font.Header.CodePage == kUtf7 || font.Header.CodePage == kUtf8;
}

}  // namespace ostvt
