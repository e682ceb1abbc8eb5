#include "settings/DriverOptionsTable.h"

#include "model/SpecificationOptions.h"

namespace ostvt {
namespace {

constexpr DriverOptionRow Flag(const char* key, int32_t value) {
  return {key, DriverOptionKind::kFlag, value, ""};
}

constexpr DriverOptionRow Number(const char* key, int32_t value) {
  return {key, DriverOptionKind::kNumber, value, ""};
}

constexpr DriverOptionRow Text(const char* key) { return {key, DriverOptionKind::kText, 0, ""}; }

// In the order of DriverOption.
constexpr DriverOptionRow kRows[] = {
    {"Function Character", DriverOptionKind::kCharacter, 0, "^"},
    Flag(kOptionDisableCopiesLimit, 0),
    Flag("Data Fonts/Office Compatibility", 1),
    Flag(kOptionOverride, 0),
    Number(kOptionXResolution, 0),
    Number(kOptionYResolution, 0),
    Number(kOptionPrintableWidth, 0),
    Number(kOptionTracking, 0),
    Number(kOptionMinimumPageWidth, 0),
    Number(kOptionMaximumPageWidth, 0),
    Number(kOptionMinimumPageLength, 0),
    Number(kOptionMaximumPageLength, 0),
    Flag("Logging/Logging", 0),
    Flag("Logging/Overwrite Files", 0),
    Flag("Logging/Print Code Recording", 0),
    Text("Logging/Directory"),
    Text("Logging/Log File"),
    Flag("Status/Monitor Status", 0),
    Flag("Status/Query Before Job", 1),
    Flag("Status/Verify Job Complete", 0),
    Flag("Status/Show On Error", 0),
    Flag("Status/System Tray Icon", 1),
    Number("Status/Write Timeout", 30000),
    Number("Status/Job Complete Timeout", 30000),
    Number("Status/Query Interval", 1000),
};
static_assert(sizeof(kRows) / sizeof(kRows[0]) == kDriverOptionCount);

}  // namespace

const DriverOptionRow& GetDriverOptionRow(DriverOption option) {
  return kRows[static_cast<int32_t>(option)];
}

}  // namespace ostvt
