#include "model/CapabilitiesDataBuilder.h"

#include "model/RecordText.h"
#include "model/SectionReader.h"
#include "model/Symbologies.h"

namespace ostvt {
namespace {

constexpr int32_t kDefaultFontWeight = 400;

constexpr WordBit kRestrictedMethods[] = {{"Serialization", kRestrictsSerialization},
                                          {"VariableData", kRestrictsVariableData},
                                          {"Static", kRestrictsStatic},
                                          {"TemplateFile", kRestrictsTemplateFile}};

constexpr WordBit kRatios[] = {{"Variable", kRatioVariable},
                               {"2:1", 0x2000},
                               {"11:5", 0x4000},
                               {"9:4", 0x8000},
                               {"7:3", 0x10000},
                               {"12:5", 0x20000},
                               {"5:2", 0x40000},
                               {"13:5", 0x80000},
                               {"8:3", 0x100000},
                               {"11:4", 0x200000},
                               {"14:5", 0x400000},
                               {"3:1", 0x800000}};

class Builder : private SectionReader {
 public:
  Builder(ModelDefinition& definition, CapabilitiesData& record)
      : SectionReader(definition), Record(record) {}

  void WriteFrame();
  void ReadDrawing();
  void ReadMethod();
  void ReadRow(int32_t number);
  void ReadDefaultFont(const OString& prefix, DefaultFontRecord* font);

 private:
  bool StartsWithLines(const char* key) { return Definition.GetStringEx(key).Left(5) == "Lines"; }
  uint16_t ReadLineFlags();
  uint16_t ReadBoxFlags();
  uint16_t ReadFeatureFlags();
  OString RowValue(const OString& name, const char* word);
  template <size_t N>
  uint32_t RowBits(const OString& name, const char* word, const WordBit (&words)[N]);

  CapabilitiesData& Record;
};

uint16_t When(bool condition, uint16_t bit = 1) { return condition ? bit : uint16_t{0}; }

void Builder::WriteFrame() {
  Record.Size = sizeof Record;
  Record.RowSize = sizeof Record.Rows[0];
  Record.FirstRow = offsetof(CapabilitiesData, Rows);
  Record.RowCount = kSymbologyRows;
  Record.DefaultFontCount = kDefaultFonts;
  Record.DefaultFontSize = sizeof Record.DefaultFonts[0];
  Record.FirstDefaultFont = offsetof(CapabilitiesData, DefaultFonts);
}

uint16_t Builder::ReadLineFlags() {
  return static_cast<uint16_t>(
      When(Flag("Line"), kLineSupported) | When(Has("Line.Pen", "Color"), kLineColor) |
      When(Flag("Line.Diagonal"), kLineDiagonal) | When(Has("Line.Pen", "White"), kLineWhite) |
      When(Has("Line.Diagonal.Pen", "White"), kLineDiagonalWhite) |
      When(Has("Line.Pen", "Inverse"), kLineInverse) |
      When(Has("Line.Diagonal.Pen", "Inverse"), kLineDiagonalInverse));
}

uint16_t Builder::ReadBoxFlags() {
  return static_cast<uint16_t>(
      When(Flag("Box"), kBoxSupported) | When(Has("Box.Pen", "Color"), kBoxColor) |
      When(Has("Box.Shape", "Ellipse"), kBoxEllipse) |
      When(Has("Box.Shape", "Rounded"), kBoxRounded) |
      When(Has("Box.Shape", "Circle"), kBoxCircle) | When(Has("Box.Pen", "White"), kBoxWhite) |
      When(Has("Box.Pen", "Inverse"), kBoxInverse));
}

void Builder::ReadDrawing() {
  Record.LineFlags = ReadLineFlags();
  Record.BoxFlags = ReadBoxFlags();
  Record.DrawUnsupported1D = When(Has("BarCode.DrawUnsupported.1D", "Lines"));
  Record.DrawUnsupported2D = When(Has("BarCode.DrawUnsupported.2D", "Lines"));
  Record.HasLine = When(Flag("Line"));
  Record.HasBox = When(Flag("Box"));
  Record.DrawUnsupported1DFirst = When(StartsWithLines("BarCode.DrawUnsupported.1D"));
  Record.DrawUnsupported2DFirst = When(StartsWithLines("BarCode.DrawUnsupported.2D"));
}

uint16_t Builder::ReadFeatureFlags() {
  const bool graphics = Flag("StaticGraphics");
  const bool graphicsOnly = Has("StaticGraphics.Restrictions", "NoVariableGraphics");
  const bool cacheGraphic = Flag("Cache.Graphic");
  const bool cacheFormat = Flag("Cache.Format");
  return static_cast<uint16_t>(When(Flag("Serialization"), kFeatureSerialization) |
                               When(Flag("StaticFields"), kFeatureStaticFields) |
                               When(Flag("VariableData"), kFeatureVariableData) |
                               When(graphics && !graphicsOnly, kFeatureStaticGraphics) |
                               When(graphics && graphicsOnly, kFeatureStaticGraphicsOnly) |
                               When(cacheGraphic, kFeatureCacheGraphic) |
                               When(cacheFormat, kFeatureCacheFormat) |
                               When(cacheFormat || cacheGraphic, kFeatureCache) |
                               When(Flag("TemplateExport"), kFeatureTemplateExport));
}

void Builder::ReadMethod() {
  Record.FeatureFlags = ReadFeatureFlags();
  Record.SerializationCountLimit = Definition.GetIntEx("Serialization.Count.Limit");
  Record.SerializationStepLimit = Definition.GetIntEx("Serialization.Step.Limit");
  Record.RolloverExpands = When(Flag("Serialization.RolloverExpands"));
  Record.NoSerializationCopies = When(!Flag("Serialization.Copies"));
}

// The symbology's own key, else the one that stands for all symbologies.
OString Builder::RowValue(const OString& name, const char* word) {
  const OString own = Definition.GetStringEx(name + "." + word);
  return own.IsEmpty() ? Definition.GetStringEx(word) : own;
}

// Unlike elsewhere, words of a row's lists are told apart by case.
template <size_t N>
uint32_t Builder::RowBits(const OString& name, const char* word, const WordBit (&words)[N]) {
  OStringArray list;
  list.Split(RowValue(name, word), ",");
  uint32_t bits = 0;
  for (const WordBit& entry : words) {
    if (list.Find(entry.Word) >= 0) bits |= entry.Bit;
  }
  return bits;
}

void Builder::ReadRow(int32_t number) {
  const OString name = SymbologyName(number);
  if (!Definition.GetBoolEx(name)) return;
  SymbologyCapability& row = Record.Rows[number];
  row.Present = kSymbologySupported;
  if (DefinitionFile::ParseBool(RowValue(name, "Color"), false)) {
    row.Present = kSymbologySupported | kSymbologyColor;
  }
  row.Flags = RowBits(name, "RestrictedMethods", kRestrictedMethods);
  if (SymbologyHasRatio(number)) row.Flags |= RowBits(name, "Ratio", kRatios);
}

void Builder::ReadDefaultFont(const OString& prefix, DefaultFontRecord* font) {
  font->Weight = StoreWord(Definition.GetIntEx(prefix + ".Weight", kDefaultFontWeight));
  font->Size = StoreWord(Definition.GetIntEx(prefix + ".Size"));
  StoreText(font->Name,
            Definition.ModelData.FontsPrefix + (" " + Definition.GetStringEx(prefix + ".Name")));
}

}  // namespace

void BuildCapabilitiesData(ModelDefinition* definition, CapabilitiesData* record) {
  *record = CapabilitiesData{};
  Builder builder(*definition, *record);
  builder.WriteFrame();
  definition->SelectContext(Context::kDrawing);
  builder.ReadDrawing();
  definition->SelectContext(Context::kMethod);
  builder.ReadMethod();
  definition->SelectContext(Context::kBarCode);
  for (int32_t number = 0; number < kSymbologyRows; ++number) builder.ReadRow(number);
  definition->SelectContext(Context::kFont);
  builder.ReadDefaultFont("DefaultFont.Text", &record->DefaultFonts[kDefaultFontText]);
  builder.ReadDefaultFont("DefaultFont.BarCode", &record->DefaultFonts[kDefaultFontBarCode]);
}

}  // namespace ostvt
