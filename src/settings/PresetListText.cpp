// Presets on their way between machines: text records, and binary files.
#include <algorithm>
#include <cstring>
#include <memory>

#include "core/Buffer.h"
#include "core/OFile.h"
#include "core/PathName.h"
#include "model/TextRecords.h"
#include "settings/DevModeBlob.h"
#include "settings/PresetList.h"
#include "settings/PresetText.h"
#include "settings/StockPapers.h"
#include "store/NumberedEntries.h"

namespace ostvt {
namespace {

constexpr char kName[] = "Name";
constexpr char kDescription[] = "Description";

// A block is a blob as DevModeBlob has it; no text can be kept that is larger.
constexpr uint32_t kMostBytes = kLargestDevMode;

// The rest of a binary file, which says itself how long its pieces are.
class BinaryReader {
 public:
  explicit BinaryReader(OFile& stream) : Stream(stream) {
    const uint32_t position = Stream.Seek(0, platform::FileOrigin::kCurrent);
    const uint32_t end = Stream.GetSize();
    Left = end > position ? end - position : 0;
  }
  uint32_t GetLeft() const { return Left; }
  // An entry's head and block, as one blob.
  bool ReadBlob(Buffer* blob) {
    uint8_t head[kDevModeBlobHead];
    if (!Read(head, kDevModeBlobHead)) return false;
    uint32_t length;
    memcpy(&length, head + 4, sizeof(length));
    if (memcmp(head, kDevModeBlobSignature, kDevModeBlobMark) != 0) return false;
    blob->Resize(kDevModeBlobHead);
    memcpy(blob->Data, head, kDevModeBlobHead);
    return Append(blob, length);
  }
  bool ReadText(OString* text) {
    uint32_t length;
    Buffer bytes;
    if (!Read(&length, sizeof(length)) || !Append(&bytes, length)) return false;
    text->AssignCount(reinterpret_cast<const char*>(bytes.Data), static_cast<int>(bytes.Size));
    return true;
  }

 private:
  // False, with nothing read, if so much isn't left.
  bool Read(void* bytes, uint32_t size) {
    if (size > Left || (size != 0 && Stream.Read(bytes, size) != size)) return false;
    Left -= size;
    return true;
  }
  // The next `length` bytes; of more than kMostBytes the rest is passed over.
  bool Append(Buffer* bytes, uint32_t length) {
    if (length > Left) return false;
    const uint32_t kept = std::min(length, kMostBytes);
    const uint32_t start = bytes->Size;
    bytes->Resize(start + kept);
    if (!Read(bytes->Data + start, kept)) return false;
    if (kept != length) Stream.Seek(length - kept, platform::FileOrigin::kCurrent);
    Left -= length - kept;
    return true;
  }

  OFile& Stream;
  uint32_t Left;
};

// "Shelf" of "C:\Files\Shelf.sdm".
OString NameOfFile(const OFile& stream) {
  const OString name = NameOfPath(stream.GetPath());
  const int dot = name.Find('.');
  return dot < 0 ? name : name.Left(dot);
}

}  // namespace

int32_t PresetList::ExportText(OStream& stream) const {
  int32_t count = 0;
  for (const PresetItem* item = GetFirst(); item; item = item->GetNext()) {
    if (item->IsBuiltIn() || item->Block.IsEmpty()) continue;
    WriteRecordLine(stream, "<preset>");
    WriteRecordValue(stream, kName, item->Name);
    WriteRecordValue(stream, kDescription, item->Description);
    WritePresetEnd(stream, item->Block);
    ++count;
  }
  return count;
}

int32_t PresetList::ImportText(OFile& stream, PrinterModel* model, PaperResolver* papers) {
  using Line = TextRecordReader::Line;
  if (!model) return 0;
  TextRecordReader reader(stream, kPresetRecord, model);
  StockPapers stored(model);
  if (!papers) papers = &stored;
  std::unique_ptr<PresetItem> item;
  int32_t count = 0;
  const int32_t room = GetRoom();
  for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
    if (line == Line::kOpening) {
      item.reset(new PresetItem);
      if (IsDefaultDevModeRecord(reader.Text)) reader.Skip();
    } else if (line == Line::kClosing) {
      if (item->Block.IsEmpty() || count >= room) continue;
      // The block came with the name that it had where it was written.
      item->SetName(item->Name);
      AddTail(item.release());
      ++count;
    } else if (reader.Key == kName) {
      item->SetName(reader.Value);
    } else if (reader.Key == kDescription) {
      item->SetDescription(reader.Value);
    } else if (reader.Key == kPresetData) {
      ReadPresetData(reader.Value, model, papers, item.get());
    }
  }
  Sort();
  return count;
}

int32_t PresetList::ImportBinary(OFile& stream, PrinterModel* model, PaperResolver* papers) {
  if (!model) return 0;
  BinaryReader reader(stream);
  StockPapers stored(model);
  if (!papers) papers = &stored;
  int32_t count = 0;
  const int32_t room = GetRoom();
  for (Buffer blob; count < room && reader.ReadBlob(&blob);) {
    const bool isWholeFile = count == 0 && reader.GetLeft() == 0;
    OString name;
    OString description;
    if (isWholeFile) name = NameOfFile(stream);
    // Whoever is without a text is the last: what claims more than the file has ends it.
    const bool isLast = !reader.ReadText(&name) || !reader.ReadText(&description);
    auto* item = new PresetItem;
    item->SetFromBlob(blob.Data, blob.Size, model, papers);
    item->SetName(name);
    item->SetDescription(description);
    AddTail(item);
    ++count;
    if (isLast) break;
  }
  Sort();
  return count;
}

}  // namespace ostvt
