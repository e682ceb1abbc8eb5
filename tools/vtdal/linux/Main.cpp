#include <string>
#include <vector>

#include "platform/linux/Utf8.h"
#include "tools/vtdal/Arguments.h"

int main(int count, char** arguments) {
  std::vector<std::u16string> words;
  for (int i = 1; i < count; i++) words.push_back(ostvt::platform::FromUtf8(arguments[i]));
  return vtdal::RunTool(words);
}
