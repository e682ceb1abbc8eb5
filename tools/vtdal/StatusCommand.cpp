// How a printer stands.
#include "comm/PrinterPort.h"
#include "family/StatusDecoder.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/OpenedSession.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal status NAME [--module FILE]\n"
    "\n"
    "Asks the printer how it stands: the number of its gravest condition (1: it reports none), "
    "and\n"
    "the bytes of its answer. A printer that doesn't answer has no status.\n"
    "\n"
    "  --module FILE  the driver's module, beside which the port monitor lies\n";

class StatusRequest : public ostvt::U1Command {
 public:
  void Write(ostvt::PrinterPort* stream) const override {
    uint8_t bytes[4];
    stream->Write(bytes, ostvt::kStatusInterface.GetStatusRequest(bytes, sizeof bytes));
  }
};

int Run(const Arguments& arguments) {
  const std::u16string& printer = arguments.Words()[0];
  OpenedSession session(arguments, printer);
  if (!session.Open()) return kFailed;
  ostvt::Buffer answer;
  ostvt::StatusResult status = {false, 0};
  if (session.Ask(StatusRequest(), -ostvt::kStatusAnswerSize, &answer))
    ostvt::kStatusInterface.ParseStatus(answer.Data, static_cast<int32_t>(answer.Size), &status);
  if (!status.valid) {
    PrintError("the status of '" + Printable(printer) + "' is unknown");
    return kFailed;
  }
  std::string bytes;
  for (uint32_t i = 0; i < answer.Size; ++i) bytes += Format(i ? " %02x" : "%02x", answer.Data[i]);
  PrintRows({{"Status", "Bytes"},
             {std::to_string(status.status) +
                  (status.status == ostvt::kStatusNone ? " (no condition)" : ""),
              bytes}});
  return kDone;
}

}  // namespace

std::vector<Command> StatusCommands() {
  return {{"status", kHelp, 1, 1, {{"--module", true}}, Run}};
}

}  // namespace vtdal
