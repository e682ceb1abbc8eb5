#include "tools/ddzpack/ValueCheck.h"

#include <algorithm>

#include "core/OString.h"
#include "model/DefinitionFile.h"
#include "model/Measure.h"

namespace ddzpack {
namespace {

bool EqualsNoCase(const std::string& a, const std::string& b) {
  return ostvt::OString(a.c_str()).CompareNoCase(ostvt::OString(b.c_str())) == 0;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

bool IsDigits(const std::string& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsOneOf(const KnownKey& key, const std::string& word, bool exact) {
  for (const std::string& known : SplitAt(key.Words, ' ')) {
    if (exact ? word == known : EqualsNoCase(word, known)) return true;
  }
  return false;
}

std::string CheckWord(const KnownKey& key, const std::string& word, bool exact) {
  if (IsOneOf(key, word, exact)) return "";
  return Quoted(word) + " is none of: " + key.Words;
}

std::string CheckBool(const std::string& value) {
  const ostvt::OString text(value.c_str());
  if (ostvt::DefinitionFile::ParseBool(text, false) ==
      ostvt::DefinitionFile::ParseBool(text, true)) {
    return "";
  }
  return Quoted(value) + " is neither yes nor no";
}

std::string CheckNumber(const KnownKey& key, const std::string& value) {
  if (!IsDigits(value)) return Quoted(value) + " is no number";
  if (ostvt::OString(value.c_str()).ToInt() > key.Limit) {
    return value + " is above " + std::to_string(key.Limit);
  }
  return "";
}

std::string CheckMeasure(const std::string& value) {
  const int32_t units = ostvt::Measure::Parse(value.c_str()).Units();
  if (units == 0) return "length " + Quoted(value) + " reads as 0";
  if (units < 0) return "length " + Quoted(value) + " is negative";
  return "";
}

// The driver does not trim the elements of lists.
std::string CheckElement(const std::string& element) {
  if (element.empty()) return "an empty element in a list";
  if (element.front() == ' ' || element.back() == ' ') {
    return "a blank beside the separator belongs to " + Quoted(element);
  }
  return "";
}

std::string CheckList(const KnownKey& key, const std::string& value, bool exact) {
  for (const std::string& element : SplitAt(value, ',')) {
    std::string problem = CheckElement(element);
    if (problem.empty()) problem = CheckWord(key, element, exact);
    if (!problem.empty()) return problem;
  }
  return "";
}

std::string CheckNames(const std::string& value, char separator) {
  for (const std::string& element : SplitAt(value, separator)) {
    const std::string problem = CheckElement(element);
    if (!problem.empty()) return problem;
  }
  return "";
}

std::string CheckResolutions(const KnownKey& key, const std::string& value) {
  const std::vector<std::string> pairs = SplitAt(value, ',');
  if (pairs.size() > static_cast<size_t>(key.Limit)) {
    return std::to_string(pairs.size()) + " resolutions, of which " + std::to_string(key.Limit) +
           " are used";
  }
  static constexpr KnownKey kAxis = {"", ValueKind::kNumber, "", 65535};
  for (const std::string& pair : pairs) {
    const std::vector<std::string> axes = SplitAt(pair, 'x');
    if (axes.size() > 2) return Quoted(pair) + " is no resolution";
    for (const std::string& axis : axes) {
      if (!CheckNumber(kAxis, axis).empty() || ostvt::OString(axis.c_str()).ToInt() == 0) {
        return Quoted(pair) + " is no resolution";
      }
    }
  }
  return "";
}

std::string CheckText(const KnownKey& key, const std::string& value) {
  if (key.Limit == 0 || value.size() <= static_cast<size_t>(key.Limit)) return "";
  return "text of " + std::to_string(value.size()) + " bytes, of which " +
         std::to_string(key.Limit) + " fit the record";
}

}  // namespace

std::string CheckValue(const KnownKey& key, const std::string& value) {
  switch (key.Kind) {
    case ValueKind::kBool:
      return CheckBool(value);
    case ValueKind::kNumber:
      return CheckNumber(key, value);
    case ValueKind::kMeasure:
      return CheckMeasure(value);
    case ValueKind::kWord:
      return CheckWord(key, value, false);
    case ValueKind::kList:
      return CheckList(key, value, false);
    case ValueKind::kExactList:
      return CheckList(key, value, true);
    case ValueKind::kNames:
    case ValueKind::kGroupLinks:
    case ValueKind::kProviders:
      return CheckNames(value, ',');
    case ValueKind::kClasses:
      return CheckNames(value, ';');
    case ValueKind::kText:
      return CheckText(key, value);
    case ValueKind::kResolutions:
      return CheckResolutions(key, value);
    case ValueKind::kLink:
      if (value.starts_with(std::string(key.Words) + ":")) return "";
      return "link " + Quoted(value) + " does not lead to " + key.Words + ":SECTION";
  }
  return "";
}

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> parts;
  size_t start = 0;
  for (;;) {
    const size_t end = text.find(separator, start);
    parts.emplace_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

std::string GroupName(std::string name) {
  for (const std::string_view part : {"FontGroup:", ".pfg"}) {
    for (size_t at; (at = name.find(part)) != std::string::npos;) name.erase(at, part.size());
  }
  return name;
}

}  // namespace ddzpack
