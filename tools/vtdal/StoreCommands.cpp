// Values of the store.
#include <limits>
#include <memory>

#include "platform/KeyStore.h"
#include "store/PrinterRegistry.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/StoreValues.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

namespace platform = ostvt::platform;
using ostvt::ORegistry;
using ostvt::OString;
using ostvt::OStringArray;

constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

#define PATH_HELP                                                                                \
  "A path is an alias or the number of a hive, then the names of the keys, at last that of\n"    \
  "the value: \"LOCAL:Paper Sizes/Names\", \"1:SOFTWARE/Vantrel/Drivers/A\". In a name \"/\",\n" \
  "\":\" and \"%\" are written \"%2F\", \"%3A\" and \"%25\". Aliases: USER: LOCAL: GLOBAL: "     \
  "PRINT:,\n"                                                                                    \
  "with --printer also DATA: SETTINGS: PRESETS: CACHE: FONTS: MODEL: NETWORK: STOCK: and "       \
  "others.\n"

constexpr const char* kGetHelp =
    "Usage: vtdal get PATH [--type TYPE] [--printer NAME]\n"
    "\n"
    "Prints a value: a text, a number, the texts of a list line by line, or bytes in hexadecimal.\n"
    "\n"
    "  --type TYPE     take it as string, dword, int, byte, multi or hex, not as it is stored\n"
    "  --printer NAME  the printer whose store the path is for\n"
    "\n" PATH_HELP;

constexpr const char* kSetHelp =
    "Usage: vtdal set PATH VALUE... [--type TYPE] [--printer NAME]\n"
    "\n"
    "Writes a value. Keys that don't exist yet are made.\n"
    "\n"
    "  --type TYPE     string (the default); dword, int and byte take a number, decimal or with\n"
    "                  0x; multi takes any number of VALUEs; hex takes bytes, as \"01 ff\"\n"
    "  --printer NAME  the printer whose store the path is for\n"
    "\n"
    "A number that the driver reads as \"int\" is stored as four bytes. A VALUE that begins with\n"
    "\"--\" stands behind a \"--\" of its own.\n"
    "\n" PATH_HELP;

constexpr const char* kListHelp =
    "Usage: vtdal list PATH [--printer NAME]\n"
    "\n"
    "Lists the keys below a key, each with a \"/\" behind it, then its values with type and "
    "content.\n"
    "\n"
    "  --printer NAME  the printer whose store the path is for\n"
    "\n" PATH_HELP;

// The alias in front, where only a printer's store has it; else "".
std::string PrintersAlias(const OString& path) {
  std::u16string text = path.GetWide();
  OString alias(text.substr(0, text.find(u':') + 1).c_str());
  OString ofPrinter = ostvt::PrinterRegistry(OString(u"x")).ToFullPath(alias);
  if (ofPrinter == ORegistry().ToFullPath(alias)) return "";
  return Printable(std::u16string_view(alias.GetWide()));
}

// Null after an error message.
std::unique_ptr<ORegistry> MakeRegistry(const Arguments& arguments) {
  std::u16string printer = arguments.Value("--printer");
  if (!arguments.Has("--printer")) {
    std::string alias = PrintersAlias(OString(arguments.Words()[0].c_str()));
    if (alias.empty()) return std::make_unique<ORegistry>();
    PrintError("'" + alias + "' is a printer's: it needs --printer");
    return nullptr;
  }
  if (!RequirePrinter(printer)) return nullptr;
  return std::make_unique<ostvt::PrinterRegistry>(OString(printer.c_str()));
}

// A path that names no hive would hang from nothing.
bool IsAbsolute(const std::u16string& path) {
  size_t colon = path.find(u':');
  return colon != std::u16string::npos && colon > 0;
}

int NotAbsolute(const char* command, const std::u16string& path) {
  return UsageError(command,
                    "the path '" + Printable(path) + "' has no hive in front, as \"LOCAL:\"");
}

// The type, kAsStored where none is given; false for a word that is none.
bool FindType(const Arguments& arguments, ValueType* type) {
  *type = ValueType::kAsStored;
  return !arguments.Has("--type") || ParseType(ToUtf8(arguments.Value("--type")), type);
}

int UnknownType(const char* command, const Arguments& arguments) {
  return UsageError(command, "unknown type '" + Printable(arguments.Value("--type")) + "'");
}

int RunGet(const Arguments& arguments) {
  const std::u16string& path = arguments.Words()[0];
  ValueType type;
  if (!FindType(arguments, &type)) return UnknownType("get", arguments);
  if (!IsAbsolute(path)) return NotAbsolute("get", path);
  std::unique_ptr<ORegistry> registry = MakeRegistry(arguments);
  if (!registry) return kFailed;
  OString keyPath;
  OString valueName(path.c_str());
  StoredValue value;
  if (!registry->SplitPath(&keyPath, &valueName) ||
      !ReadStored(*registry, keyPath, valueName.GetWide(), &value)) {
    PrintError("no value '" + Printable(path) + "'");
    return kFailed;
  }
  std::string text;
  if (!ShowValue(value, type, "\n", &text)) {
    PrintError("the value has " + std::to_string(value.Bytes.size()) + " bytes, which is no " +
               TypeName(type));
    return kFailed;
  }
  Print(text + "\n");
  return kDone;
}

int RunSet(const Arguments& arguments) {
  const std::u16string& path = arguments.Words()[0];
  std::vector<std::u16string> words(arguments.Words().begin() + 1, arguments.Words().end());
  ValueType type;
  if (!FindType(arguments, &type)) return UnknownType("set", arguments);
  if (type == ValueType::kAsStored) type = ValueType::kString;
  if (!IsAbsolute(path)) return NotAbsolute("set", path);
  if (type != ValueType::kMulti && words.size() != 1)
    return UsageError("set", words.empty() ? "the value is missing"
                                           : "only a value of type multi has more than one part");
  StoredValue value;
  std::string error;
  if (!MakeValue(words, type, &value, &error)) return UsageError("set", error);
  std::unique_ptr<ORegistry> registry = MakeRegistry(arguments);
  if (!registry) return kFailed;
  int size = static_cast<int>(value.Bytes.size());
  if (registry->WriteValue(OString(path.c_str()), value.Bytes.data(), size, value.Type) == size)
    return kDone;
  PrintError("can't write '" + Printable(path) + "'");
  return kFailed;
}

int RunList(const Arguments& arguments) {
  const std::u16string& path = arguments.Words()[0];
  if (!IsAbsolute(path)) return NotAbsolute("list", path);
  std::unique_ptr<ORegistry> registry = MakeRegistry(arguments);
  if (!registry) return kFailed;
  OString wholePath(path.c_str());
  OStringArray keys;
  OStringArray values;
  if (!registry->GetKeyInfo(wholePath, nullptr, nullptr) ||
      registry->EnumerateKeys(wholePath, &keys) < 0 ||
      registry->EnumerateValues(wholePath, &values) < 0) {
    PrintError("no key '" + Printable(path) + "'");
    return kFailed;
  }
  for (int32_t i = 0; i < keys.Count; i++) Print(PathElement(keys[i].GetWide()) + "/\n");
  OString keyPath(wholePath);
  OString noValue;
  registry->SplitPath(&keyPath, &noValue);
  std::vector<std::string> columns[3];
  for (int32_t i = 0; i < values.Count; i++) {
    StoredValue value;
    std::string text;
    if (!ReadStored(*registry, keyPath, values[i].GetWide(), &value)) continue;
    if (!ShowInLine(value, &text)) continue;
    columns[0].push_back(values[i].IsEmpty() ? "(default)" : PathElement(values[i].GetWide()));
    columns[1].push_back(StoredTypeName(value.Type));
    columns[2].push_back(text);
  }
  PrintRows({columns[0], columns[1], columns[2]});
  return kDone;
}

}  // namespace

std::vector<Command> StoreCommands() {
  OptionRule type = {"--type", true};
  OptionRule printer = {"--printer", true};
  return {{"get", kGetHelp, 1, 1, {type, printer}, RunGet},
          {"set", kSetHelp, 1, kNoLimit, {type, printer}, RunSet},
          {"list", kListHelp, 1, 1, {printer}, RunList}};
}

}  // namespace vtdal
