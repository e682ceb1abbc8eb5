// "PCP1" files from outside: a table is whole or untouched, and what is read is read the same from
// its own writing.
#include <cstdlib>
#include <cstring>

#include "fonts/CharacterSetFile.h"
#include "fuzz/MemoryFile.h"

namespace {

using ostvt::CharacterSetFile;
using ostvt::fuzz::MemoryFile;

bool AreSame(const CharacterSetFile& a, const CharacterSetFile& b) {
  return a.CodePage == b.CodePage && a.HasSubset == b.HasSubset && a.Table.Count == b.Table.Count &&
         memcmp(a.Table.Data, b.Table.Data, static_cast<size_t>(a.Table.Count) * 2) == 0 &&
         memcmp(a.Subset, b.Subset, sizeof(a.Subset)) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CharacterSetFile content;
  MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
  if (!content.Read(file)) {
    if (content.Table.Count != 0 || content.CodePage != 0 || content.HasSubset) abort();
    return 0;
  }
  if (content.Table.Count != 256 || size < 8) abort();
  for (int32_t code = 0; code < 256; ++code) {
    if (content.Table[code] == 0xFFFD) abort();
  }
  MemoryFile written;
  if (!content.Write(written)) abort();
  written.Flush();
  MemoryFile copy(written.Bytes);
  CharacterSetFile again;
  if (!again.Read(copy) || !AreSame(content, again)) abort();
  return 0;
}
