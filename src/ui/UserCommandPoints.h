// The commands that a job sends at its fixed points: their texts in a device mode, and what can be
// put into one.
//
// A text is what the user types, with escapes for bytes that can't be typed (see
// PrinterModel::ExpandCommandText). It is kept narrow, in the system's code page.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class DevMode;

// Start of the job, start of a page, end of a page, end of the job.
inline constexpr int32_t kCommandPointCount = 4;

// The most bytes of a text; 0 for no point.
int32_t CommandTextLimit(int32_t point);
// Empty where the device mode has no room for it.
OString GetCommandText(const DevMode& devMode, int32_t point);
// The text as it would be kept: as many whole characters as the point has room for, up to the first
// NUL.
OString FitCommandText(const OString& text, int32_t point);
// Keeps FitCommandText(text). True if that changed the device mode.
bool SetCommandText(DevMode* devMode, int32_t point, const OString& text);

// Text that the user can insert, by the number of its name in the language modules.
struct CommandInsertion {
  int32_t Name;
  const char* Text;
};

inline constexpr int32_t kCommandInsertionCount = 10;

const CommandInsertion& GetCommandInsertion(int32_t index);

// A file's bytes as a text that expands to them. Line ends CR LF stay line ends.
OString CommandTextOfBytes(const void* bytes, uint32_t size);

}  // namespace ostvt
