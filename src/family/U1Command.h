// Commands of the family, written to the printer's port as lines of text. Values: each object holds
// what it writes.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class PrinterPort;

class U1Command {
 public:
  virtual ~U1Command() = default;
  virtual void Write(PrinterPort* stream) const = 0;
};

// The stream takes a command.
inline PrinterPort& operator<<(PrinterPort& stream, const U1Command& command) {
  command.Write(&stream);
  return stream;
}

// Sets a variable of the printer, or asks for it. Names and texts go out as they are, in double
// quotes. The language has no way to write a quote or a line end within them, and the rest would be
// a command of its own: with one of these nothing is written. An empty text gives way to the
// number.
class U1Variable : public U1Command {
 public:
  U1Variable(const OString& variable, const OString& value) : name(variable), text(value) {}
  U1Variable(const OString& variable, int32_t value) : name(variable), number(value) {}
  static U1Variable Query(const OString& variable);
  void Write(PrinterPort* stream) const override;

  OString name;
  OString text;
  int32_t number = 0;
  bool isQuery = false;
};

// One line to the printer's utilities; nothing when it holds a line end.
class U1Utilities : public U1Command {
 public:
  explicit U1Utilities(const OString& command) : line(command) {}
  void Write(PrinterPort* stream) const override;

  OString line;
};

class CutCommand : public U1Command {
 public:
  void Write(PrinterPort* stream) const override;
};

class DeviceResetCommand : public U1Command {
 public:
  void Write(PrinterPort* stream) const override;
};

class DiagnosticsCommand : public U1Command {
 public:
  void Write(PrinterPort* stream) const override;
};

}  // namespace ostvt
