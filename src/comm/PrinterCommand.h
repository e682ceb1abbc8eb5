// What a user types to be sent to the printer, and how the printer's answer is shown.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "core/OString.h"

namespace ostvt {

// A request for the monitor as typed, in bytes of the system's own code page, else a command with
// its escapes expanded (see PrinterModel::ExpandCommandText).
void MakeCommandBytes(const OString& text, Buffer* bytes);
// The bytes are a request for the monitor, not a command for the printer.
bool IsMonitorRequest(const Buffer& bytes);

// In the order of the choices.
enum class AnswerView : int32_t {
  kText,  // a byte is a character
  kUtf8,  // sequences of one to three bytes are characters; a byte in none isn't shown as one
  kHexadecimal,  // ten bytes a line, and beside them their characters
};

// False, with `view` as it was, for an answer of no bytes. Control characters are shown as U+2022,
// but tab, CR and LF work in the first two views. Lines of the third are parted by CR LF.
bool ShowAnswer(const Buffer& answer, AnswerView how, OString* view);

}  // namespace ostvt
