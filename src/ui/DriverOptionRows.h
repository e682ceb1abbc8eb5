// The driver options that a printer's page offers, and what each can be. Two settings of the
// document, for which no other page has room, stand behind them.
//
// A model that can't do what an option is about doesn't offer it; figures that stand in for the
// model's can be edited only while they are in force.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"
#include "settings/DriverOptionsTable.h"

namespace ostvt {

class DevMode;
class DriverOptions;
class PrinterModel;

enum class OptionKind {
  kCharacter,
  kText,
  kFlag,
  kTracking,    // kTracking..., see model/ModelDataRecord.h
  kResolution,  // dots per inch, 0 as the model has it
  kLength,      // micrometres, likewise
  kTime,        // milliseconds
};

// Whose value a row edits.
enum class OptionSource {
  kPrinter,             // the printer's option
  kUsesAdvancedLength,  // the document's, which stand behind those
  kAdvancedLength,
};

struct OfferedOption {
  OptionSource Source;
  DriverOption Option;  // with kPrinter
  OptionKind Kind;
  bool IsEnabled;
  // Of a number; 0 and 0 for others.
  int32_t Minimum;
  int32_t Maximum;
};

// In the order of DriverOption, then of OptionSource; the document's where it has room for them.
std::vector<OfferedOption> GetOfferedOptions(PrinterModel* model, const DriverOptions& options,
                                             const DevMode& devMode);
// Of any row but a text's.
int32_t GetOptionNumber(const OfferedOption& offered, const DriverOptions& options,
                        const DevMode& devMode);
void SetOptionNumber(const OfferedOption& offered, int32_t value, DriverOptions* options,
                     DevMode* devMode);
OptionKind GetOptionKind(DriverOption option);
// The numbers that a resolution can be, ascending: 0, those of the model, and `current`.
std::vector<int32_t> GetResolutionChoices(const PrinterModel& model, bool ofX, int32_t current);
// A number inside the option's bounds.
int32_t LimitOption(const OfferedOption& offered, int32_t value);
// The most characters that can be typed for a text.
int32_t GetOptionTextLimit(OptionKind kind);

}  // namespace ostvt
