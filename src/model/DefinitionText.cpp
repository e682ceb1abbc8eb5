#include "model/DefinitionText.h"

#include <cstring>

#include "model/NameMap.h"
#include "model/StringMap.h"

namespace ostvt {
namespace {

constexpr char kDefaultHeader[] = "[.default]";

bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

OString Trimmed(const char* begin, const char* end) {
  while (begin < end && IsBlank(*begin)) ++begin;
  while (begin < end && IsBlank(end[-1])) --end;
  OString text;
  if (begin < end) text.AssignCount(begin, static_cast<int>(end - begin));
  return text;
}

}  // namespace

DefinitionText::DefinitionText(const char* text, uint32_t size) {
  // A line's length must fit the counts of a text.
  if (!text || size > static_cast<uint32_t>(kNumberLimit)) return;
  if (const void* end = memchr(text, 0, size)) {
    size = static_cast<uint32_t>(static_cast<const char*>(end) - text);
  }
  SplitLines(text, size);
}

void DefinitionText::SplitLines(const char* text, uint32_t size) {
  // Lines point into the copy, so it must not grow later.
  Copy.reserve(size);
  const char* const end = text + size;
  while (text < end) {
    const auto* feed =
        static_cast<const char*>(memchr(text, '\n', static_cast<size_t>(end - text)));
    const char* lineEnd = feed ? feed : end;
    const size_t start = Copy.size();
    for (const char* part = text; part < lineEnd;) {
      const auto* cr =
          static_cast<const char*>(memchr(part, '\r', static_cast<size_t>(lineEnd - part)));
      const char* partEnd = cr ? cr : lineEnd;
      Copy.insert(Copy.end(), part, partEnd);
      part = cr ? cr + 1 : lineEnd;
    }
    AddLine(Copy.data() + start, static_cast<int32_t>(Copy.size() - start));
    text = feed ? feed + 1 : end;
  }
}

// Comments, empty lines and what stands before the first header are of no use to any section.
void DefinitionText::AddLine(const char* text, int32_t length) {
  if (length == 0 || text[0] == '!') return;
  const auto line = static_cast<uint32_t>(Lines.size());
  if (text[0] == '[') {
    OString header;
    header.AssignCount(text, length);
    const bool isDefault = header == kDefaultHeader;
    Blocks.push_back(Block{header, line, line, isDefault, false, {}});
  } else if (!Blocks.empty()) {
    Lines.push_back(Line{text, length});
    Blocks.back().EndLine = line + 1;
  }
}

void DefinitionText::SplitEntries(Block* block) const {
  block->IsSplit = true;
  block->Entries.reserve(block->EndLine - block->FirstLine);
  for (uint32_t i = block->FirstLine; i < block->EndLine; ++i) {
    const char* begin = Lines[i].Text;
    const char* end = begin + Lines[i].Length;
    const auto* equals =
        static_cast<const char*>(memchr(begin, '=', static_cast<size_t>(end - begin)));
    if (!equals) continue;
    const char* keyEnd = equals;
    const char* value = equals + 1;
    // "+=" anywhere in the line makes it a growing one, even behind an earlier "=".
    bool grows = false;
    for (const char* at = equals; at;) {
      if (at > begin && at[-1] == '+') {
        keyEnd = at - 1;
        value = at + 1;
        grows = true;
        break;
      }
      at = static_cast<const char*>(memchr(at + 1, '=', static_cast<size_t>(end - at - 1)));
    }
    Entry entry{Trimmed(begin, keyEnd), Trimmed(value, end), 0, grows};
    entry.Hash = NameMap::HashOf(entry.Key);
    block->Entries.push_back(static_cast<Entry&&>(entry));
  }
}

void DefinitionText::ReadSection(const OString& section, StringMap* map) {
  const OString header = "[" + section + "]";
  for (Block& block : Blocks) {
    if (!block.IsDefault && !(block.Header == header)) continue;
    if (!block.IsSplit) SplitEntries(&block);
    for (const Entry& entry : block.Entries) {
      const OString* old = entry.Grows ? map->FindString(entry.Key, entry.Hash) : nullptr;
      if (old && !old->IsEmpty()) {
        map->SetString(entry.Key, entry.Hash, *old + "," + entry.Value);
      } else {
        map->SetString(entry.Key, entry.Hash, entry.Value);
      }
    }
  }
}

}  // namespace ostvt
