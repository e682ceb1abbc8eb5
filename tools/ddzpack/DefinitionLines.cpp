#include "tools/ddzpack/DefinitionLines.h"

#include <algorithm>

namespace ddzpack {
namespace {

constexpr const char* kBlanks = " \t\r\n";

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Other bytes read differently under another system's code page.
bool IsPlain(char c) { return c == '\t' || (c >= ' ' && c <= '~'); }

class Reader {
 public:
  Reader(const std::string& path, std::vector<Problem>* problems)
      : Path(path), Problems(problems), Sections(1) {
    Sections[0].Name = kDefaultSection;
  }

  void Line(const std::string& line) {
    ++Number;
    if (!std::all_of(line.begin(), line.end(), IsPlain)) {
      Report("a character outside printable ASCII");
      return;
    }
    if (line.empty() || line[0] == '!') return;
    if (line[0] == '[') {
      Header(line);
    } else {
      Entry(line);
    }
  }

  std::vector<DefinitionSection> Take() { return std::move(Sections); }

 private:
  void Report(const std::string& text) { Problems->push_back({Path, Number, text}); }

  void Header(const std::string& line) {
    const std::string name = line.substr(1, line.size() - 2);
    if (line.back() != ']' || name.empty() || Trimmed(name) != name) {
      Report("\"" + line + "\" is no section header: [NAME], with no blank around");
      Current = SIZE_MAX;
      return;
    }
    const bool again =
        std::any_of(Sections.begin() + 1, Sections.end(),
                    [&](const DefinitionSection& section) { return section.Name == name; });
    if (name == kDefaultSection) {
      if (DefaultSeen) {
        Report("section [" + name + "] begins a second time");
      } else if (Sections.size() > 1) {
        Report("section [" + name + "] stands below others and would override their keys");
      }
      DefaultSeen = true;
      Current = 0;
      return;
    }
    if (again) Report("section [" + name + "] begins a second time");
    Sections.push_back({name, {}});
    Current = Sections.size() - 1;
  }

  void Entry(const std::string& line) {
    if (Trimmed(line).empty()) return;
    const size_t append = line.find("+=");
    const size_t equals = line.find('=');
    if (equals == std::string::npos) {
      Report("\"" + Trimmed(line) + "\" is neither a key, a section nor a comment");
      return;
    }
    DefinitionEntry entry;
    entry.Appends = append != std::string::npos;
    const size_t end = entry.Appends ? append : equals;
    entry.Key = Trimmed(line.substr(0, end));
    entry.Value = Trimmed(line.substr(end + (entry.Appends ? 2 : 1)));
    entry.Line = Number;
    if (entry.Key.empty()) {
      Report("a value without a key");
    } else if (entry.Key[0] == '!') {
      Report("a comment begins at the left edge");
    } else if (!HeaderSeen()) {
      Report("key " + entry.Key + " stands above the first section");
    } else if (Current < Sections.size()) {
      auto& entries = Sections[Current].Entries;
      if (!entry.Appends && std::any_of(entries.begin(), entries.end(),
                                        [&](const auto& e) { return e.Key == entry.Key; })) {
        Report("key " + entry.Key + " is set twice in [" + Sections[Current].Name + "]");
      }
      entries.push_back(std::move(entry));
    }
  }

  bool HeaderSeen() const { return DefaultSeen || Sections.size() > 1 || Current == SIZE_MAX; }

  const std::string& Path;
  std::vector<Problem>* Problems;
  std::vector<DefinitionSection> Sections;
  size_t Current = 0;  // SIZE_MAX: behind a header that cannot be read
  int Number = 0;
  bool DefaultSeen = false;
};

}  // namespace

std::vector<DefinitionSection> ReadDefinition(const std::string& path, const std::string& text,
                                              std::vector<Problem>* problems) {
  Reader reader(path, problems);
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    std::erase(line, '\r');
    reader.Line(line);
    start = end + 1;
  }
  return reader.Take();
}

}  // namespace ddzpack
