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

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/OString.h"

namespace ostvt {

class StringMap;

// The samples are a hundredth of this. A larger text reads as empty.
inline constexpr uint32_t kLargestDefinition = 4u << 20;

class DefinitionText {
 public:
  // Any bytes do; they must outlive this.
  DefinitionText(const char* text, uint32_t size);
  DefinitionText(const DefinitionText&) = delete;
  DefinitionText& operator=(const DefinitionText&) = delete;

  // Sets in `map` what the default section and `section` say, in the order of the lines.
  void ReadSection(const OString& section, StringMap* map);

 private:
  // A piece of the text: a line, or a trimmed key or value.
  struct Span {
    const char* Text;
    size_t Length;
  };
  struct Entry {
    OString Key;
    OString Value;
    uint32_t Hash;  // of the key
    bool Grows;
  };
  // The lines from one header to the next.
  struct Block {
    OString Name;  // what stands between the brackets
    uint32_t FirstLine;
    uint32_t EndLine;
    bool IsDefault;
    bool IsSplit;
    // In the order of a map, made when the block is first read. Lines of one key keep their order.
    std::vector<Entry> Entries;
  };
  // A text that was met lately. The same few words stand for many values, and the same keys in many
  // sections.
  struct KnownText {
    Span Where = {nullptr, 0};
    OString Text;
  };
  static constexpr size_t kKnownTexts = 128;

  static Span Trimmed(const char* begin, const char* end);
  OString TextOf(Span span, size_t spread);
  void SplitLines(const char* text, size_t size);
  void AddLine(Span line);
  void SplitEntries(Block* block);
  static OString ValueOfRun(const Entry* const* first, const Entry* const* end, const OString* old);

  std::vector<char> WithoutReturns;  // the text, where it has any CR; else empty
  std::vector<Span> Lines;
  std::vector<Block> Blocks;
  bool InSection = false;  // while lines are split
  KnownText Known[kKnownTexts];
};

}  // namespace ostvt
