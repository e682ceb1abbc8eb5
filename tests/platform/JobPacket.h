// The packets in which a job's bytes travel.
#pragma once

#include <string>

#include "platform/PrintJob.h"

namespace ostvt::test {

// The escape's answer to one packet of these bytes.
inline int SendPacket(platform::PrintJobHandle job, const std::string& bytes) {
  std::string packet(1, static_cast<char>(bytes.size()));
  packet += static_cast<char>(bytes.size() >> 8);
  packet += bytes;
  return platform::SendJobEscape(job, platform::kEscapeJobBytes, packet.data(),
                                 static_cast<int>(packet.size()), nullptr, 0);
}

}  // namespace ostvt::test
