// Stock on its way between machines: text records, and the older binary files.
#include <cstring>
#include <memory>

#include "core/Base64.h"
#include "core/Buffer.h"
#include "core/LZ77.h"
#include "core/OFile.h"
#include "model/PrinterModel.h"
#include "settings/ModelAttributes.h"
#include "settings/StockList.h"

namespace ostvt {
namespace {

constexpr char kOpening[] = "<stock";
constexpr char kClosing[] = "</stock>";
constexpr char kName[] = "Name";
constexpr char kProtected[] = "Protected";
constexpr char kData[] = "Data";
constexpr char kWhiteSpace[] = " \t\r\n";

constexpr char kBinarySignature[] = {'S', 'F', 'M', '1'};
constexpr uint32_t kBinaryNameOffset = sizeof(StockData);
constexpr uint32_t kMinimumRecord = kBinaryNameOffset + 1;
constexpr uint32_t kMaximumRecord = 65536;

// What the frame of so few bytes can take at most; see LZ77::Encode.
constexpr uint32_t kPackedRoom = sizeof(StockData) + 1 + 24;

OString PackData(const StockData& data) {
  uint8_t frame[LZ77::kFrameSize + kPackedRoom];
  uint32_t size = kPackedRoom;
  if (!LZ77::Encode(&data, sizeof(data), frame, &size)) return OString();
  char text[(sizeof(frame) + 2) / 3 * 4];
  uint32_t length = 0;
  Base64::Encode(frame, size, text, &length);
  OString packed;
  packed.AssignCount(text, static_cast<int>(length));
  return packed;
}

// False leaves `data` as it was.
bool UnpackData(const OString& text, StockData* data) {
  const char* narrow = text.GetNarrow();
  const uint32_t length = static_cast<uint32_t>(strlen(narrow));
  Buffer frame;
  frame.Resize((length + 3) / 4 * 3);
  uint32_t size = 0;
  Base64::Decode(narrow, length, frame.Data, &size);
  StockData unpacked;
  uint32_t unpackedSize = sizeof(unpacked);
  if (!LZ77::Decode(frame.Data, size, &unpacked, &unpackedSize)) return false;
  if (unpackedSize != sizeof(unpacked)) return false;
  *data = unpacked;
  return true;
}

// Reads the records of a text.
class StockTextReader {
 public:
  explicit StockTextReader(PrinterModel* model) {
    if (!model) return;
    ModelName = model->GetDriverName();
    ModelId = model->GetFamilyCode();
  }
  // The stock that this line, trimmed, ends; null if it ends none.
  std::unique_ptr<StockItem> TakeLine(const OString& line) {
    if (line.Left(sizeof(kOpening) - 1) == kOpening) {
      Item.reset(MatchesModelAttributes(line, ModelName, ModelId) ? new StockItem : nullptr);
    } else if (Item && line == kClosing) {
      std::unique_ptr<StockItem> item = std::move(Item);
      if (!item->Name.IsEmpty()) return item;
    } else if (Item) {
      const int equals = line.Find('=');
      if (equals > 0) TakeValue(line.Left(equals), line.Mid(equals + 1));
    }
    return nullptr;
  }

 private:
  void TakeValue(const OString& key, const OString& value) {
    if (key == kName) {
      Item->Name = value;
    } else if (key == kProtected) {
      Protected = value == "true";
    } else if (key == kData && UnpackData(value, &Item->Data())) {
      Item->Flags = Protected ? Item->Flags & ~kStockRemovable : Item->Flags | kStockRemovable;
    }
  }

  OString ModelName;
  OString ModelId;
  std::unique_ptr<StockItem> Item;  // while in a record that is meant for this printer
  // Told before the data that it counts for; holds for the records behind as well.
  bool Protected = false;
};

}  // namespace

int32_t StockList::ExportText(OStream& stream) const {
  int32_t count = 0;
  for (const StockItem* item = GetFirst(); item; item = item->GetNext()) {
    if (item->IsUserForm()) continue;
    stream.WriteText("<stock>");
    stream.WriteNewLine();
    stream.WriteText("Name=");
    stream.WriteString(item->Name);
    stream.WriteNewLine();
    stream.WriteText("Data=");
    stream.WriteString(PackData(*item));
    stream.WriteNewLine();
    stream.WriteText(kClosing);
    stream.WriteNewLine();
    stream.WriteNewLine();
    ++count;
  }
  return count;
}

int32_t StockList::ImportText(OFile& stream, PrinterModel* model) {
  stream.Seek(0, platform::FileOrigin::kBegin);
  StockTextReader reader(model);
  int32_t count = 0;
  for (OString line; stream.ReadLine(line);) {
    line.TrimLeft(kWhiteSpace);
    line.TrimRight(kWhiteSpace);
    if (std::unique_ptr<StockItem> item = reader.TakeLine(line)) {
      AddImported(item.release());
      ++count;
    }
  }
  Normalize();
  return count;
}

int32_t StockList::ImportBinary(OFile& stream) {
  char signature[sizeof(kBinarySignature)];
  uint32_t size = 0;
  if (stream.Read(signature, sizeof(signature)) != sizeof(signature) ||
      memcmp(signature, kBinarySignature, sizeof(signature)) != 0 ||
      stream.Read(&size, sizeof(size)) != sizeof(size) || size < kMinimumRecord ||
      size > kMaximumRecord) {
    return 0;
  }
  Buffer record;
  record.Resize(size);
  int32_t count = 0;
  while (stream.Read(record.Data, size) == size) {
    auto* item = new StockItem;
    CopyBytes(&item->Data(), record.Data, sizeof(StockData));
    item->Name.AssignCount(reinterpret_cast<const char*>(record.Data + kBinaryNameOffset),
                           static_cast<int>(size - kBinaryNameOffset));
    item->Flags = (item->Flags & ~kStockOfModel) | kStockRemovable;
    AddImported(item);
    ++count;
  }
  Normalize();
  return count;
}

}  // namespace ostvt
