#include "model/ModelAttributes.h"

#include <string>
#include <string_view>

#include "core/OStringArray.h"
#include "core/WhiteSpace.h"

namespace ostvt {
namespace {

constexpr std::u16string_view kBlanks = u" \t";
constexpr auto kNowhere = std::u16string_view::npos;

// Where the "=" behind the attribute's name is.
size_t FindEquals(std::u16string_view line, std::u16string_view name) {
  for (size_t at = line.find(name); at != kNowhere; at = line.find(name, at + 1)) {
    if (at == 0 || kBlanks.find(line[at - 1]) == kNowhere) continue;
    const size_t next = line.find_first_not_of(kBlanks, at + name.size());
    if (next != kNowhere && line[next] == u'=') return next;
  }
  return kNowhere;
}

bool IsListed(const OString& list, const OString& name) {
  OString wanted = name;
  wanted.MakeUpper();
  OStringArray members;
  members.Split(list, ";");
  for (int32_t i = 0; i < members.Count; ++i) {
    OString pattern = members[i];
    pattern.Trim(kWhiteSpace);
    pattern.MakeUpper();
    if (wanted.Match(pattern)) return true;
  }
  return false;
}

}  // namespace

OString GetAttribute(const OString& line, const OString& name) {
  const std::u16string_view text = line.GetWide();
  const std::u16string_view word = name.GetWide();
  if (word.empty()) return OString();
  const size_t equals = FindEquals(text, word);
  if (equals == kNowhere) return OString();
  const size_t first = text.find(u'\'', equals);
  if (first == kNowhere) return OString();
  const size_t second = text.find(u'\'', first + 1);
  if (second == kNowhere) return OString();
  return OString(std::u16string(text.substr(first + 1, second - first - 1)).c_str());
}

bool MatchesModelAttributes(const OString& line, const OString& modelName, const OString& modelId) {
  const OString models = GetAttribute(line, "model");
  if (!models.IsEmpty()) return IsListed(models, modelName);
  const OString drivers = GetAttribute(line, "driver");
  return drivers.IsEmpty() || IsListed(drivers, modelId);
}

}  // namespace ostvt
