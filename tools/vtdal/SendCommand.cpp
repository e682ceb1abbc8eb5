// Files for the printer, as they are.
#include "core/OFile.h"
#include "settings/SessionSendFile.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/OpenedSession.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal send NAME FILE [--module FILE]\n"
    "\n"
    "Sends a file to the printer as it is, as a job of the file's name. Long ones tell how far\n"
    "they are.\n"
    "\n"
    "  --module FILE  the driver's module, beside which the port monitor lies\n";

constexpr uint32_t kShortFile = 1 << 20;  // bytes: too quick to be told of
constexpr uint32_t kStep = 10;            // per cent

// `context` is what was told last.
void TellProgress(void* context, uint32_t sent, uint32_t total) {
  auto* told = static_cast<uint32_t*>(context);
  const uint32_t percent = static_cast<uint32_t>(uint64_t{sent} * 100 / total);
  if (total <= kShortFile || percent < *told + kStep) return;
  *told = percent - percent % kStep;
  PrintError(std::to_string(*told) + " % sent");
}

// "" or why the file can't be sent, whatever the printer says.
std::string FileProblem(const std::u16string& path) {
  const std::string name = "'" + Printable(path) + "'";
  ostvt::OFile file(path.c_str(), ostvt::kFileShareAll);
  switch (ostvt::FindSendFileProblem(file)) {
    case ostvt::SendFileProblem::kTooLarge:
      return name + " is larger than 2 GiB";
    case ostvt::SendFileProblem::kUnreadable:
      return "can't read " + name;
    case ostvt::SendFileProblem::kNone:
      break;
  }
  return "";
}

int Run(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  const std::u16string& path = arguments.Words()[1];
  OpenedSession session(arguments, printer);
  if (!session.Open()) return kFailed;
  if (const std::string problem = FileProblem(path); !problem.empty()) {
    PrintError(problem);
    return kFailed;
  }
  uint32_t told = 0;
  if (session->SendFile(path.c_str(), TellProgress, &told)) return kDone;
  PrintError("can't send '" + Printable(path) + "' to the printer '" + Printable(printer) + "'");
  return kFailed;
}

}  // namespace

std::vector<Command> SendCommands() { return {{"send", kHelp, 2, 2, {{"--module", true}}, Run}}; }

}  // namespace vtdal
