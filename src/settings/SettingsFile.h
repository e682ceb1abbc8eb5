// A settings file on its way out, and on its way in.
#pragma once

#include <string>

#include "core/Buffer.h"
#include "core/OFile.h"
#include "core/OString.h"

namespace ostvt {

// A file that takes its place, and that of an earlier one, as a whole.
class SettingsFileWriter : public OFile {
 public:
  // Not open where the path can't be written.
  explicit SettingsFileWriter(const OString& path);
  // Without Commit nothing comes of it, and what was there stays.
  ~SettingsFileWriter() override;
  uint32_t RawWrite(const void* data, uint32_t size) override;
  // Once, at the end. False if anything of the file could not be written.
  bool Commit();

 private:
  OString Place;
  std::u16string Replacement;  // what is written meanwhile; "" once it is gone
  bool Failed = false;
};

// What a settings file begins with.
enum class SettingsFileKind { kNone, kText, kStock, kDataFonts, kPresets };

// Which records a settings file has, as bits.
inline constexpr uint32_t kHasStock = 1;
inline constexpr uint32_t kHasPresets = 2;
inline constexpr uint32_t kHasFonts = 4;
inline constexpr uint32_t kHasOptions = 8;
inline constexpr uint32_t kHasNetwork = 16;

// A file that was read as a whole, so that it can be passed over again and again. Nothing is
// written to it.
class SettingsFileReader : public OFile {
 public:
  // No settings file is longer.
  static constexpr uint32_t kMostBytes = 64 << 20;

  // Empty if the path can't be read, or holds more than kMostBytes.
  explicit SettingsFileReader(const OString& path);
  // By the first bytes; none with less than four.
  SettingsFileKind GetKind() const { return Kind; }
  // Of a text: whether a line begins such a record.
  bool Has(uint32_t records) const { return (Records & records) != 0; }

  uint32_t Seek(int64_t offset, platform::FileOrigin origin) override;
  uint32_t GetSize() override { return Bytes.Size; }
  uint32_t Read(void* buffer, uint32_t size) override;

 private:
  void Load(const OString& path);
  // Without the mark of UTF-8 in front, which would hide the first line's start, and without NULs,
  // which lines have none of.
  void CleanText();
  void FindRecords();

  ostvt::Buffer Bytes;
  uint32_t Position = 0;
  SettingsFileKind Kind = SettingsFileKind::kNone;
  uint32_t Records = 0;
};

}  // namespace ostvt
