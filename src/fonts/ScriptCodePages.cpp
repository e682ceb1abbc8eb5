#include "fonts/ScriptCodePages.h"

namespace ostvt {
namespace {

constexpr ScriptCodePage kScripts[] = {
    {64001, 0x0530, 0x058F, 0x0531, "", "Armenian", 4414},
    {64003, 0x0700, 0x074F, 0x0710, "", "Syriac", 4416},
    {64006, 0x0780, 0x07BF, 0x0780, "", "Thaana", 4419},
    {57002, 0x0900, 0x097F, 0x0905, "ISCII", "Devanagari", 4420},
    {57003, 0x0980, 0x09FF, 0x0985, "ISCII", "Bengali", 4421},
    {57011, 0x0A00, 0x0A7F, 0x0A05, "ISCII", "Gurmukhi", 4422},
    {57010, 0x0A80, 0x0AFF, 0x0A85, "ISCII", "Gujarati", 4423},
    {57007, 0x0B00, 0x0B7F, 0x0B05, "ISCII", "Oriya", 4424},
    {57004, 0x0B80, 0x0BFF, 0x0B85, "ISCII", "Tamil", 4425},
    {57005, 0x0C00, 0x0C7F, 0x0C05, "ISCII", "Telugu", 4426},
    {57008, 0x0C80, 0x0CFF, 0x0C85, "ISCII", "Kannada", 4427},
    {57009, 0x0D00, 0x0D7F, 0x0D05, "ISCII", "Malayalam", 4428},
    {64007, 0x0D80, 0x0DFF, 0x0D85, "", "Sinhala", 4429},
    {64004, 0x0E80, 0x0EFF, 0x0E81, "", "Lao", 4417},
    {64002, 0x10A0, 0x10FF, 0x10A0, "", "Georgian", 4415},
    {64005, 0x1780, 0x17FF, 0x1780, "", "Khmer", 4418},
};

}  // namespace

std::span<const ScriptCodePage> ScriptCodePages() { return kScripts; }

const ScriptCodePage* FindScriptCodePage(uint32_t codePage) {
  for (const ScriptCodePage& script : kScripts) {
    if (script.CodePage == codePage) return &script;
  }
  return nullptr;
}

}  // namespace ostvt
