#include "model/SymbologyReader.h"

#include "model/ModelDefinition.h"
#include "model/RecordText.h"
#include "model/Symbologies.h"

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

// The bits of the symbologies with these numbers.
template <typename... Numbers>
constexpr uint64_t Rows(Numbers... numbers) {
  return ((uint64_t{1} << numbers) | ...);
}

constexpr uint64_t kAllRows = (uint64_t{1} << kSymbologyRows) - 1;
constexpr uint64_t kRatioRows = Rows(0, 2, 4, 5, 6, 24);
constexpr uint64_t kSupplementRows = Rows(11, 12);
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
    {kRatioRows, "Ratio", "2:1", 0x2000},
    {kRatioRows, "Ratio", "11:5", 0x4000},
    {kRatioRows, "Ratio", "9:4", 0x8000},
    {kRatioRows, "Ratio", "7:3", 0x10000},
    {kRatioRows, "Ratio", "12:5", 0x20000},
    {kRatioRows, "Ratio", "5:2", 0x40000},
    {kRatioRows, "Ratio", "13:5", 0x80000},
    {kRatioRows, "Ratio", "8:3", 0x100000},
    {kRatioRows, "Ratio", "11:4", 0x200000},
    {kRatioRows, "Ratio", "14:5", 0x400000},
    {kRatioRows, "Ratio", "3:1", 0x800000},
    {kAllRows, "HR.Offset", "Vertical", 0x1, kHr},
    {kAllRows, "HR.Offset", "Horizontal", 0x2, kHr},
    {kAllRows, "HR.Placement", "Above", 0x4, kHr},
    {kAllRows, "HR.Placement", "Below", 0x8, kHr},
    {kAllRows, "HR.Alignment", "Left", 0x10, kHr},
    {kAllRows, "HR.Alignment", "Right", 0x20, kHr},
    {kAllRows, "HR.Alignment", "Center", 0x40, kHr},
    {kAllRows, "HR.Alignment", "Bar", 0x80, kHr},
    {kAllRows, "HR.CheckDigit", "Show", 0x100, kHr},
    {kAllRows, "HR.CheckDigit", "Hide", 0x200, kHr},
    {kAllRows, "HR.StartStop", "Show", 0x400, kHr},
    {kAllRows, "HR.StartStop", "Hide", 0x800, kHr},
    {kAllRows, "HR.Font.Select", kSwitch, 0x8000, kHr},
};

constexpr RowKey kOwnKeys[] = {
    {Rows(0, 1), "FullASCII", kSwitch, 0x1},
    {Rows(0, 1), "StartStop.Required", kSwitch, 0x2},
    {Rows(0, 1), "CheckDigit.Required", kSwitch, 0x4},
    {Rows(0, 1), "StartStop.Variable", kSwitch, 0x8},
    {Rows(0, 1), "HR.Translation", "On", 0x10000, kHr},
    {Rows(0, 1), "HR.Translation", "Off", 0x20000, kHr},
    {Rows(2), "FullASCII", kSwitch, 0x1},
    {Rows(3), "Encoding", "Auto", 0x1},
    {Rows(3), "Encoding", "Manual", 0x2, kClear},
    {Rows(4), "StartStop.Required", kSwitch, 0x80000001},
    {Rows(4), "StartStop.Uppercase", kSwitch, 0x2},
    {Rows(5, 6, 7, 8, 9, 10), "CheckDigit.Required", kSwitch, 0x1},
    {Rows(7, 8), "NumberSystem", "1", 0x2},
    {Rows(7, 8, 9, 10), "GuardBar.Variable", kSwitch, 0x4},
    {Rows(7, 8, 9, 10), "GuardBar.WithoutHR", kSwitch, 0x8},
    {Rows(7, 8), "SplitDigit", "Full", 0x90000, kHr},
    {Rows(7, 8), "SplitDigit", "Small", 0x50000, kHr},
    {Rows(7, 8), "SplitDigit", "None", 0x20000, kHr},
    {Rows(15), "Truncated", kSwitch, 0x1},
    {Rows(15), "CorrectionLevel", "Auto", 0x2},
    {Rows(15), "Columns", "Auto", 0x4},
    {Rows(16), "ECC", "000", 0x1},
    {Rows(16), "ECC", "010", 0x2},
    {Rows(16), "ECC", "040", 0x4},
    {Rows(16), "ECC", "050", 0x8},
    {Rows(16), "ECC", "060", 0x10},
    {Rows(16), "ECC", "070", 0x20},
    {Rows(16), "ECC", "080", 0x40},
    {Rows(16), "ECC", "090", 0x80},
    {Rows(16), "ECC", "100", 0x100},
    {Rows(16), "ECC", "110", 0x200},
    {Rows(16), "ECC", "120", 0x400},
    {Rows(16), "ECC", "130", 0x800},
    {Rows(16), "ECC", "140", 0x1000},
    {Rows(16), "ECC", "200", 0x2000},
    {Rows(16), "WhiteOnBlack", kSwitch, 0x4000},
    {Rows(16), "Rectangle", "No", 0x8000},
    {Rows(16), "Rectangle", "Manual", 0x40000},
    {Rows(16), "FunctionCodes", "None", 0x10000},
    {Rows(16), "FormatID", "Auto", 0x20000},
    {Rows(16), "StructuredAppend", kSwitch, 0x80000},
    {Rows(16), "Size", "Auto", 0x100000},
    {Rows(17), "Mode", "2", 0x1},
    {Rows(17), "Mode", "3", 0x2},
    {Rows(17), "Mode", "4", 0x4},
    {Rows(17), "Mode", "5", 0x8},
    {Rows(17), "Mode", "6", 0x10},
    {Rows(17), "ZipperBlock", kSwitch, 0x20},
    {Rows(17), "ContrastBlock", kSwitch, 0x40},
    {Rows(17), "StructuredAppend", kSwitch, 0x80},
    {Rows(18), "Model", "1", 0x1},
    {Rows(18), "Model", "2", 0x2},
    {Rows(18, 37), "Mode", "Manual", 0x4},
    {Rows(18, 37), "Mode", "Auto", 0x8},
    {Rows(18, 37), "Mask", "Manual", 0x10},
    {Rows(18, 37), "Mask", "Auto", 0x20},
    {Rows(18), "StructuredAppend", kSwitch, 0x40},
    {Rows(21), "HighPriority", kSwitch, 0x1},
    {Rows(27), "Type", "A", 0x1},
    {Rows(27), "Type", "E", 0x2},
    {Rows(27), "Type", "F", 0x4},
    {Rows(28), "Size", "Auto", 0x1},
    {Rows(29), "FinderPattern", kSwitch, 0x1},
    {Rows(29), "Compact", kSwitch, 0x2},
    {Rows(29), "Full", kSwitch, 0x4},
    {Rows(29), "WhiteOnBlack", kSwitch, 0x8},
    {Rows(29), "ErrorCorrection", kSwitch, 0x10},
    {Rows(29), "Layers", kSwitch, 0x20},
    {Rows(29), "StructuredAppend", kSwitch, 0x40},
    {Rows(31, 32), "Type", "RSS14", 0x1},
    {Rows(31, 32), "Type", "Truncated", 0x2},
    {Rows(31, 32), "Type", "Stacked", 0x4},
    {Rows(31, 32), "Type", "Omnidirectional", 0x8},
    {Rows(31, 32), "Type", "Limited", 0x10},
    {Rows(31, 32), "Type", "Expanded", 0x20},
    {Rows(31, 32), "Type", "ExpandedStacked", 0x40},
    {Rows(32), "Type", "EAN8", 0x100},
    {Rows(32), "Type", "EAN13", 0x200},
    {Rows(32), "Type", "UPCA", 0x400},
    {Rows(32), "Type", "UPCE", 0x800},
    {Rows(32), "Type", "128_CC_AB", 0x1000},
    {Rows(32), "Type", "128_CC_C", 0x2000},
    {Rows(31, 32), "SegmentsPerRow", "Manual", 0x10000},
    {Rows(33), "Digits", "12", 0x1},
    {Rows(33), "Digits", "14", 0x2},
    {Rows(36), "CheckDigit.Required", kSwitch, 0x1},
    {Rows(36), "Mode", "Numeric", 0x2},
};

// The supplements, and what they are attached to.
constexpr RowKey kAttachedKeys[] = {
    {Rows(0, 1, 7, 8, 9, 10, 11, 12), "Attached", "1", 0x1},
    {Rows(0, 1, 7, 8, 9, 10, 11, 12), "Attached", "2", 0x2},
    {Rows(0, 1, 7, 8, 9, 10, 11, 12), "Attached", "3", 0x4},
    {Rows(0, 1, 7, 8, 9, 10, 11, 12), "Attached", "4", 0x8},
    {Rows(0, 1, 7, 8, 9, 10, 11, 12), "Attached", "5", 0x10},
};

// What a row has without any key: no manual encoding, and the split digit of the codes that leave
// no choice.
struct RowStart {
  int32_t Row;
  uint32_t Flags;
  uint32_t HrFlags;
};
constexpr RowStart kStarts[] = {{3, 0x2, 0}, {8, 0, 0x10000}, {9, 0, 0x90000}, {10, 0, 0x20000}};

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
  if (isOn || (kSupplementRows >> number & 1) != 0) reader.ReadKeys(kAttachedKeys, false);
}

}  // namespace ostvt
