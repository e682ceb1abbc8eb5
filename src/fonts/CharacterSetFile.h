// A "PCP1" file (.scs): the table of one character set, and which of its characters are chosen.
#pragma once

#include <cstdint>

#include "core/Arrays.h"

namespace ostvt {

class OFile;
class OStream;

inline constexpr int32_t kSubsetBytes = 32;

struct CharacterSetFile {
  CharacterSetFile();

  // The whole file. False, with nothing changed, if it is none or ends before its table does. A
  // chosen set that is missing or cut off counts as none: HasSubset is false, and Subset what such
  // files stand for.
  bool Read(OFile& file);
  // The chosen set only with HasSubset. False if there is no table, or if the stream took it not
  // whole.
  bool Write(OStream& stream) const;

  // `code` is 0 to 255.
  bool IsChosen(int32_t code) const;
  void Choose(int32_t code, bool chosen);

  uint16_t CodePage = 0;
  WordArray Table;  // printer's character code to Unicode, 0 undefined; empty or kEncodingEntries
  bool HasSubset = false;
  uint8_t Subset[kSubsetBytes];  // a bit for each code, from the first byte's highest one on
};

}  // namespace ostvt
