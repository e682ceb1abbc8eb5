#include "companions/netmon/XpmlElement.h"

namespace ostvt::netmon {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsNameCharacter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '_' || character == '-';
}

size_t SkipBlanks(std::string_view text, size_t at) {
  while (at < text.size() && kBlanks.find(text[at]) != std::string_view::npos) ++at;
  return at;
}

// Past the name at `at`; `at` itself when there is none.
size_t SkipName(std::string_view text, size_t at) {
  while (at < text.size() && IsNameCharacter(text[at])) ++at;
  return at;
}

struct XpmlAttribute {
  std::string_view Name;
  std::string_view Value;
};

// Moves past the attribute; false, with `at` where it was, when there is none.
bool ParseAttribute(std::string_view text, size_t* at, XpmlAttribute* attribute) {
  const size_t name = *at;
  const size_t nameEnd = SkipName(text, name);
  if (nameEnd == name || text.substr(nameEnd, 2) != "='") return false;
  const size_t value = nameEnd + 2;
  const size_t end = text.find('\'', value);
  if (end == std::string_view::npos) return false;
  attribute->Name = text.substr(name, nameEnd - name);
  attribute->Value = text.substr(value, end - value);
  *at = end + 1;
  return true;
}

}  // namespace

std::string_view XpmlElement::Attribute(std::string_view name) const {
  size_t at = SkipBlanks(Attributes, 0);
  for (XpmlAttribute next; ParseAttribute(Attributes, &at, &next);
       at = SkipBlanks(Attributes, at)) {
    if (next.Name == name) return next.Value;
  }
  return {};
}

bool ParseXpmlElement(std::string_view text, XpmlElement* element) {
  if (text.empty() || text[0] != '<') return false;
  XpmlElement found;
  size_t at = 1;
  found.IsEnd = text.substr(at, 1) == "/";
  if (found.IsEnd) ++at;
  const size_t name = at;
  at = SkipName(text, at);
  if (at == name) return false;
  found.Name = text.substr(name, at - name);
  const size_t attributes = at;
  XpmlAttribute passed;
  for (at = SkipBlanks(text, at); ParseAttribute(text, &at, &passed); at = SkipBlanks(text, at)) {
  }
  found.Attributes = text.substr(attributes, at - attributes);
  found.IsEmpty = !found.IsEnd && text.substr(at, 1) == "/";
  if (found.IsEmpty) ++at;
  if (text.substr(at, 1) != ">") return false;
  found.Length = at + 1;
  *element = found;
  return true;
}

}  // namespace ostvt::netmon
