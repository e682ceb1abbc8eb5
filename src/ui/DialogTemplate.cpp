#include "ui/DialogTemplate.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/LittleEndian.h"
#include "ui/TemplateHead.h"

namespace ostvt {
namespace {

constexpr uint32_t kCharacterSet = 5;  // offset in an extended template's font
constexpr uint8_t kDefaultCharacterSet = 1;

constexpr char16_t kNarrowRichEdit[] = u"richedit20a";
constexpr char16_t kWideRichEdit[] = u"RichEdit20W";
constexpr uint32_t kRichEditUnits = std::size(kNarrowRichEdit) - 1;
constexpr uint32_t kAnyRichEditUnits = kRichEditUnits - 1;  // without the letter of the kind

void CopyWhole(const uint8_t* source, uint32_t size, Buffer* result) {
  result->Resize(AlignTemplate(size));
  FillBytes(result->Data, 0, result->Size);
  CopyBytes(result->Data, source, size);
}

bool IsRichEdit(const uint8_t* at, uint32_t units) {
  for (uint32_t i = 0; i < units; ++i) {
    char16_t unit = ReadLittleWord(at + 2 * i);
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
    if (unit != kNarrowRichEdit[i]) return false;
  }
  return true;
}

void WidenRichEdits(uint8_t* data, uint32_t size) {
  constexpr uint32_t kRoom = 2 * (kRichEditUnits + 1);  // a terminator must have room too
  for (uint32_t at = 0; at + kRoom <= size; at += 2) {
    if (IsRichEdit(data + at, kRichEditUnits)) memcpy(data + at, kWideRichEdit, 2 * kRichEditUnits);
  }
}

}  // namespace

void PatchDialogTemplate(const uint8_t* source, uint32_t size, const TemplateTarget& target,
                         Buffer* result) {
  TemplateHead head;
  if (!source || size > INT32_MAX || !ReadTemplateHead(source, size, &head) || head.Font == 0) {
    CopyWhole(source, source && size <= INT32_MAX ? size : 0, result);
    return;
  }
  const char16_t* face = target.FaceName.GetWide();
  uint32_t faceBytes = 2;
  for (const char16_t* unit = face; *unit; ++unit) faceBytes += 2;

  const uint32_t controls = std::min(AlignTemplate(head.End), size);
  const uint32_t newControls = AlignTemplate(head.Face + faceBytes);
  result->Resize(AlignTemplate(newControls + (size - controls)));
  FillBytes(result->Data, 0, result->Size);
  CopyBytes(result->Data, source, head.Face);
  CopyBytes(result->Data + head.Face, face, faceBytes);
  CopyBytes(result->Data + newControls, source + controls, size - controls);
  if (head.IsExtended) result->Data[head.Font + kCharacterSet] = kDefaultCharacterSet;
  if (target.WideRichEdit) WidenRichEdits(result->Data, result->Size);
}

bool UsesRichEdit(const uint8_t* source, uint32_t size) {
  for (uint32_t at = 0; source && size - at >= 2 * kAnyRichEditUnits; at += 2) {
    if (IsRichEdit(source + at, kAnyRichEditUnits)) return true;
  }
  return false;
}

}  // namespace ostvt
