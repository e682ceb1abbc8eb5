#include "ui/TemplateBounds.h"

#include "core/LittleEndian.h"
#include "core/Memory.h"
#include "ui/TemplateHead.h"

namespace ostvt {
namespace {

constexpr uint32_t kPlainCount = 8;
constexpr uint32_t kExtendedCount = 16;
constexpr uint32_t kPlainControl = 18;
constexpr uint32_t kExtendedControl = 24;
// More than the fixed fields, names and font of a head together need of zeros.
constexpr uint32_t kHeadOfZeros = 64;

// Moves `at` behind the control there. Data for the control's window follows its names. Where two
// readers would go on at different places the dialog ends: in the plain form some count the
// length's own word in, and of an odd length some skip whole words only.
bool SkipControl(const Buffer& dialog, bool isExtended, uint32_t* at) {
  const uint32_t fixed = isExtended ? kExtendedControl : kPlainControl;
  *at = AlignTemplate(*at);
  if (*at > dialog.Size || dialog.Size - *at < fixed) return false;
  *at += fixed;
  if (!SkipTemplateName(dialog.Data, dialog.Size, at)) return false;  // class
  if (!SkipTemplateName(dialog.Data, dialog.Size, at)) return false;  // title
  if (dialog.Size - *at < 2) return false;
  const uint32_t extra = ReadLittleWord(dialog.Data + *at);
  *at += 2;
  if (extra == 0) return true;
  if (!isExtended || extra % 2 != 0 || dialog.Size - *at < extra) return false;
  *at += extra;
  return true;
}

}  // namespace

void KeepTemplateInside(Buffer* dialogTemplate) {
  Buffer& dialog = *dialogTemplate;
  TemplateHead head;
  const bool isBroken = !ReadTemplateHead(dialog.Data, dialog.Size, &head) || head.HasNumberedTitle;
  if (isBroken) {
    const uint32_t size = dialog.Size;
    dialog.Resize(AlignTemplate(size) + kHeadOfZeros);
    FillBytes(dialog.Data + size, 0, dialog.Size - size);
    ReadTemplateHead(dialog.Data, dialog.Size, &head);
  }
  uint8_t* field = dialog.Data + (head.IsExtended ? kExtendedCount : kPlainCount);
  const uint16_t count = ReadLittleWord(field);
  uint16_t whole = 0;
  uint32_t at = head.End;
  while (!isBroken && whole < count && SkipControl(dialog, head.IsExtended, &at)) ++whole;
  if (whole < count) WriteLittleWord(field, whole);
}

}  // namespace ostvt
