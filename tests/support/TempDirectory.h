// A directory of its own for one test, removed with all it holds.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

namespace ostvt::test {

class TempDirectory {
 public:
  TempDirectory() {
    static std::atomic<unsigned> serial = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    Directory = std::filesystem::temp_directory_path() /
                ("ostvt-" + std::to_string(now) + "-" + std::to_string(serial++));
    std::filesystem::create_directories(Directory);
  }
  ~TempDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(Directory, ignored);
  }
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;

  // The path of `name` in it, by the platform's own separator.
  std::string Path(const std::string& name) const { return (Directory / name).string(); }
  std::string Path() const { return Directory.string(); }
  std::u16string WidePath(const std::u16string& name) const {
    return (Directory / std::filesystem::path(name)).u16string();
  }

  std::string Put(const std::string& name, const std::string& bytes) const {
    FILE* file = fopen(Path(name).c_str(), "wb");
    fwrite(bytes.data(), 1, bytes.size(), file);
    fclose(file);
    return Path(name);
  }
  // "" when there is no such file.
  std::string Get(const std::string& name) const {
    std::string bytes;
    FILE* file = fopen(Path(name).c_str(), "rb");
    if (file == nullptr) return bytes;
    char part[4096];
    for (size_t n; (n = fread(part, 1, sizeof(part), file)) > 0;) bytes.append(part, n);
    fclose(file);
    return bytes;
  }

 private:
  std::filesystem::path Directory;
};

}  // namespace ostvt::test
