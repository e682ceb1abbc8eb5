#include "family/OstrelModel.h"

#include <cstring>

namespace ostvt {
namespace {

constexpr uint32_t kFormatSize = 10;
constexpr char kTimeFormat[kFormatSize] = "%H:%M:%S";
constexpr char kDateFormat[kFormatSize] = "%m-%d-%Y";

}  // namespace

void OstrelModel::GetClockInfo(Buffer* block) {
  PrinterModel::GetClockInfo(block);
  if (!HasClock()) return;
  const uint32_t time = block->Size;
  const uint32_t date = time + kFormatSize;
  block->Resize(date + kFormatSize);
  memcpy(block->Data + time, kTimeFormat, kFormatSize);
  memcpy(block->Data + date, kDateFormat, kFormatSize);
  auto* info = reinterpret_cast<ClockInfo*>(block->Data);
  info->Size = static_cast<uint16_t>(block->Size);
  info->HasClock = 1;
  info->TimeFormatOffset = static_cast<uint16_t>(time);
  info->DateFormatOffset = static_cast<uint16_t>(date);
}

bool OstrelModel::HasClock() { return GetDefinitionBool("Features", "~RTC", false); }

bool OstrelModel::HasU1Commands() { return GetDefinitionBool("Features", "~Commands.U1", false); }

}  // namespace ostvt
