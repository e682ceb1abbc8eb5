#include "entry/ModuleLoad.h"

#include <stdlib.h>

namespace ostvt {

void PrepareModule(void*) {}

// A library here lies in no spooler directory. It counts as lying in the one whose own name
// OSTVT_VERSION_DIRECTORY gives ("3", "2", "W32X86"), and without that as the newest.
bool GetVersionDirectory(std::u16string* directory) {
  const char* name = getenv("OSTVT_VERSION_DIRECTORY");
  if (!name || !*name) return false;
  *directory = u"\\";
  for (; *name; name++) *directory += static_cast<unsigned char>(*name);
  return true;
}

}  // namespace ostvt
