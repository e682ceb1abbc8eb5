#include "comm/XpmlText.h"

#include <limits>

namespace ostvt {

OString XpmlQuery(const OString& name, int32_t size) {
  const bool isEstimate = size < 0;
  // The smallest number has no opposite.
  if (isEstimate) size = size == std::numeric_limits<int32_t>::min() ? kNumberLimit : -size;
  OString text = "<query action='execute' name='" + name + "' ";
  text += isEstimate ? "response_estimate='" : "response_length='";
  text.AppendInt(size);
  text += "'>";
  return text;
}

OString XpmlQueryResponse(const OString& name) {
  return "<query action='get' value='response' name='" + name + "' />";
}

}  // namespace ostvt
