#include "model/ModelDefinition.h"

#include "platform/Module.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class ModelDefinitionTest : public ModelFixture {
 protected:
  void DefineAllContexts() {
    Define("Driver.d",
           "[Ostrel Test]\nManufacturer=Manufacturer:M\nModel=Model:One\nWhere=Driver\n");
    Define("Manufacturer.d", "[M]\nWhere=Manufacturer\n");
    Define("Model.d",
           "[One]\nWhere=Model\nBarCode=BarCode:B\nDrawing=Drawing:D\nFeatures=Features:F\n"
           "Font=Font:Small\nMethod=Method:P\nRFID=RFID:R\n~CustomData=CustomData:C\n"
           "Other=Method:Q\n");
    Define("BarCode.d", "[B]\nWhere=BarCode\n");
    Define("Encodings.d", "[E]\nWhere=Encodings\n");
    Define("Drawing.d", "[D]\nWhere=Drawing\n");
    Define("Features.d", "[F]\nWhere=Features\n");
    Define("Font.d",
           "[Small]\nWhere=Font\nEncodings=Encodings:E\n[Big]\nWhere=Big\nEncodings=Encodings:E\n");
    Define("Method.d", "[P]\nWhere=Method\n[Q]\nWhere=Other\n");
    Define("RFID.d", "[R]\nWhere=RFID\n");
    Define("CustomData.d", "[C]\nWhere=CustomData\n");
  }
  static std::string Where(ModelDefinition& definition, Context context) {
    definition.SelectContext(context);
    return definition.GetString("Where").GetNarrow();
  }
  static std::string WhereByName(ModelDefinition& definition, const OString& name) {
    definition.SelectContextByName(name);
    return definition.GetString("Where").GetNarrow();
  }
};

TEST_F(ModelDefinitionTest, ContextsFollowTheChain) {
  DefineAllContexts();
  ModelDefinition& definition = InstallAndOpen().GetDefinition();
  EXPECT_EQ(Where(definition, Context::kDriver), "Driver");
  EXPECT_EQ(Where(definition, Context::kManufacturer), "Manufacturer");
  EXPECT_EQ(Where(definition, Context::kModel), "Model");
  EXPECT_EQ(Where(definition, Context::kBarCode), "BarCode");
  EXPECT_EQ(Where(definition, Context::kEncodings), "Encodings");
  EXPECT_EQ(Where(definition, Context::kDrawing), "Drawing");
  EXPECT_EQ(Where(definition, Context::kFeatures), "Features");
  EXPECT_EQ(Where(definition, Context::kFont), "Font");
  EXPECT_EQ(Where(definition, Context::kMethod), "Method");
  EXPECT_EQ(Where(definition, Context::kRfid), "RFID");
  EXPECT_EQ(Where(definition, Context::kCustomData), "CustomData");
}

TEST_F(ModelDefinitionTest, AnIndexAboveTheContextsLeavesTheSection) {
  DefineAllContexts();
  ModelDefinition& definition = InstallAndOpen().GetDefinition();
  definition.SelectContext(Context::kMethod);
  EXPECT_EQ(Where(definition, static_cast<Context>(11)), "Method");
}

TEST_F(ModelDefinitionTest, ContextsByName) {
  DefineAllContexts();
  ModelDefinition& definition = InstallAndOpen().GetDefinition();
  EXPECT_EQ(WhereByName(definition, "DRIVER"), "Driver");
  EXPECT_EQ(WhereByName(definition, "manufacturer"), "Manufacturer");
  EXPECT_EQ(WhereByName(definition, "Model"), "Model");
  EXPECT_EQ(WhereByName(definition, "encodings"), "Encodings");
  EXPECT_EQ(WhereByName(definition, "Drawing"), "Drawing");
  EXPECT_EQ(WhereByName(definition, "Other"), "Other");
  EXPECT_EQ(WhereByName(definition, "Font:Big"), "Big");
}

TEST_F(ModelDefinitionTest, AMissingLinkLeavesTheSectionItWasLookedForIn) {
  DefineChain("Where=Model\nDrawing=Drawing:D\n");
  Define("Drawing.d", "[D]\nWhere=Drawing\n");
  ModelDefinition& definition = InstallAndOpen().GetDefinition();
  definition.SelectContext(Context::kDrawing);
  EXPECT_EQ(Where(definition, Context::kRfid), "Model");
}

TEST_F(ModelDefinitionTest, AStoreValueRedirectsALinkToItsOwnFile) {
  DefineAllContexts();
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteString("Settings:Table/Font", "Big");
  EXPECT_EQ(Where(model.GetDefinition(), Context::kFont), "Big");
}

TEST_F(ModelDefinitionTest, AStoreValueRedirectsTheModelToo) {
  Define("Driver.d", "[Ostrel Test]\nModel=Model:One\n");
  Define("Model.d", "[One]\nWhere=Model\n[Two]\nWhere=Two\n");
  Install();
  PrinterModel& first = Open();
  first.GetStore().WriteString("Settings:Table/Model", "Two");
  // The path was looked up when the first one was opened, and stays.
  EXPECT_EQ(Where(first.GetDefinition(), Context::kModel), "Model");
  EXPECT_EQ(Where(Open().GetDefinition(), Context::kModel), "Two");
}

TEST_F(ModelDefinitionTest, AStoreValueRedirectsCustomData) {
  DefineAllContexts();
  Define("~CustomData.d", "[Mine]\nWhere=Mine\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteString("Settings:Table/~CustomData", "Mine");
  EXPECT_EQ(Where(model.GetDefinition(), Context::kCustomData), "Mine");
}

TEST_F(ModelDefinitionTest, AKeyWithASlashIsOneNameInTheStore) {
  DefineChain("Where=Model\nA/B=Method:Q\n");
  Define("Method.d", "[Q]\nWhere=Linked\n");
  Define("A/B.d", "[Mine]\nWhere=Mine\n");
  PrinterModel& model = InstallAndOpen();
  // This one belongs to a key B below a table of its own.
  model.GetStore().WriteString("Settings:Table/A/B", "Mine");
  EXPECT_EQ(WhereByName(model.GetDefinition(), "A/B"), "Linked");
  model.GetStore().WriteString("Settings:Table/A//B", "Mine");
  EXPECT_EQ(WhereByName(model.GetDefinition(), "A/B"), "Mine");
}

TEST_F(ModelDefinitionTest, LoadingAgainLooksTheModelUpAnewEvenFromTheCache) {
  Define("Driver.d", "[Ostrel Test]\nModel=Model:One\n");
  Define("Model.d", "[One]\nWhere=One\n[Two]\nWhere=Two\n");
  Install();
  PrinterModel& first = Open();
  PrinterModel& second = Open();
  first.GetStore().WriteString("Settings:Table/Model", "Two");
  second.Invalidate();
  first.GetDefinition().LoadModelData();
  EXPECT_EQ(Where(first.GetDefinition(), Context::kModel), "Two");
}

TEST_F(ModelDefinitionTest, WithoutADriverDirectoryTheModulesIsUsed) {
  Define("Driver.d", "[Ostrel Test]\nWhere=Module\n");
  Install();
  PrinterId id(Printers.back()->Name());
  // As of a driver whose record names its files without one.
  const_cast<OString&>(id.Driver().DriverDirectory).Release();
  Installed.push_back(std::filesystem::path(platform::ModuleDirectory()) / "vt#base.ddz");
  ASSERT_FALSE(std::filesystem::exists(Installed.back()));
  ASSERT_TRUE(Base.WriteTo(Installed.back().string()));
  ModelDefinition definition(id);
  EXPECT_EQ(Where(definition, Context::kDriver), "Module");
}

TEST_F(ModelDefinitionTest, ABrokenBaseArchiveLeavesTheFamilysMembers) {
  Base.Add("Other.d", "");
  Base.EntryCount = 7;
  DefineInFamily("Driver.d", "[Ostrel Test]\nModel=Model:One\n");
  DefineInFamily("Model.d", "[One]\nCopies.Limit=5\n");
  EXPECT_EQ(InstallAndOpen().GetCopiesLimit(), 5);
}

TEST_F(ModelDefinitionTest, AKeyOfTheMakerWinsOnItsDriverOnly) {
  DefineChain(
      "Stock.Maximum.X=4 in\nStock.Maximum.X(IN)=3 in\nStock.Minimum.X=1 in\n"
      "Stock.Minimum.X(IN)=\n");
  EXPECT_EQ(InstallAndOpen().GetMaximumX().Units(), 4 * 254000);
  TearDown();
  SetUp();
  TestPrinterOptions other;
  other.DataFile = u"ostin.dat";
  PrinterModel& model = InstallAndOpen(other);
  EXPECT_STREQ(model.GetDefinition().KeySuffix.GetNarrow(), "(IN)");
  EXPECT_EQ(model.GetMaximumX().Units(), 3 * 254000);
  // An empty one counts as absent.
  EXPECT_EQ(model.GetMinimumX().Units(), 254000);
}

TEST_F(ModelDefinitionTest, TagsComeFromTheDataFile) {
  TestPrinterOptions options;
  options.DataFile = u"OSTVT.dat";
  PrinterModel& model = InstallAndOpen(options);
  EXPECT_STREQ(model.GetOemTag(), "ovt");
  EXPECT_STREQ(model.GetFamilyCode(), "ost");
  EXPECT_STREQ(model.GetDefinition().KeySuffix.GetNarrow(), "(VT)");
  EXPECT_STREQ(model.GetDriverName().GetNarrow(), "Ostrel Test");
  EXPECT_STREQ(model.GetPrinterName().GetNarrow(), "Test Printer");
}

TEST_F(ModelDefinitionTest, ABaseMemberHidesTheFamilysMemberOfTheSameName) {
  DefineChain("Where=base\n");
  DefineInFamily("Model.d", "[One]\nWhere=family\n");
  DefineInFamily("Extra.d", "[One]\nWhere=extra\n");
  ModelDefinition& definition = InstallAndOpen().GetDefinition();
  EXPECT_EQ(Where(definition, Context::kModel), "base");
  EXPECT_EQ(WhereByName(definition, "Extra:One"), "extra");
}

TEST_F(ModelDefinitionTest, ModelsOfOneDriverShareTheReader) {
  DefineChain("Where=Model\n");
  Install();
  ModelDefinition& first = Open().GetDefinition();
  EXPECT_EQ(Where(first, Context::kModel), "Model");
  // The archive is gone; what the reader holds is still there.
  const std::u16string directory = Printers.back()->DriverDirectory();
  std::filesystem::remove(std::filesystem::path(directory) / "vt#base.ddz");
  ModelDefinition& second = Open().GetDefinition();
  EXPECT_EQ(Where(second, Context::kModel), "Model");
}

TEST_F(ModelDefinitionTest, WithoutArchivesEverythingIsDefault) {
  PrinterModel& model = InstallAndOpen();
  EXPECT_STREQ(model.GetDefinition().GetStringEx("a", "d").GetNarrow(), "d");
  EXPECT_EQ(Where(model.GetDefinition(), Context::kModel), "");
}

TEST_F(ModelDefinitionTest, ADriverNameBeyondAsciiFindsItsSection) {
  Define("Driver.d", "[\xC4rger]\nWhere=Driver\n");
  TestPrinterOptions options;
  options.DriverName = u"\u00C4rger";
  EXPECT_EQ(Where(InstallAndOpen(options).GetDefinition(), Context::kDriver), "Driver");
}

TEST_F(ModelDefinitionTest, AlignmentWords) {
  const char* const words[] = {"Top/Left",     "TOP/RIGHT",     "bottom/left",
                               "Bottom/Right", "Baseline/Left", "Baseline/Right"};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(ModelDefinition::ParseAlignment(words[i]), i);
  EXPECT_EQ(ModelDefinition::ParseAlignment("Middle"), 0);
  EXPECT_EQ(ModelDefinition::ParseAlignment(""), 0);
}

TEST_F(ModelDefinitionTest, EncodingDescriptionIsReadOnceAndKeptInTheStore) {
  DefineChain("Font=Font:F\n");
  Define("Font.d", "[F]\nEncodings=Encodings:E\n");
  Define("Encodings.d", "[E]\nLatin/1.Description=Western;One\n");
  PrinterModel& model = InstallAndOpen();
  const char* const path = "MODEL:FontEncodings/Latin//1.Description";
  EXPECT_EQ(model.GetStore().GetValueSize(path), -1);
  EXPECT_STREQ(model.GetEncodingDescription("Latin/1").GetNarrow(), "Western;One");
  EXPECT_STREQ(model.GetStore().ReadString(path, "").GetNarrow(), "Western;One");
  model.GetStore().WriteString(path, "Ours");
  EXPECT_STREQ(model.GetEncodingDescription("Latin/1").GetNarrow(), "Ours");
  // One that is stored as empty is an answer too.
  model.GetStore().WriteString(path, "");
  EXPECT_STREQ(model.GetEncodingDescription("Latin/1").GetNarrow(), "");
}

TEST_F(ModelDefinitionTest, EncodingDescriptionThatCouldNotBeReadBackIsNotKept) {
  const std::string text(5000, 'x');
  DefineChain("Font=Font:F\n");
  Define("Font.d", "[F]\nEncodings=Encodings:E\n");
  Define("Encodings.d", "[E]\nLong.Description=" + text + "\n");
  PrinterModel& model = InstallAndOpen();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(text, model.GetEncodingDescription("Long").GetNarrow());
  EXPECT_EQ(model.GetStore().GetValueSize("MODEL:FontEncodings/Long.Description"), -1);
}

TEST_F(ModelDefinitionTest, DriverInfoLayout) {
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetDriverInfo());
  const std::vector<uint8_t> expected = {24,  0,   6,   0, 7, 0,    4, 0, 1, 0, 0, 0,
                                         'o', 's', 't', 0, 0, 0x80, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(bytes, expected);
}

TEST_F(ModelDefinitionTest, ManufacturerInfoLayout) {
  DefineChain("");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetManufacturerInfo());
  ASSERT_EQ(bytes.size(), 78u);
  EXPECT_EQ(Word(bytes, 0), 78u);
  EXPECT_EQ(Text(bytes, 2, 38), "Maker Ltd");
  EXPECT_EQ(Text(bytes, 40, 32), "Vantrel");
  EXPECT_EQ(Text(bytes, 72, 6), "vt");
}

TEST_F(ModelDefinitionTest, DriverMakerFollowsTheMakerCode) {
  const struct {
    const char16_t* DataFile;
    const char* Maker;
  } cases[] = {{u"ostin.dat", "Intermec Corporation"},
               {u"osttt.dat", "Toshiba TEC Corporation"},
               {u"ostdt.dat", "Datamax Corporation"},
               {u"ostzz.dat", "Vantrel"}};
  for (const auto& each : cases) {
    TestPrinterOptions options;
    options.DataFile = each.DataFile;
    EXPECT_STREQ(InstallAndOpen(options).GetManufacturerInfo()->DriverMaker, each.Maker);
    TearDown();
    SetUp();
  }
}

TEST_F(ModelDefinitionTest, RfidRecordWithoutTagsIsItsFrameAlone) {
  PrinterModel& model = InstallAndOpen();
  const std::vector<uint8_t> bytes = BytesOf(*model.GetRfidCapabilities());
  std::vector<uint8_t> expected(160);
  expected[0] = 160;
  expected[2] = 16;
  expected[4] = 16;
  expected[6] = 9;
  EXPECT_EQ(bytes, expected);
  EXPECT_FALSE(model.HasRfid());
  EXPECT_FALSE(model.IsRfidEnabled());
}

TEST_F(ModelDefinitionTest, RecordsAreLoadedOnceForAnObject) {
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(model.GetDriverInfo(), model.GetDriverInfo());
  EXPECT_EQ(model.GetManufacturerInfo(), model.GetManufacturerInfo());
  EXPECT_EQ(model.GetCapabilities(), model.GetCapabilities());
  EXPECT_EQ(model.GetRfidCapabilities(), model.GetRfidCapabilities());
}

}  // namespace
}  // namespace ostvt::test
