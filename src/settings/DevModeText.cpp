#include "settings/DevModeText.h"

#include <cstring>

namespace ostvt {
namespace {

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

// Units of `text`, at most `limit`, that leave no pair cut in two.
int WholeUnits(const char16_t* text, int limit) {
  int units = 0;
  while (units < limit && text[units] != 0) ++units;
  if (units > 0 && text[units] != 0 && IsHighSurrogate(text[units - 1])) --units;
  return units;
}

}  // namespace

void FillWideField(char16_t* field, int size, int limit, const OString& text) {
  const char16_t* wide = text.GetWide();
  const int units = WholeUnits(wide, limit);
  memset(field, 0, static_cast<size_t>(size) * sizeof(char16_t));
  memcpy(field, wide, static_cast<size_t>(units) * sizeof(char16_t));
}

void FillNarrowField(char* field, int size, int limit, const OString& text) {
  memset(field, 0, static_cast<size_t>(size));
  // A unit is at least one byte, so no more than `limit` of them can fit.
  for (int units = limit; units > 0; --units) {
    OString part;
    part.AssignCount(text.GetWide(), WholeUnits(text.GetWide(), units));
    const size_t length = strlen(part.GetNarrow());
    if (length > static_cast<size_t>(limit)) continue;
    memcpy(field, part.GetNarrow(), length);
    return;
  }
}

}  // namespace ostvt
