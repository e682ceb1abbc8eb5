#include "tools/ddzpack/Lint.h"

#include <algorithm>
#include <map>
#include <set>

#include "model/DefinitionText.h"
#include "model/StringMap.h"
#include "tools/ddzpack/KnownKeys.h"
#include "tools/ddzpack/ValueCheck.h"

namespace ddzpack {
namespace {

constexpr std::string_view kExtension = ".d";

struct Definition {
  const SourceFile* Source;
  std::vector<DefinitionSection> Sections;

  bool HasSection(const std::string& name) const {
    return std::any_of(Sections.begin() + 1, Sections.end(),
                       [&](const DefinitionSection& section) { return section.Name == name; });
  }
};

using Definitions = std::map<std::string, Definition>;  // by name without extension

Definitions ReadDefinitions(const std::vector<SourceFile>& files, std::vector<Problem>* problems) {
  Definitions definitions;
  for (const SourceFile& file : files) {
    if (!file.Name.ends_with(kExtension)) {
      // The driver's look-up folds case.
      if (file.Name.ends_with(".D")) {
        problems->push_back(
            {file.Path, 1, "a definition file's name ends in \".d\", in lower case"});
      }
      continue;
    }
    const std::string name = file.Name.substr(0, file.Name.size() - kExtension.size());
    definitions[name] = {&file, ReadDefinition(file.Path, file.Data, problems)};
  }
  return definitions;
}

// The values of a section, those of the default section among them, by the driver's own reader.
class SectionValues {
 public:
  SectionValues(ostvt::DefinitionText* text, const std::string& section) {
    text->ReadSection(section.c_str(), &Map);
  }
  // Empty if there is none.
  std::string Get(const std::string& key) { return Map.GetString(key.c_str(), "").GetNarrow(); }

 private:
  ostvt::StringMap Map;
};

class Checker {
 public:
  Checker(const Definitions& all, const Definition& definition, const KnownFile& known,
          std::vector<Problem>* problems)
      : All(all),
        File(definition),
        Known(known),
        Text(definition.Source->Data.data(), static_cast<uint32_t>(definition.Source->Data.size())),
        Defaults(&Text, kDefaultSection),
        Problems(problems) {}

  void Run() {
    for (const DefinitionSection& section : File.Sections) {
      SectionValues values(&Text, section.Name);
      const auto& entries = section.Entries;
      for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        // A key that is set and then grows is checked with its last line.
        const bool isLast = std::none_of(entry + 1, entries.end(),
                                         [&](const auto& next) { return next.Key == entry->Key; });
        if (isLast) Check(*entry, section, &values);
      }
    }
  }

 private:
  void Report(const DefinitionEntry& entry, const std::string& text) {
    Problems->push_back({File.Source->Path, entry.Line, entry.Key + ": " + text});
  }

  void Check(const DefinitionEntry& entry, const DefinitionSection& section,
             SectionValues* values) {
    const KnownKey* key = FindKnownKey(Known, WithoutMakerCode(entry.Key));
    const std::string value = values->Get(entry.Key);
    if (!key) {
      Report(entry, std::string("nobody reads this key of ") + Known.Name + ".d");
    } else if (entry.Value.empty()) {
      const bool takesBack = section.Name != kDefaultSection && !Defaults.Get(entry.Key).empty();
      if (entry.Appends || !takesBack)
        Report(entry, "an empty value, with no default to take back");
    } else if (const std::string problem = CheckValue(*key, value); !problem.empty()) {
      Report(entry, problem);
    } else if (key->Kind == ValueKind::kLink) {
      CheckLink(entry, key->Words, value.substr(value.find(':') + 1));
    } else if (key->Kind == ValueKind::kGroupLinks) {
      for (const std::string& name : SplitAt(value, ',')) CheckGroup(entry, GroupName(name));
    } else if (key->Kind == ValueKind::kProviders) {
      for (const std::string& name : SplitAt(value, ',')) {
        const std::string link = "~FontOptions." + name;
        if (values->Get(link).empty()) Report(entry, "leads to " + link + ", which is missing");
      }
    }
  }

  void CheckLink(const DefinitionEntry& entry, const std::string& file,
                 const std::string& section) {
    const auto target = All.find(file);
    if (target == All.end()) {
      Report(entry, "leads to " + file + ".d, which is missing");
    } else if (!target->second.HasSection(section)) {
      Report(entry, "leads to [" + section + "], which " + file + ".d does not have");
    }
  }

  // A group's section may have the suffix or not.
  void CheckGroup(const DefinitionEntry& entry, const std::string& group) {
    const auto target = All.find("FontGroup");
    const bool isSuffixed = target != All.end() && target->second.HasSection(group + ".pfg");
    CheckLink(entry, "FontGroup", isSuffixed ? group + ".pfg" : group);
  }

  const Definitions& All;
  const Definition& File;
  const KnownFile& Known;
  ostvt::DefinitionText Text;
  SectionValues Defaults;
  std::vector<Problem>* Problems;
};

bool EndsInOption(const std::set<std::string>& used, const std::string& option) {
  return std::any_of(used.begin(), used.end(), [&](const std::string& key) {
    return key == option || key.ends_with("." + option);
  });
}

// The words in the lists that the files give each key, in lower case unless case counts.
class UsedWords {
 public:
  explicit UsedWords(const KnownFile& file) : File(file) {}
  void Add(const DefinitionEntry& entry) {
    const KnownKey* key = FindKnownKey(File, WithoutMakerCode(entry.Key));
    if (!key || !TakesWords(*key)) return;
    for (const std::string& word : SplitAt(entry.Value, ',')) Words[key].insert(Fold(*key, word));
  }
  // Those that a key which is used never takes.
  std::vector<std::string> FindUnused(const KnownKey& key) const {
    std::vector<std::string> unused;
    const auto used = Words.find(&key);
    if (used == Words.end()) return unused;
    for (const std::string& word : SplitAt(key.Words, ' ')) {
      if (!used->second.contains(Fold(key, word))) unused.push_back(word);
    }
    return unused;
  }

 private:
  static bool TakesWords(const KnownKey& key) {
    return key.Kind == ValueKind::kList || key.Kind == ValueKind::kExactList;
  }
  static std::string Fold(const KnownKey& key, const std::string& word) {
    if (key.Kind == ValueKind::kExactList) return word;
    ostvt::OString folded(word.c_str());
    folded.MakeLower();
    return folded.GetNarrow();
  }

  const KnownFile& File;
  std::map<const KnownKey*, std::set<std::string>> Words;
};

bool Matches(const std::set<std::string>& used, const KnownFile& file, const KnownKey& known) {
  return std::any_of(used.begin(), used.end(),
                     [&](const std::string& key) { return FindKnownKey(file, key) == &known; });
}

}  // namespace

void Lint(const std::vector<SourceFile>& files, std::vector<Problem>* problems) {
  const Definitions definitions = ReadDefinitions(files, problems);
  for (const auto& [name, definition] : definitions) {
    if (const KnownFile* known = FindKnownFile(name)) {
      Checker(definitions, definition, *known, problems).Run();
    } else {
      problems->push_back({definition.Source->Path, 1, "nobody reads a definition file " + name});
    }
  }
  std::stable_sort(problems->begin(), problems->end(), [](const Problem& a, const Problem& b) {
    return a.File != b.File ? a.File < b.File : a.Line < b.Line;
  });
}

std::vector<std::string> FindUnusedKeys(const std::vector<SourceFile>& files) {
  std::vector<Problem> ignored;
  const Definitions definitions = ReadDefinitions(files, &ignored);
  std::vector<std::string> unused;
  for (const KnownFile& file : KnownFiles()) {
    std::set<std::string> used;
    UsedWords words(file);
    if (const auto found = definitions.find(file.Name); found != definitions.end()) {
      for (const DefinitionSection& section : found->second.Sections) {
        for (const DefinitionEntry& entry : section.Entries) {
          used.emplace(WithoutMakerCode(entry.Key));
          words.Add(entry);
        }
      }
    }
    const auto require = [&](bool isUsed, const std::string& key) {
      const std::string text = std::string(file.Name) + ": " + key;
      if (!isUsed && (unused.empty() || unused.back() != text)) unused.push_back(text);
    };
    const auto requireWords = [&](const KnownKey& key) {
      for (const std::string& word : words.FindUnused(key)) require(false, key.Name + ("=" + word));
    };
    for (const KnownKey& known : file.Keys) {
      require(Matches(used, file, known), known.Name);
      requireWords(known);
    }
    for (const char* prefix : file.Prefixes) require(used.contains(prefix), prefix);
    for (const PrefixedKey& option : file.Options) {
      requireWords(option.Key);
      if (option.Prefixes == kAllPrefixes) {
        require(EndsInOption(used, option.Key.Name), option.Key.Name);
        continue;
      }
      for (size_t row = 0; row < file.Prefixes.size(); ++row) {
        if ((option.Prefixes >> row & 1) == 0) continue;
        const std::string key = std::string(file.Prefixes[row]) + "." + option.Key.Name;
        require(used.contains(key), key);
      }
    }
  }
  return unused;
}

}  // namespace ddzpack
