#include "fonts/RFIDChoices.h"

#include <algorithm>
#include <cstring>

#include "core/Buffer.h"
#include "fonts/MessageTexts.h"
#include "fonts/RFIDFont.h"
#include "fonts/RFIDRules.h"

namespace ostvt {
namespace {

constexpr int kEscapeListTags = 12005;
constexpr int kEscapeListFormats = 12006;
// More than any printer has; a block that claims to be larger is none.
constexpr int kLargestAnswer = 1 << 20;

constexpr int32_t kNoFormatMessage = 3152;
constexpr int32_t kCustomFormatMessage = 2225;

#pragma pack(push, 1)

struct AnswerHead {
  uint8_t Reserved1[8];
  uint16_t Count;
  uint8_t Reserved2[2];
};

// Offsets are told from the block's start on; 0 is none.
struct TagEntry {
  uint32_t Bit;
  uint32_t NameOffset;
};

struct FormatEntry {
  uint16_t Format;
  uint16_t NameOffset;
  uint16_t DefaultOffset;
  uint8_t Reserved[6];
};

#pragma pack(pop)

static_assert(sizeof(AnswerHead) == 12);
static_assert(offsetof(AnswerHead, Count) == 8);
static_assert(sizeof(TagEntry) == 8);
static_assert(offsetof(TagEntry, NameOffset) == 4);
static_assert(sizeof(FormatEntry) == 12);
static_assert(offsetof(FormatEntry, NameOffset) == 2);
static_assert(offsetof(FormatEntry, DefaultOffset) == 4);

class Answer {
 public:
  Answer(const void* block, uint32_t size) : Block(static_cast<const char*>(block)), Size(size) {}

  // Calls `take` with each entry that is whole.
  template <typename Entry, typename Take>
  void ForEach(Take take) const {
    AnswerHead head;
    if (Size < sizeof head) return;
    CopyBytes(&head, Block, sizeof head);
    const uint32_t whole = (Size - uint32_t{sizeof head}) / uint32_t{sizeof(Entry)};
    const uint32_t count = std::min<uint32_t>(head.Count, whole);
    for (uint32_t i = 0; i < count; ++i) {
      Entry entry;
      CopyBytes(&entry, Block + sizeof head + size_t{i} * sizeof entry, sizeof entry);
      take(entry);
    }
  }
  bool Has(uint32_t offset) const { return offset < Size; }
  // One without a terminator ends with the block.
  OString TextAt(uint32_t offset) const {
    OString text;
    if (offset != 0 && Has(offset)) {
      const size_t length = strnlen(Block + offset, Size - offset);
      text.AssignCount(Block + offset, static_cast<int>(length));
    }
    return text;
  }

 private:
  const char* Block;
  uint32_t Size;
};

// The rendering half is asked how much there is, then for it.
void Ask(platform::PrintContext context, int escape, const void* input, int inputSize,
         Buffer* answer) {
  const int size = platform::SendEscape(context, escape, input, inputSize, nullptr, 0);
  if (size <= 0 || size > kLargestAnswer) return;
  answer->Resize(static_cast<uint32_t>(size));
  FillBytes(answer->Data, 0, answer->Size);
  if (platform::SendEscape(context, escape, input, inputSize, answer->Data, size) <= 0) {
    answer->Resize(0);
  }
}

}  // namespace

std::vector<RfidTagChoice> ReadRfidTags(const void* block, uint32_t size) {
  const Answer answer(block, size);
  std::vector<RfidTagChoice> tags;
  answer.ForEach<TagEntry>([&](const TagEntry& entry) {
    if (entry.Bit == 0 || !answer.Has(entry.NameOffset)) return;
    tags.push_back({entry.Bit, answer.TextAt(entry.NameOffset)});
  });
  return tags;
}

std::vector<RfidFormatChoice> ReadRfidFormats(const void* block, uint32_t size) {
  const Answer answer(block, size);
  std::vector<RfidFormatChoice> formats;
  answer.ForEach<FormatEntry>([&](const FormatEntry& entry) {
    if (!answer.Has(entry.NameOffset) || !answer.Has(entry.DefaultOffset)) return;
    // These two are the driver's own.
    if (entry.Format == kNoEpcFormat || entry.Format == kCustomEpcFormat) return;
    formats.push_back(
        {entry.Format, answer.TextAt(entry.NameOffset), answer.TextAt(entry.DefaultOffset)});
  });
  return formats;
}

std::vector<RfidTagChoice> ListRfidTags(platform::PrintContext context) {
  Buffer answer;
  Ask(context, kEscapeListTags, nullptr, 0, &answer);
  return ReadRfidTags(answer.Data, answer.Size);
}

std::vector<RfidFormatChoice> ListRfidFormats(platform::PrintContext context, uint32_t tagBit) {
  Buffer answer;
  Ask(context, kEscapeListFormats, &tagBit, sizeof tagBit, &answer);
  return ReadRfidFormats(answer.Data, answer.Size);
}

std::vector<RfidFormatChoice> ListRfidFormatChoices(platform::PrintContext context, uint32_t tagBit,
                                                    const MessageTexts& texts) {
  std::vector<RfidFormatChoice> formats = ListRfidFormats(context, tagBit);
  formats.insert(formats.begin(), {uint16_t{kNoEpcFormat}, texts.GetMessage(kNoFormatMessage), {}});
  formats.push_back({uint16_t{kCustomEpcFormat}, texts.GetMessage(kCustomFormatMessage), {}});
  return formats;
}

bool ShowsCustomFormat(const RFIDFont& font) {
  const TagRule* rule = RuleOfTag(font.GetTagType());
  return rule && rule->TakesEpcText && font.GetFormat() != kNoEpcFormat;
}

}  // namespace ostvt
