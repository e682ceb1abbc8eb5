// One member of a definition archive, split into lines once, whatever number of sections is read.
//
//   ! a comment
//   [.default]            holds for every section of the member
//   Key = value
//   [Section]
//   Key = other value     what stands lower wins, default section or named one
//   List += one more      a list grows: value, "," and the new text
//
// Bytes are narrow characters; CR is dropped anywhere, LF ends a line, a NUL ends the text. Keys
// and values are trimmed of " \t\r\n". Lines that are none of these are passed over. One thread.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"

namespace ostvt {

class StringMap;

class DefinitionText {
 public:
  // Takes a copy of `text`; any bytes do.
  DefinitionText(const char* text, uint32_t size);
  DefinitionText(const DefinitionText&) = delete;
  DefinitionText& operator=(const DefinitionText&) = delete;

  // Sets in `map` what the default section and `section` say, in the order of the lines.
  void ReadSection(const OString& section, StringMap* map);

 private:
  struct Line {
    const char* Text;
    int32_t Length;
  };
  struct Entry {
    OString Key;
    OString Value;
    uint32_t Hash;
    bool Grows;
  };
  // The lines from one header to the next.
  struct Block {
    OString Header;  // the whole line
    uint32_t FirstLine;
    uint32_t EndLine;
    bool IsDefault;
    bool IsSplit;
    std::vector<Entry> Entries;
  };

  void SplitLines(const char* text, uint32_t size);
  void AddLine(const char* text, int32_t length);
  void SplitEntries(Block* block) const;

  std::vector<char> Copy;
  std::vector<Line> Lines;
  std::vector<Block> Blocks;
};

}  // namespace ostvt
