#include "core/ArchiveReader.h"
#include "model/ArchiveCache.h"
#include "model/PaperSource.h"
#include "model/RecordCache.h"
#include "platform/Spooler.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class FakePapers : public PaperSource {
 public:
  int32_t LoadPapers(PrinterModel*) override {
    ++Loads;
    return static_cast<int32_t>(Papers.size());
  }
  PaperEntry GetPaper(int32_t index) override { return Papers[static_cast<size_t>(index)]; }
  void Add(uint16_t id, int32_t width, int32_t height, const std::u16string& name) {
    PaperEntry entry;
    entry.PaperId = id;
    entry.Width = width;
    entry.Height = height;
    entry.Name = name.c_str();
    Papers.push_back(entry);
  }

  std::vector<PaperEntry> Papers;
  int Loads = 0;
};

class CapabilityTest : public ModelFixture {
 protected:
  PrinterModel& Built(const std::string& lines) {
    DefineChain(lines);
    return InstallAndOpen();
  }
  // What the answer wrote; bytes behind it keep the poison.
  int32_t Ask(PrinterModel& model, int32_t capability, size_t size, PaperSource* papers = nullptr) {
    Output.assign(size + 8, 0xCC);
    const int32_t result = model.GetDeviceCapability(capability, Output.data(), nullptr, papers);
    for (size_t i = size; i < Output.size(); ++i) EXPECT_EQ(Output[i], 0xCC) << i;
    EXPECT_EQ(model.GetDeviceCapability(capability, nullptr, nullptr, papers), result);
    return result;
  }
  std::u16string Units(size_t first, size_t count) const {
    std::u16string text(count, u'\0');
    memcpy(text.data(), Output.data() + 2 * first, 2 * count);
    return text;
  }
  static std::u16string Padded(std::u16string text, size_t units) {
    text.resize(units);
    return text;
  }

  std::vector<uint8_t> Output;
};

TEST_F(CapabilityTest, UnknownQuestionsGiveMinusOne) {
  PrinterModel& model = InstallAndOpen();
  for (int32_t capability : {-1, 0, 21, 23, 24, 26, 27, 28, 29, 31, 34, 100}) {
    EXPECT_EQ(Ask(model, capability, 0), -1) << capability;
  }
}

TEST_F(CapabilityTest, ConstantAnswers) {
  PrinterModel& model = InstallAndOpen();
  const int32_t answers[][2] = {{7, 0}, {15, 1}, {17, 90}, {19, 2}, {20, 1}, {22, 0}, {30, 0}};
  for (const auto& [capability, answer] : answers) {
    EXPECT_EQ(Ask(model, capability, 0), answer) << capability;
  }
}

TEST_F(CapabilityTest, FieldsOfAMonochromeModel) {
  PrinterModel& model = Built("");
  EXPECT_EQ(Ask(model, kCapabilityFields, 0), 75023);
  EXPECT_EQ(Ask(model, kCapabilityColorDevice, 0), 0);
}

TEST_F(CapabilityTest, FieldsOfAColorModel) {
  PrinterModel& model = Built("Color=yes\nColor.Process=CMYK\n");
  EXPECT_EQ(Ask(model, kCapabilityFields, 0), 25242895);
  EXPECT_EQ(Ask(model, kCapabilityColorDevice, 0), 1);
}

TEST_F(CapabilityTest, ExtentsAreTenthsOfAMillimetreInTwoWords) {
  PrinterModel& model = Built(
      "Stock.Minimum.X=1 in\nStock.Minimum.Y=0.5 in\nStock.Maximum.X=4 in\n"
      "Stock.Maximum.Y=39 in\n");
  EXPECT_EQ(Ask(model, kCapabilityMinExtent, 4), 127 << 16 | 254);
  EXPECT_EQ(Dword(Output, 0), 0x007F00FEu);
  EXPECT_EQ(Ask(model, kCapabilityMaxExtent, 4), 9906 << 16 | 1016);
  EXPECT_EQ(Dword(Output, 0), 9906u << 16 | 1016u);
}

TEST_F(CapabilityTest, ExtentsAreLimited) {
  PrinterModel& model = Built("Stock.Maximum.X=4000 mm\nStock.Maximum.Y=3276.8 mm\n");
  EXPECT_EQ(Ask(model, kCapabilityMinExtent, 4), 0x00010001);
  EXPECT_EQ(Ask(model, kCapabilityMaxExtent, 4), 0x7FFF7FFF);
}

TEST_F(CapabilityTest, OneBin) {
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(Ask(model, kCapabilityBins, 2), 1);
  EXPECT_EQ(Word(Output, 0), 256u);
  EXPECT_EQ(Ask(model, kCapabilityBinNames, 48), 1);
  EXPECT_EQ(Units(0, 24), Padded(u"Internal Spool", 24));
}

TEST_F(CapabilityTest, BinsWithoutOutputWriteNothing) {
  EXPECT_EQ(InstallAndOpen().GetDeviceCapability(kCapabilityBins, nullptr, nullptr), 1);
}

TEST_F(CapabilityTest, HeaderQuestionsWithoutADeviceMode) {
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(Ask(model, kCapabilitySize, 0), 220);
  EXPECT_EQ(Ask(model, kCapabilityExtra, 0), 1296);
  EXPECT_EQ(Ask(model, kCapabilityVersion, 0), 1025);
  EXPECT_EQ(Ask(model, kCapabilityDriver, 0), 0x0607);
}

TEST_F(CapabilityTest, HeaderQuestionsAnswerFromTheDeviceMode) {
  PrinterModel& model = InstallAndOpen();
  uint8_t devMode[72] = {};
  const uint8_t header[] = {0x01, 0x11, 0x02, 0x12, 0x03, 0x13, 0x04, 0x84};
  memcpy(devMode + 64, header, sizeof header);
  EXPECT_EQ(model.GetDeviceCapability(kCapabilityVersion, nullptr, devMode), 0x1101);
  EXPECT_EQ(model.GetDeviceCapability(kCapabilityDriver, nullptr, devMode), 0x1202);
  EXPECT_EQ(model.GetDeviceCapability(kCapabilitySize, nullptr, devMode), 0x1303);
  EXPECT_EQ(model.GetDeviceCapability(kCapabilityExtra, nullptr, devMode), 0x8404);
}

TEST_F(CapabilityTest, Resolutions) {
  PrinterModel& model = Built("Resolution=203,300x150\n");
  EXPECT_EQ(Ask(model, kCapabilityEnumResolutions, 16), 2);
  EXPECT_EQ(Dword(Output, 0), 203u);
  EXPECT_EQ(Dword(Output, 4), 203u);
  EXPECT_EQ(Dword(Output, 8), 300u);
  EXPECT_EQ(Dword(Output, 12), 150u);
}

TEST_F(CapabilityTest, AModelWithoutResolutionsHasNone) {
  EXPECT_EQ(Ask(Built(""), kCapabilityEnumResolutions, 0), 0);
}

TEST_F(CapabilityTest, Copies) {
  EXPECT_EQ(Ask(Built("Copies.Limit=999\n"), kCapabilityCopies, 0), 999);
}

TEST_F(CapabilityTest, PersonalityIsTheFamilyInUpperCase) {
  EXPECT_EQ(Ask(InstallAndOpen(), kCapabilityPersonality, 64), 1);
  EXPECT_EQ(Units(0, 32), Padded(u"OST", 32));
}

TEST_F(CapabilityTest, OnePageOnASheet) {
  EXPECT_EQ(Ask(InstallAndOpen(), kCapabilityNup, 4), 1);
  EXPECT_EQ(Dword(Output, 0), 1u);
}

TEST_F(CapabilityTest, ADriverWithoutDependentFilesHasNone) {
  EXPECT_EQ(Ask(InstallAndOpen(), kCapabilityFileDependencies, 0), 0);
}

TEST_F(CapabilityTest, DependentFilesLieInSlotsWithoutDirectory) {
  Install();
  platform::PrinterHandle printer =
      platform::OpenPrinter(Printers.back()->Name().GetWide(), platform::kPrinterAccessUse);
  platform::DriverRecord driver;
  ASSERT_TRUE(platform::GetDriverRecord(printer, &driver));
  platform::ClosePrinter(printer);
  const std::string longName = std::string(66, 'n') + ".ddz";
  for (const std::string& name : {std::string("vt-one.ddz"), longName}) {
    Files.Put(name, "x");
    driver.DependentFiles.push_back(Files.WidePath(std::u16string(name.begin(), name.end())));
  }
  ASSERT_TRUE(platform::AddDriver(driver));
  EXPECT_EQ(Ask(Open(), kCapabilityFileDependencies, 256), 2);
  EXPECT_EQ(Units(0, 64), Padded(u"vt-one.ddz", 64));
  EXPECT_EQ(Units(64, 64), std::u16string(64, u'n'));
}

TEST_F(CapabilityTest, WithoutAListThereAreNoPapers) {
  PrinterModel& model = InstallAndOpen();
  FakePapers none;
  for (int32_t capability : {2, 3, 16}) {
    EXPECT_EQ(Ask(model, capability, 0), 0);
    EXPECT_EQ(Ask(model, capability, 0, &none), 0);
  }
}

TEST_F(CapabilityTest, PapersAndTheirNamesAgreeInNumberAndOrder) {
  PrinterModel& model = InstallAndOpen();
  FakePapers papers;
  papers.Add(256, 101600, 152400, u"USER");
  papers.Add(300, 50049, 25050, u"Shelf");
  papers.Add(257, 1, 1, std::u16string(70, u'w'));
  EXPECT_EQ(Ask(model, kCapabilityPapers, 6, &papers), 3);
  EXPECT_EQ(Word(Output, 0), 256u);
  EXPECT_EQ(Word(Output, 2), 300u);
  EXPECT_EQ(Word(Output, 4), 257u);
  EXPECT_EQ(Ask(model, kCapabilityPaperSize, 24, &papers), 3);
  const uint32_t sizes[] = {1016, 1524, 500, 251, 0, 0};
  for (size_t i = 0; i < 6; ++i) EXPECT_EQ(Dword(Output, 4 * i), sizes[i]) << i;
  EXPECT_EQ(Ask(model, kCapabilityPaperNames, 384, &papers), 3);
  EXPECT_EQ(Units(0, 64), Padded(u"USER", 64));
  EXPECT_EQ(Units(64, 64), Padded(u"Shelf", 64));
  EXPECT_EQ(Units(128, 64), std::u16string(64, u'w'));
}

TEST_F(CapabilityTest, ThePaperListIsMadeOnlyWhereItIsAskedFor) {
  PrinterModel& model = InstallAndOpen();
  FakePapers papers;
  for (int32_t capability = 0; capability <= 34; ++capability) {
    if (capability == 2 || capability == 3 || capability == 16) continue;
    model.GetDeviceCapability(capability, nullptr, nullptr, &papers);
  }
  EXPECT_EQ(papers.Loads, 0);
}

// A reader that was made without the files would never see them.
TEST_F(CapabilityTest, AWarmModelAnswersWithoutItsArchives) {
  DefineChain("a=found\n");
  TestPrinter& printer = Install();
  for (const std::filesystem::path& archive : Installed) std::filesystem::remove(archive);
  ModelData cached = {};
  cached.Resolutions[0] = {203, 203};
  TheRecordCache()->Put(printer.Name() + ":ModelData", &cached, sizeof cached);
  PrinterModel& model = Open();
  for (int32_t capability = 0; capability <= 34; ++capability) {
    model.GetDeviceCapability(capability, nullptr, nullptr);
  }
  EXPECT_EQ(model.GetDefaultResolutionX(), 203);
  Base.WriteTo(Installed[0].string());
  EXPECT_STREQ(model.GetDefinitionString("Model", "a").GetNarrow(), "found");
}

// As a print dialog asks: each question opens the printer anew, first for the count, then for data.
TEST_F(CapabilityTest, AWarmCallTouchesNoArchive) {
  DefineChain("Resolution=203\nCopies.Limit=5\n");
  PrinterModel& cold = InstallAndOpen();
  uint32_t opens = TheArchiveCache()->GetOpenCount();
  EXPECT_EQ(opens, 1u);
  ArchiveReader* reader =
      TheArchiveCache()->Open(Installed[0].u16string().c_str(), Installed[1].u16string().c_str());
  opens = TheArchiveCache()->GetOpenCount();
  const uint32_t lookups = reader->GetLookupCount();
  EXPECT_EQ(cold.GetCopiesLimit(), 5);
  FakePapers papers;
  papers.Add(256, 101600, 152400, u"USER");
  std::vector<uint8_t> devMode(1516);
  for (int32_t capability = 0; capability <= 34; ++capability) {
    for (const void* block :
         {static_cast<const void*>(nullptr), static_cast<const void*>(devMode.data())}) {
      PrinterId id(Printers.back()->Name());
      PrinterModel model;
      ASSERT_TRUE(model.Open(id));
      uint8_t output[2048];
      model.GetDeviceCapability(capability, nullptr, block, &papers);
      model.GetDeviceCapability(capability, output, block, &papers);
    }
  }
  EXPECT_EQ(TheArchiveCache()->GetOpenCount(), opens);
  EXPECT_EQ(reader->GetLookupCount(), lookups);
}

TEST_F(CapabilityTest, ALongNameIsNotCutInsideACharacter) {
  PrinterModel& model = InstallAndOpen();
  const std::u16string head(63, u'w');
  FakePapers papers;
  papers.Add(1, 1, 1, head + u"\U0001F5A8");
  papers.Add(2, 1, 1, head + u"\u0416\U0001F5A8");
  papers.Add(3, 1, 1, std::u16string(62, u'w') + u"\U0001F5A8!");
  EXPECT_EQ(Ask(model, kCapabilityPaperNames, 384, &papers), 3);
  EXPECT_EQ(Units(0, 64), Padded(head, 64));
  EXPECT_EQ(Units(64, 64), head + u"\u0416");
  EXPECT_EQ(Units(128, 64), std::u16string(62, u'w') + u"\U0001F5A8");
}

}  // namespace
}  // namespace ostvt::test
