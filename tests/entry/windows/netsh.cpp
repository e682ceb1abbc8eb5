// Stands in for the system's firewall tool: notes the command line that it was started with in the
// file that OSTVT_NETSH_LOG names.
#include <cstdio>
#include <cstdlib>

#include "platform/windows/Win32.h"

int main() {
  const char* path = getenv("OSTVT_NETSH_LOG");
  FILE* file = path ? fopen(path, "wb") : nullptr;
  if (!file) return 1;
  fputs(GetCommandLineA(), file);
  fclose(file);
  return 0;
}
