// What stands in a dialog template in front of its controls (DLGTEMPLATE and the platform's
// undeclared DLGTEMPLATEEX).
#pragma once

#include <cstdint>

namespace ostvt {

// Offsets in the template.
struct TemplateHead {
  bool IsExtended = false;
  // The title is a number. Not everybody takes it for one: some read it as a text.
  bool HasNumberedTitle = false;
  uint32_t Font = 0;  // of the font's fields; 0 without a font of its own
  uint32_t Face = 0;  // of its name
  uint32_t End = 0;   // the controls follow at the next multiple of kTemplateAlignment
};

inline constexpr uint32_t kTemplateAlignment = 4;

// False for a template that breaks off before its head ends.
bool ReadTemplateHead(const uint8_t* source, uint32_t size, TemplateHead* head);
// Moves `at` behind the name there, a text or a number. False if it breaks off.
bool SkipTemplateName(const uint8_t* source, uint32_t size, uint32_t* at);

inline constexpr uint32_t AlignTemplate(uint32_t offset) {
  return (offset + kTemplateAlignment - 1) / kTemplateAlignment * kTemplateAlignment;
}

}  // namespace ostvt
