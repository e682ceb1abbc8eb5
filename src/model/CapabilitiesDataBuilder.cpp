#include "model/CapabilitiesDataBuilder.h"

#include "model/RecordText.h"
#include "model/SectionReader.h"
#include "model/SymbologyReader.h"

namespace ostvt {
namespace {

constexpr int32_t kDefaultFontWeight = 400;

class Builder : private SectionReader {
 public:
  Builder(ModelDefinition& definition, CapabilitiesData& record)
      : SectionReader(definition), Record(record) {}

  void WriteFrame();
  void ReadDrawing();
  void ReadMethod();
  void ReadDefaultFont(const OString& prefix, DefaultFontRecord* font);

 private:
  bool StartsWithLines(const char* key) { return Definition.GetStringEx(key).StartsWith("Lines"); }
  uint16_t ReadLineFlags();
  uint16_t ReadBoxFlags();
  uint16_t ReadFeatureFlags();

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
  if (HasLink(definition, "BarCode")) {
    definition->SelectContext(Context::kBarCode);
    for (int32_t number = 0; number < kSymbologyRows; ++number) {
      ReadSymbology(definition, number, &record->Rows[number]);
    }
  }
  definition->SelectContext(Context::kFont);
  builder.ReadDefaultFont("DefaultFont.Text", &record->DefaultFonts[kDefaultFontText]);
  builder.ReadDefaultFont("DefaultFont.BarCode", &record->DefaultFonts[kDefaultFontBarCode]);
}

}  // namespace ostvt
