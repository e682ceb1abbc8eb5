// A session on a printer whose settings pass through files, with a factory file of the test's own.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "core/OFile.h"
#include "fonts/BarCodeFont.h"
#include "fonts/RFIDFont.h"
#include "platform/Files.h"
#include "platform/Module.h"
#include "settings/DriverOptions.h"
#include "settings/DriverSession.h"
#include "settings/StockPapers.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/settings/PresetFixture.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {

// "Defaults.sds" beside the module, while it lives: absent until it is written.
class FactoryFile {
 public:
#ifdef _WIN32
  FactoryFile() { Remove(); }
  ~FactoryFile() { Remove(); }
#else
  FactoryFile() { setenv("OSTVT_MODULE_DIR", Directory.Path().c_str(), 1); }
  ~FactoryFile() { unsetenv("OSTVT_MODULE_DIR"); }
#endif
  FactoryFile(const FactoryFile&) = delete;
  FactoryFile& operator=(const FactoryFile&) = delete;

  void Write(const std::string& text) {
    OFile file(Path(), kFileWrite | kFileCreate);
    EXPECT_EQ(text.size(), file.Write(text.data(), static_cast<uint32_t>(text.size())));
  }

 private:
  static OString Path() { return OString(platform::ModuleDirectory().c_str()) + "/Defaults.sds"; }
#ifdef _WIN32
  static void Remove() { OFile::DeleteFile(Path()); }
#else
  TempDirectory Directory;
#endif
};

// At most 110 mm wide, 203 x 203 and 300 x 150 dots per inch, with bar codes and tags.
inline ModelText FullModelText() {
  ModelText text = WideModelText();
  text.Model += "Resolution=203,300x150\n";
  text.Model.erase(text.Model.find("Resolution=203\n"), 15);
  text.BarCode = "Code39=Yes\nCode128=Yes\nQRCode=Yes\nQRCode.Mode=Manual\n";
  text.Rfid = "EPCGen2=Yes\nEPCGen2.Types=Class1\n";
  return text;
}

// At most 60 mm wide, 300 x 300 dots per inch alone, fewer bar codes and no tags.
inline ModelText SmallModelText() {
  ModelText text = WideModelText();
  text.Driver = "Ostrel Other";
  text.Model =
      "Stock.Default.X=50 mm\nStock.Default.Y=30 mm\nStock.Minimum.X=10 mm\n"
      "Stock.Minimum.Y=5 mm\nStock.Maximum.X=60 mm\nStock.Maximum.Y=500 mm\nResolution=300\n";
  text.BarCode = "Code39=Yes\n";
  return text;
}

class SettingsFileTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    Install(FullModelText());
  }
  void TearDown() override {
    Session.reset();
    SettingsTest::TearDown();
  }

  // Another machine with a printer of its own, on which nothing is set.
  void Install(const ModelText& text, const std::u16string& printerName = u"Test Printer") {
    Session.reset();
    ModelObject.reset();
    Printer.reset();
    CloseCaches();
    OpenCaches();
    TestPrinterOptions options;
    options.Name = printerName;
    options.DriverName = OString(text.Driver.c_str()).GetWide();
    AddPrinter(text, options);
    TrueStore().Delete("NETWORK:", true);
    Open();
  }
  void Open() {
    Session = std::make_unique<DriverSession>();
    Session->NoShadowPush = true;
    Session->Link.Loader = &Monitor;
    Session->Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, Session->Model);
  }
  // The session's settings as the next one finds them.
  void Reopen() {
    Session.reset();
    Open();
  }
  PrinterRegistry TrueStore() const {
    PrinterRegistry store = Store();
    store.SetShadowed(false);
    return store;
  }

  // What a file at this name holds; "" without one.
  std::string Exported(uint32_t sections, const std::string& name = "out.sds") {
    EXPECT_TRUE(Session->ExportSettings(Files.Path(name).c_str(), sections, &Written));
    return Files.Get(name);
  }
  // "2 0 0 0 0 0 0 0 0 0": in the order of the record.
  std::string Import(const std::string& bytes, uint32_t sections = kAllSections) {
    Session->ImportSettings(Files.Put("in.sds", bytes).c_str(), sections, &Taken);
    return CountsOf(Taken);
  }
  static std::string CountsOf(const ImportResult& result) {
    std::string text;
    for (const int count : {+result.Stock, +result.Presets, +result.DataFonts, +result.AliasFonts,
                            +result.Substitutions, +result.DownloadedFonts, +result.OptionalFonts,
                            +result.Options, +result.DefaultDevMode, +result.Network}) {
      text += (text.empty() ? "" : " ") + std::to_string(count);
    }
    return text;
  }

  // Everything below a key path, its own place left out.
  static std::string BranchOf(PrinterRegistry store, const char* path) {
    OStringArray lines;
    if (!store.ExportBranch(path, &lines, 0)) return "";
    store.CollapseAliasInLines("DATA:", &lines);
    std::string text;
    for (int32_t i = 0; i < lines.Count; ++i) text += Utf8Of(lines[i]) + "\n";
    return text;
  }
  std::string BranchOf(const char* path) const { return BranchOf(TrueStore(), path); }
  // All that settings files are about.
  std::string AllBranches() const {
    std::string text;
    for (const char* path :
         {"Stock:", "Presets:", "DATA:Data Fonts", "DATA:Alias Fonts", "DATA:Font Substitutions",
          "DATA:Downloaded Fonts", "DATA:Optional Fonts", "Settings:", "NETWORK:"}) {
      text += BranchOf(path);
    }
    return text;
  }
  int32_t StoredLabelCount() const {
    PrinterId id(Printer->Name());
    const Buffer& stored = id.Printer().DevMode;
    return LabelCountOf(DevMode(stored.Data, stored.Size));
  }
  void SetLabelCount(int32_t count) {
    Session->DevModeBuffer.GetOstrelSettings()->labelCount = count;
  }
  std::string StockNames() { return NamesOf(Session->GetStock()); }
  int RestartsAsked() const {
    return static_cast<int>(std::count(Monitor.Requests.begin(), Monitor.Requests.end(),
                                       std::string("<network action='restart'/>")));
  }

  // Something in every section, in the session and in the store.
  void FillAll();

  TempDirectory Files;
  FactoryFile Factory;
  FakeMonitor Monitor;
  std::unique_ptr<DriverSession> Session;
  ExportResult Written = {};
  ImportResult Taken = {};
};

inline void SettingsFileTest::FillAll() {
  PrinterModel* const model = Session->Model;
  StockList& stock = Session->GetStock();
  AddStockTo(&stock, u"\u6807 = caf\u00E9", 40000, 30000)->TopMargin = 500;
  AddStockTo(&stock, "Shelf", 50000, 25000)->LeftMargin = 1000;
  AddStockTo(&stock, "Wide", 100000, 25000);
  stock.GetFirst()->Height = 12345;  // the user form
  stock.Normalize();

  DevMode& devMode = Session->DevModeBuffer;
  devMode.GetOstrelSettings()->labelCount = 5;
  devMode.SetStock(ToPaperForm(*stock.FindByName("Shelf")));
  devMode.SetResolution(150 << 16 | 300);
  PresetItem* preset = AddPresetTo(&Session->GetPresets(), model, "Fast", 7, "Quick = draft");
  preset->Block.SetStock(ToPaperForm(*stock.FindByName("Wide")));
  preset->Block.SetResolution(150 << 16 | 300);
  PresetItem* other = AddPresetTo(&Session->Presets, model, u"Stra\u00DFe", 8);
  // As pages leave them.
  StockPapers papers(model, &stock);
  for (DevMode* block : {&devMode, &preset->Block, &other->Block}) block->Validate(model, &papers);

  auto code = std::make_unique<BarCodeFont>();
  code->SetName("Parcel");
  code->Rescale(model->GetDefaultResolutionX());
  Session->DataFonts.AddOrReplace(std::move(code));
  auto tag = std::make_unique<RFIDFont>();
  tag->SetName("Tag");
  tag->Normalise(model);
  Session->DataFonts.AddOrReplace(std::move(tag));
  auto alias = std::make_unique<FontMapping>();
  alias->Kind = kFontAlias;
  alias->Name = "Plain";
  alias->Target = "Sans";
  alias->ScaleX = 0.5f;
  Session->FontMappings.Add(std::move(alias));
  auto substitution = std::make_unique<FontMapping>();
  substitution->Name = "Arial";
  substitution->FullName = "Arial Bold";
  substitution->Target = "Sans";
  substitution->Weight = 700;
  Session->FontMappings.Add(std::move(substitution));
  auto* downloaded = new DownloadedFont;
  downloaded->FaceName = "Verdana";
  downloaded->Type = kDownloadedBitmap;
  SetFullName(&downloaded->Info, "Verdana Bold");
  downloaded->PointSize = 95;
  downloaded->EncodingTable.SetSize(kEncodingEntries);
  downloaded->EncodingTable[255] = 0x1234;
  Session->DownloadedFonts.Append(downloaded);
  auto optional = std::make_unique<OptionalFont>();
  optional->Name = "Serif";
  optional->FontGroup = "FontGroup:Card.pfg";
  optional->Provider = "Card";
  Session->OptionalFonts.Add(std::move(optional));

  DriverOptions options;
  options.Bind(model);
  options.SetQueryInterval(2500);
  options.SetDirectory(u"C:\\log\\\u6807");
  options.SetMinimumPageWidth(12345);
  EXPECT_TRUE(options.Commit());
  Session->Link.SetTcpPort(7000);
  Session->Link.SetServerAddress("10.0.0.1");
  Session->Save();
}

}  // namespace ostvt::test
