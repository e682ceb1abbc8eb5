// A printer's presets: device modes that its users have named.
#include "settings/InitialDevMode.h"
#include "settings/PresetList.h"
#include "settings/StockPapers.h"
#include "settings/StoredDevMode.h"
#include "store/PrinterId.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/Lengths.h"
#include "tools/vtdal/OpenedModel.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::DevMode;
using ostvt::OString;
using ostvt::PresetItem;
using ostvt::PresetList;
using ostvt::PrinterModel;
using ostvt::PublicDevMode;

constexpr const char* kHelp =
    "Usage: vtdal presets list NAME [--json]\n"
    "\n"
    "Shows the presets of a printer: settings that its users have named.\n"
    "\n"
    "  list    all presets; \"*\" marks the one that the printer's default settings equal\n"
    "  --json  as JSON, lengths in millimeters\n";

constexpr int64_t kMicronsPerTenth = 100;
constexpr const char* kOrientations[] = {"portrait", "landscape", "portrait, turned",
                                         "landscape, turned"};

// The printer's default settings, as a session begins with them.
void ReadDefaults(const std::u16string& printer, PrinterModel* model, DevMode* devMode) {
  devMode->Allocate();
  if (!LoadInitialDevMode(model, devMode)) devMode->SetDefaults(model);
  ostvt::PrinterId id{OString(printer.c_str())};
  ostvt::StockPapers papers(model);
  MergeStoredDevMode(devMode, id, model, &papers);
}

struct Shown {
  explicit Shown(const PresetItem& item)
      : Name(ToUtf8(item.Name.GetWide())),
        Description(ToUtf8(item.Description.GetWide())),
        Width(item.Block.Get(&PublicDevMode::dmPaperWidth) * kMicronsPerTenth),
        Height(item.Block.Get(&PublicDevMode::dmPaperLength) * kMicronsPerTenth),
        ResolutionX(item.Block.Get(&PublicDevMode::dmPrintQuality)),
        ResolutionY(item.Block.Get(&PublicDevMode::dmYResolution)),
        Orientation(kOrientations[item.Block.GetOrientation()]) {}

  std::string Name;
  std::string Description;
  int64_t Width;
  int64_t Height;
  int32_t ResolutionX;
  int32_t ResolutionY;
  const char* Orientation;
};

void PrintTable(const PresetList& list, const PresetItem* inForce) {
  std::vector<std::string> columns[6];
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    const Shown shown(*item);
    columns[0].push_back(item == inForce ? "*" : "");
    columns[1].push_back(Printable(shown.Name));
    columns[2].push_back(SizeText(shown.Width, shown.Height));
    columns[3].push_back(Format("%d x %d dpi", shown.ResolutionX, shown.ResolutionY));
    columns[4].push_back(shown.Orientation);
    columns[5].push_back(Printable(shown.Description));
  }
  if (columns[0].empty()) return;
  PrintColumns({"", "Preset", "Size", "Resolution", "Orientation", "Description"},
               {columns[0], columns[1], columns[2], columns[3], columns[4], columns[5]});
}

void PrintJson(const std::u16string& printer, const PresetList& list, const PresetItem* inForce) {
  JsonWriter json;
  json.BeginObject();
  json.Key("printer");
  json.String(printer);
  json.Key("presets");
  json.BeginArray();
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    const Shown shown(*item);
    json.BeginObject();
    json.Key("name");
    json.String(shown.Name);
    json.Key("description");
    json.String(shown.Description);
    json.Key("isDefault");
    json.Boolean(item == inForce);
    json.Key("widthMm");
    json.Decimal(shown.Width, 3);
    json.Key("heightMm");
    json.Decimal(shown.Height, 3);
    json.Key("resolutionX");
    json.Number(shown.ResolutionX);
    json.Key("resolutionY");
    json.Number(shown.ResolutionY);
    json.Key("orientation");
    json.String(std::string_view(shown.Orientation));
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  Print(json.Take());
}

int RunPresets(const Arguments& arguments) {
  const std::vector<std::u16string>& words = arguments.Words();
  if (words[0] != u"list")
    return UsageError("presets", "unknown action '" + Printable(words[0]) + "'");
  if (words.size() < 2) return UsageError("presets", "too few arguments");
  OpenedModel model;
  if (!model.Open(words[1])) return kFailed;
  PresetList list;
  list.Load(model.Get());
  DevMode defaults;
  ReadDefaults(words[1], model.Get(), &defaults);
  const PresetItem* inForce = list.FindForDevMode(defaults);
  if (arguments.Has("--json"))
    PrintJson(words[1], list, inForce);
  else
    PrintTable(list, inForce);
  return kDone;
}

}  // namespace

std::vector<Command> PresetsCommands() {
  return {{"presets", kHelp, 1, 2, {{"--json", false}}, RunPresets}};
}

}  // namespace vtdal
