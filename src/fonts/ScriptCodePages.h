// Scripts without a code page of Windows, under numbers of their own: their letters stand in the
// order of Unicode from code 128 on.
#pragma once

#include <cstdint>
#include <span>

namespace ostvt {

struct ScriptCodePage {
  uint16_t CodePage;
  char16_t First;
  char16_t Last;
  char16_t Test;         // a letter that a font of the script has
  const char* Standard;  // "ISCII", or ""
  const char* Name;
  uint16_t Message;  // the name in the user's language
};

// In the order of Unicode.
std::span<const ScriptCodePage> ScriptCodePages();
// Null for any other page.
const ScriptCodePage* FindScriptCodePage(uint32_t codePage);

}  // namespace ostvt
