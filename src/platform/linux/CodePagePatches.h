// Where Windows' table of a code page has something else than ICU's or the C library's.
//
// These are small differences: bytes that the other table leaves open and Windows turns into
// control or private-use units, so that they survive the way to Unicode and back; letters that look
// alike; places where a page was changed later. A character that only the other table has, and that
// would come back as quite another one, becomes "?".
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ostvt::platform {

// Units from `Unit` on stand at the codes `First` to `Last`: one byte, or the lead byte above the
// trail byte.
struct CodePatch {
  uint16_t Page;
  uint16_t First;
  uint16_t Last;
  char16_t Unit;
};

// The patches of one page; most pages have none. To be asked before the page's converter.
class CodePagePatches {
 public:
  explicit CodePagePatches(uint32_t codePage);

  // The units (bytes) written for exactly this character, at most one (two), or 0 when the
  // converter's own answer holds. Only for characters above ASCII.
  size_t ToWide(const char* bytes, size_t size, char16_t* target) const;
  size_t ToNarrow(char16_t unit, char* target) const;

 private:
  std::span<const CodePatch> Patches;
};

}  // namespace ostvt::platform
