// Any bytes as a definition member: each section that it seems to have is read, and compared with
// what a plain walk over the lines gives.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "model/DefinitionFile.h"
#include "model/DefinitionText.h"
#include "model/ModelDefinition.h"
#include "model/StringMap.h"

using namespace ostvt;

namespace {

std::string Trimmed(const std::string& text) {
  const size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

std::map<std::string, std::string> Walk(std::string text, const std::string& section) {
  std::map<std::string, std::string> values;
  text.resize(std::min(text.find('\0'), text.size()));
  std::erase(text, '\r');
  bool inSection = false;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    const std::string line = text.substr(0, end);
    text.erase(0, end == std::string::npos ? text.size() : end + 1);
    if (line.empty() || line[0] == '!') continue;
    if (line[0] == '[') {
      inSection = line == "[" + section + "]" || line == "[.default]";
      continue;
    }
    const size_t grows = line.find("+=");
    const size_t equals = line.find('=');
    if (!inSection || equals == std::string::npos) continue;
    if (grows != std::string::npos) {
      std::string& value = values[Trimmed(line.substr(0, grows))];
      if (!value.empty()) value += ",";
      value += Trimmed(line.substr(grows + 2));
    } else {
      values[Trimmed(line.substr(0, equals))] = Trimmed(line.substr(equals + 1));
    }
  }
  return values;
}

void ReadSection(DefinitionText* definition, const std::string& text, const std::string& section) {
  StringMap map;
  definition->ReadSection(section.c_str(), &map);
  const std::map<std::string, std::string> expected = Walk(text, section);
  if (map.Names.Count != static_cast<int32_t>(expected.size())) __builtin_trap();
  for (const auto& [key, value] : expected) {
    const OString* found = map.FindString(key.c_str());
    if (!found || value != found->GetNarrow()) __builtin_trap();
    map.GetInt(key.c_str(), 0);
    DefinitionFile::ParseBool(*found, false);
    ModelDefinition::ParseAlignment(*found);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  DefinitionText definition(text.data(), static_cast<uint32_t>(size));
  ReadSection(&definition, text, "X");
  ReadSection(&definition, text, ".default");
  size_t sections = 0;
  // A line feed in front makes the first line one like the others.
  const std::string lines = "\n" + text;
  for (size_t at = lines.find("\n["); at != std::string::npos && sections < 8;
       at = lines.find("\n[", at + 1), ++sections) {
    const size_t end = lines.find(']', at);
    if (end == std::string::npos) break;
    const std::string section = lines.substr(at + 2, end - at - 2);
    // A section's name is a text of its own: it ends at a NUL, and no line has a CR.
    if (section.find_first_of(std::string("\0\r", 2)) != std::string::npos) continue;
    ReadSection(&definition, text, section);
  }
  return 0;
}
