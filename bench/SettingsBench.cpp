// Export and import of settings files with 1, 100 and 10000 records of each kind, beside a plain
// write of the same bytes that reaches the disk. The growth is the time for one record.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "fonts/BarCodeFont.h"
#include "fonts/NameIndex.h"
#include "fuzz/FuzzModel.h"
#include "platform/Files.h"
#include "settings/DriverSession.h"
#include "settings/StockPapers.h"
#include "tests/support/TempDirectory.h"

namespace {

using namespace ostvt;

const test::TempDirectory& Files() {
  static const test::TempDirectory directory;
  return directory;
}

OString NameOf(int64_t number) {
  return OString("Record ") + OString::FromInt(static_cast<int32_t>(number), 5);
}

// A printer of its own, on which nothing is set.
class BenchSession {
 public:
  BenchSession() {
    Session.NoShadowPush = true;
    Session.Model = fuzz::TheModel();
    Session.PrinterName = "Fuzz";
    Session.DevModeBuffer.AllocateDefaults(Session.Model);
    Session.Stock.Build(Session.Model);
    Session.StockLoaded = true;
    Session.PresetsLoaded = true;
  }
  ~BenchSession() { Session.Model = nullptr; }

  // `count` records in each of the chosen sections.
  void Fill(uint32_t sections, int64_t count) {
    const auto isChosen = [sections](uint32_t section) { return (sections & section) != 0; };
    for (int64_t i = 0; i < count; ++i) {
      const OString name = NameOf(i);
      if (isChosen(kSectionStock)) AddStock(name, static_cast<int32_t>(i));
      if (isChosen(kSectionPresets)) AddPreset(name);
      if (isChosen(kSectionDataFonts)) AddBarCode(name);
      if (isChosen(kSectionAliasFonts)) AddMapping(name, kFontAlias);
      if (isChosen(kSectionSubstitutions)) AddMapping(name, kFontSubstitution);
      if (isChosen(kSectionDownloadedFonts)) AddDownloaded(name);
      if (isChosen(kSectionOptionalFonts)) AddOptional(name);
    }
    Session.Stock.Normalize();
    // Each preset is for a label size of its own, the later ones behind many others.
    const StockItem* stock = Session.Stock.GetFirst()->GetNext();
    for (PresetItem* item = Session.Presets.GetFirst(); item && stock; item = item->GetNext()) {
      item->Block.SetStock(ToPaperForm(*stock));
      stock = stock->GetNext();
    }
  }

  DriverSession Session;

 private:
  void AddStock(const OString& name, int32_t width) {
    auto* item = new StockItem;
    item->Name = name;
    item->Width = 10000 + width;
    Session.Stock.AddTail(item);
  }
  void AddPreset(const OString& name) {
    auto* item = new PresetItem;
    item->SetBlockFromDefaults(Session.Model);
    item->SetName(name);
    Session.Presets.AddTail(item);
  }
  // One after the other, as all names differ.
  void AddBarCode(const OString& name) {
    auto font = std::make_unique<BarCodeFont>();
    font->SetName(name);
    Session.DataFonts.AddOrReplace(std::move(font), &BarCodeNames);
  }
  void AddMapping(const OString& name, uint16_t kind) {
    auto mapping = std::make_unique<FontMapping>();
    mapping->Kind = kind;
    mapping->Name = mapping->FullName = name + (kind == kFontAlias ? "a" : "s");
    mapping->Target = "Sans";
    Session.FontMappings.Add(std::move(mapping));
  }
  void AddDownloaded(const OString& name) {
    auto* font = new DownloadedFont;
    font->FaceName = "Verdana";
    SetFullName(&font->Info, name);
    Session.DownloadedFonts.Append(font);
  }
  void AddOptional(const OString& name) {
    auto font = std::make_unique<OptionalFont>();
    font->Name = name;
    Session.OptionalFonts.Add(std::move(font));
  }

  NameIndex BarCodeNames;
};

constexpr uint32_t kLists = 0x0F7;

void ShowGrowth(benchmark::State& state) {
  state.counters["per record"] = benchmark::Counter(
      static_cast<double>(state.range(1)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

uint32_t SectionsOf(const benchmark::State& state) { return static_cast<uint32_t>(state.range(0)); }

OString ExportedFile(const benchmark::State& state) {
  BenchSession bench;
  bench.Fill(SectionsOf(state), state.range(1));
  const OString path = Files().Path("settings.sds").c_str();
  if (!bench.Session.ExportSettings(path, SectionsOf(state), nullptr)) abort();
  return path;
}

void ExportSettings(benchmark::State& state) {
  BenchSession bench;
  bench.Fill(SectionsOf(state), state.range(1));
  const OString path = Files().Path("settings.sds").c_str();
  for (auto _ : state) {
    if (!bench.Session.ExportSettings(path, SectionsOf(state), nullptr)) abort();
  }
  ShowGrowth(state);
}

// What the disk takes for the same file.
void WritePlainFile(benchmark::State& state) {
  ExportedFile(state);
  const std::string bytes = Files().Get("settings.sds");
  const std::u16string path = Files().WidePath(u"plain");
  for (auto _ : state) {
    const std::u16string made = platform::MakeReplacement(path.c_str());
    const platform::FileHandle file = platform::OpenFile(made.c_str(), true, 0, false);
    if (platform::WriteFile(file, bytes.data(), static_cast<uint32_t>(bytes.size())) == 0) abort();
    platform::CloseFile(file);
    if (!platform::PutInPlace(made.c_str(), path.c_str())) abort();
  }
  ShowGrowth(state);
}

// Into a printer without any of them, or over those that are there.
template <bool kAgain>
void Import(benchmark::State& state) {
  const OString path = ExportedFile(state);
  for (auto _ : state) {
    state.PauseTiming();
    auto bench = std::make_unique<BenchSession>();
    if (kAgain) bench->Session.ImportSettings(path, SectionsOf(state), nullptr);
    state.ResumeTiming();
    ImportResult taken;
    bench->Session.ImportSettings(path, SectionsOf(state), &taken);
    if (CountAll(taken) < state.range(1)) abort();
    state.PauseTiming();
    bench.reset();
    state.ResumeTiming();
  }
  ShowGrowth(state);
}

void ImportSettings(benchmark::State& state) { Import<false>(state); }
void ImportSettingsAgain(benchmark::State& state) { Import<true>(state); }

// Each list alone, and all together.
void Sizes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"sections", "records"})->Unit(benchmark::kMicrosecond);
  for (const int64_t sections : {0x001, 0x002, 0x004, 0x010, 0x040, 0x080, 0x0F7}) {
    for (const int64_t records : {1, 100, 10000}) bench->Args({sections, records});
  }
}

void WholeSizes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"sections", "records"})->Unit(benchmark::kMicrosecond);
  for (const int64_t records : {1, 100, 10000}) bench->Args({kLists, records});
}

}  // namespace

BENCHMARK(ExportSettings)->Apply(Sizes);
BENCHMARK(WritePlainFile)->Apply(WholeSizes);
BENCHMARK(ImportSettings)->Apply(Sizes);
BENCHMARK(ImportSettingsAgain)->Apply(WholeSizes);
