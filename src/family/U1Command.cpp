#include "family/U1Command.h"

#include <cstring>

#include "comm/PrinterPort.h"

namespace ostvt {
namespace {

// Looked for in the bytes that would be sent: on their way there other characters may become these.
bool Holds(const OString& text, const char* characters) {
  return strpbrk(text.GetNarrow(), characters) != nullptr;
}

constexpr char kEndsText[] = "\"\r\n";
constexpr char kEndsLine[] = "\r\n";

void WriteQuoted(const OString& text, PrinterPort* stream) {
  stream->WriteText("\"");
  stream->WriteText(text.GetNarrow());
  stream->WriteText("\"");
}

void WriteLine(const OString& line, PrinterPort* stream) {
  stream->WriteText(line.GetNarrow());
  stream->WriteNewLine();
}

}  // namespace

U1Variable U1Variable::Query(const OString& variable) {
  U1Variable query(variable, OString());
  query.isQuery = true;
  return query;
}

void U1Variable::Write(PrinterPort* stream) const {
  if (Holds(name, kEndsText) || (!isQuery && Holds(text, kEndsText))) return;
  stream->WriteText(isQuery ? "! U1 getvar " : "! U1 setvar ");
  WriteQuoted(name, stream);
  if (!isQuery) {
    stream->WriteText(" ");
    OString value = text;
    if (value.IsEmpty()) value.AppendInt(number);
    WriteQuoted(value, stream);
  }
  stream->WriteNewLine();
}

void U1Utilities::Write(PrinterPort* stream) const {
  if (Holds(line, kEndsLine)) return;
  WriteLine("! UTILITIES", stream);
  WriteLine(line, stream);
  WriteLine("PRINT", stream);
}

void CutCommand::Write(PrinterPort* stream) const {
  WriteLine("! 0 0 0 0 1", stream);
  WriteLine("CUT", stream);
  WriteLine("PRINT", stream);
}

void DeviceResetCommand::Write(PrinterPort* stream) const {
  WriteLine("! U1 do \"device.reset\"", stream);
}

void DiagnosticsCommand::Write(PrinterPort* stream) const {
  WriteLine("! U1 do \"test.print_diags\"", stream);
}

}  // namespace ostvt
