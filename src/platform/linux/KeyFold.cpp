#include "platform/linux/KeyFold.h"

#include <unicode/uchar.h>

namespace ostvt::platform {
namespace {

char16_t FoldUnit(char16_t unit) {
  if (unit < 0x80) return static_cast<char16_t>(unit >= u'a' && unit <= u'z' ? unit - 0x20 : unit);
  if (unit >= 0xD800 && unit <= 0xDFFF) return unit;
  const UChar32 upper = u_toupper(unit);
  return upper <= 0xFFFF && u_tolower(upper) == unit ? static_cast<char16_t>(upper) : unit;
}

}  // namespace

std::u16string FoldName(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& unit : folded) unit = FoldUnit(unit);
  return folded;
}

}  // namespace ostvt::platform
