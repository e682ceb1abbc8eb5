// What the module tells the monitor beside requests: `open "PRINTER" -jn "JOB" -ji ID`.
#pragma once

#include <cstdint>
#include <string>

namespace ostvt::netmon {

struct Command {
  std::u16string Verb;
  std::u16string Printer;
  std::u16string Document;
  int32_t Job = 0;  // 0 when it isn't told
};

// False without a verb and a printer. A name goes to the quote before the next switch, since it may
// hold quotes itself.
bool ParseCommand(const std::u16string& text, Command* command);

}  // namespace ostvt::netmon
