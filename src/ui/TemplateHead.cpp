#include "ui/TemplateHead.h"

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

// Both forms begin differently; the fields up to the title then follow one another.
constexpr uint32_t kPlainHead = 18;
constexpr uint32_t kExtendedHead = 26;
constexpr uint32_t kPlainStyle = 0;
constexpr uint32_t kExtendedStyle = 12;
constexpr uint16_t kExtendedVersion = 1;
constexpr uint16_t kExtendedMark = 0xFFFF;  // at offset 2
constexpr uint32_t kStyleFont = 64;
constexpr int kNames = 3;  // menu, class, and last the title

// What stands in front of the face name: the size; in the extended form also weight, italic and
// character set.
constexpr uint32_t kPlainFont = 2;
constexpr uint32_t kExtendedFont = 6;

// In place of a size: the font of message boxes, and nothing else about it follows.
constexpr uint16_t kMessageFont = 0x7FFF;

constexpr uint16_t kNumberMark = 0xFFFF;  // a number of one more word, no text

// Behind the text at `at`, which ends with a zero; false if there is none before the end.
bool SkipText(const uint8_t* source, uint32_t size, uint32_t* at) {
  while (size - *at >= 2) {
    const uint16_t unit = ReadLittleWord(source + *at);
    *at += 2;
    if (unit == 0) return true;
  }
  return false;
}

}  // namespace

bool SkipTemplateName(const uint8_t* source, uint32_t size, uint32_t* at) {
  if (size - *at < 2) return false;
  if (ReadLittleWord(source + *at) != kNumberMark) return SkipText(source, size, at);
  if (size - *at < 4) return false;
  *at += 4;
  return true;
}

bool ReadTemplateHead(const uint8_t* source, uint32_t size, TemplateHead* head) {
  *head = TemplateHead();
  if (size < kPlainHead) return false;
  head->IsExtended =
      ReadLittleWord(source) == kExtendedVersion && ReadLittleWord(source + 2) == kExtendedMark;
  uint32_t at = head->IsExtended ? kExtendedHead : kPlainHead;
  if (size < at) return false;
  const uint32_t style =
      ReadLittleDword(source + (head->IsExtended ? kExtendedStyle : kPlainStyle));
  for (int i = 0; i < kNames; ++i) {
    head->HasNumberedTitle = size - at >= 2 && ReadLittleWord(source + at) == kNumberMark;
    if (!SkipTemplateName(source, size, &at)) return false;
  }
  head->End = at;
  if (!(style & kStyleFont)) return true;
  if (size - at >= 2 && ReadLittleWord(source + at) == kMessageFont) {
    head->End = at + 2;
    return true;
  }
  const uint32_t font = head->IsExtended ? kExtendedFont : kPlainFont;
  if (size - at < font) return false;
  head->Font = at;
  head->Face = at + font;
  head->End = head->Face;
  return SkipText(source, size, &head->End);
}

}  // namespace ostvt
