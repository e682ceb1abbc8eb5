#include "tools/ddzpack/ZipWriter.h"

#include <cstdio>
#include <utility>

#include "core/Crc.h"
#include "core/LZ77.h"

namespace ddzpack {
namespace {

constexpr uint32_t kLocalSignature = 0x04034B50;
constexpr uint32_t kCentralSignature = 0x02014B50;
constexpr uint32_t kEndSignature = 0x06054B50;
constexpr uint16_t kVersionNeeded = 20;  // deflate
constexpr uint16_t kMethodDeflate = 8;
constexpr size_t kMaximumSize = 0x7FFFFFFF;

void Put16(std::string* out, uint32_t value) {
  out->push_back(static_cast<char>(value & 0xFF));
  out->push_back(static_cast<char>(value >> 8 & 0xFF));
}

void Put32(std::string* out, uint32_t value) {
  Put16(out, value);
  Put16(out, value >> 16);
}

}  // namespace

bool ParseDosTime(const std::string& text, DosTime* time) {
  unsigned year, month, day, hour, minute, second;
  int used = 0;
  if (std::sscanf(text.c_str(), "%4u-%2u-%2u %2u:%2u:%2u%n", &year, &month, &day, &hour, &minute,
                  &second, &used) != 6 ||
      static_cast<size_t>(used) != text.size()) {
    return false;
  }
  if (year < 1980 || year > 2107 || month < 1 || month > 12 || day < 1 || day > 31 || hour > 23 ||
      minute > 59 || second > 59) {
    return false;
  }
  time->Date = static_cast<uint16_t>((year - 1980) << 9 | month << 5 | day);
  time->Time = static_cast<uint16_t>(hour << 11 | minute << 5 | second / 2);
  return true;
}

bool ZipWriter::Add(const std::string& name, const std::string& data) {
  if (data.size() > kMaximumSize / 2 || name.size() > 0xFFFF || Count == 0xFFFF) return false;
  const uint32_t size = static_cast<uint32_t>(data.size());
  // Enough for data that deflate can't shrink.
  std::string packed(data.size() + data.size() / 1000 + 64, '\0');
  uint32_t packedSize = static_cast<uint32_t>(packed.size());
  if (!ostvt::LZ77::RawEncode(data.data(), size, packed.data(), &packedSize)) return false;
  packed.resize(packedSize);
  if (File.size() + Directory.size() + packed.size() + 2 * name.size() > kMaximumSize) return false;

  // What the two headers have in common.
  std::string common;
  Put16(&common, kVersionNeeded);
  Put16(&common, 0);  // flags
  Put16(&common, kMethodDeflate);
  Put16(&common, Time.Time);
  Put16(&common, Time.Date);
  Put32(&common, ostvt::CRC32(data.data(), size, 0));
  Put32(&common, packedSize);
  Put32(&common, size);
  Put16(&common, static_cast<uint32_t>(name.size()));
  Put16(&common, 0);  // extra field

  Put32(&Directory, kCentralSignature);
  Put16(&Directory, kVersionNeeded);  // made by
  Directory += common;
  Put16(&Directory, 0);  // comment
  Put16(&Directory, 0);  // disk
  Put16(&Directory, 0);  // internal attributes
  Put32(&Directory, 0);  // external attributes
  Put32(&Directory, static_cast<uint32_t>(File.size()));
  Directory += name;

  Put32(&File, kLocalSignature);
  File += common;
  File += name;
  File += packed;
  ++Count;
  return true;
}

std::string ZipWriter::Finish() {
  const uint32_t start = static_cast<uint32_t>(File.size());
  File += Directory;
  Put32(&File, kEndSignature);
  Put16(&File, 0);  // this disk
  Put16(&File, 0);  // disk of the directory
  Put16(&File, Count);
  Put16(&File, Count);
  Put32(&File, static_cast<uint32_t>(Directory.size()));
  Put32(&File, start);
  Put16(&File, 0);  // comment
  return std::move(File);
}

}  // namespace ddzpack
