// Where the test build of the monitor gets in between an export and its caller. The real one lets
// everything pass.
#pragma once

#include <cstdint>
#include <string>

#include "companions/netmon/Answer.h"

namespace ostvt::netmon {

// What SendXPMLRequest is about to give back for `request`: its result and, where the caller wants
// an answer, its handle. May put others in their place; an answer that goes is deleted.
void AlterAnswer(const std::string& request, int32_t* result, Answer** answer);
// The same for Query.
void AlterQueryResult(const std::string& command, int32_t* result);
// HTTPResponse_Size, for an answer that is there.
int32_t AlterSize(const Answer& answer, int32_t size);

}  // namespace ostvt::netmon
