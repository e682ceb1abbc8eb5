// The lists of code pages that a user chooses from.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Arrays.h"
#include "core/OString.h"

namespace ostvt {

class CustomCharacterSetTable;
class MessageTexts;

struct CodePageChoice {
  OString Text;  // as it is shown
  // The code page that text comes in and that of the table, the same but for custom character sets:
  // these have the page that they were made from, and 0.
  uint16_t SourceCodePage;
  uint16_t CodePage;

  bool IsCustom() const { return CodePage == 0; }
  // As list items carry it: the source in the high word.
  uint32_t GetValue() const { return uint32_t{SourceCodePage} << 16 | CodePage; }
};

// Appends the pages for one of the system's character sets, as far as the system knows them.
void AddCodePageChoices(uint8_t charset, const MessageTexts& texts,
                        std::vector<CodePageChoice>* choices);
void AddCustomChoices(const CustomCharacterSetTable& table, const MessageTexts& texts,
                      std::vector<CodePageChoice>* choices);
// What is chosen when a new character set was declined: `previousText`, else the page `ansiPage`,
// else the first. -1 in an empty list.
int32_t FindFallbackChoice(const std::vector<CodePageChoice>& choices, const OString& previousText,
                           uint16_t ansiPage);

// The pages for data fonts, as far as the system knows them, in their order. Replaces the content.
void ListDataFontCodePages(WordArray* pages);
// One of these, whether the system knows it or not.
bool IsDataFontCodePage(uint32_t page);

}  // namespace ostvt
