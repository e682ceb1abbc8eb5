// Any file as an archive: every member that its directory names is looked up twice and read whole.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "core/ArchiveReader.h"
#include "core/OFile.h"

namespace {

// One file a process, written anew for each input.
const std::string& ArchivePath() {
  static const std::string path = ostvt::OFile::MakeTempName("fuz", 0).GetNarrow();
  static const int registered = atexit([] { remove(path.c_str()); });
  static_cast<void>(registered);
  return path;
}

uint32_t Sum(const uint8_t* data, uint32_t size) {
  uint32_t sum = 0;
  for (uint32_t i = 0; i < size; ++i) sum += data[i];
  return sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FILE* file = fopen(ArchivePath().c_str(), "wb");
  if (file == nullptr) abort();
  fwrite(data, 1, size, file);
  fclose(file);

  ostvt::ArchiveReader reader;
  if (!reader.AddArchive(ArchivePath().c_str())) abort();
  ostvt::OStringArray names;
  reader.GetMemberNames(&names);
  for (int32_t i = 0; i < names.Count && i < 16; ++i) {
    uint32_t first = 0, second = 0;
    const uint8_t* bytes = reader.GetMemberData(names[i], &first);
    const uint32_t sum = Sum(bytes, first);
    bytes = reader.GetMemberData(names[i], &second);
    if (first != second || sum != Sum(bytes, second)) abort();
  }
  return 0;
}
