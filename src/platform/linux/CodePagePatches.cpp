#include "platform/linux/CodePagePatches.h"

#include <algorithm>
#include <iterator>

namespace ostvt::platform {
namespace {

// Ascending by page. Bytes are never asked for below 0x80: a row that stands there is for the way
// from Unicode alone.
constexpr CodePatch kPatches[] = {
    // The small mu is the sign for a millionth. The Greek letter becomes the same byte, as ICU has
    // it.
    {437, 0xE6, 0xE6, 0x00B5},
    {720, 0x80, 0x81, 0x0080},
    {720, 0x84, 0x84, 0x0084},
    {720, 0x86, 0x86, 0x0086},
    {720, 0x8D, 0x90, 0x008D},
    {852, 0xAA, 0xAA, 0x00AC},
    {857, 0xD5, 0xD5, 0xF8BB},
    {857, 0xE7, 0xE7, 0xF8BC},
    {857, 0xF2, 0xF2, 0xF8BD},
    {860, 0xE6, 0xE6, 0x00B5},
    {861, 0xE6, 0xE6, 0x00B5},
    {862, 0xE6, 0xE6, 0x00B5},
    {863, 0xE6, 0xE6, 0x00B5},
    // Letters alone where ICU has their initial forms.
    {864, 0x9B, 0x9C, 0x009B},
    {864, 0x9F, 0x9F, 0x009F},
    {864, 0xA6, 0xA7, 0xF8BE},
    {864, 0xD7, 0xD7, 0xFEC1},
    {864, 0xD8, 0xD8, 0xFEC5},
    {864, 0xF1, 0xF1, 0x0651},
    {864, 0xFF, 0xFF, 0xF8C0},
    {864, '?', '?', 0x200B},
    {865, 0xE6, 0xE6, 0x00B5},
    {869, 0x80, 0x85, 0x0080},
    {869, 0x87, 0x87, 0x0087},
    {869, 0x88, 0x88, 0x00B7},
    {869, 0x93, 0x94, 0x0093},
    {869, 0xEF, 0xEF, 0x0384},
    {932, 0x80, 0x80, 0x0080},
    {932, 0xA0, 0xA0, 0xF8F0},
    {932, 0xFD, 0xFF, 0xF8F1},
    {1253, 0xAA, 0xAA, 0xF8F9},
    {1253, 0xD2, 0xD2, 0xF8FA},
    {1253, 0xFF, 0xFF, 0xF8FB},
    {1253, '?', '?', 0x00AA},
    {1255, 0xCA, 0xCA, 0x05BA},
    {1255, 0xD9, 0xDF, 0xF88D},
    {1255, 0xFB, 0xFC, 0xF894},
    {1255, 0xFF, 0xFF, 0xF896},
    {1257, 0xA1, 0xA1, 0xF8FC},
    {1257, 0xA5, 0xA5, 0xF8FD},
    // Single bytes, and the rows for the user's own characters.
    {1361, 0x80, 0x83, 0x0080},
    {1361, 0xD4, 0xD7, 0xF8EC},
    {1361, 0xDF, 0xDF, 0xF8F0},
    {1361, 0xFA, 0xFF, 0xF8F1},
    {1361, 0xD831, 0xD87E, 0xE000},
    {1361, 0xD891, 0xD8FE, 0xE04E},
    // The sign for ohm. The Greek letter becomes the same byte.
    {10000, 0xBD, 0xBD, 0x2126},
    // Macintosh pages as they were before the euro came.
    {10006, 0x9C, 0x9C, 0x00AD},
    {10006, 0xAF, 0xAF, 0x0387},
    {10006, 0xFF, 0xFF, 0xF8A0},
    {10006, '?', '?', 0x20AC},
    {10007, 0xA2, 0xA2, 0x00A2},
    {10007, 0xB6, 0xB6, 0x2202},
    {10007, 0xFF, 0xFF, 0x00A4},
    {10007, '?', '?', 0x0490},
    {10007, '?', '?', 0x0491},
    {10007, '?', '?', 0x20AC},
    {10081, 0xBD, 0xBD, 0x2126},
    // The highest bit is dropped; BF would be the mark for undefined bytes, and counts as one.
    {20127, 0x80, 0xBE, 0x0000},
    {20127, 0xC0, 0xFF, 0x0040},
    // Letters of Belarusian in place of lines.
    {21866, 0xAE, 0xAE, 0x045E},
    {21866, 0xBE, 0xBE, 0x040E},
    {21866, '?', '?', 0x255D},
    {21866, '?', '?', 0x256C},
    {28593, 0xA5, 0xA5, 0xF7F5},
    {28593, 0xAE, 0xAE, 0xF7F6},
    {28593, 0xBE, 0xBE, 0xF7F7},
    {28593, 0xC3, 0xC3, 0xF7F8},
    {28593, 0xD0, 0xD0, 0xF7F9},
    {28593, 0xE3, 0xE3, 0xF7FA},
    {28593, 0xF0, 0xF0, 0xF7FB},
    {28596, 0xA1, 0xA3, 0xF7C8},
    {28596, 0xA5, 0xAB, 0xF7CB},
    {28596, 0xAE, 0xBA, 0xF7D2},
    {28596, 0xBC, 0xBE, 0xF7DF},
    {28596, 0xC0, 0xC0, 0xF7E2},
    {28596, 0xDB, 0xDF, 0xF7E3},
    {28596, 0xF3, 0xFF, 0xF7E8},
    // The standard's first edition.
    {28597, 0xA1, 0xA1, 0x02BD},
    {28597, 0xA2, 0xA2, 0x02BC},
    {28597, 0xA4, 0xA5, 0xF7C2},
    {28597, 0xAA, 0xAA, 0xF7C4},
    {28597, 0xAE, 0xAE, 0xF7C5},
    {28597, 0xD2, 0xD2, 0xF7C6},
    {28597, 0xFF, 0xFF, 0xF7C7},
    {28597, '\'', '\'', 0x2018},
    {28597, '\'', '\'', 0x2019},
    {28597, '?', '?', 0x037A},
    {28597, '?', '?', 0x20AC},
    {28597, '?', '?', 0x20AF},
    {28598, 0xA1, 0xA1, 0xF79C},
    {28598, 0xAF, 0xAF, 0x203E},
    {28598, 0xBF, 0xDE, 0xF79D},
    {28598, 0xFB, 0xFF, 0xF7BD},
    {28598, '?', '?', 0x200E},
    {28598, '?', '?', 0x200F},
};
constexpr bool IsBefore(const CodePatch& a, const CodePatch& b) { return a.Page < b.Page; }
static_assert(std::is_sorted(std::begin(kPatches), std::end(kPatches), IsBefore));

}  // namespace

CodePagePatches::CodePagePatches(uint32_t codePage) {
  if (codePage > 0xFFFF) return;
  const CodePatch wanted = {static_cast<uint16_t>(codePage), 0, 0, 0};
  const auto [first, last] =
      std::equal_range(std::begin(kPatches), std::end(kPatches), wanted, IsBefore);
  Patches = {first, last};
}

size_t CodePagePatches::ToWide(const char* bytes, size_t size, char16_t* target) const {
  uint32_t code = 0;
  for (size_t i = 0; i < size; ++i) code = code << 8 | static_cast<uint8_t>(bytes[i]);
  for (const CodePatch& patch : Patches) {
    if (code < patch.First || code > patch.Last) continue;
    *target = static_cast<char16_t>(patch.Unit + (code - patch.First));
    return 1;
  }
  return 0;
}

size_t CodePagePatches::ToNarrow(char16_t unit, char* target) const {
  for (const CodePatch& patch : Patches) {
    if (unit < patch.Unit || unit - patch.Unit > patch.Last - patch.First) continue;
    const int code = patch.First + (unit - patch.Unit);
    size_t count = 0;
    if (code > 0xFF) target[count++] = static_cast<char>(code >> 8);
    target[count++] = static_cast<char>(code);
    return count;
  }
  return 0;
}

}  // namespace ostvt::platform
