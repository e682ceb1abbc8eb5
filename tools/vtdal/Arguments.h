// The command line, parted into a command's words and options.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vtdal {

enum ExitCode { kDone = 0, kFailed = 1, kUsage = 2 };

struct OptionRule {
  const char* Name;  // with "--"
  bool TakesValue;
};

class Arguments {
 public:
  // Options begin with "--" and may stand anywhere; "--" alone ends them. The value of an option is
  // the next word, or stands behind "=". False leaves the reason in `error`.
  bool Parse(const std::vector<std::u16string>& words, const std::vector<OptionRule>& rules,
             std::string* error);

  const std::vector<std::u16string>& Words() const { return WordList; }
  bool Has(const char* option) const { return Values.count(option) > 0; }
  // "" where it wasn't given.
  std::u16string Value(const char* option) const;

 private:
  std::vector<std::u16string> WordList;
  std::map<std::string, std::u16string> Values;
};

// One of the tool's commands.
struct Command {
  const char* Name;
  const char* Help;
  size_t LeastWords;
  size_t MostWords;
  std::vector<OptionRule> Options;
  int (*Run)(const Arguments& arguments);
};

// Prints the reason and where to find help; gives kUsage.
int UsageError(const char* command, std::string_view reason);

// The words behind the program's name.
int RunTool(const std::vector<std::u16string>& words);

}  // namespace vtdal
