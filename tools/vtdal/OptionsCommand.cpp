// A printer's driver options.

#include "platform/KeyStore.h"
#include "settings/DriverOptions.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/OpenedModel.h"
#include "tools/vtdal/SharedEdit.h"
#include "tools/vtdal/StoreValues.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::DriverOption;
using ostvt::DriverOptionKind;
using ostvt::DriverOptionRow;
using ostvt::DriverOptions;
using ostvt::OString;

constexpr const char* kHelp =
    "Usage: vtdal options list NAME [--json]\n"
    "       vtdal options get NAME OPTION [--json]\n"
    "       vtdal options set NAME OPTION VALUE [--module FILE]\n"
    "\n"
    "Shows and changes the driver options of a printer, as \"Status/Query Interval\".\n"
    "\n"
    "  list    all options with their values and defaults\n"
    "  get     one option's value\n"
    "  set     changes an option: on or off, a number, one character, or a text\n"
    "  --json  as JSON\n"
    "\n" SHARED_EDIT_HELP
    "\n"
    "Options count without regard to case. Lengths are thousandths of a millimeter, times\n"
    "milliseconds. What a model can do changes with the options under \"Specifications\" and with\n"
    "\"Disable Copies Limit\".\n";

bool FindOption(const std::u16string& name, DriverOption* option) {
  const OString wanted(name.c_str());
  for (int32_t i = 0; i < ostvt::kDriverOptionCount; i++) {
    *option = static_cast<DriverOption>(i);
    if (wanted.CompareNoCase(GetDriverOptionRow(*option).Key) == 0) return true;
  }
  return false;
}

std::string ShowNumber(DriverOptionKind kind, int32_t value) {
  if (kind == DriverOptionKind::kFlag) return value ? "on" : "off";
  return std::to_string(value);
}

bool IsNumeric(const DriverOptionRow& row) {
  return row.Kind == DriverOptionKind::kFlag || row.Kind == DriverOptionKind::kNumber;
}

std::string ShowOption(const DriverOptions& options, DriverOption option) {
  const DriverOptionRow& row = GetDriverOptionRow(option);
  if (IsNumeric(row)) return ShowNumber(row.Kind, options.GetNumber(option));
  return ToUtf8(options.GetText(option).GetWide());
}

std::string ShowDefault(const DriverOptionRow& row) {
  return IsNumeric(row) ? ShowNumber(row.Kind, row.Default) : row.DefaultText;
}

void PutJson(const DriverOptions& options, DriverOption option, JsonWriter* json) {
  const DriverOptionRow& row = GetDriverOptionRow(option);
  if (row.Kind == DriverOptionKind::kFlag) {
    json->Boolean(options.GetFlag(option));
  } else if (row.Kind == DriverOptionKind::kNumber) {
    json->Number(options.GetNumber(option));
  } else {
    json->String(options.GetText(option).GetWide());
  }
}

int ListOptions(const Arguments& arguments, const DriverOptions& options) {
  if (arguments.Has("--json")) {
    JsonWriter json;
    json.BeginObject();
    json.Key("printer");
    json.String(arguments.Words()[1]);
    json.Key("options");
    json.BeginObject();
    for (int32_t i = 0; i < ostvt::kDriverOptionCount; i++) {
      const auto option = static_cast<DriverOption>(i);
      json.Key(GetDriverOptionRow(option).Key);
      PutJson(options, option, &json);
    }
    json.EndObject();
    json.EndObject();
    Print(json.Take());
    return kDone;
  }
  std::vector<std::string> columns[3];
  for (int32_t i = 0; i < ostvt::kDriverOptionCount; i++) {
    const auto option = static_cast<DriverOption>(i);
    const DriverOptionRow& row = GetDriverOptionRow(option);
    columns[0].push_back(row.Key);
    columns[1].push_back(Printable(ShowOption(options, option)));
    columns[2].push_back(ShowDefault(row));
  }
  PrintColumns({"Option", "Value", "Default"}, {columns[0], columns[1], columns[2]});
  return kDone;
}

int GetOption(const Arguments& arguments, const DriverOptions& options, DriverOption option) {
  if (!arguments.Has("--json")) {
    Print(Printable(ShowOption(options, option)) + "\n");
    return kDone;
  }
  JsonWriter json;
  json.BeginObject();
  json.Key(GetDriverOptionRow(option).Key);
  PutJson(options, option, &json);
  json.EndObject();
  Print(json.Take());
  return kDone;
}

bool SetOption(DriverOptions* options, DriverOption option, const std::u16string& word,
               std::string* error) {
  int32_t value = 0;
  switch (GetDriverOptionRow(option).Kind) {
    case DriverOptionKind::kFlag:
      if (!ParseFlag(word, &value, error)) return false;
      options->SetFlag(option, value != 0);
      return true;
    case DriverOptionKind::kNumber:
      if (!ParseInteger(word, &value, error)) return false;
      options->SetNumber(option, value);
      return true;
    case DriverOptionKind::kCharacter:
      if (word.size() != 1) {
        *error = "'" + Printable(word) + "' is not one character";
        return false;
      }
      break;
    case DriverOptionKind::kText:
      break;
  }
  options->SetText(option, word.c_str());
  return true;
}

int RunOptions(const Arguments& arguments) {
  const std::vector<std::u16string>& words = arguments.Words();
  const bool isGet = words[0] == u"get";
  const bool isSet = words[0] == u"set";
  if (!isGet && !isSet && words[0] != u"list")
    return UsageError("options", "unknown action '" + Printable(words[0]) + "'");
  const size_t wanted = isSet ? 4 : isGet ? 3 : 2;
  if (words.size() < wanted) return UsageError("options", "too few arguments");
  if (words.size() > wanted)
    return UsageError("options", "unexpected argument '" + Printable(words[wanted]) + "'");
  if (isSet && arguments.Has("--json"))
    return UsageError("options", "set prints nothing, so it takes no --json");
  DriverOption option = {};
  if (wanted > 2 && !FindOption(words[2], &option))
    return UsageError("options", "no driver option named '" + Printable(words[2]) + "'");

  SharedEdit edit(arguments, words[1]);
  if (isSet) edit.Take();
  OpenedModel model;
  if (!model.Open(words[1])) return kFailed;
  DriverOptions options;
  options.Bind(model.Get());
  if (isGet) return GetOption(arguments, options, option);
  if (!isSet) return ListOptions(arguments, options);
  std::string error;
  if (!SetOption(&options, option, words[3], &error)) return UsageError("options", error);
  if (options.Commit()) return edit.Give(kDone);
  PrintError("can't write the option '" + std::string(GetDriverOptionRow(option).Key) + "'");
  return kFailed;
}

}  // namespace

std::vector<Command> OptionsCommands() {
  return {{"options", kHelp, 1, 4, {{"--json", false}, {"--module", true}}, RunOptions}};
}

}  // namespace vtdal
