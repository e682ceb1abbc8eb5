#include "model/ModelDataBuilder.h"

#include "model/RecordText.h"
#include "model/SectionReader.h"
#include "model/SpecificationOptions.h"

namespace ostvt {
namespace {

constexpr int32_t kThicknessMaximum = 32767;

class Builder : private SectionReader {
 public:
  Builder(ModelDefinition& definition, ModelData& record)
      : SectionReader(definition), Record(record) {}

  void ReadModel();
  void ReadDrawing();
  void ReadFeatures();
  void ReadMethod();
  void ReadFont();
  void ReadManufacturer();
  void ApplyOptions();

 private:
  uint8_t Byte(const char* key) { return Flag(key) ? 1 : 0; }
  Measure Length(const char* key) { return Definition.GetMeasureEx(key); }
  bool Is(const char* key, const char* word) {
    return Definition.GetStringEx(key).CompareNoCase(word) == 0;
  }
  uint8_t Alignment(const char* key) {
    return ModelDefinition::ParseAlignment(Definition.GetStringEx(key));
  }
  uint16_t ReadColorFlags();
  uint16_t ReadTextFlags();
  uint16_t ReadDownloadFlags();
  uint8_t ReadTracking();
  uint8_t ReadThicknessAnchor(const char* key);
  void ReadUnprintableWidth();
  void ReadResolutions();

  ModelData& Record;
};

uint16_t Builder::ReadColorFlags() {
  if (!Flag("Color")) return 0;
  constexpr WordBit kSpot[] = {{"2", kColorSpot2}, {"3", kColorSpot3}, {"4", kColorSpot4}};
  constexpr WordBit kProcess[] = {{"CMY", kColorProcessCmy}, {"CMYK", kColorProcessCmyk}};
  constexpr WordBit kSpectrum[] = {
      {"16", kColorSpectrum16}, {"24", kColorSpectrum24}, {"32", kColorSpectrum32}};
  return static_cast<uint16_t>(Bits("Color.Spot", kSpot) | Bits("Color.Process", kProcess) |
                               Bits("Color.Spectrum", kSpectrum));
}

uint8_t Builder::ReadTracking() {
  if (Is("Stock.Tracking", "Right")) return kTrackingRight;
  if (Is("Stock.Tracking", "Center")) return kTrackingCenter;
  return kTrackingLeft;
}

// The printer's own value is kept in micrometres; without one the model's stands, unrounded.
void Builder::ReadUnprintableWidth() {
  int32_t microns = 0;
  const bool stored = Definition.Store.ReadBinary("Settings:Unprintable Width", &microns,
                                                  sizeof microns) == sizeof microns;
  Record.UnprintableWidth = stored ? Measure::FromMicrons(microns) : Record.StockUnprintableWidth;
}

void Builder::ReadResolutions() {
  OStringArray list;
  Definition.GetListEx("Resolution", &list);
  for (int32_t i = 0; i < list.Count && i < kResolutionPairs; ++i) {
    const int times = list[i].Find('x');
    ResolutionPair& pair = Record.Resolutions[i];
    pair.X = StoreWord(list[i].ToInt());
    pair.Y = times < 0 ? pair.X : StoreWord(list[i].Mid(times + 1).ToInt());
  }
}

void Builder::ReadModel() {
  Record.MinimumX = Length("Stock.Minimum.X");
  Record.MinimumY = Length("Stock.Minimum.Y");
  Record.MaximumX = Length("Stock.Maximum.X");
  Record.MaximumY = Length("Stock.Maximum.Y");
  Record.PrintableX = Length("Stock.Printable.X");
  Record.PrintableY = Length("Stock.Printable.Y");
  Record.StockUnprintableWidth = Length("Stock.UnprintableWidth");
  ReadUnprintableWidth();
  Record.DefaultX = Length("Stock.Default.X");
  Record.DefaultY = Length("Stock.Default.Y");
  Record.ColorFlags = ReadColorFlags();
  Record.ColorDefault = Flag("Color") && Is("Color.DefaultState", "Color") ? 2 : 1;
  Record.StockTracking = ReadTracking();
  constexpr WordBit kPorts[] = {{"Parallel", kPortParallel}, {"USB", kPortUsb}};
  Record.BidirectionalPorts = static_cast<uint16_t>(Bits("Ports.Bidirectional", kPorts));
  ReadResolutions();
}

uint8_t Builder::ReadThicknessAnchor(const char* key) {
  if (Is(key, "Center")) return 0;
  if (Is(key, "Edge") || Is(key, "Outer")) return 1;
  if (Is(key, "Inner")) return 2;
  return 0;
}

uint16_t Builder::ReadTextFlags() {
  uint32_t flags = 0;
  if (!Has("Text.Rotation", "None")) flags |= kTextRotates;
  if (Has("Text.Rotation", "Any")) flags |= kTextRotatesAnyAngle;
  const bool fixedSize = Has("Text.Scaling", "None");
  if (!fixedSize && Has("Text.Scaling", "Anisotropic")) flags |= kTextScalesAnisotropic;
  if (Flag("Text.Vertical")) flags |= kTextVertical;
  if (fixedSize) flags |= kTextFixedSize;
  return static_cast<uint16_t>(flags);
}

void Builder::ReadDrawing() {
  switch (Definition.GetIntEx("Transform.Orientation")) {
    case 90:
      Record.Orientation = 1;
      break;
    case 180:
      Record.Orientation = 2;
      break;
    case 270:
      Record.Orientation = 3;
      break;
    default:
      break;
  }
  Record.Flip180 = Byte("Transform.Flip180");
  Record.Mirror = Byte("Transform.Mirror");
  Record.Inverse = Byte("Transform.Inverse");
  Record.LineThicknessMaximum =
      StoreWord(Definition.GetIntEx("Line.Thickness.Maximum"), kThicknessMaximum);
  Record.LineThicknessAnchor = ReadThicknessAnchor("Line.Thickness.Anchor");
  Record.LineAnchor = Alignment("Line.Anchor");
  Record.BoxThicknessMaximum =
      StoreWord(Definition.GetIntEx("Box.Thickness.Maximum"), kThicknessMaximum);
  Record.BoxThicknessAnchor = ReadThicknessAnchor("Box.Thickness.Anchor");
  Record.BoxAnchor = Alignment("Box.Anchor");
  Record.BoxFill = Byte("Box.Fill");
  Record.BarCodeAnchor = Alignment("BarCode.Anchor");
  Record.BarCodeAnchorRelative = Byte("BarCode.Anchor.Relative");
  Record.TextWhiteOnBlackBackground = Byte("Text.WhiteOnBlack.Background");
  Record.TextAnchor = Alignment("Text.Anchor");
  Record.TextAnchorRelative = Byte("Text.Anchor.Relative");
  Record.TextFlags = ReadTextFlags();
  Record.MapResolution = StoreWord(Definition.GetIntEx("Transform.MapResolution"));
}

void Builder::ReadFeatures() {
  Record.JobMonitoringDefault = Byte("Status.Default.JobMonitoring");
  Record.StatusMonitorDefault = Byte("Status.Default.StatusMonitor");
  constexpr WordBit kPorts[] = {{"Serial", kPortSerial},
                                {"Parallel", kPortParallel},
                                {"USB", kPortUsb},
                                {"TCP/IP", kPortTcpIp},
                                {"Firewire", kPortFirewire}};
  Record.StatusPorts = static_cast<uint16_t>(Bits("Status.Ports", kPorts));
}

void Builder::ReadMethod() {
  Record.CopiesLimit = StoreWord(Definition.GetIntEx("Copies.Limit"), kCopiesLimitMaximum);
  if (Record.CopiesLimit == 0) Record.CopiesLimit = kCopiesLimitMaximum;
}

uint16_t Builder::ReadDownloadFlags() {
  uint32_t flags = 0;
  if (Flag("Download.TrueType")) {
    flags |= kDownloadTrueType;
    if (Flag("Download.TrueType.SymbolFont")) flags |= kDownloadSymbolTrueType;
  }
  if (Flag("Download.Bitmap")) {
    flags |= kDownloadBitmap;
    if (Has("Download.Bitmap.Orientation", "0")) flags |= kDownloadBitmapAt0;
    if (Has("Download.Bitmap.Orientation", "90")) flags |= kDownloadBitmapAt90;
  }
  return static_cast<uint16_t>(flags);
}

void Builder::ReadFont() { Record.DownloadFlags = ReadDownloadFlags(); }

void Builder::ReadManufacturer() {
  StoreText(Record.CompanyName, Definition.GetStringEx("CompanyName"));
  StoreText(Record.ProductName, Definition.GetStringEx("ProductName"));
  StoreText(Record.FontsPrefix, Definition.GetStringEx("Fonts.Prefix"));
}

void Builder::ApplyOptions() {
  const SpecificationOptions options = ReadSpecificationOptions(Definition.Store);
  if (options.DisableCopiesLimit) Record.CopiesLimit = kCopiesLimitMaximum;
  if (!options.Override) return;
  Record.MinimumX = Measure::FromMicrons(options.MinimumPageWidth);
  Record.MaximumX = Measure::FromMicrons(options.MaximumPageWidth);
  Record.MinimumY = Measure::FromMicrons(options.MinimumPageLength);
  Record.MaximumY = Measure::FromMicrons(options.MaximumPageLength);
  Record.PrintableX = Measure::FromMicrons(options.PrintableWidth);
  // What is no answer keeps the model's value: there are three ways of tracking, and a model
  // without any resolution prints nothing.
  if (options.Tracking >= kTrackingRight && options.Tracking <= kTrackingCenter) {
    Record.StockTracking = static_cast<uint8_t>(options.Tracking);
  }
  ResolutionPair first = Record.Resolutions[0];
  if (options.ResolutionX > 0) first.X = StoreWord(options.ResolutionX);
  if (options.ResolutionY > 0) first.Y = StoreWord(options.ResolutionY);
  if (first.X == Record.Resolutions[0].X && first.Y == Record.Resolutions[0].Y) return;
  for (ResolutionPair& pair : Record.Resolutions) pair = ResolutionPair{};
  Record.Resolutions[0] = first;
}

}  // namespace

void BuildModelData(ModelDefinition* definition, ModelData* record) {
  *record = ModelData{};
  definition->ForgetModelPath();
  Builder builder(*definition, *record);
  definition->SelectContext(Context::kModel);
  builder.ReadModel();
  definition->SelectContext(Context::kDrawing);
  builder.ReadDrawing();
  definition->SelectContext(Context::kFeatures);
  builder.ReadFeatures();
  definition->SelectContext(Context::kMethod);
  builder.ReadMethod();
  definition->SelectContext(Context::kFont);
  builder.ReadFont();
  definition->SelectContext(Context::kManufacturer);
  builder.ReadManufacturer();
  builder.ApplyOptions();
}

}  // namespace ostvt
