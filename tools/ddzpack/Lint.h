// Finds the mistakes in definition files that the driver would pass over in silence.
#pragma once

#include <string>
#include <vector>

#include "tools/ddzpack/SourceTree.h"

namespace ddzpack {

// Checks the ".d" files among `files` together, as links lead from one to another. Problems come in
// the order of files and lines.
void Lint(const std::vector<SourceFile>& files, std::vector<Problem>* problems);

// "File: key" for each key that the driver reads and that none of the files sets, and
// "File: key=word" for each word that the lists of a key have nowhere, in the order of the tables.
// Of options that every prefix has, one is enough.
std::vector<std::string> FindUnusedKeys(const std::vector<SourceFile>& files);

}  // namespace ddzpack
