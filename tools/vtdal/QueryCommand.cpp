// Variables of printers of the family.
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/OpenedSession.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal query NAME VARIABLE [--module FILE]\n"
    "\n"
    "Asks the printer for a variable, as \"appl.version\".\n"
    "\n"
    "  --module FILE  the driver's module, beside which the port monitor lies\n";

constexpr int32_t kLikelyAnswer = -200;  // bytes: an estimate

bool IsVariableName(const std::u16string& name) {
  for (const char16_t unit : name) {
    if (unit <= u' ' || unit == u'"' || unit > u'~') return false;
  }
  return !name.empty();
}

// The answer's text without line ends and the quotes around it.
std::string Value(const ostvt::Buffer& answer) {
  std::string text(reinterpret_cast<const char*>(answer.Data), answer.Size);
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == '\0'))
    text.pop_back();
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
    text = text.substr(1, text.size() - 2);
  return text;
}

int Run(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  const std::u16string& variable = arguments.Words()[1];
  if (!IsVariableName(variable))
    return UsageError("query", "'" + Printable(variable) + "' is no variable's name");
  OpenedSession session(arguments, printer);
  if (!session.Open()) return kFailed;
  if (!session.Model()->HasU1Commands()) {
    PrintError("the printer '" + Printable(printer) + "' has no variables");
    return kFailed;
  }
  ostvt::Buffer answer;
  if (!session.Ask(ostvt::U1Variable::Query(variable.c_str()), kLikelyAnswer, &answer))
    return kFailed;
  Print(Printable(Value(answer)) + "\n");
  return kDone;
}

}  // namespace

std::vector<Command> QueryCommands() { return {{"query", kHelp, 2, 2, {{"--module", true}}, Run}}; }

}  // namespace vtdal
