// What a printer can do.
#include <algorithm>
#include <optional>

#include "tools/vtdal/CapabilityTable.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal caps NAME [--json] [--module FILE]\n"
    "\n"
    "Asks the driver for every capability of a printer: the number that it answers, and the "
    "values\n"
    "behind it. \"-\" stands for what the driver doesn't answer.\n"
    "\n"
    "  --json         as JSON; lengths are in millimeters\n"
    "  --module FILE  the driver's module (else OSTVT_MODULE, else the installed one, else the "
    "one\n"
    "                 beside vtdal)\n";

// A driver that counts more is not believed.
constexpr int32_t kMostElements = 16384;
// The driver is not told how much room it has, so there is some for a list that grows between
// counting and filling.
constexpr size_t kSpareElements = 256;

// Nothing when the driver contradicts itself.
std::optional<CapabilityAnswer> Ask(DriverModule* module, const std::u16string& printer,
                                    int index) {
  CapabilityAnswer answer = {&CapabilityAt(index), 0, {}};
  size_t elementSize = ElementSize(*answer.Question);
  answer.Result = module->Capability(printer, index, nullptr);
  if (elementSize == 0 || answer.Result <= 0) return answer;
  if (answer.Result > kMostElements) return std::nullopt;
  size_t counted = static_cast<size_t>(answer.Result);
  answer.Output.resize((counted + kSpareElements) * elementSize);
  answer.Result = module->Capability(printer, index, answer.Output.data());
  if (answer.Result < 0 || static_cast<size_t>(answer.Result) > counted + kSpareElements)
    return std::nullopt;
  answer.Output.resize(static_cast<size_t>(answer.Result) * elementSize);
  return answer;
}

void PrintTable(const std::vector<CapabilityAnswer>& answers) {
  std::vector<std::string> names;
  std::vector<std::string> results;
  std::vector<std::string> values;
  auto addRow = [&](const std::string& name, const std::string& result, const std::string& value) {
    names.push_back(name);
    results.push_back(result);
    values.push_back(value);
  };
  for (const CapabilityAnswer& answer : answers) {
    std::vector<std::string> list = ReadableValues(answer);
    bool isBits = answer.Question->Kind == CapabilityKind::kFields;
    std::string result = answer.Result == -1 ? "-"
                         : isBits            ? Format("0x%X", static_cast<uint32_t>(answer.Result))
                         : answer.Question->Kind == CapabilityKind::kExtent
                             ? Format("0x%08X", static_cast<uint32_t>(answer.Result))
                             : std::to_string(answer.Result);
    addRow(answer.Question->Name, result, list.empty() ? "" : list[0]);
    for (size_t i = 1; i < list.size(); i++) addRow("", "", list[i]);
  }
  PrintColumns({"Capability", "Answer", "Values"}, {names, results, values});
}

void WriteSize(JsonWriter* json, int64_t width, int64_t height) {
  json->BeginObject();
  json->Key("widthMm");
  json->Decimal(width, 1);
  json->Key("heightMm");
  json->Decimal(height, 1);
  json->EndObject();
}

void WriteElement(JsonWriter* json, const CapabilityAnswer& answer, size_t index) {
  auto pair = [&](size_t part) {
    return static_cast<int32_t>(NumberAt(answer, index * 2 + part, 4));
  };
  switch (answer.Question->Kind) {
    case CapabilityKind::kWords:
      json->Number(NumberAt(answer, index, 2));
      break;
    case CapabilityKind::kDwords:
      json->Number(NumberAt(answer, index, 4));
      break;
    case CapabilityKind::kSizes:
      WriteSize(json, pair(0), pair(1));
      break;
    case CapabilityKind::kResolutions:
      json->BeginObject();
      json->Key("x");
      json->Number(pair(0));
      json->Key("y");
      json->Number(pair(1));
      json->EndObject();
      break;
    default:
      json->String(TextAt(answer, index));
      break;
  }
}

void WriteValues(JsonWriter* json, const CapabilityAnswer& answer) {
  uint32_t result = static_cast<uint32_t>(answer.Result);
  json->BeginArray();
  if (answer.Result != -1 && answer.Question->Kind == CapabilityKind::kFields) {
    for (const std::string& name : ReadableValues(answer)) json->String(name);
  } else if (answer.Result != -1 && answer.Question->Kind == CapabilityKind::kExtent) {
    WriteSize(json, result & 0xFFFF, result >> 16);
  } else if (size_t size = ElementSize(*answer.Question)) {
    for (size_t i = 0; i < answer.Output.size() / size; i++) WriteElement(json, answer, i);
  }
  json->EndArray();
}

void PrintJson(const std::u16string& printer, const std::u16string& modulePath,
               const std::vector<CapabilityAnswer>& answers) {
  JsonWriter json;
  json.BeginObject();
  json.Key("printer");
  json.String(printer);
  json.Key("module");
  json.String(modulePath);
  json.Key("capabilities");
  json.BeginObject();
  for (const CapabilityAnswer& answer : answers) {
    json.Key(answer.Question->Name);
    json.BeginObject();
    json.Key("index");
    json.Number(answer.Question->Index);
    json.Key("result");
    json.Number(answer.Result);
    json.Key("values");
    WriteValues(&json, answer);
    json.EndObject();
  }
  json.EndObject();
  json.EndObject();
  Print(json.Take());
}

int RunCaps(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  if (!RequirePrinter(printer)) return kFailed;
  DriverModule module;
  std::string error;
  if (!module.Load(arguments, printer, &error)) {
    PrintError(error);
    return kFailed;
  }
  std::vector<CapabilityAnswer> answers;
  for (int i = kFirstCapability; i <= kLastCapability; i++) {
    std::optional<CapabilityAnswer> answer = Ask(&module, printer, i);
    if (!answer) {
      PrintError(Format("the driver's answers to %s contradict each other", CapabilityAt(i).Name));
      return kFailed;
    }
    answers.push_back(*answer);
  }
  if (std::all_of(answers.begin(), answers.end(),
                  [](const CapabilityAnswer& answer) { return answer.Result == -1; })) {
    PrintError("the driver doesn't know the model of '" + Printable(printer) + "'");
    return kFailed;
  }
  if (arguments.Has("--json"))
    PrintJson(printer, module.Path(), answers);
  else
    PrintTable(answers);
  return kDone;
}

}  // namespace

std::vector<Command> CapabilityCommands() {
  return {{"caps", kHelp, 1, 1, {{"--json", false}, {"--module", true}}, RunCaps}};
}

}  // namespace vtdal
