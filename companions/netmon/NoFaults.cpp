#include "companions/netmon/Faults.h"

namespace ostvt::netmon {

void AlterAnswer(const std::string&, int32_t*, Answer**) {}
void AlterQueryResult(const std::string&, int32_t*) {}
int32_t AlterSize(const Answer&, int32_t size) { return size; }

}  // namespace ostvt::netmon
