// Which command is meant, and the help for all of them.
#include <cstdio>
#include <string>

#include "platform/ModuleVersion.h"
#include "tools/vtdal/Arguments.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal COMMAND [ARGUMENT]... [OPTION]...\n"
    "\n"
    "Asks the label-printer driver what a printer can do, and reads and writes its settings.\n"
    "\n"
    "  printers           list the printers\n"
    "  add NAME           add a printer\n"
    "  remove NAME        remove a printer\n"
    "  caps NAME          show a printer's capabilities\n"
    "  devmode NAME       show a printer's default device mode\n"
    "  stock ... NAME     list, show, add and remove a printer's label sizes\n"
    "  presets list NAME  list a printer's presets\n"
    "  options ... NAME   list, get and set a printer's driver options\n"
    "  settings ... NAME  export, import and reset all of a printer's settings\n"
    "  network ... NAME   get and set how the port monitor talks to other machines\n"
    "  send NAME FILE     send a file to a printer as it is\n"
    "  command NAME ...   make a printer restart, cut or print about itself\n"
    "  query NAME VAR     ask a printer for a variable\n"
    "  status NAME        ask a printer how it stands\n"
    "  encodings NAME     show the encodings of a printer's fonts\n"
    "  fonts ... NAME     list, export and import a printer's fonts\n"
    "  dither IN OUT      turn a picture into printable dots\n"
    "  stretch IN OUT     resample a picture to another size\n"
    "  get PATH           print a value of the store\n"
    "  set PATH VALUE...  write a value of the store\n"
    "  list PATH          list the keys and values below a key of the store\n"
    "\n"
    "  --help             this text, or behind a command the command's\n"
    "  --version          the version of this tool\n"
    "\n"
    "Exit status: 0 done, 1 failed, 2 wrong usage.\n"
    "\n"
    "Environment: OSTVT_MODULE, the driver's module to ask; on Linux OSTVT_STORE_DIR, the "
    "directory\n"
    "of the store.\n";

int Finish(int exitCode) {
  if (FlushOutput()) return exitCode;
  PrintError("can't write the output");
  return kFailed;
}

int RunCommand(const Command& command, const std::vector<std::u16string>& words) {
  std::vector<OptionRule> rules = command.Options;
  rules.push_back({"--help", false});
  Arguments arguments;
  std::string error;
  if (!arguments.Parse(words, rules, &error)) return UsageError(command.Name, error);
  if (arguments.Has("--help")) {
    Print(command.Help);
    return kDone;
  }
  size_t count = arguments.Words().size();
  if (count < command.LeastWords) return UsageError(command.Name, "too few arguments");
  if (count > command.MostWords)
    return UsageError(command.Name, "unexpected argument '" +
                                        Printable(arguments.Words()[command.MostWords]) + "'");
  return command.Run(arguments);
}

}  // namespace

int UsageError(const char* command, std::string_view reason) {
  PrintError(reason);
  std::string name = command ? std::string(command) + " " : std::string();
  fprintf(stderr, "Try 'vtdal %s--help'.\n", name.c_str());
  return kUsage;
}

int RunTool(const std::vector<std::u16string>& words) {
  if (words.empty()) return UsageError(nullptr, "no command");
  std::string name = ToUtf8(words[0]);
  if (name == "--help") {
    Print(kHelp);
    return Finish(kDone);
  }
  if (name == "--version") {
    Print("vtdal " OSTVT_VERSION_TEXT "\n");
    return Finish(kDone);
  }
  for (const auto& group :
       {PrinterCommands(), CapabilityCommands(), DevModeCommands(), StockCommands(),
        PresetsCommands(), OptionsCommands(), SettingsCommands(), EncodingsCommands(),
        FontsCommands(), NetworkCommands(), SendCommands(), DeviceCommands(), QueryCommands(),
        StatusCommands(), DitherCommands(), StretchCommands(), StoreCommands()}) {
    for (const Command& command : group) {
      if (name == command.Name)
        return Finish(RunCommand(command, {words.begin() + 1, words.end()}));
    }
  }
  return UsageError(nullptr, "unknown " +
                                 std::string(name.compare(0, 2, "--") ? "command" : "option") +
                                 " '" + Printable(name) + "'");
}

}  // namespace vtdal
