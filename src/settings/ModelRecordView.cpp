#include "settings/ModelRecordView.h"

#include <algorithm>
#include <cstring>

#include "core/Memory.h"

namespace ostvt {
namespace {

template <typename Block>
DevModeHeader ReadHeaderOf(const void* block, uint32_t knownLength) {
  DevModeHeader header;
  constexpr uint32_t kFixedSize = offsetof(Block, dmDriverExtra) + sizeof(uint16_t);
  if (!block || knownLength < kFixedSize) return header;
  // Only the header's bytes are known to be there, so they are read one by one, never as a Block.
  const auto* bytes = static_cast<const uint8_t*>(block);
  memcpy(&header.SpecVersion, bytes + offsetof(Block, dmSpecVersion), sizeof(uint16_t));
  memcpy(&header.DriverVersion, bytes + offsetof(Block, dmDriverVersion), sizeof(uint16_t));
  memcpy(&header.Size, bytes + offsetof(Block, dmSize), sizeof(uint16_t));
  memcpy(&header.DriverExtra, bytes + offsetof(Block, dmDriverExtra), sizeof(uint16_t));
  header.FixedSize = kFixedSize;
  return header;
}

}  // namespace

DevModeHeader ReadHeader(const void* block, uint32_t knownLength) {
  return ReadHeaderOf<PublicDevMode>(block, knownLength);
}

DevModeHeader ReadNarrowHeader(const void* block, uint32_t knownLength) {
  return ReadHeaderOf<NarrowDevMode>(block, knownLength);
}

ModelRecordView FindRecord(void* block, uint32_t knownLength, const DevModeHeader& header) {
  ModelRecordView view;
  if (!block || header.SpecVersion == 0 || header.DriverVersion == 0 || header.Size == 0)
    return view;
  const uint32_t end = uint32_t{header.Size} + header.DriverExtra;
  if (header.Size < header.FixedSize || end > knownLength) return view;
  if (header.DriverExtra < sizeof(DevModeTrailer)) return view;
  auto* bytes = static_cast<uint8_t*>(block);
  auto* trailer = reinterpret_cast<DevModeTrailer*>(bytes + end - sizeof(DevModeTrailer));
  if (memcmp(trailer->TrailerSignature, kTrailerSignature, 3) != 0) return view;
  const uint32_t stated = trailer->TrailerSize;
  if (stated > header.DriverExtra || stated < sizeof(DevModeTrailer)) return view;
  const uint32_t size = stated < kOldTrailerBase ? stated + kOldTrailerBase : stated;
  constexpr uint32_t kLeast = offsetof(ModelRecord, RecordVersion) + sizeof(uint16_t);
  if (size > header.DriverExtra || size - sizeof(DevModeTrailer) < kLeast) return view;
  view.Record = reinterpret_cast<ModelRecord*>(bytes + end - size);
  view.Trailer = trailer;
  view.Room = size - uint32_t{sizeof(DevModeTrailer)};
  return view;
}

uint32_t CommonRecordSize(const ModelRecordView& a, const ModelRecordView& b) {
  return std::min({uint32_t{a.Record->RecordSize}, uint32_t{b.Record->RecordSize},
                   uint32_t{kRecordSize}, a.Room, b.Room});
}

bool SameRecordKind(const ModelRecordView& a, const ModelRecordView& b) {
  return a.Record && b.Record && memcmp(a.Trailer->TrailerModel, b.Trailer->TrailerModel, 3) == 0 &&
         a.Record->RecordVersion == b.Record->RecordVersion && a.Room == b.Room &&
         CommonRecordSize(a, b) == b.Room;
}

void CopyRecord(const ModelRecordView& source, const ModelRecordView& target) {
  if (!source.Record || !target.Record) return;
  if (memcmp(source.Trailer->TrailerModel, target.Trailer->TrailerModel, 3) != 0) return;
  if (source.Record->RecordVersion != target.Record->RecordVersion) return;
  const uint32_t size = CommonRecordSize(source, target);
  const uint16_t recordSize = target.Record->RecordSize;
  MoveBytes(target.Record, source.Record, size);
  target.Record->RecordSize = recordSize;
}

}  // namespace ostvt
