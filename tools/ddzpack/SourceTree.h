// The folders that archives are made from. Each file is a member; sub-folders are not allowed, and
// files whose names begin with "." are left alone.
#pragma once

#include <string>
#include <vector>

#include "tools/ddzpack/DefinitionLines.h"

namespace ddzpack {

struct SourceFile {
  std::string Path;     // as shown in messages
  std::string Name;     // of the member
  std::string Archive;  // file name of its archive
  std::string Data;
};

// "vt#base.ddz" for a folder "base", else the maker's code, "#" and the first three letters of the
// folder's name: the family code, as in the names of the driver's files.
std::string ArchiveName(const std::string& maker, const std::string& folder);

// Adds the files of `folder`, sorted by name. Members of different archives must differ in name,
// since the driver looks in the base archive first.
void ReadFolder(const std::string& folder, const std::string& archive,
                std::vector<SourceFile>* files, std::vector<Problem>* problems);

}  // namespace ddzpack
