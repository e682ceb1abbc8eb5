// A length in units of 0.1 micrometre: 1 inch is 254000, 1 mm 10000, 1 mil 254.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// A plain 32-bit value: it lies in fixed records as it is. Every result stays inside 32 bits.
class Measure {
 public:
  Measure() = default;
  constexpr explicit Measure(int32_t units) : Value(units) {}
  static Measure FromMicrons(int32_t microns);
  // A number and a unit: "4.09 in", "10 mm", "1.5 cm", "15 mils", "72 pts". Units are found without
  // regard to case; any word that begins "in" is inches. Digits behind those that the unit keeps
  // (three; cm four, mils none) are cut off. Anything else gives 0.
  static Measure Parse(const OString& text);

  constexpr int32_t Units() const { return Value; }
  // Both round halves away from zero.
  int32_t ToMicrons() const;
  int32_t ToTenthsMm() const;
  // `form` is "value.decimals unit", as "0.3 in": an empty value leaves out a leading zero,
  // decimals are 0 to 6, the unit is one of those of Parse. Empty when a part is missing or the
  // unit unknown.
  OString Format(const OString& form) const;

 private:
  int32_t Value = 0;
};

inline bool operator==(Measure a, Measure b) { return a.Units() == b.Units(); }
inline bool operator!=(Measure a, Measure b) { return a.Units() != b.Units(); }
inline bool operator<(Measure a, Measure b) { return a.Units() < b.Units(); }
inline bool operator>(Measure a, Measure b) { return a.Units() > b.Units(); }

}  // namespace ostvt
