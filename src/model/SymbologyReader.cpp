#include "model/SymbologyReader.h"

#include "model/ModelDefinition.h"
#include "model/RecordText.h"
#include "model/Symbologies.h"
#include "model/SymbologyFlags.h"

namespace ostvt {
namespace {

enum class Target { kFlags, kHrFlags, kNotFlags };

// What a symbology's key sets: a word in a list, or a switch, which has no word.
struct RowKey {
  uint64_t Rows;
  const char* Key;
  const char* Word;
  uint32_t Bits;
  Target Field = Target::kFlags;
};

constexpr uint64_t kAllRows = (uint64_t{1} << kSymbologyRows) - 1;
constexpr uint64_t kRatioRows = SymbologySet(0, 2, 4, 5, 6, 24);
constexpr uint64_t kSupplementRows = SymbologySet(11, 12);
constexpr const char* kSwitch = nullptr;
constexpr Target kHr = Target::kHrFlags;
constexpr Target kClear = Target::kNotFlags;

// Also under the plain key, without a symbology's name.
constexpr RowKey kCommonKeys[] = {
    {kAllRows, "RestrictedMethods", "Serialization", kRestrictsSerialization},
    {kAllRows, "RestrictedMethods", "VariableData", kRestrictsVariableData},
    {kAllRows, "RestrictedMethods", "Static", kRestrictsStatic},
    {kAllRows, "RestrictedMethods", "TemplateFile", kRestrictsTemplateFile},
    {kRatioRows, "Ratio", "Variable", kRatioVariable},
    {kRatioRows, "Ratio", "2:1", kRatio2To1},
    {kRatioRows, "Ratio", "11:5", kRatio11To5},
    {kRatioRows, "Ratio", "9:4", kRatio9To4},
    {kRatioRows, "Ratio", "7:3", kRatio7To3},
    {kRatioRows, "Ratio", "12:5", kRatio12To5},
    {kRatioRows, "Ratio", "5:2", kRatio5To2},
    {kRatioRows, "Ratio", "13:5", kRatio13To5},
    {kRatioRows, "Ratio", "8:3", kRatio8To3},
    {kRatioRows, "Ratio", "11:4", kRatio11To4},
    {kRatioRows, "Ratio", "14:5", kRatio14To5},
    {kRatioRows, "Ratio", "3:1", kRatio3To1},
    {kAllRows, "HR.Offset", "Vertical", kHrOffsetVertical, kHr},
    {kAllRows, "HR.Offset", "Horizontal", kHrOffsetHorizontal, kHr},
    {kAllRows, "HR.Placement", "Above", kHrAbove, kHr},
    {kAllRows, "HR.Placement", "Below", kHrBelow, kHr},
    {kAllRows, "HR.Alignment", "Left", kHrLeft, kHr},
    {kAllRows, "HR.Alignment", "Right", kHrRight, kHr},
    {kAllRows, "HR.Alignment", "Center", kHrCenter, kHr},
    {kAllRows, "HR.Alignment", "Bar", kHrBar, kHr},
    {kAllRows, "HR.CheckDigit", "Show", kHrCheckDigitShow, kHr},
    {kAllRows, "HR.CheckDigit", "Hide", kHrCheckDigitHide, kHr},
    {kAllRows, "HR.StartStop", "Show", kHrStartStopShow, kHr},
    {kAllRows, "HR.StartStop", "Hide", kHrStartStopHide, kHr},
    {kAllRows, "HR.Font.Select", kSwitch, kHrFontSelect, kHr},
};

constexpr RowKey kOwnKeys[] = {
    {SymbologySet(0, 1), "FullASCII", kSwitch, kFullAscii},
    {SymbologySet(0, 1), "StartStop.Required", kSwitch, kCode39StartStopRequired},
    {SymbologySet(0, 1), "CheckDigit.Required", kSwitch, kCode39CheckDigitRequired},
    {SymbologySet(0, 1), "StartStop.Variable", kSwitch, kCode39StartStopVariable},
    {SymbologySet(0, 1), "HR.Translation", "On", kHrTranslationOn, kHr},
    {SymbologySet(0, 1), "HR.Translation", "Off", kHrTranslationOff, kHr},
    {SymbologySet(2), "FullASCII", kSwitch, kFullAscii},
    {SymbologySet(3), "Encoding", "Auto", kEncodesAutomatically},
    {SymbologySet(3), "Encoding", "Manual", kEncodesByItself, kClear},
    {SymbologySet(4), "StartStop.Required", kSwitch, kCodabarStartStopRequired},
    {SymbologySet(4), "StartStop.Uppercase", kSwitch, kCodabarStartStopUppercase},
    {SymbologySet(5, 6, 7, 8, 9, 10), "CheckDigit.Required", kSwitch, kCheckDigitRequired},
    {SymbologySet(7, 8), "NumberSystem", "1", kNumberSystem1},
    {SymbologySet(7, 8, 9, 10), "GuardBar.Variable", kSwitch, kGuardBarVariable},
    {SymbologySet(7, 8, 9, 10), "GuardBar.WithoutHR", kSwitch, kGuardBarWithoutText},
    {SymbologySet(7, 8), "SplitDigit", "Full", kHrSplitDigitFull, kHr},
    {SymbologySet(7, 8), "SplitDigit", "Small", kHrSplitDigitSmall, kHr},
    {SymbologySet(7, 8), "SplitDigit", "None", kHrSplitDigitNone, kHr},
    {SymbologySet(15), "Truncated", kSwitch, kPdfTruncated},
    {SymbologySet(15), "CorrectionLevel", "Auto", kPdfLevelAutomatic},
    {SymbologySet(15), "Columns", "Auto", kPdfColumnsAutomatic},
    {SymbologySet(16), "ECC", "000", 1u << 0},
    {SymbologySet(16), "ECC", "010", 1u << 1},
    {SymbologySet(16), "ECC", "040", 1u << 2},
    {SymbologySet(16), "ECC", "050", 1u << 3},
    {SymbologySet(16), "ECC", "060", 1u << 4},
    {SymbologySet(16), "ECC", "070", 1u << 5},
    {SymbologySet(16), "ECC", "080", 1u << 6},
    {SymbologySet(16), "ECC", "090", 1u << 7},
    {SymbologySet(16), "ECC", "100", 1u << 8},
    {SymbologySet(16), "ECC", "110", 1u << 9},
    {SymbologySet(16), "ECC", "120", 1u << 10},
    {SymbologySet(16), "ECC", "130", 1u << 11},
    {SymbologySet(16), "ECC", "140", 1u << 12},
    {SymbologySet(16), "ECC", "200", 1u << 13},
    {SymbologySet(16), "WhiteOnBlack", kSwitch, kDataMatrixWhiteOnBlack},
    {SymbologySet(16), "Rectangle", "No", kDataMatrixNoRectangle},
    {SymbologySet(16), "Rectangle", "Manual", kDataMatrixRectangle},
    {SymbologySet(16), "FunctionCodes", "None", kDataMatrixNoFunctionCodes},
    {SymbologySet(16), "FormatID", "Auto", kDataMatrixFormatIdAutomatic},
    {SymbologySet(16), "StructuredAppend", kSwitch, kDataMatrixStructuredAppend},
    {SymbologySet(16), "Size", "Auto", kDataMatrixFindsItsSize},
    {SymbologySet(17), "Mode", "2", kMaxiCodeMode2},
    {SymbologySet(17), "Mode", "3", kMaxiCodeMode3},
    {SymbologySet(17), "Mode", "4", kMaxiCodeMode4},
    {SymbologySet(17), "Mode", "5", kMaxiCodeMode5},
    {SymbologySet(17), "Mode", "6", kMaxiCodeMode6},
    {SymbologySet(17), "ZipperBlock", kSwitch, kMaxiCodeZipperBlock},
    {SymbologySet(17), "ContrastBlock", kSwitch, kMaxiCodeContrastBlock},
    {SymbologySet(17), "StructuredAppend", kSwitch, kMaxiCodeStructuredAppend},
    {SymbologySet(18), "Model", "1", kQrModel1},
    {SymbologySet(18), "Model", "2", kQrModel2},
    {SymbologySet(18, 37), "Mode", "Manual", kQrModeManual},
    {SymbologySet(18, 37), "Mode", "Auto", kQrModeAutomatic},
    {SymbologySet(18, 37), "Mask", "Manual", kQrMaskManual},
    {SymbologySet(18, 37), "Mask", "Auto", kQrMaskAutomatic},
    {SymbologySet(18), "StructuredAppend", kSwitch, kQrStructuredAppend},
    {SymbologySet(21), "HighPriority", kSwitch, kHasHighPriority},
    {SymbologySet(27), "Type", "A", kCodablockA},
    {SymbologySet(27), "Type", "E", kCodablockE},
    {SymbologySet(27), "Type", "F", kCodablockF},
    {SymbologySet(28), "Size", "Auto", kMicroPdfSizeAutomatic},
    {SymbologySet(29), "FinderPattern", kSwitch, kAztecFinderPattern},
    {SymbologySet(29), "Compact", kSwitch, kAztecCompact},
    {SymbologySet(29), "Full", kSwitch, kAztecFull},
    {SymbologySet(29), "WhiteOnBlack", kSwitch, kAztecWhiteOnBlack},
    {SymbologySet(29), "ErrorCorrection", kSwitch, kAztecErrorCorrection},
    {SymbologySet(29), "Layers", kSwitch, kAztecLayers},
    {SymbologySet(29), "StructuredAppend", kSwitch, kAztecStructuredAppend},
    {SymbologySet(31, 32), "Type", "RSS14", kRss14},
    {SymbologySet(31, 32), "Type", "Truncated", kRssTruncated},
    {SymbologySet(31, 32), "Type", "Stacked", kRssStacked},
    {SymbologySet(31, 32), "Type", "Omnidirectional", kRssOmnidirectional},
    {SymbologySet(31, 32), "Type", "Limited", kRssLimited},
    {SymbologySet(31, 32), "Type", "Expanded", kRssExpanded},
    {SymbologySet(31, 32), "Type", "ExpandedStacked", kRssExpandedStacked},
    {SymbologySet(32), "Type", "EAN8", kCompositeEan8},
    {SymbologySet(32), "Type", "EAN13", kCompositeEan13},
    {SymbologySet(32), "Type", "UPCA", kCompositeUpcA},
    {SymbologySet(32), "Type", "UPCE", kCompositeUpcE},
    {SymbologySet(32), "Type", "128_CC_AB", kComposite128CcAb},
    {SymbologySet(32), "Type", "128_CC_C", kComposite128CcC},
    {SymbologySet(31, 32), "SegmentsPerRow", "Manual", kRssSegmentsManual},
    {SymbologySet(33), "Digits", "12", kPlanet12Digits},
    {SymbologySet(33), "Digits", "14", kPlanet14Digits},
    {SymbologySet(36), "CheckDigit.Required", kSwitch, kCheckDigitRequired},
    {SymbologySet(36), "Mode", "Numeric", kTelepenNumeric},
};

// Whether or not the supplement is on. The codes that one follows say nothing about it themselves.
constexpr RowKey kAttachedKeys[] = {
    {kSupplementRows, "Attached", "1", kAttached1}, {kSupplementRows, "Attached", "2", kAttached2},
    {kSupplementRows, "Attached", "3", kAttached3}, {kSupplementRows, "Attached", "4", kAttached4},
    {kSupplementRows, "Attached", "5", kAttached5},
};

// What a row has without any key: no manual encoding, and the split digit of the codes that leave
// no choice.
struct RowStart {
  int32_t Row;
  uint32_t Flags;
  uint32_t HrFlags;
};
constexpr RowStart kStarts[] = {{3, kEncodesByItself, 0},
                                {8, 0, kHrSplitDigitUpcE},
                                {9, 0, kHrSplitDigitFull},
                                {10, 0, kHrSplitDigitNone}};

class Reader {
 public:
  Reader(ModelDefinition& definition, int32_t number, SymbologyCapability& row)
      : Definition(definition), Name(SymbologyName(number)), Bit(uint64_t{1} << number), Row(row) {}

  void ReadCommon();
  template <size_t N>
  void ReadKeys(const RowKey (&keys)[N], bool plainToo);

 private:
  OString Value(const char* word, bool plainToo);
  bool Switch(const char* word, bool plainToo) {
    return DefinitionFile::ParseBool(Value(word, plainToo), false);
  }
  int32_t Number(const char* word) { return Value(word, true).ToInt(); }

  ModelDefinition& Definition;
  const OString Name;
  const uint64_t Bit;
  SymbologyCapability& Row;
};

// The symbology's own key, else, where that counts, the one that stands for all symbologies.
OString Reader::Value(const char* word, bool plainToo) {
  const OString own = Definition.GetStringEx(Name + "." + word);
  return own.IsEmpty() && plainToo ? Definition.GetStringEx(word) : own;
}

// Unlike elsewhere, words of a row's lists are told apart by case.
template <size_t N>
void Reader::ReadKeys(const RowKey (&keys)[N], bool plainToo) {
  const char* listed = "";
  OStringArray list;
  for (const RowKey& key : keys) {
    if ((key.Rows & Bit) == 0) continue;
    if (!key.Word) {
      if (!Switch(key.Key, plainToo)) continue;
    } else {
      if (OString(key.Key) != listed) list.Split(Value(key.Key, plainToo), ",");
      listed = key.Key;
      if (list.Find(key.Word) < 0) continue;
    }
    switch (key.Field) {
      case Target::kFlags:
        Row.Flags |= key.Bits;
        break;
      case Target::kHrFlags:
        Row.HrFlags |= key.Bits;
        break;
      case Target::kNotFlags:
        Row.Flags &= ~key.Bits;
        break;
    }
  }
}

void Reader::ReadCommon() {
  Row.Present = kSymbologySupported;
  if (Switch("Color", true)) Row.Present = kSymbologySupported | kSymbologyColor;
  OStringArray humanReadable;
  humanReadable.Split(Value("HR", true), ",");
  if (humanReadable.Find("On") >= 0) {
    Row.HumanReadable = humanReadable.Find("Off") >= 0 ? kHumanReadableChoice : kHumanReadableOn;
  }
  StoreText(Row.HrFontName, Value("HR.Font.Name", true));
  Row.HrSize = StoreWord(Number("HR.Font.Size"));
  Row.HrWeight = StoreWord(Number("HR.Font.Weight"));
  ReadKeys(kCommonKeys, true);
}

}  // namespace

void ReadSymbology(ModelDefinition* definition, int32_t number, SymbologyCapability* row) {
  Reader reader(*definition, number, *row);
  const bool isOn = definition->GetBoolEx(SymbologyName(number));
  if (isOn) {
    for (const RowStart& start : kStarts) {
      if (start.Row != number) continue;
      row->Flags = start.Flags;
      row->HrFlags = start.HrFlags;
    }
    reader.ReadCommon();
    reader.ReadKeys(kOwnKeys, false);
  }
  reader.ReadKeys(kAttachedKeys, false);
}

}  // namespace ostvt
