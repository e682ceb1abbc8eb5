// The network settings of a printer's server.
#include "comm/MonitorLink.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/ModuleMonitor.h"
#include "tools/vtdal/StoreValues.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::MonitorLink;
using ostvt::OString;

constexpr const char* kHelp =
    "Usage: vtdal network get NAME [SETTING] [--json]\n"
    "       vtdal network set NAME SETTING VALUE [--module FILE]\n"
    "\n"
    "Shows and changes how this machine's port monitor talks to other machines. The settings are\n"
    "those of the printer's server: all its printers share them.\n"
    "\n"
    "  communication     on or off: whether it talks at all (on)\n"
    "  tcp               on or off: whether by TCP (on)\n"
    "  port              the TCP port (6160)\n"
    "  timeout           how long a connection may take, in milliseconds (1000)\n"
    "  retries           how often a connection is tried again (2)\n"
    "  address-override  on or off: whether the server is at \"address\", not at its name (off)\n"
    "  address           that address\n"
    "\n"
    "  --json            as JSON\n"
    "  --module FILE     the driver's module, beside which the monitor lies\n"
    "\n"
    "The first three make the monitor restart its network service, unless the printer is another\n"
    "machine's.\n";

// Exactly one pair of functions is there.
struct Setting {
  const char* Name;
  bool (MonitorLink::*GetSwitch)() const;
  void (MonitorLink::*SetSwitch)(bool value);
  int32_t (MonitorLink::*GetNumber)() const;
  void (MonitorLink::*SetNumber)(int32_t value);
  int32_t Least;
  int32_t Most;
  bool Restarts;
};

constexpr Setting kSettings[] = {
    {"communication", &MonitorLink::GetNetworkCommunication, &MonitorLink::SetNetworkCommunication,
     nullptr, nullptr, 0, 0, true},
    {"tcp", &MonitorLink::GetTcpEnabled, &MonitorLink::SetTcpEnabled, nullptr, nullptr, 0, 0, true},
    {"port", nullptr, nullptr, &MonitorLink::GetTcpPort, &MonitorLink::SetTcpPort, 1, 65535, true},
    {"timeout", nullptr, nullptr, &MonitorLink::GetConnectionTimeout,
     &MonitorLink::SetConnectionTimeout, 0, ostvt::kNumberLimit, false},
    {"retries", nullptr, nullptr, &MonitorLink::GetConnectionRetries,
     &MonitorLink::SetConnectionRetries, 0, ostvt::kNumberLimit, false},
    {"address-override", &MonitorLink::GetServerAddressOverride,
     &MonitorLink::SetServerAddressOverride, nullptr, nullptr, 0, 0, false},
    {"address", nullptr, nullptr, nullptr, nullptr, 0, 0, false},
};

const Setting* FindSetting(const std::u16string& name) {
  for (const Setting& setting : kSettings) {
    if (OString(name.c_str()).CompareNoCase(setting.Name) == 0) return &setting;
  }
  return nullptr;
}

std::string ShowSetting(const MonitorLink& link, const Setting& setting) {
  if (setting.GetSwitch) return (link.*setting.GetSwitch)() ? "on" : "off";
  if (setting.GetNumber) return std::to_string((link.*setting.GetNumber)());
  return ToUtf8(link.GetServerAddress().GetWide());
}

void PutJson(const MonitorLink& link, const Setting& setting, JsonWriter* json) {
  json->Key(setting.Name);
  if (setting.GetSwitch) {
    json->Boolean((link.*setting.GetSwitch)());
  } else if (setting.GetNumber) {
    json->Number((link.*setting.GetNumber)());
  } else {
    json->String(link.GetServerAddress().GetWide());
  }
}

int GetSettings(const Arguments& arguments, const MonitorLink& link, const Setting* only) {
  if (arguments.Has("--json")) {
    JsonWriter json;
    json.BeginObject();
    for (const Setting& setting : kSettings) {
      if (!only || only == &setting) PutJson(link, setting, &json);
    }
    json.EndObject();
    Print(json.Take());
    return kDone;
  }
  if (only) {
    Print(Printable(ShowSetting(link, *only)) + "\n");
    return kDone;
  }
  std::vector<std::string> columns[2];
  for (const Setting& setting : kSettings) {
    columns[0].push_back(setting.Name);
    columns[1].push_back(Printable(ShowSetting(link, setting)));
  }
  PrintColumns({"Setting", "Value"}, {columns[0], columns[1]});
  return kDone;
}

// "" or what is wrong with the value; else `isWritten` tells whether the store took it.
std::string WriteSetting(MonitorLink* link, const Setting& setting, const std::u16string& word,
                         bool* isWritten) {
  std::string problem;
  int32_t number = 0;
  if (setting.SetSwitch) {
    if (!ParseFlag(word, &number, &problem)) return problem;
    (link->*setting.SetSwitch)(number != 0);
    *isWritten = (link->*setting.GetSwitch)() == (number != 0);
  } else if (setting.SetNumber) {
    if (!ParseInteger(word, &number, &problem)) return problem;
    if (number < setting.Least || number > setting.Most)
      return "'" + Printable(word) + "' is not from " + std::to_string(setting.Least) + " to " +
             std::to_string(setting.Most);
    (link->*setting.SetNumber)(number);
    *isWritten = (link->*setting.GetNumber)() == number;
  } else {
    link->SetServerAddress(word.c_str());
    *isWritten = word == link->GetServerAddress().GetWide();
  }
  return "";
}

int SetSetting(const Arguments& arguments, MonitorLink* link, const Setting& setting) {
  const std::u16string& word = arguments.Words()[3];
  ModuleMonitor monitor(arguments, arguments.Words()[1]);
  link->Loader = &monitor;
  bool isWritten = false;
  const std::string problem = WriteSetting(link, setting, word, &isWritten);
  if (!problem.empty()) return UsageError("network", problem);
  if (!isWritten) {
    PrintError("can't write the setting");
    return kFailed;
  }
  if (setting.Restarts && !link->IsNetworkClient() && link->LastResult == 0)
    PrintError("the port monitor can't be reached; it takes the setting when it starts next");
  return kDone;
}

int Run(const Arguments& arguments) {
  const std::vector<std::u16string>& words = arguments.Words();
  const bool isSet = words[0] == u"set";
  if (!isSet && words[0] != u"get")
    return UsageError("network", "unknown action '" + Printable(words[0]) + "'");
  if (isSet && words.size() < 4) return UsageError("network", "too few arguments");
  if (!isSet && words.size() > 3)
    return UsageError("network", "unexpected argument '" + Printable(words[3]) + "'");
  if (isSet && arguments.Has("--json"))
    return UsageError("network", "set prints nothing, so it takes no --json");
  const Setting* setting = words.size() > 2 ? FindSetting(words[2]) : nullptr;
  if (words.size() > 2 && !setting)
    return UsageError("network", "no setting '" + Printable(words[2]) + "'");
  if (!RequirePrinter(words[1])) return kFailed;
  MonitorLink link(words[1].c_str());
  return isSet ? SetSetting(arguments, &link, *setting) : GetSettings(arguments, link, setting);
}

}  // namespace

std::vector<Command> NetworkCommands() {
  return {{"network", kHelp, 2, 4, {{"--json", false}, {"--module", true}}, Run}};
}

}  // namespace vtdal
