// A printer's default device mode.
#include <algorithm>

#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DevModeFields.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal devmode NAME [--json | --hex] [--module FILE]\n"
    "\n"
    "Asks the driver for a printer's default device mode and shows every field of it: the public\n"
    "part, the halftone block and the model's own record.\n"
    "\n"
    "  --json         as JSON, numbers as they are stored\n"
    "  --hex          the bytes\n"
    "  --module FILE  the driver's module (else OSTVT_MODULE, else the installed one, else the "
    "one\n"
    "                 beside vtdal)\n";

void PrintFields(const std::vector<DevModePart>& parts) {
  bool isFirst = true;
  for (const DevModePart& part : parts) {
    std::vector<std::string> names;
    std::vector<std::string> values;
    std::vector<std::string> meanings;
    for (const Field& field : *part.Fields) {
      if (!IsPresent(part, field)) continue;
      names.push_back(field.Name);
      values.push_back(IsText(field) ? "\"" + Printable(TextOf(part, field)) + "\""
                                     : std::to_string(NumberOf(part, field)));
      meanings.push_back(MeaningOf(part, field));
    }
    if (!isFirst) Print("\n");
    isFirst = false;
    PrintColumns({part.Title, "", ""}, {names, values, meanings});
  }
}

void PrintJson(const std::u16string& printer, const std::u16string& modulePath, size_t size,
               const std::vector<DevModePart>& parts) {
  JsonWriter json;
  json.BeginObject();
  json.Key("printer");
  json.String(printer);
  json.Key("module");
  json.String(modulePath);
  json.Key("size");
  json.Number(static_cast<int64_t>(size));
  for (const DevModePart& part : parts) {
    json.Key(part.Name);
    json.BeginObject();
    for (const Field& field : *part.Fields) {
      if (!IsPresent(part, field)) continue;
      json.Key(field.Name);
      if (IsText(field))
        json.String(TextOf(part, field));
      else
        json.Number(NumberOf(part, field));
    }
    json.EndObject();
  }
  json.EndObject();
  Print(json.Take());
}

void PrintHex(const std::vector<uint8_t>& block) {
  constexpr size_t kBytesPerLine = 16;
  for (size_t start = 0; start < block.size(); start += kBytesPerLine) {
    size_t end = std::min(start + kBytesPerLine, block.size());
    std::string line = Format("%08x ", static_cast<unsigned>(start));
    std::string text;
    for (size_t i = start; i < end; i++) {
      line += Format(" %02x", block[i]);
      text += block[i] >= 0x20 && block[i] < 0x7F ? static_cast<char>(block[i]) : '.';
    }
    Print(Padded(line, 9 + kBytesPerLine * 3) + "  |" + text + "|\n");
  }
}

int RunDevMode(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  if (arguments.Has("--json") && arguments.Has("--hex"))
    return UsageError("devmode", "--json and --hex exclude each other");
  if (!RequirePrinter(printer)) return kFailed;
  DriverModule module;
  std::string error;
  if (!module.Load(arguments, printer, &error)) {
    PrintError(error);
    return kFailed;
  }
  std::vector<uint8_t> block = module.DevMode(printer);
  if (block.empty()) {
    PrintError("the driver gave no device mode for '" + Printable(printer) + "'");
    return kFailed;
  }
  if (arguments.Has("--hex"))
    PrintHex(block);
  else if (arguments.Has("--json"))
    PrintJson(printer, module.Path(), block.size(), FindParts(block));
  else
    PrintFields(FindParts(block));
  return kDone;
}

}  // namespace

std::vector<Command> DevModeCommands() {
  return {{"devmode",
           kHelp,
           1,
           1,
           {{"--json", false}, {"--hex", false}, {"--module", true}},
           RunDevMode}};
}

}  // namespace vtdal
