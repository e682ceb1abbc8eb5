// The private record at the end of a device mode block, found and copied without trusting the
// block.
#pragma once

#include <cstdint>

#include "settings/DevModeRecord.h"

namespace ostvt {

// The header fields that a search needs, from a wide or a narrow block.
struct DevModeHeader {
  uint16_t SpecVersion = 0;
  uint16_t DriverVersion = 0;
  uint16_t Size = 0;
  uint16_t DriverExtra = 0;
  uint32_t FixedSize = 0;  // bytes up to and including these fields
};

// Of a wide block; all zero when `knownLength` doesn't cover the header.
DevModeHeader ReadHeader(const void* block, uint32_t knownLength);
// Of a narrow block.
DevModeHeader ReadNarrowHeader(const void* block, uint32_t knownLength);

// A record as it lies in a block. A record of another version may end before the last fields of
// ModelRecord: only `Room` bytes of it, those before its trailer, may be touched.
struct ModelRecordView {
  ModelRecord* Record = nullptr;  // null: the block has none
  DevModeTrailer* Trailer = nullptr;
  uint32_t Room = 0;
};

// Null results when the header says nothing, when `knownLength` doesn't cover what it says, when
// the trailer isn't there, or when the record would not lie behind the public part or not reach its
// own version field.
ModelRecordView FindRecord(void* block, uint32_t knownLength, const DevModeHeader& header);

// The bytes that both records have in use, by their own sizes and by where they lie.
uint32_t CommonRecordSize(const ModelRecordView& a, const ModelRecordView& b);

// Whether `a` may stand in the place of `b`: one model, one version, and all that `b` has.
bool SameRecordKind(const ModelRecordView& a, const ModelRecordView& b);

// Copies CommonRecordSize() bytes if both records are of one model and version, else nothing. The
// target's sizes and version stay.
void CopyRecord(const ModelRecordView& source, const ModelRecordView& target);

}  // namespace ostvt
