// A definition file as its author sees it: sections and keys, each with its line.
//
// The driver passes over what it cannot read. Here everything it would pass over is a problem.
#pragma once

#include <string>
#include <vector>

namespace ddzpack {

struct Problem {
  std::string File;
  int Line;
  std::string Text;
};

struct DefinitionEntry {
  std::string Key;
  std::string Value;
  bool Appends = false;  // "+="
  int Line = 0;
};

struct DefinitionSection {
  std::string Name;
  std::vector<DefinitionEntry> Entries;
};

inline constexpr const char* kDefaultSection = ".default";

// The first section is that of the defaults, empty where the file has none.
std::vector<DefinitionSection> ReadDefinition(const std::string& path, const std::string& text,
                                              std::vector<Problem>* problems);

}  // namespace ddzpack
