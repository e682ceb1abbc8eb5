// What users read for encodings and character sets.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class MessageTexts;
class PrinterModel;

// "Western (ANSI)" for "1252". For a name that is none of the known ones, what the model's
// definition tells; empty if that is nothing. Null: no model is asked.
OString EncodingDisplayName(const OString& name, PrinterModel* model, const MessageTexts& texts);
// The number of the language of a Windows or DOS code page; 0 for any other.
uint16_t MessageOfCodePage(uint32_t codePage);
// The language of one of the system's character sets; empty for those without one.
OString CharacterSetDisplayName(uint8_t charset, const MessageTexts& texts);
// The user's name for a custom character set, with the mark of those behind it.
OString CustomCharacterSetDisplayName(const OString& name, const MessageTexts& texts);

}  // namespace ostvt
