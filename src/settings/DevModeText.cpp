#include "settings/DevModeText.h"

#include <cstring>

#include "core/WholeUnits.h"

namespace ostvt {

void FillWideField(char16_t* field, int size, int limit, const OString& text) {
  const std::u16string_view part = WholeUnits(text.GetWide(), static_cast<size_t>(limit));
  memset(field, 0, static_cast<size_t>(size) * sizeof(char16_t));
  memcpy(field, part.data(), part.size() * sizeof(char16_t));
}

void FillNarrowField(char* field, int size, int limit, const OString& text) {
  memset(field, 0, static_cast<size_t>(size));
  // A unit is at least one byte, so no more than `limit` of them can fit.
  const std::u16string_view wide = text.GetWide();
  for (int units = limit; units > 0; --units) {
    const std::u16string_view whole = WholeUnits(wide, static_cast<size_t>(units));
    OString part;
    part.AssignCount(whole.data(), static_cast<int>(whole.size()));
    const size_t length = strlen(part.GetNarrow());
    if (length > static_cast<size_t>(limit)) continue;
    memcpy(field, part.GetNarrow(), length);
    return;
  }
}

}  // namespace ostvt
