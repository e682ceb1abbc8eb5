// Makes the driver's `.ddz` archives from folders of definition files, and checks these.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tools/ddzpack/Lint.h"
#include "tools/ddzpack/SourceTree.h"
#include "tools/ddzpack/ZipWriter.h"

namespace {

using namespace ddzpack;
namespace fs = std::filesystem;

enum ExitCode { kDone = 0, kFailed = 1, kUsage = 2 };

constexpr const char* kHelp =
    "Usage: ddzpack [OPTION]... --out DIR FOLDER...\n"
    "       ddzpack --check FOLDER...\n"
    "       ddzpack --unused FOLDER...\n"
    "\n"
    "Packs each FOLDER into an archive for the driver: vt#base.ddz from a folder \"base\",\n"
    "vt#ost.ddz from a folder \"ostrel\". Definition files (*.d) are checked first, all together;\n"
    "other files go in as they are. Folders for the same archive are packed into one.\n"
    "\n"
    "  --out DIR      where the archives go; one that would not change is left alone\n"
    "  --check        only check\n"
    "  --unused       only list the keys and the words of lists that the driver reads and that\n"
    "                 no file sets\n"
    "  --maker XX     two small letters that begin the archives' names (vt)\n"
    "  --time TIME    \"YYYY-MM-DD HH:MM:SS\", the members' time (2026-01-01 00:00:00)\n"
    "  --help         this text\n"
    "\n"
    "Exit status: 0 done, 1 mistakes in the files or unused keys found, or an archive that could\n"
    "not be written, 2 wrong usage.\n";

struct Options {
  std::string Out;
  std::string Maker = "vt";
  std::vector<std::string> Folders;
  DosTime Time;
  bool CheckOnly = false;
  bool ListUnused = false;
};

// As the driver folds the letters of its data file's name.
bool IsMaker(const std::string& maker) {
  return maker.size() == 2 &&
         std::all_of(maker.begin(), maker.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

int UsageError(const std::string& text) {
  std::fprintf(stderr, "ddzpack: %s\nTry 'ddzpack --help'.\n", text.c_str());
  return kUsage;
}

// False after a message; `exitCode` is what to end with.
bool ParseOptions(int count, char** arguments, Options* options, int* exitCode) {
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--help") {
      std::fputs(kHelp, stdout);
      *exitCode = kDone;
      return false;
    }
    if (argument == "--check") {
      options->CheckOnly = true;
    } else if (argument == "--unused") {
      options->ListUnused = true;
    } else if (argument == "--out" || argument == "--maker" || argument == "--time") {
      if (++i == count) {
        *exitCode = UsageError(argument + " needs a value");
        return false;
      }
      if (argument == "--out") options->Out = arguments[i];
      if (argument == "--maker") options->Maker = arguments[i];
      if (argument == "--time" && !ParseDosTime(arguments[i], &options->Time)) {
        *exitCode = UsageError(std::string("\"") + arguments[i] + "\" is no time");
        return false;
      }
    } else if (argument.starts_with("-")) {
      *exitCode = UsageError("unknown option " + argument);
      return false;
    } else {
      options->Folders.push_back(argument);
    }
  }
  if (options->Folders.empty()) {
    *exitCode = UsageError("no folder given");
  } else if (options->Out.empty() && !options->CheckOnly && !options->ListUnused) {
    *exitCode = UsageError("--out is missing");
  } else if (!IsMaker(options->Maker)) {
    *exitCode = UsageError("--maker takes two letters, in lower case");
  } else {
    return true;
  }
  return false;
}

void Print(const std::vector<Problem>& problems) {
  for (const Problem& problem : problems) {
    if (problem.Line > 0) {
      std::fprintf(stderr, "%s:%d: %s\n", problem.File.c_str(), problem.Line, problem.Text.c_str());
    } else {
      std::fprintf(stderr, "%s: %s\n", problem.File.c_str(), problem.Text.c_str());
    }
  }
}

bool HasContent(const fs::path& path, const std::string& data) {
  std::ifstream stream(path, std::ios::binary);
  return stream && std::string(std::istreambuf_iterator<char>(stream), {}) == data;
}

// A reader never sees a half-written archive: it is made beside the old one and moved there.
bool WriteArchive(const fs::path& path, const std::string& data) {
  if (HasContent(path, data)) return true;
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  fs::path temporary = path;
  temporary += "." + std::to_string(getpid());
  std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
  stream.write(data.data(), static_cast<std::streamsize>(data.size()));
  stream.close();
  if (stream) fs::rename(temporary, path, error);
  if (stream && !error) return true;
  std::fprintf(stderr, "ddzpack: %s cannot be written\n", path.c_str());
  fs::remove(temporary, error);
  return false;
}

bool Pack(const Options& options, const std::vector<SourceFile>& files) {
  std::vector<std::string> done;
  for (const SourceFile& first : files) {
    bool isDone = false;
    for (const std::string& archive : done) isDone = isDone || archive == first.Archive;
    if (isDone) continue;
    done.push_back(first.Archive);
    ZipWriter writer(options.Time);
    for (const SourceFile& file : files) {
      if (file.Archive == first.Archive && !writer.Add(file.Name, file.Data)) {
        std::fprintf(stderr, "ddzpack: %s is too large\n", file.Path.c_str());
        return false;
      }
    }
    if (!WriteArchive(fs::path(options.Out) / first.Archive, writer.Finish())) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int exitCode = kDone;
  if (!ParseOptions(argc, argv, &options, &exitCode)) return exitCode;

  std::vector<SourceFile> files;
  std::vector<Problem> problems;
  for (const std::string& folder : options.Folders) {
    ReadFolder(folder, ArchiveName(options.Maker, folder), &files, &problems);
  }
  if (options.ListUnused && problems.empty()) {
    const std::vector<std::string> unused = FindUnusedKeys(files);
    for (const std::string& key : unused) std::printf("%s\n", key.c_str());
    return unused.empty() ? kDone : kFailed;
  }
  Lint(files, &problems);
  Print(problems);
  if (!problems.empty()) return kFailed;
  return options.CheckOnly || Pack(options, files) ? kDone : kFailed;
}
