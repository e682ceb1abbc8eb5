// The older binary files: four characters that say what is in it, the size of a record, then
// records up to the end. One thread.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "core/OFile.h"

namespace ostvt {

class RecordFile {
 public:
  // Reads from where the stream stands; borrowed. A record has at least `smallest` bytes, which is
  // above 0, and at most 65536.
  RecordFile(OFile& stream, const char (&signature)[5], uint32_t smallest);

  // False for a file of another kind, and where no record can have the size that it states.
  bool IsValid() const { return Size != 0; }
  // False when there is no other whole record. What is in Record is then anything.
  bool Next();

  Buffer Record;  // of the same size each time

 private:
  OFile& Stream;
  uint32_t Size = 0;
};

}  // namespace ostvt
