// Commands that printers of the family carry out.
#include "family/FamilyDriverSession.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/OpenedSession.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal command NAME reset|diagnostics|cut [--module FILE]\n"
    "\n"
    "Makes the printer do something.\n"
    "\n"
    "  reset          restart\n"
    "  diagnostics    print a page about itself\n"
    "  cut            cut the stock\n"
    "  --module FILE  the driver's module, beside which the port monitor lies\n";

constexpr uint32_t kExists = 1;

struct DeviceCommand {
  const char16_t* Name;
  int32_t Action;
};

constexpr DeviceCommand kCommands[] = {
    {u"reset", ostvt::kActionDeviceReset},
    {u"diagnostics", ostvt::kActionDiagnostics},
    {u"cut", ostvt::kActionCut},
};

int Run(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  const std::u16string& word = arguments.Words()[1];
  const DeviceCommand* command = nullptr;
  for (const DeviceCommand& row : kCommands) {
    if (word == row.Name) command = &row;
  }
  if (!command) return UsageError("command", "no command '" + Printable(word) + "'");
  OpenedSession session(arguments, printer);
  if (!session.Open()) return kFailed;
  ostvt::ActionContext context{session.Get(), nullptr};
  if ((session->GetActionFlags(&context, command->Action) & kExists) == 0) {
    PrintError("the printer '" + Printable(printer) + "' doesn't know this command");
    return kFailed;
  }
  if (session->DoAction(&context, command->Action)) return kDone;
  PrintError("can't reach the printer '" + Printable(printer) + "'");
  return kFailed;
}

}  // namespace

std::vector<Command> DeviceCommands() {
  return {{"command", kHelp, 2, 2, {{"--module", true}}, Run}};
}

}  // namespace vtdal
