// What the kinds of radio tags differ in, and what a model can write of them.
//
// Tags are bits of model/RfidTags.h, one at a time; any other number is no tag of the model.
#pragma once

#include <cstdint>

#include "fonts/DataFontRecord.h"
#include "model/ModelInfoRecords.h"

namespace ostvt {

// What a tag's segment becomes where the model has no default for it.
enum class LastSegment { kData, kAll, kFirstAllowed };

struct TagRule {
  uint32_t Bit;
  int32_t Record;  // in RfidCapabilities
  uint16_t LastStartBlock;
  uint16_t StartSegment;     // of a font that begins with this tag
  uint16_t StartDataFormat;  // likewise
  bool TakesEpcText;         // with a format, it has a custom text
  LastSegment Segment;
};

// Null for what is no tag.
const TagRule* RuleOfTag(uint32_t bit);
// The model's record of a tag; null for what is no tag.
const RfidTagRecord* RecordOfTag(uint32_t bit, const RfidCapabilities& capabilities);
// Every tag that the model writes.
uint32_t TagsOf(const RfidCapabilities& capabilities);
// The old numbers of EPC tags stand for what replaced them.
bool IsWritableTag(uint32_t bit, const RfidCapabilities& capabilities);

// Makes `bit` the body's tag and begins anew for it: no format, no custom text, the tag's first
// block, segment and data format, no protection. The body's size and reserved bytes stay. What is
// no tag, or several, gets block 0, the data segment and data format 0.
void ResetTag(RfidBody* body, uint32_t bit, const RfidCapabilities& capabilities);
// Brings a body from anywhere to what the model writes. An old EPC number becomes the tag that
// replaced it; a tag that isn't the model's becomes the model's default one, begun anew, which is 0
// on a model without tags; an unknown format begins the tag anew. Then block and segment are
// brought to what the tag has, and the custom text ends inside its field.
void NormaliseTag(RfidBody* body, const RfidCapabilities& capabilities);

// 0, none, or one that the printers know.
bool IsLegalEpcFormat(uint32_t format);

}  // namespace ostvt
