// Dialog templates as resource modules keep them, fitted to the system that shows them: the font of
// the user interface, and the rich edit box that takes wide text.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "core/OString.h"

namespace ostvt {

// What of the system a patch depends on.
struct TemplateTarget {
  OString FaceName;          // of the font
  bool WideRichEdit = true;  // "RichEdit20A" becomes "RichEdit20W"
};

// Copies the template of `size` bytes into `result`, patched; its size there is rounded up to a
// multiple of 4. A template without a font, or one whose fields don't lie inside its size, is
// copied as it is.
void PatchDialogTemplate(const uint8_t* source, uint32_t size, const TemplateTarget& target,
                         Buffer* result);

// True for a template with a rich edit box of either kind, whose library must then be loaded.
bool UsesRichEdit(const uint8_t* source, uint32_t size);

}  // namespace ostvt
