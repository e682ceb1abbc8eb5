// Stored forms of data fonts, byte by byte.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "core/Buffer.h"
#include "fonts/DataFontTable.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {

inline std::vector<uint8_t> HeaderBytes(uint32_t kind, size_t size, uint32_t resolution = 300) {
  std::vector<uint8_t> blob(size);
  PutNumber(&blob, 0, 2, 400);
  blob[11] = 0x30;
  PutNumber(&blob, 44, 4, kind);
  PutNumber(&blob, 48, 4, resolution);
  return blob;
}

inline std::vector<uint8_t> LinearBlob(uint32_t height, uint32_t narrowBar,
                                       uint32_t resolution = 300, uint32_t symbology = 0) {
  std::vector<uint8_t> blob = HeaderBytes(1, 168, resolution);
  PutNumber(&blob, 72, 2, 96);
  PutNumber(&blob, 100, 4, height);
  PutNumber(&blob, 104, 2, symbology);
  PutNumber(&blob, 106, 2, narrowBar);
  for (const size_t offset : {122, 124, 144, 146}) PutNumber(&blob, offset, 2, 1);
  return blob;
}

inline std::vector<uint8_t> MatrixBlob(uint32_t symbology, uint32_t narrowBar,
                                       uint32_t resolution = 300) {
  std::vector<uint8_t> blob = HeaderBytes(2, 168, resolution);
  PutNumber(&blob, 72, 2, 72);
  PutNumber(&blob, 78, 2, symbology);
  PutNumber(&blob, 98, 2, narrowBar);
  PutNumber(&blob, 104, 2, 1);
  return blob;
}

inline std::vector<uint8_t> RfidBlob(uint32_t tagType) {
  std::vector<uint8_t> blob = HeaderBytes(3, 228);
  PutNumber(&blob, 52, 4, 2);
  PutNumber(&blob, 72, 2, 156);
  PutNumber(&blob, 84, 4, tagType);
  return blob;
}

inline std::vector<uint8_t> BlobOf(const DataFont& font) {
  Buffer blob;
  font.GetBlob(&blob);
  return {blob.Data, blob.Data + blob.Size};
}

inline std::string NamesOf(const DataFontTable& table) {
  std::string names;
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    names += (i == 0 ? "" : ",") + std::string(table.GetAt(i)->GetName().GetNarrow());
  }
  return names;
}

// An allocation of exactly these bytes, so that every access outside is seen.
inline std::unique_ptr<uint8_t[]> Exact(const std::vector<uint8_t>& bytes) {
  auto block = std::make_unique<uint8_t[]>(bytes.size());
  if (!bytes.empty()) memcpy(block.get(), bytes.data(), bytes.size());
  return block;
}

}  // namespace ostvt::test
