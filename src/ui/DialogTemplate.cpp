#include "ui/DialogTemplate.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

constexpr uint32_t kAlignment = 4;  // of the controls

// Both forms begin differently; the fields up to the title then follow one another.
constexpr uint32_t kPlainHead = 18;
constexpr uint32_t kExtendedHead = 26;
constexpr uint32_t kPlainStyle = 0;
constexpr uint32_t kExtendedStyle = 12;
constexpr uint16_t kExtendedVersion = 1;
constexpr uint16_t kExtendedMark = 0xFFFF;  // at offset 2
constexpr uint32_t kStyleFont = 64;

// What stands in front of the face name: the size; in the extended form also weight, italic and
// character set.
constexpr uint32_t kPlainFont = 2;
constexpr uint32_t kExtendedFont = 6;
constexpr uint32_t kCharacterSet = 5;  // offset there
constexpr uint8_t kDefaultCharacterSet = 1;

constexpr uint16_t kNumberMark = 0xFFFF;  // a number of one more word, no text

constexpr char16_t kNarrowRichEdit[] = u"richedit20a";
constexpr char16_t kWideRichEdit[] = u"RichEdit20W";
constexpr uint32_t kRichEditUnits = std::size(kNarrowRichEdit) - 1;
constexpr uint32_t kAnyRichEditUnits = kRichEditUnits - 1;  // without the letter of the kind

uint32_t RoundUp(uint32_t value) { return (value + kAlignment - 1) / kAlignment * kAlignment; }

// Behind the text at `at`, which ends with a zero; false if there is none before the end.
bool SkipText(const uint8_t* source, uint32_t size, uint32_t* at) {
  while (size - *at >= 2) {
    const uint16_t unit = ReadLittleWord(source + *at);
    *at += 2;
    if (unit == 0) return true;
  }
  return false;
}

bool SkipName(const uint8_t* source, uint32_t size, uint32_t* at) {
  if (size - *at < 2) return false;
  if (ReadLittleWord(source + *at) != kNumberMark) return SkipText(source, size, at);
  if (size - *at < 4) return false;
  *at += 4;
  return true;
}

// Where the font stands in a template: its fields from `Start`, the face name from `Face` to `End`.
struct FontPlace {
  bool Extended;
  uint32_t Start;
  uint32_t Face;
  uint32_t End;
};

// False for a template that has no font, or ends before it does.
bool FindFont(const uint8_t* source, uint32_t size, FontPlace* place) {
  if (size < kPlainHead) return false;
  place->Extended =
      ReadLittleWord(source) == kExtendedVersion && ReadLittleWord(source + 2) == kExtendedMark;
  uint32_t at = place->Extended ? kExtendedHead : kPlainHead;
  if (size < at) return false;
  const uint32_t style = ReadLittleDword(source + (place->Extended ? kExtendedStyle : kPlainStyle));
  if (!(style & kStyleFont)) return false;
  constexpr int kNames = 3;  // menu, class, title
  for (int i = 0; i < kNames; ++i) {
    if (!SkipName(source, size, &at)) return false;
  }
  const uint32_t font = place->Extended ? kExtendedFont : kPlainFont;
  if (size - at < font) return false;
  place->Start = at;
  place->Face = at + font;
  place->End = place->Face;
  return SkipText(source, size, &place->End);
}

void CopyWhole(const uint8_t* source, uint32_t size, Buffer* result) {
  result->Resize(RoundUp(size));
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
  FontPlace place;
  if (!source || size > INT32_MAX || !FindFont(source, size, &place)) {
    CopyWhole(source, source && size <= INT32_MAX ? size : 0, result);
    return;
  }
  const char16_t* face = target.FaceName.GetWide();
  uint32_t faceBytes = 2;
  for (const char16_t* unit = face; *unit; ++unit) faceBytes += 2;

  const uint32_t controls = std::min(RoundUp(place.End), size);
  const uint32_t newControls = RoundUp(place.Face + faceBytes);
  result->Resize(RoundUp(newControls + (size - controls)));
  FillBytes(result->Data, 0, result->Size);
  CopyBytes(result->Data, source, place.Face);
  CopyBytes(result->Data + place.Face, face, faceBytes);
  CopyBytes(result->Data + newControls, source + controls, size - controls);
  if (place.Extended) result->Data[place.Start + kCharacterSet] = kDefaultCharacterSet;
  if (target.WideRichEdit) WidenRichEdits(result->Data, result->Size);
}

bool UsesRichEdit(const uint8_t* source, uint32_t size) {
  for (uint32_t at = 0; source && size - at >= 2 * kAnyRichEditUnits; at += 2) {
    if (IsRichEdit(source + at, kAnyRichEditUnits)) return true;
  }
  return false;
}

}  // namespace ostvt
