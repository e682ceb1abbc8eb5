// The value of a hexadecimal digit, in either case.
#pragma once

namespace ostvt {

// -1 for what is no digit.
constexpr int HexDigit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

// Takes everything but 0 to 9 for a letter, by its last four bits and nine more: 9 to 24.
constexpr unsigned LaxHexDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9' ? unit - u'0' : (unit & 15u) + 9u;
}

}  // namespace ostvt
