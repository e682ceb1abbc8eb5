// Writes the archives that the driver reads: zip files whose members are all deflated, without
// extra fields, comments or sizes behind the data.
#pragma once

#include <cstdint>
#include <string>

namespace ddzpack {

// Local time in steps of two seconds, as zip files keep it.
struct DosTime {
  uint16_t Date = (2026 - 1980) << 9 | 1 << 5 | 1;  // 2026-01-01
  uint16_t Time = 0;
};

// "YYYY-MM-DD HH:MM:SS", 1980 to 2107. False if it is none; the time is then left as it was.
bool ParseDosTime(const std::string& text, DosTime* time);

class ZipWriter {
 public:
  explicit ZipWriter(DosTime time) : Time(time) {}
  // Members come in the order of the calls. False if the member or the archive gets too large.
  bool Add(const std::string& name, const std::string& data);
  // The whole file. Nothing can be added afterwards.
  std::string Finish();

 private:
  DosTime Time;
  std::string File;
  std::string Directory;
  uint16_t Count = 0;
};

}  // namespace ddzpack
