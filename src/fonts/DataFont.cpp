#include "fonts/DataFont.h"

#include <algorithm>
#include <cstring>

#include "core/WhiteSpace.h"
#include "fonts/BarCodeFont.h"
#include "fonts/RFIDFont.h"

namespace ostvt {
namespace {

// 0 if the blob is too short to say.
uint32_t KindOfBlob(const void* blob, uint32_t size) {
  uint32_t kind = 0;
  if (size < kLeastDataFontBlob) return 0;
  CopyBytes(&kind, static_cast<const uint8_t*>(blob) + offsetof(DataFontHeader, Kind),
            sizeof(kind));
  return kind;
}

uint16_t BodySizeOf(uint32_t kind) {
  switch (kind) {
    case kDataFontLinear:
      return kLinearBodySize;
    case kDataFontMatrix:
      return kMatrixBodySize;
    case kDataFontRfid:
      return kRfidBodySize;
    default:
      return 0;
  }
}

}  // namespace

DataFont::~DataFont() = default;

void DataFont::CopyFrom(const DataFont& other) {
  Header = other.Header;
  Name = other.Name;
  CopyBytes(Body, other.Body, BodyRoom);
}

OString DataFont::CleanName(OString name) {
  name.Remove('"');
  name.Trim(kWhiteSpace);
  return name;
}

void DataFont::GetBlob(Buffer* blob) const {
  blob->Resize(GetBlobSize());
  FillBytes(blob->Data, 0, blob->Size);
  DataFontHeader header = Header;
  FillBytes(header.Name, 0, sizeof(header.Name));
  const char* name = Name.GetNarrow();
  CopyBytes(header.Name, name, std::min<size_t>(strlen(name), sizeof(header.Name)));
  CopyBytes(blob->Data, &header, sizeof(header));
  CopyBytes(blob->Data + sizeof(header), Body, BodyRoom);
}

bool DataFont::SetBlob(const void* blob, uint32_t size) {
  const uint32_t kind = KindOfBlob(blob, size);
  const uint16_t bodySize = BodySizeOf(kind);
  if (bodySize == 0 || (kind == kDataFontRfid) != IsRfid()) return false;
  const auto* bytes = static_cast<const uint8_t*>(blob);
  CopyBytes(&Header, bytes, sizeof(Header));

  const uint8_t* body = bytes + sizeof(Header);
  uint16_t stated = 0;
  CopyBytes(&stated, body, sizeof(stated));
  // What a matrix code's body leaves of the room is zero, but it may say that it fills it.
  if (kind == kDataFontMatrix) FillBytes(Body, 0, BodyRoom);
  const uint32_t there = std::min(size - kDataFontHeaderSize, BodyRoom);
  const uint32_t taken = std::min<uint32_t>(stated, there);
  CopyBytes(Body, body, taken);
  const auto settled = static_cast<uint16_t>(std::max<uint32_t>(taken, bodySize));
  CopyBytes(Body, &settled, sizeof(settled));
  Settle();
  return true;
}

std::unique_ptr<DataFont> NewDataFontFor(const void* blob, uint32_t size) {
  switch (KindOfBlob(blob, size)) {
    case kDataFontLinear:
    case kDataFontMatrix:
      return std::make_unique<BarCodeFont>();
    case kDataFontRfid:
      return std::make_unique<RFIDFont>();
    default:
      return nullptr;
  }
}

}  // namespace ostvt
