// The block forms in which lists are stored.
#include <string.h>

#include <algorithm>
#include <climits>

#include "core/OStringArray.h"
#include "core/OStringForms.h"

namespace ostvt {
namespace {

constexpr size_t kLargestNumber = 0xFFFF;

// Writes units into a buffer of exactly the size that a first pass has counted.
template <typename Unit>
class BlockWriter {
 public:
  // A null `target` only counts.
  explicit BlockWriter(uint8_t* target) : Target(target) {}

  void Put(const void* source, size_t bytes) {
    if (Target && bytes) memcpy(Target + Size, source, bytes);
    Size += bytes;
  }
  void PutUnit(Unit unit) { Put(&unit, sizeof(unit)); }
  void PutNumber(size_t number) {
    auto word = static_cast<uint16_t>(number);
    Put(&word, sizeof(word));
  }
  void PutText(std::basic_string_view<Unit> text) { Put(text.data(), text.size() * sizeof(Unit)); }

  size_t Size = 0;

 private:
  uint8_t* Target;
};

// The string's text in the wanted form. `kept` holds the copy whose text is given.
const char* TextIn(const OString& text, uint32_t codePage, OString* kept, const char*) {
  *kept = text;
  if (codePage != 0) kept->SetCodePage(codePage);
  return kept->GetNarrow();
}

const char16_t* TextIn(const OString& text, uint32_t, OString* kept, const char16_t*) {
  *kept = text;
  return kept->GetWide();
}

template <typename Unit>
void WriteBlock(const OStringArray& list, BlockWriter<Unit>* out, BlockMode mode, uint32_t codePage,
                size_t wholeSize) {
  if (mode == BlockMode::kCounted) out->PutNumber(static_cast<size_t>(list.Count));
  if (mode == BlockMode::kSized) out->PutNumber(wholeSize);
  for (int32_t i = 0; i < list.Count; ++i) {
    OString kept;
    auto text = TextOf(TextIn(list[i], codePage, &kept, kForm<Unit>));
    if (mode == BlockMode::kTerminated && text.empty()) continue;
    out->PutText(text);
    if (mode == BlockMode::kLines) {
      out->PutUnit('\r');
      out->PutUnit('\n');
    } else {
      out->PutUnit(0);
    }
  }
  if (mode == BlockMode::kTerminated) out->PutUnit(0);
}

template <typename Unit>
void Join(const OStringArray& list, Buffer* out, BlockMode mode, uint32_t codePage) {
  BlockWriter<Unit> counter(nullptr);
  WriteBlock(list, &counter, mode, codePage, 0);
  size_t size = counter.Size;
  bool tooLarge =
      (mode == BlockMode::kSized && size > kLargestNumber) ||
      (mode == BlockMode::kCounted && static_cast<size_t>(list.Count) > kLargestNumber) ||
      size > UINT32_MAX;
  out->Resize(tooLarge ? 0 : static_cast<uint32_t>(size));
  if (out->Size == 0) return;
  BlockWriter<Unit> writer(out->Data);
  WriteBlock(list, &writer, mode, codePage, size);
}

// A cursor over the units of a block, which may lie at any address.
template <typename Unit>
struct BlockReader {
  BlockReader(const void* block, size_t size)
      : Block(static_cast<const uint8_t*>(block)), Units(block ? size / sizeof(Unit) : 0) {}

  Unit At(size_t index) const {
    Unit unit;
    memcpy(&unit, Block + index * sizeof(Unit), sizeof(unit));
    return unit;
  }
  // The number in front; false if the block has none.
  bool TakeNumber(size_t* number) {
    constexpr size_t kUnits = sizeof(uint16_t) / sizeof(Unit);
    if (Units < kUnits) return false;
    uint16_t word;
    memcpy(&word, Block, sizeof(word));
    *number = word;
    Block += sizeof(word);
    Units -= kUnits;
    return true;
  }
  // The first `unit` from `start` on, or the end.
  size_t Next(Unit unit, size_t start) const {
    while (start < Units && At(start) != unit) ++start;
    return start;
  }
  OString TextAt(size_t start, size_t end, uint32_t codePage) const {
    OString text;
    text.SetCodePage(codePage);
    if (end <= start) return text;
    auto length = static_cast<int>(std::min<size_t>(end - start, INT_MAX));
    if constexpr (sizeof(Unit) == 1) {
      text.AssignCount(reinterpret_cast<const char*>(Block) + start, length);
    } else {
      char16_t* room = text.GetWideBuffer(length);
      memcpy(room, Block + start * sizeof(Unit), static_cast<size_t>(length) * sizeof(Unit));
      room[length] = 0;
    }
    return text;
  }

  const uint8_t* Block;
  size_t Units;
};

// Strings with a NUL each, up to `limit` of them. Where `untilEmpty`, an empty one ends the list.
template <typename Unit>
void ReadStrings(OStringArray* out, const BlockReader<Unit>& in, size_t limit, bool untilEmpty,
                 uint32_t codePage) {
  for (size_t start = 0; start < in.Units && limit > 0; --limit) {
    size_t end = in.Next(0, start);
    if (untilEmpty && end == start) return;
    out->Add(in.TextAt(start, end, codePage));
    start = end + 1;
  }
}

// A line ends at an LF, and the unit before that is taken for its CR.
template <typename Unit>
void ReadLines(OStringArray* out, const BlockReader<Unit>& in, uint32_t codePage) {
  for (size_t start = 0;;) {
    size_t end = in.Next('\n', start);
    if (end == in.Units) return;
    out->Add(in.TextAt(start, end == start ? end : end - 1, codePage));
    start = end + 1;
  }
}

template <typename Unit>
void SplitUnits(OStringArray* out, const void* block, size_t size, BlockMode mode,
                uint32_t codePage) {
  out->SetSize(0);
  BlockReader<Unit> in(block, size);
  size_t number = 0;
  switch (mode) {
    case BlockMode::kTerminated:
      ReadStrings(out, in, SIZE_MAX, true, codePage);
      break;
    case BlockMode::kCounted:
      if (in.TakeNumber(&number)) ReadStrings(out, in, number, false, codePage);
      break;
    case BlockMode::kSized:
      if (!in.TakeNumber(&number)) break;
      in.Units = std::min(in.Units, number / sizeof(Unit));
      ReadStrings(out, in, SIZE_MAX, false, codePage);
      break;
    case BlockMode::kLines:
      ReadLines(out, in, codePage);
      break;
  }
}

}  // namespace

void OStringArray::JoinBlock(Buffer* out, BlockMode mode, uint32_t codePage) const {
  Join<char>(*this, out, mode, codePage);
}

void OStringArray::JoinBlockWide(Buffer* out, BlockMode mode) const {
  Join<char16_t>(*this, out, mode, 0);
}

void OStringArray::SplitBlock(const void* block, uint32_t size, BlockMode mode, uint32_t codePage) {
  SplitUnits<char>(this, block, size, mode, codePage);
}

void OStringArray::SplitBlockWide(const void* block, uint32_t size, BlockMode mode) {
  SplitUnits<char16_t>(this, block, size, mode, 0);
}

}  // namespace ostvt
