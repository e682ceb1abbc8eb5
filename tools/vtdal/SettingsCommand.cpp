// All of a printer's settings, to and from files, and back to the factory's.
#include "core/OFile.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/OpenedSession.h"
#include "tools/vtdal/SharedEdit.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::ImportResult;

constexpr const char* kHelp =
    "Usage: vtdal settings export NAME FILE [--sections LIST] [--json]\n"
    "       vtdal settings import NAME FILE [--sections LIST] [--json] [--module FILE]\n"
    "       vtdal settings reset NAME [--sections LIST] [--module FILE]\n"
    "\n"
    "Moves a printer's settings to other printers by a settings file, and brings them back to the\n"
    "factory's.\n"
    "\n"
    "  export            writes a settings file\n"
    "  import            takes a settings file in, or an older \"SFM1\", \"SBF1\" or preset file;\n"
    "                    records for other models are passed over\n"
    "  reset             removes the settings and takes in \"Defaults.sds\" beside the driver's\n"
    "                    module; downloaded and optional fonts stay\n"
    "\n"
    "  --sections LIST   only these, parted by commas: stock, presets, data-fonts, aliases,\n"
    "                    substitutions, downloaded, optional, options, devmode, network. An "
    "import\n"
    "                    takes the network settings with \"options\", not with \"network\"\n"
    "  --json            the counts as JSON\n"
    "  --module FILE     the driver's module, beside which the monitor and the defaults lie\n"
    "\n"
    "Shows how many there were of each. An import that takes nothing fails.\n";

// One kind of record: a number, or whether it was there.
struct Section {
  const char* Name;
  uint32_t Bit;
  const char* Key;
  const char* Title;
  uint16_t ImportResult::*Count;
  uint8_t ImportResult::*Flag;
};

constexpr Section kSections[] = {
    {"stock", ostvt::kSectionStock, "stock", "label sizes", &ImportResult::Stock, nullptr},
    {"presets", ostvt::kSectionPresets, "presets", "presets", &ImportResult::Presets, nullptr},
    {"data-fonts", ostvt::kSectionDataFonts, "dataFonts", "data fonts", &ImportResult::DataFonts,
     nullptr},
    {"aliases", ostvt::kSectionAliasFonts, "aliasFonts", "aliases", &ImportResult::AliasFonts,
     nullptr},
    {"substitutions", ostvt::kSectionSubstitutions, "substitutions", "substitutions",
     &ImportResult::Substitutions, nullptr},
    {"downloaded", ostvt::kSectionDownloadedFonts, "downloadedFonts", "downloaded fonts",
     &ImportResult::DownloadedFonts, nullptr},
    {"optional", ostvt::kSectionOptionalFonts, "optionalFonts", "optional fonts",
     &ImportResult::OptionalFonts, nullptr},
    {"options", ostvt::kSectionOptions, "options", "driver options", nullptr,
     &ImportResult::Options},
    {"devmode", ostvt::kSectionDefaultDevMode, "defaultDevMode", "default device mode", nullptr,
     &ImportResult::DefaultDevMode},
    {"network", ostvt::kSectionNetwork, "network", "network settings", nullptr,
     &ImportResult::Network},
};

// False with the reason in `error`.
bool ParseSections(const Arguments& arguments, uint32_t* sections, std::string* error) {
  *sections = ostvt::kAllSections;
  if (!arguments.Has("--sections")) return true;
  *sections = 0;
  std::u16string list = arguments.Value("--sections") + u",";
  for (size_t comma; (comma = list.find(u',')) != std::u16string::npos;) {
    const std::string name = ToUtf8(list.substr(0, comma));
    list.erase(0, comma + 1);
    uint32_t bit = 0;
    for (const Section& section : kSections) {
      if (name == section.Name) bit = section.Bit;
    }
    if (bit == 0) {
      *error = "unknown section '" + Printable(name) + "'";
      return false;
    }
    *sections |= bit;
  }
  return true;
}

void PrintCounts(const Arguments& arguments, const ImportResult& result) {
  if (arguments.Has("--json")) {
    JsonWriter json;
    json.BeginObject();
    for (const Section& section : kSections) {
      json.Key(section.Key);
      if (section.Count)
        json.Number(result.*section.Count);
      else
        json.Boolean(result.*section.Flag != 0);
    }
    json.EndObject();
    Print(json.Take());
    return;
  }
  for (const Section& section : kSections) {
    if (section.Flag) {
      if (result.*section.Flag) Print(std::string(section.Title) + "\n");
    } else if (result.*section.Count) {
      Print(std::to_string(result.*section.Count) + " " + section.Title + "\n");
    }
  }
}

int Export(const Arguments& arguments, uint32_t sections) {
  const std::u16string& path = arguments.Words()[2];
  OpenedSession session(arguments, arguments.Words()[1]);
  if (!session.Open()) return kFailed;
  ostvt::ExportResult result;
  if (!session->ExportSettings(path.c_str(), sections, &result)) {
    PrintError("can't write '" + Printable(path) + "'");
    return kFailed;
  }
  PrintCounts(arguments, result);
  return kDone;
}

int Import(const Arguments& arguments, uint32_t sections) {
  const std::u16string& path = arguments.Words()[2];
  if (!ostvt::OFile::FileExists(path.c_str())) {
    PrintError("can't read '" + Printable(path) + "'");
    return kFailed;
  }
  OpenedSession session(arguments, arguments.Words()[1]);
  if (!session.Open()) return kFailed;
  ImportResult result;
  session->ImportSettings(path.c_str(), sections, &result);
  if (CountAll(result) == 0) {
    PrintError("nothing in '" + Printable(path) + "' is for '" + Printable(arguments.Words()[1]) +
               "'");
    return kFailed;
  }
  if (!session->Save()) {
    PrintError("the store doesn't take all of it");
    return kFailed;
  }
  PrintCounts(arguments, result);
  return GiveToServer(&session->Link);
}

// By the module itself, which knows where its defaults lie.
int Reset(const Arguments& arguments, uint32_t sections) {
  const std::u16string& printer = arguments.Words()[1];
  if (!RequirePrinter(printer)) return kFailed;
  DriverModule module;
  std::string error;
  if (!module.Load(arguments, printer, &error)) {
    PrintError(error);
    return kFailed;
  }
  if (module.ResetSettings(printer, sections)) return kDone;
  PrintError("can't reset '" + Printable(printer) + "'");
  return kFailed;
}

int Run(const Arguments& arguments) {
  struct Action {
    const char16_t* Name;
    size_t Words;
    int (*Run)(const Arguments& arguments, uint32_t sections);
  };
  static constexpr Action kActions[] = {
      {u"export", 3, Export}, {u"import", 3, Import}, {u"reset", 2, Reset}};
  const std::vector<std::u16string>& words = arguments.Words();
  for (const Action& action : kActions) {
    if (words[0] != action.Name) continue;
    if (words.size() < action.Words) return UsageError("settings", "too few arguments");
    if (words.size() > action.Words) {
      return UsageError("settings", "unexpected argument '" + Printable(words[action.Words]) + "'");
    }
    if (action.Run == Reset && arguments.Has("--json"))
      return UsageError("settings", "reset prints nothing, so it takes no --json");
    uint32_t sections = 0;
    std::string error;
    if (!ParseSections(arguments, &sections, &error)) return UsageError("settings", error);
    return action.Run(arguments, sections);
  }
  return UsageError("settings", "unknown action '" + Printable(words[0]) + "'");
}

}  // namespace

std::vector<Command> SettingsCommands() {
  return {{"settings",
           kHelp,
           1,
           3,
           {{"--sections", true}, {"--json", false}, {"--module", true}},
           Run}};
}

}  // namespace vtdal
