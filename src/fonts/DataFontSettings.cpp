#include "fonts/DataFontSettings.h"

#include "fonts/CodePageCharSet.h"
#include "fonts/CodePageChoices.h"
#include "fonts/DataFontTable.h"
#include "fonts/MessageTexts.h"

namespace ostvt {
namespace {

constexpr int32_t kBarCodeNameMessage = 1615;
constexpr int32_t kRfidNameMessage = 1616;

constexpr uint32_t kUtf7 = 65000;
constexpr uint32_t kUtf8 = 65001;

constexpr uint8_t kDefaultCharacterSet = 1;

// Pages that aren't offered for data fonts have the default, whatever set the system has for them.
uint8_t CharacterSetOf(uint32_t codePage) {
  if (!IsDataFontCodePage(codePage)) return kDefaultCharacterSet;
  int charset = CharsetOfWindowsCodePage(codePage);
  if (charset < 0) charset = CharsetOfDosCodePage(codePage);
  return charset < 0 ? kDefaultCharacterSet : static_cast<uint8_t>(charset);
}

}  // namespace

void NameDataFont(DataFont* font, const OString& typed, const MessageTexts& texts) {
  font->SetName(typed);
  if (!font->GetName().IsEmpty()) return;
  font->SetName(texts.GetMessage(font->IsRfid() ? kRfidNameMessage : kBarCodeNameMessage));
}

DataFont* FindOtherOfName(const DataFontTable& table, const OString& name, const DataFont* edited) {
  DataFont* found = table.Find(DataFont::CleanName(name));
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
