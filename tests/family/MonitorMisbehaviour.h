// How the port monitor's builds misbehave, and what each leaves of what the driver asks of it.
#pragma once

#include <iterator>

namespace ostvt::test {

struct MonitorMisbehaviour {
  const char* Build;   // see tests/support/TestMonitor.h; "missing" has no file
  const char* Word;    // what its test build is told
  int Result;          // of a request that wants an answer
  bool IsRight;        // that answer is the right one
  const char* Answer;  // what arrives in its place: "" nothing, null: bytes of some kind
  bool TakesUpdates;   // a request without an answer succeeds
  bool RunsQueries;
  bool FindsHosts;
};

inline constexpr MonitorMisbehaviour kMonitorMisbehaviours[] = {
    {"test", "", 1, true, "", true, true, true},
    {"missing", "", 0, false, "", false, false, false},
    {"test", "zero", 0, false, "", false, false, true},
    {"test", "zero-with-handle", 0, false, "", false, true, true},
    {"test", "null-handle", 1, false, "", true, true, true},
    {"test", "empty", 1, false, "", true, true, true},
    {"test", "short", 1, false, "1;", true, true, true},
    {"test", "say:1;1;1", 1, false, "1;1;1", true, true, true},
    {"test", "negative-size", 1, false, "", true, true, true},
    {"test", "huge", 1, false, "", true, true, true},
    {"test", "garbage", 1, false, nullptr, true, true, true},
    {"test", "half-frame", 1, false, nullptr, true, true, true},
    {"test", "lying-frame", 1, false, nullptr, true, true, true},
    {"test", "slow:20", 1, true, "", true, true, true},
    {"test", "result:2", 2, true, "", true, true, true},
    {"test", "result:-1", -1, true, "", true, true, true},
    {"test", "query:0", 1, true, "", true, false, true},
    {"test", "query:2", 1, true, "", true, false, true},
    {"test", "query:-1", 1, true, "", true, false, true},
    {"without-SendXPMLRequest", "", 0, false, "", false, true, true},
    {"without-HTTPResponse_Size", "", 0, false, "", true, true, true},
    {"without-HTTPResponse_Data", "", 0, false, "", true, true, true},
    {"without-HTTPResponse_Free", "", 0, false, "", true, true, true},
    {"without-HostNameToIP", "", 1, true, "", true, true, false},
    {"without-Query", "", 1, true, "", true, false, true},
    {"without-StatusMonitor", "", 1, true, "", true, true, true},
    {"without-PrintJob_Start", "", 1, true, "", true, true, true},
    {"without-PrintJob_Write", "", 1, true, "", true, true, true},
    {"without-PrintJob_End", "", 1, true, "", true, true, true},
};

}  // namespace ostvt::test
