#include "ui/TextLimits.h"

#include <algorithm>
#include <string>

namespace ostvt {

OString CutText(const OString& text, int32_t units) {
  std::u16string cut = text.GetWide();
  cut.resize(std::min(cut.size(), static_cast<size_t>(std::max(units, 0))));
  if (!cut.empty() && (cut.back() & 0xFC00) == 0xD800) cut.pop_back();
  return OString(cut.c_str());
}

}  // namespace ostvt
