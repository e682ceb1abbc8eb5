// The encodings of a printer's fonts.
#include "fonts/CustomCharacterSetTable.h"
#include "fonts/EncodingDisplayName.h"
#include "fonts/EncodingSettings.h"
#include "fonts/MessageTexts.h"
#include "model/EncodingName.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/OpenedModel.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::OString;

constexpr const char* kHelp =
    "Usage: vtdal encodings NAME [--json]\n"
    "\n"
    "Shows the encodings that the printer's fonts are addressed in, in the user's order, each "
    "with\n"
    "the number of the system's character set that it covers; then the user's own character sets\n"
    "with the code page that each was made from and how many codes it defines.\n"
    "\n"
    "  --json  as JSON\n";

// The driver's own texts lie in its language modules, which are for its dialogs.
class EnglishTexts : public ostvt::MessageTexts {
 public:
  OString GetMessage(int32_t number) const override {
    for (const Row& row : kRows) {
      if (row.Number == number) return row.Text;
    }
    return OString();
  }

 private:
  struct Row {
    int32_t Number;
    const char* Text;
  };
  static constexpr Row kRows[] = {
      {1241, "Western"},
      {1242, "Central European"},
      {1243, "Cyrillic"},
      {1244, "Greek"},
      {1245, "Turkish"},
      {1246, "Hebrew"},
      {1247, "Arabic"},
      {1248, "Baltic"},
      {1249, "Vietnamese"},
      {1250, "Thai"},
      {1251, "Japanese"},
      {1252, "Simplified Chinese"},
      {1253, "Korean"},
      {1254, "Traditional Chinese"},
      {1256, "American English"},
      {1257, "British English"},
      {1258, "Icelandic"},
      {1259, "Portuguese"},
      {1260, "Canadian French"},
      {1261, "Nordic"},
      {1262, "Celtic"},
      {1263, "Modern Greek"},
      {1271, "English"},
      {1272, "Spanish"},
      {1273, "German"},
      {1274, "French"},
      {1275, "Japanese"},
      {1277, "Italian"},
      {1280, "Finnish"},
      {1281, "Danish"},
      {1282, "Swedish"},
      {1283, "Norwegian"},
      {1284, "Dutch"},
      {1286, "Czech"},
      {1287, "Polish"},
      {1288, "Korean"},
      {1289, "Thai"},
      {1290, "Hungarian"},
      {1291, "Greek"},
      {1292, "Turkish"},
      {1293, "Hebrew"},
      {1294, "Arabic"},
      {1295, "Estonian"},
      {1300, "Russian"},
      {1316, "Central European"},
      {1317, "South European"},
      {1318, "North European"},
  };
};

struct ShownEncoding {
  OString Name;
  int Charset;  // -1: none
  OString Description;
};

ShownEncoding Show(const OString& name, ostvt::PrinterModel* model) {
  const int charset = ostvt::CharsetOfEncoding(ostvt::ParseEncodingName(name), name);
  return {name, charset, ostvt::EncodingDisplayName(name, model, EnglishTexts())};
}

int32_t CountDefined(const ostvt::WordArray& table) {
  int32_t count = 0;
  for (int32_t code = 0; code < table.Count; ++code) {
    if (table[code] != 0) ++count;
  }
  return count;
}

void PrintTables(const std::vector<ShownEncoding>& encodings,
                 const ostvt::CustomCharacterSetTable& sets) {
  std::vector<std::string> columns[3];
  for (const ShownEncoding& encoding : encodings) {
    columns[0].push_back(Printable(encoding.Name.GetWide()));
    columns[1].push_back(encoding.Charset < 0 ? "-" : std::to_string(encoding.Charset));
    columns[2].push_back(Printable(encoding.Description.GetWide()));
  }
  if (!encodings.empty())
    PrintColumns({"Encoding", "Set", "Description"}, {columns[0], columns[1], columns[2]});
  if (sets.GetCount() == 0) return;
  for (std::vector<std::string>& column : columns) column.clear();
  for (int32_t i = 0; i < sets.GetCount(); ++i) {
    const ostvt::CustomCharacterSet& set = *sets.GetAt(i);
    columns[0].push_back(Printable(set.Name.GetWide()));
    columns[1].push_back(std::to_string(set.SourceCodePage));
    columns[2].push_back(std::to_string(CountDefined(set.EncodingTable)));
  }
  if (!encodings.empty()) Print("\n");
  PrintColumns({"Character set", "Page", "Codes"}, {columns[0], columns[1], columns[2]});
}

void PutEncodings(const std::vector<ShownEncoding>& encodings, JsonWriter* json) {
  json->BeginArray();
  for (const ShownEncoding& encoding : encodings) {
    json->BeginObject();
    json->Key("name");
    json->String(encoding.Name.GetWide());
    if (encoding.Charset >= 0) {
      json->Key("characterSet");
      json->Number(encoding.Charset);
    }
    json->Key("description");
    json->String(encoding.Description.GetWide());
    json->EndObject();
  }
  json->EndArray();
}

void PutCustomSets(const ostvt::CustomCharacterSetTable& sets, JsonWriter* json) {
  json->BeginArray();
  for (int32_t i = 0; i < sets.GetCount(); ++i) {
    const ostvt::CustomCharacterSet& set = *sets.GetAt(i);
    json->BeginObject();
    json->Key("name");
    json->String(set.Name.GetWide());
    json->Key("sourceCodePage");
    json->Number(set.SourceCodePage);
    json->Key("table");
    json->BeginArray();
    for (int32_t code = 0; code < set.EncodingTable.Count; ++code)
      json->Number(set.EncodingTable[code]);
    json->EndArray();
    json->EndObject();
  }
  json->EndArray();
}

void PrintJson(const std::u16string& printer, const std::vector<ShownEncoding>& encodings,
               const ostvt::EncodingSettings& settings, ostvt::PrinterModel* model,
               const ostvt::CustomCharacterSetTable& sets) {
  JsonWriter json;
  json.BeginObject();
  json.Key("printer");
  json.String(printer);
  json.Key("encodings");
  PutEncodings(encodings, &json);
  json.Key("modelOrder");
  json.BeginArray();
  ostvt::OStringArray modelOrder;
  model->GetEncodings(&modelOrder);
  for (int32_t i = 0; i < modelOrder.Count; ++i) json.String(modelOrder[i].GetWide());
  json.EndArray();
  json.Key("characterSets");
  json.BeginArray();
  ostvt::ByteArray charsets;
  model->GetCharacterSets(&charsets);
  for (int32_t i = 0; i < charsets.Count; ++i) json.Number(charsets[i]);
  json.EndArray();
  json.Key("unicode");
  json.Boolean(model->IsUnicodeModel());
  json.Key("codePageSelectLogic");
  json.Number(settings.CodePageSelectLogic);
  json.Key("customCharacterSets");
  PutCustomSets(sets, &json);
  json.EndObject();
  Print(json.Take());
}

int RunEncodings(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  OpenedModel model;
  if (!model.Open(printer)) return kFailed;
  ostvt::EncodingSettings settings;
  settings.Load(model.Get());
  ostvt::CustomCharacterSetTable sets;
  sets.Load(model.Get());
  std::vector<ShownEncoding> encodings;
  for (int32_t i = 0; i < settings.Encodings.Count; ++i)
    encodings.push_back(Show(settings.Encodings[i], model.Get()));
  if (arguments.Has("--json"))
    PrintJson(printer, encodings, settings, model.Get(), sets);
  else
    PrintTables(encodings, sets);
  return kDone;
}

}  // namespace

std::vector<Command> EncodingsCommands() {
  return {{"encodings", kHelp, 1, 1, {{"--json", false}}, RunEncodings}};
}

}  // namespace vtdal
