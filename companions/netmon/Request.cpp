#include "companions/netmon/Request.h"

#include "companions/netmon/Environment.h"
#include "companions/netmon/ServerSettings.h"
#include "companions/netmon/Socket.h"
#include "companions/netmon/Text.h"
#include "companions/netmon/Transfer.h"
#include "companions/netmon/XpmlElement.h"
#include "platform/ModuleVersion.h"
#include "store/PrinterId.h"

namespace ostvt::netmon {
namespace {

constexpr uint32_t kErrorNotTaken = 5;  // the store refuses what is to be written
constexpr uint32_t kErrorNoServer = 53;
constexpr uint32_t kErrorBadRequest = 87;
constexpr uint32_t kErrorNoPrinter = 1801;

constexpr std::string_view kSettingsEnd = "</settings>";
constexpr std::string_view kEncodeEnd = "</encode>";
constexpr std::string_view kZero = "&#0;";  // a separator that stands for a byte

constexpr int kDeepest = 8;  // elements in elements

constexpr char kSharing[] = "SETTINGS:Configuration Sharing";

// A server that is played says for itself what its printers can do.
constexpr char kMonitoring[] = "MONITOR:Monitoring Supported";
constexpr char kBidirectional[] = "MONITOR:Bidirectional";
constexpr char kPortType[] = "MONITOR:Port Type";

std::string FlagText(bool value) { return value ? "1" : "0"; }

// A flag of any size.
bool ReadFlag(const ORegistry& store, const OString& path, bool defaultValue) {
  if (store.GetValueSize(path) == 1) return store.ReadByte(path, 0) != 0;
  return store.ReadInt(path, defaultValue) != 0;
}

// The kind of port: what stands before ":" in its name, without a number, in capitals.
std::string TypeOfPort(const std::string& port) {
  std::string type = port.substr(0, port.find(':'));
  while (!type.empty() && type.back() >= '0' && type.back() <= '9') type.pop_back();
  for (char& letter : type) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return type == "SOCKET" ? "TCP" : type;
}

}  // namespace

Request::Request(const OString& printerName, const OString& server)
    : Printer(printerName), Server(printerName, server), Answers(printerName) {}

uint32_t Request::Run(std::string_view text, std::string* answer) {
  Text = text;
  Error = 0;
  if (!Server.IsPlayed() && !PrinterId(Printer).IsKnown()) return kErrorNoPrinter;
  if (!Evaluate({}, 0, answer)) Fail(kErrorBadRequest);
  return Error;
}

// Up to `end`, or to the end of all for "".
bool Request::Evaluate(std::string_view end, int depth, std::string* answer) {
  if (depth > kDeepest) return false;
  while (!Text.empty()) {
    if (!end.empty() && Text.starts_with(end)) {
      Text.remove_prefix(end.size());
      return true;
    }
    if (Text.starts_with(kZero)) {
      *answer += '\0';
      Text.remove_prefix(kZero.size());
    } else if (Text[0] != '<') {
      *answer += Text[0];
      Text.remove_prefix(1);
    } else if (!EvaluateElement(depth, answer)) {
      return false;
    }
  }
  return end.empty();
}

bool Request::EvaluateElement(int depth, std::string* answer) {
  XpmlElement element;
  if (!ParseXpmlElement(Text, &element)) return false;
  Text.remove_prefix(element.Length);
  const std::string_view action = element.Attribute("action");
  const bool hasBody = !element.IsEnd && !element.IsEmpty;
  if (element.Name == "encode" && hasBody) {
    return EvaluateEncoded(element.Attribute("out"), depth, answer);
  }
  if (element.Name == "settings" && hasBody) return EvaluateSettings(action, answer);
  if (element.IsEnd || action != "get") return true;
  if (element.Name == "state") {
    *answer += StateOf(element.Attribute("name"));
  } else if (element.Name == "port") {
    *answer += PortValue(element.Attribute("name"));
  } else if (element.Name == "query" && element.Attribute("value") == "response") {
    *answer += Answers.Find(std::string(element.Attribute("name")));
  }
  return true;
}

bool Request::EvaluateEncoded(std::string_view filters, int depth, std::string* answer) {
  std::string plain;
  if (!Evaluate(kEncodeEnd, depth + 1, &plain) || !Encode(filters, &plain)) return false;
  *answer += plain;
  return true;
}

bool Request::EvaluateSettings(std::string_view action, std::string* answer) {
  std::string_view body;
  if (!TakeBody(kSettingsEnd, &body)) return false;
  if (!NeedServer()) return true;
  if (action == "request") {
    *answer += ChangedSettings(&Server, body);
    return true;
  }
  if (action != "update") return true;
  std::string text(body);
  XpmlElement encode;
  if (ParseXpmlElement(body, &encode) && encode.Name == "encode") {
    const size_t end = body.rfind(kEncodeEnd);
    if (end == std::string_view::npos || end < encode.Length) return false;
    text = body.substr(encode.Length, end - encode.Length);
    if (!Decode(encode.Attribute("in"), &text)) return false;
  }
  return UpdateSettings(&Server, text) || Fail(kErrorNotTaken);
}

bool Request::TakeBody(std::string_view end, std::string_view* body) {
  const size_t at = Text.find(end);
  if (at == std::string_view::npos) return false;
  *body = Text.substr(0, at);
  Text.remove_prefix(at + end.size());
  return true;
}

std::string Request::StateOf(std::string_view name) {
  if (name == "Monitor Version") return OSTVT_VERSION_TEXT;
  if (name == "OS") return SystemName();
  if (name == "Configuration Sharing") {
    return NeedServer() ? FlagText(ReadFlag(Server, kSharing, true)) : std::string();
  }
  if (name != "Monitoring Supported") return {};
  if (Server.IsPlayed()) return FlagText(ReadFlag(Server, kMonitoring, true));
  return PortValue("bidirectional");
}

std::string Request::PortValue(std::string_view name) {
  const std::string port = ToUtf8(PrinterId(Printer).Printer().PortName);
  if (name == "bidirectional") {
    PortAddress address;
    const bool isTwoWay = ParsePortAddress(port, &address);
    return FlagText(Server.IsPlayed() ? ReadFlag(Server, kBidirectional, true) : isTwoWay);
  }
  if (name != "type") return {};
  const std::string type = TypeOfPort(port);
  return Server.IsPlayed() ? ToUtf8(Server.ReadString(kPortType, type.c_str())) : type;
}

// Nobody here can speak to another machine: there is none but the one that is played.
bool Request::NeedServer() { return Server.IsPlayed() || !Server.IsRemote || Fail(kErrorNoServer); }

bool Request::Fail(uint32_t error) {
  if (Error == 0) Error = error;
  return false;
}

}  // namespace ostvt::netmon
