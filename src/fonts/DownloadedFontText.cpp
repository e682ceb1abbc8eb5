// Downloaded fonts as text records.
#include <memory>
#include <vector>

#include "core/OFile.h"
#include "core/PackedText.h"
#include "fonts/DownloadedFontList.h"
#include "fonts/FontRecords.h"
#include "fonts/FontText.h"
#include "fonts/FontValueText.h"
#include "fonts/NameIndex.h"

namespace ostvt {
namespace {

constexpr char kKind[] = "Downloaded";
// By DownloadedFontType.
constexpr const char* kTypes[] = {"Unknown",    "TrueType",    "Bitmap",
                                  "PostScript", "Intellifont", "Speedo"};
constexpr uint16_t kTypeCount = sizeof(kTypes) / sizeof(*kTypes);

const char* TypeText(uint16_t type) { return kTypes[type < kTypeCount ? type : 0]; }

uint16_t ParseType(const OString& text) {
  for (uint16_t type = 0; type < kTypeCount; ++type) {
    if (text == kTypes[type]) return type;
  }
  return kDownloadedUnknown;
}

// The height that stands in the metrics is that of the em.
FontMetrics MetricsOf(const DownloadedFont& font) {
  FontMetrics metrics = {};
  metrics.Height = font.Info.EmHeight;
  metrics.Ascent = font.Info.Ascent;
  metrics.Descent = font.Info.Descent;
  metrics.InternalLeading = font.Info.InternalLeading;
  metrics.AverageWidth = font.Info.AverageWidth;
  metrics.MaximumWidth = font.Info.MaximumWidth;
  metrics.Weight = font.Weight;
  metrics.Italic = font.Italic;
  metrics.CharacterSet = font.CharacterSet;
  return metrics;
}

void TakeMetrics(const FontMetrics& metrics, DownloadedFont* font) {
  FontInfo& info = font->Info;
  info.EmHeight = static_cast<uint16_t>(metrics.Height);
  info.Ascent = static_cast<uint16_t>(metrics.Ascent);
  info.Descent = static_cast<uint16_t>(metrics.Descent);
  info.InternalLeading = static_cast<uint16_t>(metrics.InternalLeading);
  info.CellHeight = static_cast<uint16_t>(info.EmHeight + info.InternalLeading);
  info.AverageWidth = static_cast<uint16_t>(metrics.AverageWidth);
  info.MaximumWidth = static_cast<uint16_t>(metrics.MaximumWidth);
  font->Weight = static_cast<uint16_t>(metrics.Weight);
  font->Italic = metrics.Italic;
  font->CharacterSet = metrics.CharacterSet;
}

void ParseMetrics(const OString& text, DownloadedFont* font) {
  FontMetrics metrics;
  uint32_t size = sizeof(metrics);
  if (UnpackText(text, &metrics, &size) && size == sizeof(metrics)) TakeMetrics(metrics, font);
}

void WriteBitmap(FontTextWriter* writer, const DownloadedFont& font) {
  writer->Write("PointSize", PointText(font.PointSize));
  if (font.ScaleFactor != kWholeRatio) writer->Write("ScaleFactor", PercentText(font.ScaleFactor));
  if (font.EncodingTable.Count == 0) return;
  writer->Write("EncodingTable", EncodingTableText(font.EncodingTable));
}

void Write(FontTextWriter* writer, const DownloadedFont& font) {
  const FontMetrics metrics = MetricsOf(font);
  writer->Open(kKind);
  writer->Write("FontName", font.FaceName);
  writer->Write("TextMetric", PackText(&metrics, sizeof(metrics)));
  writer->Write("Type", TypeText(font.Type));
  writer->WriteUnlessEmpty("FullName", GetFullName(font.Info));
  writer->WriteUnlessEmpty("FileID", GetFileId(font.Info));
  writer->WriteUnlessEmpty("FileName", GetFileName(font.Info));
  writer->WriteUnlessEmpty("FilePath", GetFilePath(font.Info));
  writer->Write("Location", LocationText(font.Info.Location));
  if (font.IsBitmap()) WriteBitmap(writer, font);
  writer->Close();
}

class Reader : public FontTextSink {
 public:
  explicit Reader(DownloadedFontList* list) : List(list) {
    for (DownloadedFont* font = List->GetFirst(); font; font = font->GetNext()) Note(font);
  }
  void Open() override { Font = std::make_unique<DownloadedFont>(); }
  bool Close() override {
    const int32_t place = Names.Find(GetFullName(Font->Info), [&](int32_t each) {
      return Fonts[static_cast<size_t>(each)]->IsSameAs(*Font);
    });
    if (place >= 0) {
      Fonts[static_cast<size_t>(place)]->TakeFieldsOf(*Font);
    } else {
      Note(Font.get());
      List->Append(Font.release());
    }
    return true;
  }

  void TakeValue(const OString& key, const OString& value) override {
    if (key == "FontName") {
      Font->FaceName = value;
    } else if (key == "Type") {
      Font->Type = ParseType(value);
    } else if (key == "FullName") {
      SetFullName(&Font->Info, value);
    } else if (key == "FileID") {
      SetFileId(&Font->Info, value);
    } else if (key == "FileName") {
      SetFileName(&Font->Info, value);
    } else if (key == "FilePath") {
      SetFilePath(&Font->Info, value);
    } else if (key == "Location") {
      Font->Info.Location = ParseLocation(value);
    } else {
      TakeAppearance(key, value);
    }
  }

 private:
  void TakeAppearance(const OString& key, const OString& value) {
    if (key == "TextMetric") {
      ParseMetrics(value, Font.get());
    } else if (key == "Italic") {
      if (IsTrue(value)) Font->Italic = 1;
    } else if (key == "Weight") {
      Font->Weight = ParseWord(value);
    } else if (key == "Charset") {
      Font->CharacterSet = static_cast<uint8_t>(ParseWord(value));
    } else if (key == "PointSize") {
      Font->PointSize = ParsePoints(value);
    } else if (key == "ScaleFactor") {
      Font->ScaleFactor = ParseFreePercent(value);
    } else if (key == "EncodingTable") {
      SetEncodingTable(&Font->EncodingTable, "", 0);  // what stays of a value that is none
      ParseEncodingTable(value, &Font->EncodingTable);
    }
  }

  void Note(DownloadedFont* font) {
    Names.Add(GetFullName(font->Info));
    Fonts.push_back(font);
  }

  DownloadedFontList* List;
  NameIndex Names;
  std::vector<DownloadedFont*> Fonts;  // the list's, by place
  std::unique_ptr<DownloadedFont> Font;
};

}  // namespace

int32_t DownloadedFontList::WriteText(OStream& stream) const {
  FontTextWriter writer(stream);
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) Write(&writer, *font);
  return GetCount();
}

int32_t DownloadedFontList::ReadText(OFile& stream, PrinterModel* model) {
  Reader reader(this);
  return ReadFontText(stream, model, kKind, &reader);
}

}  // namespace ostvt
