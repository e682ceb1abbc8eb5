#include "settings/SettingsFile.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace ostvt {
namespace {

constexpr uint32_t kLeastBytes = 4;
constexpr char kStockSignature[] = "SFM1";
constexpr char kDataFontSignature[] = "SBF1";
constexpr char kPresetSignature[] = "DM";
constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";

struct Opening {
  std::string_view Text;
  uint32_t Record;
};
constexpr Opening kOpenings[] = {{"<stock", kHasStock},
                                 {"<preset", kHasPresets},
                                 {"<font", kHasFonts},
                                 {"<options", kHasOptions},
                                 {"<network", kHasNetwork}};

bool BeginsWith(const Buffer& bytes, std::string_view head) {
  return bytes.Size >= head.size() && memcmp(bytes.Data, head.data(), head.size()) == 0;
}

SettingsFileKind KindOf(const Buffer& bytes) {
  if (bytes.Size < kLeastBytes) return SettingsFileKind::kNone;
  if (BeginsWith(bytes, kPresetSignature)) return SettingsFileKind::kPresets;
  if (BeginsWith(bytes, kDataFontSignature)) return SettingsFileKind::kDataFonts;
  if (BeginsWith(bytes, kStockSignature)) return SettingsFileKind::kStock;
  return SettingsFileKind::kText;
}

}  // namespace

SettingsFileWriter::SettingsFileWriter(const OString& path) : Place(path) {
  CodePage = kCodePageUtf8;
  Replacement = platform::MakeReplacement(path.GetWide());
  if (!Replacement.empty()) Open(Replacement.c_str(), kFileWrite | kFileCreate);
}

SettingsFileWriter::~SettingsFileWriter() {
  Close();
  if (!Replacement.empty()) platform::DeleteFile(Replacement.c_str());
}

uint32_t SettingsFileWriter::RawWrite(const void* data, uint32_t size) {
  const uint32_t written = OFile::RawWrite(data, size);
  if (written < size) Failed = true;
  return written;
}

bool SettingsFileWriter::Commit() {
  if (!IsOpen()) return false;
  Close();
  if (Failed || !platform::PutInPlace(Replacement.c_str(), Place.GetWide())) return false;
  Replacement.clear();
  return true;
}

SettingsFileReader::SettingsFileReader(const OString& path) {
  CodePage = kCodePageUtf8;
  Path = path;
  Load(path);
  Kind = KindOf(Bytes);
  if (Kind != SettingsFileKind::kText) return;
  CleanText();
  FindRecords();
}

void SettingsFileReader::Load(const OString& path) {
  OFile file(path, kFileShareAll);
  const uint32_t size = file.GetSize();
  if (size == 0 || size > kMostBytes) return;
  Bytes.Resize(size);
  // It may have become shorter.
  Bytes.Resize(file.Read(Bytes.Data, size));
}

void SettingsFileReader::CleanText() {
  const uint32_t mark = BeginsWith(Bytes, kUtf8Mark) ? sizeof(kUtf8Mark) - 1 : 0;
  uint8_t* const end = std::remove(Bytes.Data, Bytes.Data + Bytes.Size, uint8_t{0});
  const auto size = static_cast<uint32_t>(end - Bytes.Data);
  memmove(Bytes.Data, Bytes.Data + mark, size - mark);
  Bytes.Resize(size - mark);
}

void SettingsFileReader::FindRecords() {
  std::string_view text(reinterpret_cast<const char*>(Bytes.Data), Bytes.Size);
  while (!text.empty()) {
    // Empty lines go with the blanks in front of the next one.
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    for (const auto& [opening, bit] : kOpenings) {
      if (text.starts_with(opening)) Records |= bit;
    }
    text.remove_prefix(std::min(text.find('\n'), text.size()));
  }
}

uint32_t SettingsFileReader::Seek(int64_t offset, platform::FileOrigin origin) {
  if (origin == platform::FileOrigin::kCurrent) offset += Position;
  if (origin == platform::FileOrigin::kEnd) offset += Bytes.Size;
  if (offset < 0) return 0;
  Position = static_cast<uint32_t>(std::min<int64_t>(offset, Bytes.Size));
  return Position;
}

uint32_t SettingsFileReader::Read(void* buffer, uint32_t size) {
  const uint32_t part = std::min(size, Bytes.Size - Position);
  CopyBytes(buffer, Bytes.Data + Position, part);
  Position += part;
  return part;
}

}  // namespace ostvt
