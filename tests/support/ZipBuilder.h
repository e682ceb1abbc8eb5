// Builds zip bytes record by record, sound ones and ones that lie, without any code under test.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace ostvt::test {

inline std::string RawDeflate(const std::string& plain) {
  z_stream stream = {};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, static_cast<uLong>(plain.size())) + 16, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.data()));
  stream.avail_in = static_cast<uInt>(plain.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// What is not set is told as it is.
struct ZipEntry {
  std::string Name;
  std::string Data;                      // plain
  uint16_t Time = 0x6000;                // 12:00:00
  uint16_t Date = 0x5921;                // 2024-09-01
  bool Stored = false;                   // not packed
  std::optional<std::string> Packed;     // these bytes instead of the packed data
  std::optional<std::string> LocalName;  // in the local header, instead of the name
  std::optional<uint32_t> PackedSize;    // stated in both headers
  std::optional<uint32_t> PlainSize;
  std::optional<uint16_t> NameLength;  // stated in the central record
  std::optional<uint16_t> LocalNameLength;
  std::optional<uint32_t> LocalOffset;
  std::optional<uint32_t> LocalSignature;
  std::optional<uint32_t> CentralSignature;
  std::string LocalExtra;
  std::string CentralExtra;
  std::string EntryComment;
};

class ZipBuilder {
 public:
  ZipBuilder& Add(ZipEntry entry) {
    Entries.push_back(std::move(entry));
    return *this;
  }
  ZipBuilder& Add(const std::string& name, const std::string& data) {
    ZipEntry entry;
    entry.Name = name;
    entry.Data = data;
    return Add(std::move(entry));
  }

  std::string Build() const {
    std::string bytes;
    std::vector<uint32_t> offsets;
    for (const ZipEntry& entry : Entries) {
      offsets.push_back(static_cast<uint32_t>(bytes.size()));
      PutLocal(&bytes, entry);
    }
    const uint32_t directory = static_cast<uint32_t>(bytes.size());
    for (size_t i = 0; i < Entries.size(); ++i) PutCentral(&bytes, Entries[i], offsets[i]);
    const uint32_t directorySize = static_cast<uint32_t>(bytes.size()) - directory;
    const uint16_t count = EntryCount.value_or(static_cast<uint16_t>(Entries.size()));
    PutDword(&bytes, 0x06054B50);
    PutDword(&bytes, 0);  // disks
    PutWord(&bytes, count);
    PutWord(&bytes, count);
    PutDword(&bytes, directorySize);
    PutDword(&bytes, DirectoryOffset.value_or(directory));
    PutWord(&bytes, static_cast<uint16_t>(ArchiveComment.size()));
    return bytes + ArchiveComment;
  }

  bool WriteTo(const std::string& path) const { return WriteBytes(path, Build()); }

  static bool WriteBytes(const std::string& path, const std::string& bytes) {
    FILE* file = fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool whole = fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return fclose(file) == 0 && whole;
  }

  std::string ArchiveComment;
  std::optional<uint16_t> EntryCount;
  std::optional<uint32_t> DirectoryOffset;

 private:
  static void PutWord(std::string* bytes, uint32_t value) {
    bytes->push_back(static_cast<char>(value));
    bytes->push_back(static_cast<char>(value >> 8));
  }
  static void PutDword(std::string* bytes, uint32_t value) {
    PutWord(bytes, value & 0xFFFF);
    PutWord(bytes, value >> 16);
  }

  static std::string PackedOf(const ZipEntry& entry) {
    if (entry.Packed) return *entry.Packed;
    return entry.Stored ? entry.Data : RawDeflate(entry.Data);
  }

  // From "version needed" to the sizes: the same in both headers.
  static void PutCommon(std::string* bytes, const ZipEntry& entry) {
    PutWord(bytes, 20);
    PutWord(bytes, 0);  // flags
    PutWord(bytes, entry.Stored ? 0 : 8);
    PutWord(bytes, entry.Time);
    PutWord(bytes, entry.Date);
    PutDword(bytes,
             static_cast<uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(entry.Data.data()),
                                         static_cast<uInt>(entry.Data.size()))));
    PutDword(bytes, entry.PackedSize.value_or(static_cast<uint32_t>(PackedOf(entry).size())));
    PutDword(bytes, entry.PlainSize.value_or(static_cast<uint32_t>(entry.Data.size())));
  }

  static void PutLocal(std::string* bytes, const ZipEntry& entry) {
    const std::string name = entry.LocalName.value_or(entry.Name);
    PutDword(bytes, entry.LocalSignature.value_or(0x04034B50));
    PutCommon(bytes, entry);
    PutWord(bytes, entry.LocalNameLength.value_or(static_cast<uint16_t>(name.size())));
    PutWord(bytes, static_cast<uint32_t>(entry.LocalExtra.size()));
    *bytes += name + entry.LocalExtra + PackedOf(entry);
  }

  static void PutCentral(std::string* bytes, const ZipEntry& entry, uint32_t offset) {
    PutDword(bytes, entry.CentralSignature.value_or(0x02014B50));
    PutWord(bytes, 20);  // version made by
    PutCommon(bytes, entry);
    PutWord(bytes, entry.NameLength.value_or(static_cast<uint16_t>(entry.Name.size())));
    PutWord(bytes, static_cast<uint32_t>(entry.CentralExtra.size()));
    PutWord(bytes, static_cast<uint32_t>(entry.EntryComment.size()));
    PutDword(bytes, 0);  // disk, internal attributes
    PutDword(bytes, 0);  // external attributes
    PutDword(bytes, entry.LocalOffset.value_or(offset));
    *bytes += entry.Name + entry.CentralExtra + entry.EntryComment;
  }

  std::vector<ZipEntry> Entries;
};

}  // namespace ostvt::test
