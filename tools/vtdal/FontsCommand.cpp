// A printer's fonts: those of its model, and the records that its users made.
#include <cstdlib>

#include "core/OFile.h"
#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/DownloadedFontList.h"
#include "fonts/FontMappingTable.h"
#include "fonts/FontValueText.h"
#include "fonts/OptionalFontTable.h"
#include "fonts/RFIDFont.h"
#include "model/FontGroupInfo.h"
#include "model/Symbologies.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/OpenedModel.h"
#include "tools/vtdal/SharedEdit.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::OFile;
using ostvt::OString;

constexpr const char* kHelp =
    "Usage: vtdal fonts list NAME [--json]\n"
    "       vtdal fonts export NAME FILE\n"
    "       vtdal fonts import NAME FILE [--json] [--module FILE]\n"
    "\n"
    "Shows the fonts of a printer, and passes font records between printers.\n"
    "\n"
    "  list    the model's resident fonts, then optional fonts, aliases, substitutions, bar "
    "codes,\n"
    "          RFID fonts and downloaded fonts\n"
    "  export  writes all but the resident fonts to a settings file\n"
    "  import  takes the font records of a settings file in, or the bar codes of an older "
    "\"SBF1\"\n"
    "          file; a font of the same name is overwritten. Shows how many there were\n"
    "  --json  as JSON\n"
    "\n" SHARED_EDIT_HELP;

// The records of one printer.
struct Tables {
  explicit Tables(ostvt::PrinterModel* model) {
    Optional.Load(model);
    Mappings.Load(model);
    Data.Load(model);
    Downloaded.Load(model);
  }

  ostvt::OptionalFontTable Optional;
  ostvt::FontMappingTable Mappings;
  ostvt::DataFontTable Data;
  ostvt::DownloadedFontList Downloaded;
};

// What is shown of a font besides its kind and name.
struct Detail {
  Detail(const char* key, const OString& text) : Key(key), Text(ToUtf8(text.GetWide())) {}
  Detail(const char* key, int64_t number) : Key(key), Number(number), IsNumber(true) {}

  const char* Key;
  std::string Text;
  int64_t Number = 0;
  bool IsNumber = false;
};

struct Shown {
  const char* Kind;
  OString Name;
  std::vector<Detail> Details;
};

OString Percent(float ratio) { return ostvt::PercentText(ratio); }

void ShowResident(ostvt::PrinterModel* model, std::vector<Shown>* shown) {
  ostvt::OStringArray groups;
  model->GetFontGroups(&groups);
  for (int32_t i = 0; i < groups.Count; ++i) {
    ostvt::FontGroupInfo info;
    if (!model->GetFontGroupInfo(groups[i], &info)) continue;
    for (int32_t j = 0; j < info.Fonts.Count; ++j) {
      shown->push_back({"resident",
                        info.Fonts[j],
                        {{"group", groups[i]}, {"encodingClass", info.EncodingClass}}});
    }
  }
}

void ShowOptional(const ostvt::OptionalFontTable& table, std::vector<Shown>* shown) {
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const ostvt::OptionalFont& font = *table.GetAt(i);
    shown->push_back({"optional",
                      font.Name,
                      {{"category", font.IsCustom() ? "Custom" : "Predefined"},
                       {"type", font.IsBitmap() ? "Bitmap" : "TrueType"},
                       {"provider", font.Provider},
                       {"characterSet", font.CharacterSet},
                       {"location", ostvt::LocationText(font.Location)}}});
  }
}

void ShowMappings(const ostvt::FontMappingTable& table, uint16_t kind, std::vector<Shown>* shown) {
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const ostvt::FontMapping& mapping = *table.GetAt(i);
    if (mapping.Kind != kind) continue;
    const bool isAlias = kind == ostvt::kFontAlias;
    Shown row = {isAlias ? "alias" : "substitution",
                 mapping.Key(),
                 {{"printerFont", mapping.Target},
                  {"horizontalRatio", Percent(mapping.ScaleX)},
                  {"verticalRatio", Percent(mapping.ScaleY)}}};
    if (isAlias) {
      row.Details.emplace_back("nominalWidth", Percent(mapping.NominalWidth));
    } else {
      row.Details.emplace_back("family", mapping.Name);
      row.Details.emplace_back("weight", mapping.Weight);
    }
    shown->push_back(row);
  }
}

void ShowData(const ostvt::DataFontTable& table, std::vector<Shown>* shown) {
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const ostvt::DataFont& font = *table.GetAt(i);
    if (font.IsRfid()) {
      const auto& tag = static_cast<const ostvt::RFIDFont&>(font);
      shown->push_back({"rfid", font.GetName(), {{"tagType", tag.Body.TagType}}});
    } else {
      const auto& code = static_cast<const ostvt::BarCodeFont&>(font);
      shown->push_back({"barcode",
                        font.GetName(),
                        {{"symbology", ostvt::SymbologyName(code.GetSymbology())},
                         {"narrowBarMils", code.GetNarrowBarMils()},
                         {"heightMils", code.GetHeightMils()},
                         {"resolution", font.Header.Resolution}}});
    }
  }
}

void ShowDownloaded(const ostvt::DownloadedFontList& list, std::vector<Shown>* shown) {
  for (const ostvt::DownloadedFont* font = list.GetFirst(); font; font = font->GetNext()) {
    shown->push_back({"downloaded",
                      ostvt::GetFullName(font->Info),
                      {{"type", font->Type},
                       {"face", font->FaceName},
                       {"fileName", ostvt::GetFileName(font->Info)},
                       {"location", ostvt::LocationText(font->Info.Location)}}});
  }
}

std::string DetailText(const Shown& font) {
  std::string text;
  for (const Detail& detail : font.Details) {
    const std::string value = detail.IsNumber ? std::to_string(detail.Number) : detail.Text;
    if (!value.empty())
      text += (text.empty() ? "" : ", ") + std::string(detail.Key) + " " + Printable(value);
  }
  return text;
}

void PrintTable(const std::vector<Shown>& shown) {
  std::vector<std::string> columns[3];
  for (const Shown& font : shown) {
    columns[0].push_back(font.Kind);
    columns[1].push_back(Printable(font.Name.GetWide()));
    columns[2].push_back(DetailText(font));
  }
  if (!shown.empty())
    PrintColumns({"Kind", "Font", "Details"}, {columns[0], columns[1], columns[2]});
}

void PrintJson(const std::u16string& printer, const std::vector<Shown>& shown) {
  JsonWriter json;
  json.BeginObject();
  json.Key("printer");
  json.String(printer);
  json.Key("fonts");
  json.BeginArray();
  for (const Shown& font : shown) {
    json.BeginObject();
    json.Key("kind");
    json.String(std::string_view(font.Kind));
    json.Key("name");
    json.String(font.Name.GetWide());
    for (const Detail& detail : font.Details) {
      json.Key(detail.Key);
      if (detail.IsNumber) {
        json.Number(detail.Number);
      } else {
        json.String(detail.Text);
      }
    }
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  Print(json.Take());
}

int ListFonts(const Arguments& arguments, ostvt::PrinterModel* model) {
  const Tables tables(model);
  std::vector<Shown> shown;
  ShowResident(model, &shown);
  ShowOptional(tables.Optional, &shown);
  ShowMappings(tables.Mappings, ostvt::kFontAlias, &shown);
  ShowMappings(tables.Mappings, ostvt::kFontSubstitution, &shown);
  ShowData(tables.Data, &shown);
  ShowDownloaded(tables.Downloaded, &shown);
  if (arguments.Has("--json")) {
    PrintJson(arguments.Words()[1], shown);
  } else {
    PrintTable(shown);
  }
  return kDone;
}

// A text that becomes a file as a whole.
class TextStream : public ostvt::OStream {
 public:
  TextStream() { CodePage = ostvt::kCodePageUtf8; }
  uint32_t RawWrite(const void* data, uint32_t size) override {
    Text.append(static_cast<const char*>(data), size);
    return size;
  }

  std::string Text;
};

int ExportFonts(const Arguments& arguments, ostvt::PrinterModel* model) {
  const Tables tables(model);
  TextStream stream;
  stream.WriteText("<driver version='6.6'>");
  stream.WriteNewLine();
  stream.WriteNewLine();
  tables.Data.WriteBarCodeText(stream);
  tables.Data.WriteRfidText(stream, model);
  tables.Mappings.WriteText(stream, ostvt::kFontAlias);
  tables.Mappings.WriteText(stream, ostvt::kFontSubstitution);
  tables.Downloaded.WriteText(stream);
  tables.Optional.WriteText(stream);
  stream.Flush();
  const std::u16string& path = arguments.Words()[2];
  OFile file(path.c_str(), ostvt::kFileWrite | ostvt::kFileCreate);
  const auto size = static_cast<uint32_t>(stream.Text.size());
  if (file.IsOpen() && file.RawWrite(stream.Text.data(), size) == size) return kDone;
  PrintError("can't write '" + Printable(path) + "'");
  return kFailed;
}

struct Taken {
  const char* Key;
  const char* Title;
  int32_t Count;
};

std::vector<Taken> TakeIn(OFile& file, ostvt::PrinterModel* model, Tables* tables) {
  char start[4] = {};
  const bool isBinary = file.Read(start, 4) == 4 && std::string_view(start, 4) == "SBF1";
  file.Seek(0, ostvt::platform::FileOrigin::kBegin);
  if (isBinary) return {{"barCodes", "bar codes", tables->Data.ReadBinary(file, model)}};
  file.CodePage = ostvt::kCodePageUtf8;
  std::vector<Taken> taken;
  taken.push_back({"barCodes", "bar codes", tables->Data.ReadBarCodeText(file, model)});
  taken.push_back({"rfid", "RFID fonts", tables->Data.ReadRfidText(file, model)});
  taken.push_back(
      {"aliases", "aliases", tables->Mappings.ReadText(file, model, ostvt::kFontAlias)});
  taken.push_back({"substitutions", "substitutions",
                   tables->Mappings.ReadText(file, model, ostvt::kFontSubstitution)});
  taken.push_back({"downloaded", "downloaded fonts", tables->Downloaded.ReadText(file, model)});
  taken.push_back({"optional", "optional fonts", tables->Optional.ReadText(file, model)});
  return taken;
}

bool SaveAll(ostvt::PrinterModel* model, Tables* tables) {
  bool done = tables->Downloaded.Save(model);
  done = tables->Data.Save(model) && done;
  done = tables->Mappings.Save(model) && done;
  if (!tables->Optional.HasChanged()) return done;
  return tables->Optional.Save(model) && done;
}

int ImportFonts(const Arguments& arguments, ostvt::PrinterModel* model) {
  const std::u16string& path = arguments.Words()[2];
  OFile file(path.c_str(), ostvt::kFileShareAll);
  if (!file.IsOpen()) {
    PrintError("can't read '" + Printable(path) + "'");
    return kFailed;
  }
  Tables tables(model);
  const std::vector<Taken> taken = TakeIn(file, model, &tables);
  if (!SaveAll(model, &tables)) {
    PrintError("the store takes no fonts");
    return kFailed;
  }
  if (arguments.Has("--json")) {
    JsonWriter json;
    json.BeginObject();
    for (const Taken& kind : taken) {
      json.Key(kind.Key);
      json.Number(kind.Count);
    }
    json.EndObject();
    Print(json.Take());
    return kDone;
  }
  for (const Taken& kind : taken) {
    if (kind.Count > 0) Print(std::to_string(kind.Count) + " " + kind.Title + "\n");
  }
  return kDone;
}

int RunFonts(const Arguments& arguments) {
  struct Action {
    const char16_t* Name;
    size_t Words;
    bool PrintsJson;
    int (*Run)(const Arguments& arguments, ostvt::PrinterModel* model);
  };
  static constexpr Action kActions[] = {{u"list", 2, true, ListFonts},
                                        {u"export", 3, false, ExportFonts},
                                        {u"import", 3, true, ImportFonts}};
  const std::vector<std::u16string>& words = arguments.Words();
  for (const Action& action : kActions) {
    if (words[0] != action.Name) continue;
    if (words.size() < action.Words) return UsageError("fonts", "too few arguments");
    if (words.size() > action.Words) {
      return UsageError("fonts", "unexpected argument '" + Printable(words[action.Words]) + "'");
    }
    if (arguments.Has("--json") && !action.PrintsJson)
      return UsageError("fonts", "export prints nothing, so it takes no --json");
    SharedEdit edit(arguments, words[1]);
    const bool changes = action.Run == ImportFonts;
    if (changes) edit.Take();
    OpenedModel model;
    const int result = model.Open(words[1]) ? action.Run(arguments, model.Get()) : kFailed;
    return changes ? edit.Give(result) : result;
  }
  return UsageError("fonts", "unknown action '" + Printable(words[0]) + "'");
}

}  // namespace

std::vector<Command> FontsCommands() {
  return {{"fonts", kHelp, 1, 3, {{"--json", false}, {"--module", true}}, RunFonts}};
}

}  // namespace vtdal
