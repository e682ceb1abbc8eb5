#include "tools/vtdal/Arguments.h"

#include "tools/vtdal/Text.h"

namespace vtdal {

bool Arguments::Parse(const std::vector<std::u16string>& words,
                      const std::vector<OptionRule>& rules, std::string* error) {
  bool optionsEnded = false;
  for (size_t i = 0; i < words.size(); i++) {
    const std::u16string& word = words[i];
    if (optionsEnded || word.compare(0, 2, u"--") != 0) {
      WordList.push_back(word);
      continue;
    }
    if (word == u"--") {
      optionsEnded = true;
      continue;
    }
    size_t equals = word.find(u'=');
    bool hasValue = equals != std::u16string::npos;
    std::string name = ToUtf8(std::u16string_view(word).substr(0, equals));
    const OptionRule* rule = nullptr;
    for (const OptionRule& candidate : rules) {
      if (name == candidate.Name) rule = &candidate;
    }
    if (!rule) {
      *error = "unknown option '" + Printable(name) + "'";
      return false;
    }
    if (hasValue && !rule->TakesValue) {
      *error = "option '" + name + "' takes no value";
      return false;
    }
    if (rule->TakesValue && !hasValue && i + 1 == words.size()) {
      *error = "option '" + name + "' needs a value";
      return false;
    }
    Values[name] = hasValue ? word.substr(equals + 1) : rule->TakesValue ? words[++i] : u"";
  }
  return true;
}

std::u16string Arguments::Value(const char* option) const {
  auto found = Values.find(option);
  return found == Values.end() ? std::u16string() : found->second;
}

}  // namespace vtdal
