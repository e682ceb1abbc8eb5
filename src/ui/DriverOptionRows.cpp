#include "ui/DriverOptionRows.h"

#include <algorithm>

#include "core/Arrays.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/DriverOptions.h"

namespace ostvt {
namespace {

// What a device mode can say of a page: 16 bits of tenths of a millimetre.
constexpr int32_t kLongestLength = INT16_MAX * 100;
constexpr int32_t kLongestTime = 3600000;
constexpr int32_t kHighestResolution = INT16_MAX;

bool IsOffered(DriverOption option, PrinterModel& model, const DriverOptions& options) {
  switch (option) {
    case DriverOption::kFunctionCharacter:
      return model.HasBarCodes();
    case DriverOption::kOfficeCompatibility:
      return model.HasBarCodes() || model.HasRfid();
    case DriverOption::kDisableCopiesLimit:
      return model.GetCopiesLimit() < kCopiesLimitMaximum || options.GetDisableCopiesLimit();
    case DriverOption::kMonitorStatus:
    case DriverOption::kQueryBeforeJob:
    case DriverOption::kVerifyJobComplete:
    case DriverOption::kShowOnError:
    case DriverOption::kSystemTrayIcon:
    case DriverOption::kWriteTimeout:
    case DriverOption::kJobCompleteTimeout:
    case DriverOption::kQueryInterval:
      return model.GetStatusPorts() != 0;
    default:
      return true;
  }
}

// It says what it says only with kOverride.
bool NeedsOverride(DriverOption option) {
  return option >= DriverOption::kXResolution && option <= DriverOption::kMaximumPageLength;
}

int32_t MaximumOf(OptionKind kind) {
  switch (kind) {
    case OptionKind::kFlag:
      return 1;
    case OptionKind::kTracking:
      return kTrackingCenter;
    case OptionKind::kResolution:
      return kHighestResolution;
    case OptionKind::kLength:
      return kLongestLength;
    case OptionKind::kTime:
      return kLongestTime;
    default:
      return 0;
  }
}

}  // namespace

OptionKind GetOptionKind(DriverOption option) {
  switch (GetDriverOptionRow(option).Kind) {
    case DriverOptionKind::kCharacter:
      return OptionKind::kCharacter;
    case DriverOptionKind::kText:
      return OptionKind::kText;
    case DriverOptionKind::kFlag:
      return OptionKind::kFlag;
    case DriverOptionKind::kNumber:
      break;
  }
  if (option == DriverOption::kTracking) return OptionKind::kTracking;
  if (option == DriverOption::kXResolution || option == DriverOption::kYResolution)
    return OptionKind::kResolution;
  return NeedsOverride(option) ? OptionKind::kLength : OptionKind::kTime;
}

std::vector<OfferedOption> GetOfferedOptions(PrinterModel* model, const DriverOptions& options,
                                             const DevMode& devMode) {
  std::vector<OfferedOption> offered;
  if (!model) return offered;
  const bool override = options.GetOverride();
  for (int32_t i = 0; i < kDriverOptionCount; ++i) {
    const auto option = static_cast<DriverOption>(i);
    if (!IsOffered(option, *model, options)) continue;
    const OptionKind kind = GetOptionKind(option);
    offered.push_back({OptionSource::kPrinter, option, kind, override || !NeedsOverride(option), 0,
                       MaximumOf(kind)});
  }
  if (!devMode.HasAdvancedLength()) return offered;
  const auto addOfDocument = [&](OptionSource source, OptionKind kind, bool enabled) {
    offered.push_back({source, {}, kind, enabled, 0, MaximumOf(kind)});
  };
  addOfDocument(OptionSource::kUsesAdvancedLength, OptionKind::kFlag, true);
  addOfDocument(OptionSource::kAdvancedLength, OptionKind::kLength, devMode.UsesAdvancedLength());
  return offered;
}

int32_t GetOptionNumber(const OfferedOption& offered, const DriverOptions& options,
                        const DevMode& devMode) {
  switch (offered.Source) {
    case OptionSource::kUsesAdvancedLength:
      return devMode.UsesAdvancedLength();
    case OptionSource::kAdvancedLength:
      return devMode.GetAdvancedLength();
    default:
      return options.GetNumber(offered.Option);
  }
}

void SetOptionNumber(const OfferedOption& offered, int32_t value, DriverOptions* options,
                     DevMode* devMode) {
  switch (offered.Source) {
    case OptionSource::kUsesAdvancedLength:
      devMode->UseAdvancedLength(value != 0);
      break;
    case OptionSource::kAdvancedLength:
      devMode->SetAdvancedLength(value);
      break;
    default:
      options->SetNumber(offered.Option, value);
      break;
  }
}

std::vector<int32_t> GetResolutionChoices(const PrinterModel& model, bool ofX, int32_t current) {
  DwordArray pairs;
  const int32_t count = model.GetResolutions(&pairs);
  std::vector<int32_t> choices = {0, current};
  for (int32_t i = 0; i < count; ++i)
    choices.push_back(static_cast<int32_t>(pairs[2 * i + (ofX ? 0 : 1)]));
  std::sort(choices.begin(), choices.end());
  choices.erase(std::unique(choices.begin(), choices.end()), choices.end());
  return choices;
}

int32_t LimitOption(const OfferedOption& offered, int32_t value) {
  return std::clamp(value, offered.Minimum, offered.Maximum);
}

int32_t GetOptionTextLimit(OptionKind kind) {
  switch (kind) {
    case OptionKind::kCharacter:
      return 1;
    case OptionKind::kText:
      return 259;  // a path of the system's classic length
    default:
      return 16;
  }
}

}  // namespace ostvt
