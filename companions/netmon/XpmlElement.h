// One element of a request: <NAME ATTRIBUTE='VALUE' ...>, <NAME ... /> or </NAME>.
#pragma once

#include <string_view>

namespace ostvt::netmon {

struct XpmlElement {
  std::string_view Name;
  bool IsEnd = false;    // </NAME>
  bool IsEmpty = false;  // <NAME/>
  size_t Length = 0;     // of the whole element

  // "" when there is none. Lives as long as the text does.
  std::string_view Attribute(std::string_view name) const;

  std::string_view Attributes;  // all of them, as they stand
};

// The element at the head of `text`. False if there is none that is well formed.
bool ParseXpmlElement(std::string_view text, XpmlElement* element);

}  // namespace ostvt::netmon
