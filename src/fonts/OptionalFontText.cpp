// Optional fonts as text records.
#include <utility>

#include "core/OFile.h"
#include "fonts/FontRecords.h"
#include "fonts/FontText.h"
#include "fonts/FontValueText.h"
#include "fonts/NameIndex.h"
#include "fonts/OptionalFontTable.h"

namespace ostvt {
namespace {

constexpr char kKind[] = "Optional";
constexpr char kTrueType[] = "TrueType";
constexpr char kBitmap[] = "Bitmap";
constexpr char kPredefined[] = "Predefined";
constexpr char kCustom[] = "Custom";

void WriteRatio(FontTextWriter* writer, const char* key, uint32_t ratio) {
  if (ratio != kWholeRatio) writer->Write(key, PercentText(ratio));
}

void WriteCustom(FontTextWriter* writer, const OptionalFont& font) {
  writer->Write("ScreenFontName", font.ScreenFont);
  writer->Write("CodePage", UnsignedText(font.CodePage));
  writer->Write("SourceCodePage", UnsignedText(font.SourceCodePage));
  writer->Write("Weight", UnsignedText(font.Weight));
  writer->Write("Italic", BoolText(font.Italic != 0));
  WriteRatio(writer, "NominalWidth", font.NominalWidth);
  WriteRatio(writer, "HorizontalRatio", font.HorizontalRatio);
  WriteRatio(writer, "VerticalRatio", font.VerticalRatio);
  if (!font.IsBitmap()) return;
  writer->Write("PointSize", PointText(font.BaseSize));
  if (font.EncodingTable.Count == 0) return;
  writer->Write("EncodingTable", EncodingTableText(font.EncodingTable));
}

void Write(FontTextWriter* writer, const OptionalFont& font) {
  writer->Open(kKind);
  writer->Write("FontName", font.Name);
  writer->Write("Category", font.IsCustom() ? kCustom : kPredefined);
  writer->Write("CharacterSet", font.CharacterSet);
  writer->WriteUnlessEmpty("Description", font.Description);
  writer->WriteUnlessEmpty("FileName", font.FileName);
  if (!font.IsCustom()) writer->Write("FontGroup", font.FontGroup);
  writer->Write("Provider", font.Provider);
  writer->Write("Location", LocationText(font.Location));
  writer->WriteUnlessEmpty("FileID", font.FontId);
  writer->Write("Type", font.IsBitmap() ? kBitmap : kTrueType);
  if (font.IsCustom()) WriteCustom(writer, font);
  writer->Close();
}

class Reader : public FontTextSink {
 public:
  explicit Reader(OptionalFontTable* table) : Table(table) { NoteNames(); }
  void Open() override { Font = std::make_unique<OptionalFont>(); }
  bool Close() override {
    const bool isPattern = Font->Name.FindOneOf("*?") >= 0;
    const int32_t place = isPattern ? Table->Find(Font->Name) : FindExact(Font->Name);
    if (place < 0) {
      Names.Add(Font->Name);
      Table->Add(std::move(Font));
      return true;
    }
    *Table->GetAt(place) = *Font;
    if (isPattern) NoteNames();  // the record's name may be another one now
    return true;
  }

  void TakeValue(const OString& key, const OString& value) override {
    if (key == "FontName") {
      Font->Name = value;
    } else if (key == "Category") {
      TakeWord(value, kPredefined, kOptionalFontPredefined, kCustom, kOptionalFontCustom,
               &Font->Category);
    } else if (key == "CharacterSet") {
      Font->CharacterSet = value;
    } else if (key == "Description") {
      Font->Description = value;
    } else if (key == "FileName") {
      Font->FileName = value;
    } else if (key == "FontGroup") {
      Font->FontGroup = value;
    } else if (key == "Provider") {
      Font->Provider = value;
    } else if (key == "Location") {
      Font->Location = ParseLocation(value);
    } else if (key == "FileID") {
      Font->FontId = value;
    } else if (key == "Type") {
      TakeWord(value, kTrueType, kOptionalFontTrueType, kBitmap, kOptionalFontBitmap, &Font->Type);
    } else {
      TakeAppearance(key, value);
    }
  }

 private:
  void NoteNames() {
    Names.Clear();
    for (int32_t i = 0; i < Table->GetCount(); ++i) Names.Add(Table->GetAt(i)->Name);
  }
  int32_t FindExact(const OString& name) const {
    return Names.Find(name, [&](int32_t each) { return Table->GetAt(each)->Name.Match(name); });
  }
  static void TakeWord(const OString& value, const char* first, uint16_t firstNumber,
                       const char* second, uint16_t secondNumber, uint16_t* field) {
    if (value == first) *field = firstNumber;
    if (value == second) *field = secondNumber;
  }

  // What is written for custom fonts alone.
  void TakeAppearance(const OString& key, const OString& value) {
    if (key == "ScreenFontName") {
      Font->ScreenFont = value;
    } else if (key == "CodePage") {
      Font->CodePage = ParseWord(value);
    } else if (key == "SourceCodePage") {
      Font->SourceCodePage = ParseWord(value);
    } else if (key == "Weight") {
      Font->Weight = ParseUnsigned(value);
    } else if (key == "Italic") {
      Font->Italic = IsTrue(value);
    } else if (key == "NominalWidth") {
      Font->NominalWidth = ParsePercent(value);
    } else if (key == "HorizontalRatio") {
      Font->HorizontalRatio = ParsePercent(value);
    } else if (key == "VerticalRatio") {
      Font->VerticalRatio = ParsePercent(value);
    } else if (key == "PointSize") {
      Font->BaseSize = ParsePoints(value);
    } else if (key == "EncodingTable") {
      ParseEncodingTable(value, &Font->EncodingTable);
    }
  }

  OptionalFontTable* Table;
  NameIndex Names;
  std::unique_ptr<OptionalFont> Font;
};

}  // namespace

int32_t OptionalFontTable::WriteText(OStream& stream) const {
  FontTextWriter writer(stream);
  for (const auto& font : Fonts) Write(&writer, *font);
  return GetCount();
}

int32_t OptionalFontTable::ReadText(OFile& stream, PrinterModel* model) {
  Reader reader(this);
  return ReadFontText(stream, model, kKind, &reader);
}

}  // namespace ostvt
