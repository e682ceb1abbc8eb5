// What is common to the editors of data fonts: the name and the code page.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "fonts/DataFont.h"

namespace ostvt {

class DataFontTable;
class MessageTexts;

inline constexpr int32_t kLongestBarCodeName = 20;  // characters that its editor takes
// Asks, with OK and Cancel, whether the record of that name is to go.
inline constexpr int32_t kReplaceMessage = 1330;

// Gives the font the name that was typed, or one of the language if nothing remains of it.
void NameDataFont(DataFont* font, const OString& typed, const MessageTexts& texts);
// Another record of the name that `name` becomes once it is set; null if there is none. `edited` is
// the record that is being edited, null for a new one. Of an empty `name` the language makes one:
// give the font its name first, and ask for that.
DataFont* FindOtherOfName(const DataFontTable& table, const OString& name, const DataFont* edited);

// Of the text that applications send.
void SetDataFontCodePage(DataFont* font, uint32_t codePage);
uint32_t GetDataFontCodePage(const DataFont& font);
bool IsUnicodeDataFont(const DataFont& font);

}  // namespace ostvt
