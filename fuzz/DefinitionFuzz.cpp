// Any bytes as a definition member: each section that it seems to have is read.
#include <cstddef>
#include <cstdint>
#include <string>

#include "model/DefinitionFile.h"
#include "model/DefinitionText.h"
#include "model/ModelDefinition.h"
#include "model/StringMap.h"

using namespace ostvt;

namespace {

void ReadSection(DefinitionText* definition, const OString& section) {
  StringMap map;
  definition->ReadSection(section, &map);
  for (int32_t i = 0; i < map.Names.Count; ++i) {
    if (map.Find(map.Names[i]) != i) __builtin_trap();
    const OString value = map.GetString(map.Names[i], "");
    map.GetInt(map.Names[i], 0);
    DefinitionFile::ParseBool(value, false);
    ModelDefinition::ParseAlignment(value);
    OStringArray list;
    list.Split(value, ",");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  DefinitionText definition(text.data(), static_cast<uint32_t>(size));
  ReadSection(&definition, "X");
  ReadSection(&definition, ".default");
  size_t sections = 0;
  for (size_t at = text.find("\n["); at != std::string::npos && sections < 8;
       at = text.find("\n[", at + 1), ++sections) {
    const size_t end = text.find(']', at);
    if (end == std::string::npos) break;
    ReadSection(&definition, text.substr(at + 2, end - at - 2).c_str());
  }
  return 0;
}
