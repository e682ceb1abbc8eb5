#include "model/DefinitionText.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "model/NameMap.h"
#include "model/StringMap.h"

namespace ostvt {
namespace {

constexpr char kDefaultName[] = ".default";

// About as many bytes as a line has, to make room for the lines at once.
constexpr size_t kBytesALine = 24;

bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

const char* FindByte(const char* begin, const char* end, char byte) {
  return static_cast<const char*>(memchr(begin, byte, static_cast<size_t>(end - begin)));
}

OString MakeText(const char* text, size_t length) {
  OString made;
  if (length > 0) made.AssignCount(text, static_cast<int>(length));
  return made;
}

}  // namespace

DefinitionText::DefinitionText(const char* text, uint32_t size) {
  if (!text || size > kLargestDefinition) return;
  const char* nul = FindByte(text, text + size, 0);
  SplitLines(text, nul ? static_cast<size_t>(nul - text) : size);
}

void DefinitionText::SplitLines(const char* text, size_t size) {
  if (FindByte(text, text + size, '\r')) {
    // Lines point into it, so it must not grow later.
    WithoutReturns.reserve(size);
    std::copy_if(text, text + size, std::back_inserter(WithoutReturns),
                 [](char c) { return c != '\r'; });
    text = WithoutReturns.data();
    size = WithoutReturns.size();
  }
  Lines.reserve(size / kBytesALine);
  const char* line = text;
  const char* const end = text + size;
  while (line < end) {
    const char* feed = FindByte(line, end, '\n');
    const char* lineEnd = feed ? feed : end;
    AddLine({line, static_cast<size_t>(lineEnd - line)});
    line = feed ? feed + 1 : end;
  }
}

// Comments, empty lines and what stands before the first header are of no use to any section; nor
// are the lines behind a header that does not end in a bracket, which no section has.
void DefinitionText::AddLine(Span line) {
  if (line.Length == 0 || line.Text[0] == '!') return;
  const auto number = static_cast<uint32_t>(Lines.size());
  if (line.Text[0] == '[') {
    const bool whole = line.Length >= 2 && line.Text[line.Length - 1] == ']';
    InSection = whole;
    if (!whole) return;
    Span name = {line.Text + 1, line.Length - 2};
    const bool isDefault =
        name.Length == sizeof kDefaultName - 1 && memcmp(name.Text, kDefaultName, name.Length) == 0;
    Blocks.push_back({MakeText(name.Text, name.Length), number, number, isDefault, false, {}});
  } else if (InSection) {
    Lines.push_back(line);
    Blocks.back().EndLine = number + 1;
  }
}

DefinitionText::Span DefinitionText::Trimmed(const char* begin, const char* end) {
  while (begin < end && IsBlank(*begin)) ++begin;
  while (begin < end && IsBlank(end[-1])) --end;
  return {begin, static_cast<size_t>(end - begin)};
}

// Equal texts come with equal `spread` values.
OString DefinitionText::TextOf(Span span, size_t spread) {
  KnownText& known = Known[spread % kKnownTexts];
  if (known.Where.Length != span.Length ||
      (span.Length > 0 && memcmp(known.Where.Text, span.Text, span.Length) != 0)) {
    known.Where = span;
    known.Text = MakeText(span.Text, span.Length);
  }
  return known.Text;
}

void DefinitionText::SplitEntries(Block* block) {
  struct Piece {
    Span Key;
    Span Value;
    uint32_t Hash;
    bool Grows;
  };
  std::vector<Piece> pieces;
  pieces.reserve(block->EndLine - block->FirstLine);
  for (uint32_t i = block->FirstLine; i < block->EndLine; ++i) {
    const char* begin = Lines[i].Text;
    const char* end = begin + Lines[i].Length;
    const char* equals = FindByte(begin, end, '=');
    if (!equals) continue;
    const char* keyEnd = equals;
    const char* valueBegin = equals + 1;
    // "+=" anywhere in the line makes it a growing one, even behind an earlier "=".
    bool grows = false;
    for (const char* at = equals; at; at = FindByte(at + 1, end, '=')) {
      if (at == begin || at[-1] != '+') continue;
      keyEnd = at - 1;
      valueBegin = at + 1;
      grows = true;
      break;
    }
    const Span key = Trimmed(begin, keyEnd);
    const uint32_t hash = NameMap::HashOf(key.Text, key.Length);
    pieces.push_back({key, Trimmed(valueBegin, end), hash, grows});
  }
  std::stable_sort(pieces.begin(), pieces.end(),
                   [](const Piece& a, const Piece& b) { return a.Hash > b.Hash; });
  block->Entries.reserve(pieces.size());
  for (const Piece& piece : pieces) {
    const Span& value = piece.Value;
    const size_t spread = value.Length == 0
                              ? 0
                              : value.Length * 31 + static_cast<uint8_t>(value.Text[0]) * 7U +
                                    static_cast<uint8_t>(value.Text[value.Length - 1]);
    block->Entries.push_back(
        {TextOf(piece.Key, piece.Hash), TextOf(value, spread), piece.Hash, piece.Grows});
  }
  block->IsSplit = true;
}

// What the lines of one key make of `old`, null without one. A list is gathered and made a text
// once, since it may have as many lines as the member.
OString DefinitionText::ValueOfRun(const Entry* const* first, const Entry* const* end,
                                   const OString* old) {
  const Entry* const* start = end - 1;
  while (start > first && (*start)->Grows) --start;
  const bool goesOn = (*start)->Grows && old && !old->IsEmpty();
  if (end - start == 1 && !goesOn) return (*start)->Value;
  std::vector<char> list;
  const auto append = [&list](const OString& text) {
    const char* narrow = text.GetNarrow();
    list.insert(list.end(), narrow, narrow + strlen(narrow));
  };
  if (goesOn) append(*old);
  for (const Entry* const* each = start; each < end; ++each) {
    if (!list.empty()) list.push_back(',');
    append((*each)->Value);
  }
  return MakeText(list.data(), list.size());
}

void DefinitionText::ReadSection(const OString& section, StringMap* map) {
  const auto isBefore = [](const Entry* a, const Entry* b) { return a->Hash > b->Hash; };
  std::vector<const Entry*> entries;
  entries.reserve(Lines.size());
  ptrdiff_t lastRun = 0;
  int runs = 0;
  for (Block& block : Blocks) {
    if (!block.IsDefault && !(block.Name == section)) continue;
    if (!block.IsSplit) SplitEntries(&block);
    lastRun = static_cast<ptrdiff_t>(entries.size());
    ++runs;
    for (const Entry& entry : block.Entries) entries.push_back(&entry);
  }
  // Each block's entries are in order already.
  if (runs == 2) {
    std::inplace_merge(entries.begin(), entries.begin() + lastRun, entries.end(), isBefore);
  } else if (runs > 2) {
    std::stable_sort(entries.begin(), entries.end(), isBefore);
  }
  // In the map's own order each entry goes to its end. Lines of one key come in the file's order.
  map->ExpectMore(static_cast<int32_t>(entries.size()));
  const Entry* const* const end = entries.data() + entries.size();
  for (const Entry* const* first = entries.data(); first < end;) {
    const Entry& entry = **first;
    const Entry* const* next = first + 1;
    while (next < end && (*next)->Hash == entry.Hash && (*next)->Key == entry.Key) ++next;
    // Another key of the same hash may have come between two lines of this one.
    const OString* old = entry.Grows ? map->FindString(entry.Key, entry.Hash) : nullptr;
    map->SetString(entry.Key, entry.Hash, ValueOfRun(first, next, old));
    first = next;
  }
}

}  // namespace ostvt
