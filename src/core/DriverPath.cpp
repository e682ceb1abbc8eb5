#include "core/DriverPath.h"

namespace ostvt {

bool DriverOnNtPath = true;
bool DriverIsVersion3 = true;

void SetDriverPathFlags(std::u16string_view directory) {
  DriverOnNtPath = directory.size() >= 2 && directory[directory.size() - 2] == u'\\';
  DriverIsVersion3 = DriverOnNtPath && directory.back() >= u'3';
}

}  // namespace ostvt
