// What a model tells about its symbologies, row by row.
#include "model/CapabilitiesDataBuilder.h"
#include "model/Symbologies.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class SymbologyReaderTest : public ModelFixture {
 protected:
  const SymbologyCapability& Built(int row, const std::string& lines) {
    DefineChain("BarCode=Model:One\n" + lines);
    return InstallAndOpen().GetCapabilities()->Rows[row];
  }
};

struct KeyCase {
  int Row;
  const char* Line;  // behind the symbology's name
  uint32_t Flags;
  uint32_t HrFlags;
};

constexpr KeyCase kKeys[] = {
    {0, "HR.Offset=Vertical", 0, 0x1},
    {0, "HR.Offset=Horizontal", 0, 0x2},
    {0, "HR.Placement=Above", 0, 0x4},
    {0, "HR.Placement=Below", 0, 0x8},
    {0, "HR.Alignment=Left", 0, 0x10},
    {0, "HR.Alignment=Right", 0, 0x20},
    {0, "HR.Alignment=Center", 0, 0x40},
    {0, "HR.Alignment=Bar", 0, 0x80},
    {0, "HR.CheckDigit=Show", 0, 0x100},
    {0, "HR.CheckDigit=Hide", 0, 0x200},
    {0, "HR.StartStop=Show", 0, 0x400},
    {0, "HR.StartStop=Hide", 0, 0x800},
    {0, "HR.Font.Select=Yes", 0, 0x8000},
    {0, "HR.Font.Select=No", 0, 0},
    {0, "FullASCII=Yes", 0x1, 0},
    {1, "StartStop.Required=Yes", 0x2, 0},
    {0, "CheckDigit.Required=Yes", 0x4, 0},
    {1, "StartStop.Variable=Yes", 0x8, 0},
    {0, "HR.Translation=On", 0, 0x10000},
    {1, "HR.Translation=Off", 0, 0x20000},
    {2, "FullASCII=Yes", 0x1, 0},
    {2, "StartStop.Required=Yes", 0, 0},
    {3, "Encoding=", 0x2, 0},
    {3, "Encoding=Auto", 0x3, 0},
    {3, "Encoding=Manual", 0, 0},
    {3, "Encoding=Auto,Manual", 0x1, 0},
    {4, "StartStop.Required=Yes", 0x80000001, 0},
    {4, "StartStop.Uppercase=Yes", 0x2, 0},
    {5, "CheckDigit.Required=Yes", 0x1, 0},
    {6, "CheckDigit.Required=Yes", 0x1, 0},
    {7, "CheckDigit.Required=Yes", 0x1, 0},
    {7, "NumberSystem=0,1", 0x2, 0},
    {7, "NumberSystem=0", 0, 0},
    {8, "NumberSystem=1", 0x2, 0x10000},
    {9, "NumberSystem=1", 0, 0x90000},
    {7, "GuardBar.Variable=Yes", 0x4, 0},
    {10, "GuardBar.WithoutHR=Yes", 0x8, 0x20000},
    {7, "SplitDigit=Full", 0, 0x90000},
    {7, "SplitDigit=Small", 0, 0x50000},
    {7, "SplitDigit=None", 0, 0x20000},
    {8, "SplitDigit=Full", 0, 0x90000},
    {8, "SplitDigit=None", 0, 0x30000},
    {9, "SplitDigit=None", 0, 0x90000},
    {10, "SplitDigit=Full", 0, 0x20000},
    {0, "Attached=1,2,3,4,5", 0, 0},
    {1, "Attached=1,2,3,4,5", 0, 0},
    {7, "Attached=1,2,3,4,5", 0, 0},
    {8, "Attached=1,2,3,4,5", 0, 0x10000},
    {9, "Attached=1,2,3,4,5", 0, 0x90000},
    {10, "Attached=1,2,3,4,5", 0, 0x20000},
    {11, "Attached=1", 0x1, 0},
    {11, "Attached=2", 0x2, 0},
    {12, "Attached=3", 0x4, 0},
    {12, "Attached=4", 0x8, 0},
    {12, "Attached=5", 0x10, 0},
    {13, "Attached=5", 0, 0},
    {15, "Truncated=Yes", 0x1, 0},
    {15, "CorrectionLevel=Auto", 0x2, 0},
    {15, "Columns=Auto", 0x4, 0},
    {16, "ECC=000", 0x1, 0},
    {16, "ECC=010", 0x2, 0},
    {16, "ECC=040", 0x4, 0},
    {16, "ECC=050", 0x8, 0},
    {16, "ECC=060", 0x10, 0},
    {16, "ECC=070", 0x20, 0},
    {16, "ECC=080", 0x40, 0},
    {16, "ECC=090", 0x80, 0},
    {16, "ECC=100", 0x100, 0},
    {16, "ECC=110", 0x200, 0},
    {16, "ECC=120", 0x400, 0},
    {16, "ECC=130", 0x800, 0},
    {16, "ECC=140", 0x1000, 0},
    {16, "ECC=200", 0x2000, 0},
    {16, "WhiteOnBlack=Yes", 0x4000, 0},
    {16, "Rectangle=No", 0x8000, 0},
    {16, "FunctionCodes=None", 0x10000, 0},
    {16, "FormatID=Auto", 0x20000, 0},
    {16, "Rectangle=Manual", 0x40000, 0},
    {16, "StructuredAppend=Yes", 0x80000, 0},
    {16, "Size=Auto", 0x100000, 0},
    {17, "Mode=2", 0x1, 0},
    {17, "Mode=3", 0x2, 0},
    {17, "Mode=4", 0x4, 0},
    {17, "Mode=5", 0x8, 0},
    {17, "Mode=6", 0x10, 0},
    {17, "ZipperBlock=Yes", 0x20, 0},
    {17, "ContrastBlock=Yes", 0x40, 0},
    {17, "StructuredAppend=Yes", 0x80, 0},
    {18, "Model=1", 0x1, 0},
    {18, "Model=2", 0x2, 0},
    {18, "Mode=Manual", 0x4, 0},
    {18, "Mode=Auto", 0x8, 0},
    {18, "Mask=Manual", 0x10, 0},
    {18, "Mask=Auto", 0x20, 0},
    {18, "StructuredAppend=Yes", 0x40, 0},
    {21, "HighPriority=Yes", 0x1, 0},
    {27, "Type=A", 0x1, 0},
    {27, "Type=E", 0x2, 0},
    {27, "Type=F", 0x4, 0},
    {28, "Size=Auto", 0x1, 0},
    {29, "FinderPattern=Yes", 0x1, 0},
    {29, "Compact=Yes", 0x2, 0},
    {29, "Full=Yes", 0x4, 0},
    {29, "WhiteOnBlack=Yes", 0x8, 0},
    {29, "ErrorCorrection=Yes", 0x10, 0},
    {29, "Layers=Yes", 0x20, 0},
    {29, "StructuredAppend=Yes", 0x40, 0},
    {31, "Type=RSS14", 0x1, 0},
    {31, "Type=Truncated", 0x2, 0},
    {31, "Type=Stacked", 0x4, 0},
    {31, "Type=Omnidirectional", 0x8, 0},
    {31, "Type=Limited", 0x10, 0},
    {31, "Type=Expanded", 0x20, 0},
    {31, "Type=ExpandedStacked", 0x40, 0},
    {31, "Type=EAN8", 0, 0},
    {32, "Type=RSS14,ExpandedStacked", 0x41, 0},
    {32, "Type=EAN8", 0x100, 0},
    {32, "Type=EAN13", 0x200, 0},
    {32, "Type=UPCA", 0x400, 0},
    {32, "Type=UPCE", 0x800, 0},
    {32, "Type=128_CC_AB", 0x1000, 0},
    {32, "Type=128_CC_C", 0x2000, 0},
    {31, "SegmentsPerRow=Manual", 0x10000, 0},
    {32, "SegmentsPerRow=Manual", 0x10000, 0},
    {33, "Digits=12", 0x1, 0},
    {33, "Digits=14", 0x2, 0},
    {36, "CheckDigit.Required=Yes", 0x1, 0},
    {36, "Mode=Numeric", 0x2, 0},
    {37, "Model=1,2", 0, 0},
    {37, "Mode=Manual", 0x4, 0},
    {37, "Mode=Auto", 0x8, 0},
    {37, "Mask=Manual", 0x10, 0},
    {37, "Mask=Auto", 0x20, 0},
    {37, "StructuredAppend=Yes", 0, 0},
};

TEST_F(SymbologyReaderTest, EachKeySetsItsOwnBitsOnly) {
  std::string sections = "[None]\n";
  for (const KeyCase& each : kKeys) {
    const std::string name = SymbologyName(each.Row);
    const std::string section = "S" + std::to_string(&each - kKeys);
    sections += "[" + section + "]\nBarCode=Model:" + section + "\n" + name + "=Yes\n" + name +
                "." + each.Line + "\n";
  }
  Define("Driver.d", "[Ostrel Test]\nModel=Model:None\n");
  Define("Model.d", sections);
  PrinterModel& model = InstallAndOpen();
  CapabilitiesData record;
  for (const KeyCase& each : kKeys) {
    model.GetStore().WriteString("Settings:Table/Model",
                                 ("S" + std::to_string(&each - kKeys)).c_str());
    model.GetDefinition().ForgetModelPath();
    BuildCapabilitiesData(&model.GetDefinition(), &record);
    const SymbologyCapability& row = record.Rows[each.Row];
    const char* name = SymbologyName(each.Row);
    EXPECT_EQ(1u, row.Present) << name;
    EXPECT_EQ(each.Flags, uint32_t{row.Flags}) << name << "." << each.Line;
    EXPECT_EQ(each.HrFlags, uint32_t{row.HrFlags}) << name << "." << each.Line;
  }
}

TEST_F(SymbologyReaderTest, SupplementsAreFilledWhetherOrNotTheyAreOn) {
  const SymbologyCapability& row =
      Built(12, "Supplemental5=No\nSupplemental5.Attached=1,5\nSupplemental5.HR=On\n");
  EXPECT_EQ(0u, row.Present);
  EXPECT_EQ(0x11u, uint32_t{row.Flags});
  EXPECT_EQ(0u, row.HumanReadable);
}

TEST_F(SymbologyReaderTest, OtherSymbologiesThatAreOffStayEmpty) {
  const SymbologyCapability& row = Built(8, "UPC-E.Attached=1\nUPC-E.SplitDigit=Full\nHR=On\n");
  EXPECT_EQ(std::vector<uint8_t>(48), BytesOf(row));
}

TEST_F(SymbologyReaderTest, HumanReadableIsNoneAlwaysOrAChoice) {
  const struct {
    const char* Value;
    uint16_t Expected;
  } cases[] = {{"On,Off", 2}, {"Off,On", 2}, {"On", 1}, {"Off", 0}, {"", 0}, {"on", 0}};
  for (const auto& each : cases) {
    Base = ZipBuilder();
    EXPECT_EQ(each.Expected,
              Built(3, std::string("Code128=1\nCode128.HR=") + each.Value + "\n").HumanReadable)
        << each.Value;
    TearDown();
    SetUp();
  }
}

TEST_F(SymbologyReaderTest, FontOfTheHumanReadableText) {
  const std::string name(40, 'n');
  const SymbologyCapability& row =
      Built(3, "Code128=1\nCode128.HR.Font.Name=" + name +
                   "\nCode128.HR.Font.Size=12\nCode128.HR.Font.Weight=700\n");
  EXPECT_EQ(name.substr(0, 31), row.HrFontName);
  EXPECT_EQ(12u, row.HrSize);
  EXPECT_EQ(700u, row.HrWeight);
}

TEST_F(SymbologyReaderTest, CommonKeysFallBackToThePlainOnesAndOwnKeysDoNot) {
  const SymbologyCapability& row =
      Built(18,
            "QRCode=1\nHR=On\nHR.Placement=Above\nHR.Font.Size=9\nHR.Font.Select=1\n"
            "QRCode.HR.Alignment=Left\nHR.Alignment=Right\nModel=1,2\nStructuredAppend=Yes\n");
  EXPECT_EQ(1u, row.HumanReadable);
  EXPECT_EQ(9u, row.HrSize);
  EXPECT_EQ(0x8014u, uint32_t{row.HrFlags});
  EXPECT_EQ(0u, uint32_t{row.Flags});
}

}  // namespace
}  // namespace ostvt::test
