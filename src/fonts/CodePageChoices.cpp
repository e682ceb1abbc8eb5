#include "fonts/CodePageChoices.h"

#include <algorithm>
#include <iterator>

#include "fonts/CodePageTable.h"
#include "fonts/CustomCharacterSetTable.h"
#include "fonts/EncodingDisplayName.h"
#include "fonts/MessageTexts.h"
#include "platform/CodePages.h"

namespace ostvt {
namespace {

constexpr uint8_t kSymbolCharset = 2;
constexpr int32_t kSymbolMessage = 1255;
constexpr int32_t kCustomMessage = 2225;

struct Choice {
  uint8_t Charset;
  uint16_t CodePage;
  const char* Family;
};

constexpr Choice kChoices[] = {
    {0, 1252, "ANSI"},  {0, 850, "OEM"},     {128, 932, "ANSI"},  {129, 949, "ANSI"},
    {134, 936, "ANSI"}, {136, 950, "ANSI"},  {161, 1253, "ANSI"}, {161, 737, "OEM"},
    {161, 869, "OEM"},  {162, 1254, "ANSI"}, {162, 857, "OEM"},   {177, 1255, "ANSI"},
    {177, 862, "OEM"},  {186, 1257, "ANSI"}, {186, 775, "OEM"},   {204, 1251, "ANSI"},
    {204, 855, "OEM"},  {204, 866, "OEM"},   {222, 874, "ANSI"},  {238, 1250, "ANSI"},
    {238, 852, "OEM"},
};

constexpr uint16_t kDataFontPages[] = {874, 932,  936,  949,  950,  1250,  852,  1251, 855,
                                       866, 1252, 850,  1253, 737,  869,   1254, 857,  1255,
                                       862, 1256, 1257, 775,  1258, 65000, 65001};

OString WithBrackets(const OString& text, const OString& inBrackets) {
  return text + " (" + inBrackets + ")";
}

}  // namespace

void AddCodePageChoices(uint8_t charset, const MessageTexts& texts,
                        std::vector<CodePageChoice>* choices) {
  if (charset == kSymbolCharset) {
    const OString text =
        WithBrackets(texts.GetMessage(kSymbolMessage), texts.GetMessage(kCustomMessage));
    choices->push_back({text, kSymbolCodePage, kSymbolCodePage});
  }
  for (const Choice& choice : kChoices) {
    if (choice.Charset != charset || !platform::IsValidCodePage(choice.CodePage)) continue;
    const OString name = OString(choice.Family) + " " + OString::FromInt(choice.CodePage, 1);
    const OString text = WithBrackets(texts.GetMessage(MessageOfCodePage(choice.CodePage)), name);
    choices->push_back({text, choice.CodePage, choice.CodePage});
  }
}

void AddCustomChoices(const CustomCharacterSetTable& table, const MessageTexts& texts,
                      std::vector<CodePageChoice>* choices) {
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const CustomCharacterSet* set = table.GetAt(i);
    choices->push_back({CustomCharacterSetDisplayName(set->Name, texts), set->SourceCodePage, 0});
  }
}

int32_t FindFallbackChoice(const std::vector<CodePageChoice>& choices, const OString& previousText,
                           uint16_t ansiPage) {
  const auto count = static_cast<int32_t>(choices.size());
  for (int32_t i = 0; i < count; ++i) {
    if (choices[static_cast<size_t>(i)].Text == previousText) return i;
  }
  for (int32_t i = 0; i < count; ++i) {
    const CodePageChoice& choice = choices[static_cast<size_t>(i)];
    if (choice.SourceCodePage == ansiPage && choice.CodePage == ansiPage) return i;
  }
  return count > 0 ? 0 : -1;
}

bool IsDataFontCodePage(uint32_t page) {
  return std::find(std::begin(kDataFontPages), std::end(kDataFontPages), page) !=
         std::end(kDataFontPages);
}

void ListDataFontCodePages(WordArray* pages) {
  pages->SetSize(0);
  for (const uint16_t page : kDataFontPages) {
    if (platform::IsValidCodePage(page)) pages->Add(page);
  }
}

}  // namespace ostvt
