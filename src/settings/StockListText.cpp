// Stock on its way between machines: text records, and the older binary files.
#include <memory>

#include "core/Buffer.h"
#include "core/OFile.h"
#include "core/PackedText.h"
#include "core/RecordFile.h"
#include "model/TextRecords.h"
#include "settings/StockList.h"
#include "settings/StockNames.h"

namespace ostvt {
namespace {

constexpr char kName[] = "Name";
constexpr char kProtected[] = "Protected";
constexpr char kData[] = "Data";

constexpr char kBinarySignature[] = "SFM1";
constexpr uint32_t kBinaryNameOffset = sizeof(StockData);
constexpr uint32_t kMinimumRecord = kBinaryNameOffset + 1;

// False leaves `data` as it was.
bool UnpackData(const OString& text, StockData* data) {
  StockData unpacked;
  uint32_t size = sizeof(unpacked);
  if (!UnpackText(text, &unpacked, &size) || size != sizeof(unpacked)) return false;
  *data = unpacked;
  return true;
}

}  // namespace

int32_t StockList::ExportText(OStream& stream) const {
  int32_t count = 0;
  for (const StockItem* item = GetFirst(); item; item = item->GetNext()) {
    // Without a name nobody would take it.
    if (item->IsUserForm() || item->Name.IsEmpty()) continue;
    WriteRecordLine(stream, "<stock>");
    WriteRecordValue(stream, kName, item->Name);
    WriteRecordValue(stream, kData, PackText(&item->Data(), sizeof(StockData)));
    WriteRecordLine(stream, "</stock>");
    WriteRecordLine(stream, "");
    ++count;
  }
  return count;
}

int32_t StockList::ImportText(OFile& stream, PrinterModel* model) {
  using Line = TextRecordReader::Line;
  TextRecordReader reader(stream, "stock", model);
  std::unique_ptr<StockItem> item;
  // Told before the data that it counts for; holds for the records behind as well.
  bool isProtected = false;
  int32_t count = 0;
  StockNames names(*this);
  for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
    if (line == Line::kOpening) {
      item.reset(new StockItem);
    } else if (line == Line::kClosing) {
      if (item->Name.IsEmpty()) continue;
      if (AddImported(item.release(), &names)) ++count;
    } else if (reader.Key == kName) {
      item->Name = reader.Value;
    } else if (reader.Key == kProtected) {
      isProtected = reader.Value == "true";
    } else if (reader.Key == kData && UnpackData(reader.Value, &item->Data())) {
      item->Flags = isProtected ? item->Flags & ~kStockRemovable : item->Flags | kStockRemovable;
    }
  }
  Normalize();
  return count;
}

int32_t StockList::ImportBinary(OFile& stream) {
  RecordFile file(stream, kBinarySignature, kMinimumRecord);
  if (!file.IsValid()) return 0;
  int32_t count = 0;
  StockNames names(*this);
  while (file.Next()) {
    auto item = std::make_unique<StockItem>();
    CopyBytes(&item->Data(), file.Record.Data, sizeof(StockData));
    item->Name.AssignCount(reinterpret_cast<const char*>(file.Record.Data + kBinaryNameOffset),
                           static_cast<int>(file.Record.Size - kBinaryNameOffset));
    if (item->Name.IsEmpty()) continue;
    item->Flags = (item->Flags & ~kStockOfModel) | kStockRemovable;
    if (AddImported(item.release(), &names)) ++count;
  }
  Normalize();
  return count;
}

}  // namespace ostvt
