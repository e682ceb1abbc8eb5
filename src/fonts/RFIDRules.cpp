#include "fonts/RFIDRules.h"

#include <algorithm>

#include "core/Memory.h"
#include "fonts/RFIDFont.h"
#include "model/RfidTags.h"

namespace ostvt {
namespace {

using enum LastSegment;

constexpr TagRule kTags[] = {
    {kTagOldEpc1, kRecordEpc, 1, kSegmentData, 0, false, kData},
    {kTagOldEpc2, kRecordEpc, 1, kSegmentData, 0, false, kData},
    {kTagTagIt, kRecordTagIt, 8, kSegmentData, 0, false, kData},
    {kTagIsoGeneric, kRecordIso15693, 124, kSegmentData, 0, false, kData},
    {kTagICode1, kRecordICode1, 16, kSegmentAll, 0, false, kFirstAllowed},
    {kTagPicotag, kRecordPicotag, 31, kSegmentAll, 0, false, kAll},
    {kTagIsoMyD, kRecordIso15693, 128, kSegmentData, 0, false, kAll},
    {kTagIsoTagIt, kRecordIso15693, 66, kSegmentData, 0, false, kData},
    {kTagIsoICode, kRecordIso15693, 32, kSegmentData, 0, false, kData},
    {kTagTagSys, kRecordTagSys, 128, kSegmentData, 0, false, kData},
    {kTagIso6B, kRecordIso18000, 128, kSegmentData, 1, true, kFirstAllowed},
    {kTagEpcClass0Plus, kRecordEpc, 1, kSegmentData, 1, true, kData},
    {kTagEpcClass1, kRecordEpc, 1, kSegmentData, 1, true, kData},
    {kTagEpcClass0, kRecordEpc, 1, kSegmentData, 0, false, kData},
    {kTagUcodeEpc119, kRecordUcode, 48, kSegmentData, 1, true, kFirstAllowed},
    {kTagGen2Class1, kRecordGen2, 128, kSegmentData, 1, true, kFirstAllowed},
    {kTagGen2Class2, kRecordGen2, 128, kSegmentData, 1, true, kFirstAllowed},
    {kTagGen2Class3, kRecordGen2, 128, kSegmentData, 1, true, kFirstAllowed},
};
constexpr uint16_t kOtherLastStartBlock = 1;
constexpr uint16_t kMyDStartBlock = 3;  // whatever the model says

constexpr uint16_t kSegmentOrder[] = {kSegmentData, kSegmentAll, kSegmentHeader, kSegmentEpc,
                                      kSegmentUser};

struct FormatRange {
  uint32_t First;
  uint32_t Last;
};
constexpr FormatRange kLegalFormats[] = {
    {kCustomEpcFormat, kCustomEpcFormat}, {257, 261}, {320, 320}, {513, 518}, {576, 576},
    {kNoEpcFormat, kNoEpcFormat}};

bool IsOldEpc(uint32_t bit) { return bit == kTagOldEpc1 || bit == kTagOldEpc2; }

// A tag of today for an old number, as far as the model has one.
uint32_t TagOfToday(uint32_t bit, uint32_t tags) {
  if (!IsOldEpc(bit)) return bit;
  if ((tags & kTagEpcClass1) != 0) return kTagEpcClass1;
  return (tags & kTagEpcClass0Plus) != 0 ? kTagEpcClass0Plus : bit;
}

bool IsAmong(uint32_t bit, uint32_t bits) {
  return bit != 0 && (bit & (bit - 1)) == 0 && (bit & bits) != 0;
}

RfidTagRecord RecordOrNone(uint32_t bit, const RfidCapabilities& capabilities) {
  const RfidTagRecord* record = RecordOfTag(bit, capabilities);
  return record ? *record : RfidTagRecord{};
}

uint16_t FirstAllowed(uint16_t allowed) {
  for (const uint16_t segment : kSegmentOrder) {
    if ((segment & allowed) != 0) return segment;
  }
  return kSegmentData;
}

uint16_t DefaultSegment(uint32_t bit, const RfidTagRecord& record) {
  if (record.DefaultSegment != 0) return record.DefaultSegment;
  const TagRule* rule = RuleOfTag(bit);
  switch (rule ? rule->Segment : kData) {
    case kFirstAllowed:
      return FirstAllowed(record.Segments);
    case kAll:
      return kSegmentAll;
    default:
      return kSegmentData;
  }
}

}  // namespace

const TagRule* RuleOfTag(uint32_t bit) {
  const auto* found = std::find_if(std::begin(kTags), std::end(kTags),
                                   [&](const TagRule& rule) { return rule.Bit == bit; });
  return found == std::end(kTags) ? nullptr : found;
}

const RfidTagRecord* RecordOfTag(uint32_t bit, const RfidCapabilities& capabilities) {
  const TagRule* rule = RuleOfTag(bit);
  return rule ? &capabilities.Records[rule->Record] : nullptr;
}

uint32_t TagsOf(const RfidCapabilities& capabilities) {
  uint32_t tags = 0;
  for (const RfidTagRecord& record : capabilities.Records) tags |= record.TagBits;
  return tags;
}

bool IsWritableTag(uint32_t bit, const RfidCapabilities& capabilities) {
  const uint32_t tags = TagsOf(capabilities);
  return IsAmong(TagOfToday(bit, tags), tags);
}

bool IsLegalEpcFormat(uint32_t format) {
  return std::any_of(
      std::begin(kLegalFormats), std::end(kLegalFormats),
      [&](const FormatRange& range) { return format >= range.First && format <= range.Last; });
}

void ResetTag(RfidBody* body, uint32_t bit, const RfidCapabilities& capabilities) {
  const TagRule* rule = RuleOfTag(bit);
  body->TagType = bit;
  body->EpcFormat = kNoEpcFormat;
  FillBytes(body->CustomFormat, 0, sizeof body->CustomFormat);
  body->StartBlock =
      bit == kTagIsoMyD ? kMyDStartBlock : RecordOrNone(bit, capabilities).DefaultStartBlock;
  body->Segment = rule ? rule->StartSegment : kSegmentData;
  body->DataFormat = rule ? rule->StartDataFormat : uint16_t{0};
  body->WriteProtect = 0;
}

void NormaliseTag(RfidBody* body, const RfidCapabilities& capabilities) {
  const uint32_t tags = TagsOf(capabilities);
  body->TagType = TagOfToday(body->TagType, tags);
  if (!IsAmong(body->TagType, tags)) ResetTag(body, capabilities.DefaultTagBit, capabilities);
  if (!IsLegalEpcFormat(body->EpcFormat)) ResetTag(body, body->TagType, capabilities);
  body->CustomFormat[sizeof body->CustomFormat - 1] = 0;

  const TagRule* rule = RuleOfTag(body->TagType);
  const RfidTagRecord record = RecordOrNone(body->TagType, capabilities);
  const uint16_t lastBlock = rule ? rule->LastStartBlock : kOtherLastStartBlock;
  body->StartBlock = (record.Flags & kTagStartBlock) != 0
                         ? std::min<uint16_t>(body->StartBlock, lastBlock)
                         : record.DefaultStartBlock;
  if (!IsAmong(body->Segment, record.Segments)) {
    body->Segment = DefaultSegment(body->TagType, record);
  }
}

}  // namespace ostvt
