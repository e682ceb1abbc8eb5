#include "tools/ddzpack/KnownKeys.h"

#include <array>

#include "core/OString.h"
#include "model/CapabilitiesDataRecord.h"
#include "model/ModelDataRecord.h"
#include "model/Symbologies.h"

namespace ddzpack {
namespace {

using enum ValueKind;

// Room for text in a field of a record.
constexpr int32_t kCompanyNameRoom = sizeof(ostvt::ModelData::CompanyName) - 1;
constexpr int32_t kProductNameRoom = sizeof(ostvt::ModelData::ProductName) - 1;
constexpr int32_t kFontsPrefixRoom = sizeof(ostvt::ModelData::FontsPrefix) - 1;
// The prefix and a blank come in front.
constexpr int32_t kDefaultFontRoom =
    sizeof(ostvt::DefaultFontRecord::Name) - 1 - kFontsPrefixRoom - 1;
constexpr int32_t kHrFontRoom = sizeof(ostvt::SymbologyCapability::HrFontName) - 1;
// Names of fonts and their files on the printer.
constexpr int32_t kFontNameRoom = 128;

constexpr int32_t kLimit16 = 65535;
constexpr int32_t kLimit15 = 32767;

constexpr const char* kAlignments =
    "Top/Left Top/Right Bottom/Left Bottom/Right Baseline/Left Baseline/Right";
constexpr const char* kThicknessAnchors = "Center Edge Outer Inner";
constexpr const char* kPageMethods = "FormatPage Serialization StaticPage TemplateFile";
constexpr const char* kSegments = "All Header Data EPC TID User Control Reserved";

constexpr KnownKey kDriver[] = {
    {"Manufacturer", kLink, "Manufacturer"},
    {"Model", kLink, "Model"},
};

constexpr KnownKey kManufacturer[] = {
    {"CompanyName", kText, "", kCompanyNameRoom},
    {"ProductName", kText, "", kProductNameRoom},
    {"Fonts.Prefix", kText, "", kFontsPrefixRoom},
    {"Copyright", kText},
};

constexpr KnownKey kOem[] = {
    {"About.Template", kText},
    {"About.Default", kBool},
    {"About.Graphic.Vantrel", kText},
    {"About.Graphic.OEM", kText},
};

constexpr KnownKey kModel[] = {
    {"BarCode", kLink, "BarCode"},
    {"Drawing", kLink, "Drawing"},
    {"Features", kLink, "Features"},
    {"Font", kLink, "Font"},
    {"Method", kLink, "Method"},
    {"RFID", kLink, "RFID"},
    {"~CustomData", kLink, "CustomData"},
    {"Stock.UnprintableWidth", kMeasure},
    {"Stock.Printable.X", kMeasure},
    {"Stock.Printable.Y", kMeasure},
    {"Stock.Default.X", kMeasure},
    {"Stock.Default.Y", kMeasure},
    {"Stock.Minimum.X", kMeasure},
    {"Stock.Minimum.Y", kMeasure},
    {"Stock.Maximum.X", kMeasure},
    {"Stock.Maximum.Y", kMeasure},
    {"Stock.Tracking", kWord, "Right Left Center"},
    {"Color", kBool},
    {"Color.Spot", kList, "2 3 4"},
    {"Color.Process", kList, "CMY CMYK"},
    {"Color.Spectrum", kList, "16 24 32"},
    {"Color.DefaultState", kWord, "Color Monochrome"},
    {"Ports.Bidirectional", kList, "Parallel USB"},
    {"Resolution", kResolutions, "", ostvt::kResolutionPairs},
    {"~TopOfForm.Maximum", kMeasure},
};

constexpr KnownKey kDrawing[] = {
    {"Transform.Orientation", kWord, "0 90 180 270"},
    {"Transform.Flip180", kBool},
    {"Transform.Mirror", kBool},
    {"Transform.Inverse", kBool},
    {"Transform.MapResolution", kNumber, "", kLimit16},
    {"Line", kBool},
    {"Line.Anchor", kWord, kAlignments},
    {"Line.Pen", kList, "Color White Inverse"},
    {"Line.Diagonal", kBool},
    {"Line.Diagonal.Pen", kList, "White Inverse"},
    {"Line.Thickness.Maximum", kNumber, "", kLimit15},
    {"Line.Thickness.Anchor", kWord, kThicknessAnchors},
    {"Box", kBool},
    {"Box.Anchor", kWord, kAlignments},
    {"Box.Pen", kList, "Color White Inverse"},
    {"Box.Shape", kList, "Ellipse Rounded Circle"},
    {"Box.Fill", kBool},
    {"Box.Thickness.Maximum", kNumber, "", kLimit15},
    {"Box.Thickness.Anchor", kWord, kThicknessAnchors},
    {"BarCode.Anchor", kWord, kAlignments},
    {"BarCode.Anchor.Relative", kBool},
    {"BarCode.DrawUnsupported.1D", kList, "Lines Graphic"},
    {"BarCode.DrawUnsupported.2D", kList, "Lines Graphic"},
    {"Text.Anchor", kWord, kAlignments},
    {"Text.Anchor.Relative", kBool},
    {"Text.Rotation", kList, "None Any"},
    {"Text.Scaling", kList, "None Anisotropic"},
    {"Text.Vertical", kBool},
    {"Text.WhiteOnBlack.Background", kBool},
};

constexpr KnownKey kFeatures[] = {
    {"Status.Default.JobMonitoring", kBool},
    {"Status.Default.StatusMonitor", kBool},
    {"Status.Ports", kList, "Serial Parallel USB TCP/IP Firewire"},
    {"~Commands.U1", kBool},
    {"~RTC", kBool},
};

constexpr KnownKey kMethod[] = {
    {"Copies.Limit", kNumber, "", kLimit15},
    {"Serialization", kBool},
    {"Serialization.Count.Limit", kNumber, "", ostvt::kNumberLimit},
    {"Serialization.Step.Limit", kNumber, "", ostvt::kNumberLimit},
    {"Serialization.RolloverExpands", kBool},
    {"Serialization.Copies", kBool},
    {"StaticFields", kBool},
    {"VariableData", kBool},
    {"StaticGraphics", kBool},
    {"StaticGraphics.Restrictions", kList, "NoVariableGraphics"},
    {"Cache.Graphic", kBool},
    {"Cache.Format", kBool},
    {"TemplateExport", kBool},
    {"PrinterCommand.Font", kBool},
};

constexpr KnownKey kFont[] = {
    {"DefaultFont.Text.Name", kText, "", kDefaultFontRoom},
    {"DefaultFont.Text.Size", kNumber, "", kLimit16},
    {"DefaultFont.Text.Weight", kNumber, "", kLimit16},
    {"DefaultFont.BarCode.Name", kText, "", kDefaultFontRoom},
    {"DefaultFont.BarCode.Size", kNumber, "", kLimit16},
    {"DefaultFont.BarCode.Weight", kNumber, "", kLimit16},
    {"Download.TrueType", kBool},
    {"Download.TrueType.SymbolFont", kBool},
    {"Download.Bitmap", kBool},
    {"Download.Bitmap.Orientation", kList, "0 90"},
    {"Fonts", kGroupLinks},
    {"Encodings", kLink, "Encodings"},
    {"Encodings.TrueType.Class", kText},
    {"Encodings.TTSymbolFont.Class", kText},
    {"Encodings.Preferred.Default", kClasses},
    {"Encodings.Preferred.*", kNames},
    {"~FontOptions.Custom", kBool},
    {"~FontOptions.Predefined", kBool},
    {"~FontOptions.Providers", kProviders},
    {"~FontOptions.*", kLink, "FontOptions"},
};

constexpr KnownKey kEncodings[] = {
    {"*.Classes", kClasses},
    {"*.Description", kClasses},
};

constexpr KnownKey kFontGroup[] = {
    {"Font", kNames},
    {"Bitmap.ScaleToResolution", kBool},
    {"Encoding.Class", kText},
    {"RestrictedMethods", kList, kPageMethods},
};

// A provider's section: each font leads to its section.
constexpr KnownKey kFontOptions[] = {
    {"*", kLink, "OptionalFont"},
};

constexpr KnownKey kOptionalFont[] = {
    {"Type", kWord, "TrueType Bitmap"},
    {"Description", kText},
    {"CharacterSet", kText},
    {"FileName", kText, "", kFontNameRoom},
    {"FontID", kText, "", kFontNameRoom},
    {"Location", kText, "", 1},
    {"~FontGroup", kGroupLinks},
};

constexpr KnownKey kCustomData[] = {
    {"*", kText},
};

// The bits of the symbologies with these numbers.
template <typename... Numbers>
constexpr uint64_t Rows(Numbers... numbers) {
  return ((uint64_t{1} << numbers) | ...);
}

// These hold by their names alone too, for every symbology that sets them not.
constexpr bool kAlone = true;

constexpr PrefixedKey kBarCodeOptions[] = {
    {{"Color", kBool}, kAllPrefixes, kAlone},
    {{"RestrictedMethods", kExactList, "Serialization VariableData Static TemplateFile"},
     kAllPrefixes,
     kAlone},
    {{"Ratio", kExactList, "Variable 2:1 11:5 9:4 7:3 12:5 5:2 13:5 8:3 11:4 14:5 3:1"},
     Rows(0, 2, 4, 5, 6, 24),
     kAlone},
    {{"HR", kExactList, "On Off"}, kAllPrefixes, kAlone},
    {{"HR.Offset", kExactList, "Vertical Horizontal"}, kAllPrefixes, kAlone},
    {{"HR.Placement", kExactList, "Above Below"}, kAllPrefixes, kAlone},
    {{"HR.Alignment", kExactList, "Left Right Center Bar"}, kAllPrefixes, kAlone},
    {{"HR.CheckDigit", kExactList, "Show Hide"}, kAllPrefixes, kAlone},
    {{"HR.StartStop", kExactList, "Show Hide"}, kAllPrefixes, kAlone},
    {{"HR.Font.Select", kBool}, kAllPrefixes, kAlone},
    {{"HR.Font.Name", kText, "", kHrFontRoom}, kAllPrefixes, kAlone},
    {{"HR.Font.Size", kNumber, "", kLimit16}, kAllPrefixes, kAlone},
    {{"HR.Font.Weight", kNumber, "", kLimit16}, kAllPrefixes, kAlone},
    {{"HR.Translation", kExactList, "On Off"}, Rows(0, 1)},
    {{"FullASCII", kBool}, Rows(0, 1, 2)},
    {{"StartStop.Required", kBool}, Rows(0, 1, 4)},
    {{"StartStop.Variable", kBool}, Rows(0, 1)},
    {{"StartStop.Uppercase", kBool}, Rows(4)},
    {{"CheckDigit.Required", kBool}, Rows(0, 1, 5, 6, 7, 8, 9, 10, 36)},
    {{"Encoding", kExactList, "Auto Manual"}, Rows(3)},
    {{"NumberSystem", kExactList, "0 1"}, Rows(7, 8)},
    {{"GuardBar.Variable", kBool}, Rows(7, 8, 9, 10)},
    {{"GuardBar.WithoutHR", kBool}, Rows(7, 8, 9, 10)},
    {{"SplitDigit", kExactList, "Full Small None"}, Rows(7, 8)},
    {{"Attached", kExactList, "1 2 3 4 5"}, Rows(11, 12)},
    {{"Truncated", kBool}, Rows(15)},
    {{"CorrectionLevel", kExactList, "Auto"}, Rows(15)},
    {{"Columns", kExactList, "Auto"}, Rows(15)},
    {{"ECC", kExactList, "000 010 040 050 060 070 080 090 100 110 120 130 140 200"}, Rows(16)},
    {{"Rectangle", kExactList, "No Manual"}, Rows(16)},
    {{"FunctionCodes", kExactList, "None"}, Rows(16)},
    {{"FormatID", kExactList, "Auto"}, Rows(16)},
    {{"Size", kExactList, "Auto"}, Rows(16, 28)},
    {{"WhiteOnBlack", kBool}, Rows(16, 29)},
    {{"StructuredAppend", kBool}, Rows(16, 17, 18, 29)},
    {{"Mode", kExactList, "2 3 4 5 6"}, Rows(17)},
    {{"Mode", kExactList, "Manual Auto"}, Rows(18, 37)},
    {{"Mode", kExactList, "Numeric"}, Rows(36)},
    {{"ZipperBlock", kBool}, Rows(17)},
    {{"ContrastBlock", kBool}, Rows(17)},
    {{"Model", kExactList, "1 2"}, Rows(18)},
    {{"Mask", kExactList, "Manual Auto"}, Rows(18, 37)},
    {{"HighPriority", kBool}, Rows(21)},
    {{"Type", kExactList, "A E F"}, Rows(27)},
    {{"Type", kExactList,
      "RSS14 Truncated Stacked Omnidirectional Limited Expanded ExpandedStacked"},
     Rows(31)},
    {{"Type", kExactList,
      "RSS14 Truncated Stacked Omnidirectional Limited Expanded ExpandedStacked "
      "EAN8 EAN13 UPCA UPCE 128_CC_AB 128_CC_C"},
     Rows(32)},
    {{"SegmentsPerRow", kExactList, "Manual"}, Rows(31, 32)},
    {{"FinderPattern", kBool}, Rows(29)},
    {{"Compact", kBool}, Rows(29)},
    {{"Full", kBool}, Rows(29)},
    {{"ErrorCorrection", kBool}, Rows(29)},
    {{"Layers", kBool}, Rows(29)},
    {{"Digits", kExactList, "12 14"}, Rows(33)},
};

constexpr const char* kTags[] = {"ISO18000", "EPC",     "EPCGen2", "UCODE_EPC119", "ISO15693",
                                 "ICode1",   "Picotag", "TagIt",   "TagSys"};

constexpr PrefixedKey kTagOptions[] = {
    {{"Types", kExactList, "6B"}, Rows(0)},
    {{"Types", kExactList, "Class1 Class0+ Class0"}, Rows(1)},
    {{"Types", kExactList, "Class1 Class2 Class3"}, Rows(2)},
    {{"Types", kExactList, "Generic Tag-It I-Code My-d"}, Rows(4)},
    {{"Segments", kList, kSegments}, kAllPrefixes},
    {{"Segments.Default", kWord, kSegments}, kAllPrefixes},
    {{"StartBlock", kBool}, kAllPrefixes},
    {{"StartBlock.Default", kNumber, "", kLimit16}, kAllPrefixes},
    {{"WriteProtect", kBool}, kAllPrefixes},
    {{"RestrictedMethods", kList, kPageMethods}, kAllPrefixes},
};

const std::array<const char*, ostvt::kSymbologyRows>& SymbologyNames() {
  static const auto names = [] {
    std::array<const char*, ostvt::kSymbologyRows> list{};
    for (int32_t row = 0; row < ostvt::kSymbologyRows; ++row) {
      list[static_cast<size_t>(row)] = ostvt::SymbologyName(row);
    }
    return list;
  }();
  return names;
}

bool MatchesName(const char* pattern, std::string_view key) {
  return ostvt::OString(std::string(key).c_str()).Match(ostvt::OString(pattern));
}

}  // namespace

std::span<const KnownFile> KnownFiles() {
  static const KnownFile files[] = {
      {"Driver", kDriver},
      {"Manufacturer", kManufacturer},
      {"OEM", kOem},
      {"Model", kModel},
      {"BarCode", {}, SymbologyNames(), kBarCodeOptions},
      {"Drawing", kDrawing},
      {"Features", kFeatures},
      {"Font", kFont},
      {"Encodings", kEncodings},
      {"FontGroup", kFontGroup},
      {"FontOptions", kFontOptions},
      {"OptionalFont", kOptionalFont},
      {"Method", kMethod},
      {"RFID", {}, kTags, kTagOptions},
      {"CustomData", kCustomData},
  };
  return files;
}

const KnownFile* FindKnownFile(std::string_view name) {
  for (const KnownFile& file : KnownFiles()) {
    if (name == file.Name) return &file;
  }
  return nullptr;
}

const KnownKey* FindKnownKey(const KnownFile& file, std::string_view key) {
  for (const KnownKey& known : file.Keys) {
    if (MatchesName(known.Name, key)) return &known;
  }
  static constexpr KnownKey kSwitch = {"", kBool};
  for (size_t row = 0; row < file.Prefixes.size(); ++row) {
    const std::string_view prefix = file.Prefixes[row];
    if (!key.starts_with(prefix)) continue;
    if (key.size() == prefix.size()) return &kSwitch;
    if (key[prefix.size()] != '.') continue;
    const std::string_view word = key.substr(prefix.size() + 1);
    for (const PrefixedKey& option : file.Options) {
      if (word == option.Key.Name && (option.Prefixes >> row & 1) != 0) return &option.Key;
    }
  }
  for (const PrefixedKey& option : file.Options) {
    if (option.StandsAlone && key == option.Key.Name) return &option.Key;
  }
  return nullptr;
}

std::string_view WithoutMakerCode(std::string_view key) {
  const size_t n = key.size();
  const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
  if (n > 4 && key[n - 4] == '(' && isUpper(key[n - 3]) && isUpper(key[n - 2]) &&
      key[n - 1] == ')') {
    return key.substr(0, n - 4);
  }
  return key;
}

}  // namespace ddzpack
