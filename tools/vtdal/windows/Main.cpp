#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "platform/windows/Win32.h"
#include "tools/vtdal/Arguments.h"

// Words with "*" and "?" are the user's, not patterns for files.
extern "C" int _dowildcard;
int _dowildcard = 0;

extern "C" int wmain(int count, wchar_t** arguments) {
  // What is printed is UTF-8, in a console as in a file.
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  std::vector<std::u16string> words;
  for (int i = 1; i < count; i++) words.emplace_back(ostvt::platform::AsUnits(arguments[i]));
  return vtdal::RunTool(words);
}
