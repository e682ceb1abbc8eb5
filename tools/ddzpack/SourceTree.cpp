#include "tools/ddzpack/SourceTree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/OString.h"

namespace ddzpack {
namespace {

namespace fs = std::filesystem;

bool ReadWhole(const fs::path& path, std::string* data) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return false;
  data->assign(std::istreambuf_iterator<char>(stream), {});
  return !stream.bad();
}

bool SameMemberName(const std::string& a, const std::string& b) {
  return ostvt::OString(a.c_str()).CompareNoCase(ostvt::OString(b.c_str())) == 0;
}

bool IsPlainName(const std::string& name) {
  return std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace

std::string ArchiveName(const std::string& maker, const std::string& folder) {
  fs::path path = fs::path(folder).lexically_normal();
  if (!path.has_filename()) path = path.parent_path();
  std::string name = path.filename().string();
  if (name != "base") {
    name = name.substr(0, 3);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  }
  return maker + "#" + name + ".ddz";
}

void ReadFolder(const std::string& folder, const std::string& archive,
                std::vector<SourceFile>* files, std::vector<Problem>* problems) {
  std::error_code error;
  std::vector<fs::path> paths;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().filename().string()[0] != '.') paths.push_back(entry->path());
  }
  if (error) {
    problems->push_back({folder, 0, "cannot be read: " + error.message()});
    return;
  }
  std::sort(paths.begin(), paths.end());
  for (const fs::path& path : paths) {
    SourceFile file{path.string(), path.filename().string(), archive, ""};
    if (fs::is_directory(path, error)) {
      problems->push_back({file.Path, 0, "a folder inside a folder cannot be packed"});
    } else if (!IsPlainName(file.Name)) {
      problems->push_back({file.Path, 0, "a name outside printable ASCII"});
    } else if (!ReadWhole(path, &file.Data)) {
      problems->push_back({file.Path, 0, "cannot be read"});
    } else {
      const auto same = std::find_if(files->begin(), files->end(), [&](const SourceFile& other) {
        return SameMemberName(other.Name, file.Name);
      });
      if (same != files->end()) {
        problems->push_back({file.Path, 0, "is hidden by " + same->Path});
      }
      files->push_back(std::move(file));
    }
  }
}

}  // namespace ddzpack
