// Data fonts on their way between machines: text records, and the older binary files of bar codes.
#include <utility>

#include "core/OFile.h"
#include "core/PackedText.h"
#include "core/RecordFile.h"
#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/FontText.h"
#include "fonts/NameIndex.h"
#include "fonts/RFIDFont.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr char kBarCodeKind[] = "Bar Code";
constexpr char kRfidKind[] = "RFID";
constexpr char kName[] = "Name";
constexpr char kData[] = "Data";

constexpr char kBinarySignature[] = "SBF1";

int32_t WriteFonts(OStream& stream, const DataFontTable& table, const char* kind, bool rfid) {
  FontTextWriter writer(stream);
  Buffer blob;
  int32_t count = 0;
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const DataFont& font = *table.GetAt(i);
    if (font.IsRfid() != rfid) continue;
    font.GetBlob(&blob);
    writer.Open(kind);
    writer.Write(kName, font.GetName());
    writer.Write(kData, PackText(blob.Data, blob.Size));
    writer.Close();
    ++count;
  }
  return count;
}

// What all that comes from outside passes through.
class Intake {
 public:
  Intake(DataFontTable* table, PrinterModel* model) : Table(table), Model(model) {
    Table->IndexNames(&Names);
  }
  // False if the model can't use it.
  bool Take(std::unique_ptr<BarCodeFont> font) {
    if (!font->IsValidFor(Model)) return false;
    font->SettleStartStop();
    font->Rescale(Model->GetDefaultResolutionX());
    Table->AddOrReplace(std::move(font), &Names);
    return true;
  }
  bool Take(std::unique_ptr<RFIDFont> font) {
    if (!font->IsValidFor(Model)) return false;
    font->Normalise(Model);
    Table->AddOrReplace(std::move(font), &Names);
    return true;
  }

 private:
  DataFontTable* Table;
  PrinterModel* Model;
  NameIndex Names;
};

template <typename Font>
class Reader : public FontTextSink {
 public:
  Reader(DataFontTable* table, PrinterModel* model) : Taking(table, model) {}
  void Open() override {
    Record = std::make_unique<Font>();
    IsUsable = true;
  }
  void TakeValue(const OString& key, const OString& value) override {
    if (key == kName) {
      Record->SetName(value);
    } else if (key == kData) {
      uint8_t blob[kRfidBlobSize];
      uint32_t size = sizeof(blob);
      if (UnpackText(value, blob, &size) && size == Record->GetBlobSize()) {
        // A short body leaves the rest as it is: that must not be an earlier line's.
        auto fresh = std::make_unique<Font>();
        fresh->SetName(Record->GetName());
        // Bytes of the right length that are of no such font make the whole record none, as in a
        // binary file.
        IsUsable = fresh->SetBlob(blob, size);
        if (IsUsable) Record = std::move(fresh);
      }
    }
  }
  bool Close() override { return IsUsable && Taking.Take(std::move(Record)); }

 private:
  Intake Taking;
  std::unique_ptr<Font> Record;
  bool IsUsable = true;
};

bool WritesTags(PrinterModel* model) { return model && model->HasRfid() && model->IsRfidEnabled(); }

}  // namespace

int32_t DataFontTable::WriteBarCodeText(OStream& stream) const {
  return WriteFonts(stream, *this, kBarCodeKind, false);
}

int32_t DataFontTable::WriteRfidText(OStream& stream, PrinterModel* model) const {
  return WritesTags(model) ? WriteFonts(stream, *this, kRfidKind, true) : 0;
}

int32_t DataFontTable::ReadBarCodeText(OFile& stream, PrinterModel* model) {
  if (!model) return 0;
  Reader<BarCodeFont> reader(this, model);
  return ReadFontText(stream, model, kBarCodeKind, &reader);
}

int32_t DataFontTable::ReadRfidText(OFile& stream, PrinterModel* model) {
  if (!WritesTags(model)) return 0;
  Reader<RFIDFont> reader(this, model);
  return ReadFontText(stream, model, kRfidKind, &reader);
}

int32_t DataFontTable::ReadBinary(OFile& stream, PrinterModel* model) {
  if (!model) return 0;
  RecordFile file(stream, kBinarySignature, kLeastDataFontBlob);
  Intake taking(this, model);
  int32_t count = 0;
  while (file.Next()) {
    auto font = std::make_unique<BarCodeFont>();
    if (!font->SetBlob(file.Record.Data, file.Record.Size)) continue;
    OString name;
    name.AssignCount(font->Header.Name, kDataFontNameSize);
    font->SetName(name);
    if (taking.Take(std::move(font))) ++count;
  }
  return count;
}

}  // namespace ostvt
