// Lists out of one text, cut at separators.
#include <climits>

#include "core/OStringArray.h"
#include "core/OStringForms.h"

namespace ostvt {
namespace {

// Each hit of `find` from a position on ends a field; what is behind the last one is a field too.
template <typename Unit, typename Find>
void AddFields(OStringArray* out, std::basic_string_view<Unit> text, size_t separatorSize,
               uint32_t codePage, Find find) {
  for (size_t position = 0;;) {
    size_t hit = find(position);
    bool last = hit == std::basic_string_view<Unit>::npos;
    OString field;
    field.SetCodePage(codePage);
    field.AssignCount(text.data() + position,
                      static_cast<int>((last ? text.size() : hit) - position));
    out->Add(field);
    if (last) return;
    position = hit + separatorSize;
  }
}

template <typename Unit>
void SplitText(OStringArray* out, const Unit* text, const Unit* separator, uint32_t codePage) {
  auto whole = TextOf(text);
  auto between = TextOf(separator);
  if (between.empty()) {  // a text of a page that can't be converted
    AddFields(out, whole, 0, codePage, [](size_t) { return std::basic_string_view<Unit>::npos; });
    return;
  }
  AddFields(out, whole, between.size(), codePage,
            [&](size_t position) { return whole.find(between, position); });
}

}  // namespace

void OStringArray::Split(const OString& text, const OString& separator) {
  OString whole = text;  // may be an element of this array
  OString between = separator;
  SetSize(0);
  if (whole.IsEmpty()) return;
  if (between.IsEmpty() || whole.Find(between) < 0) {
    Add(whole);
  } else if (whole.HasWide()) {
    // The search has made the wide forms if the pair needs them.
    SplitText(this, whole.GetWide(), between.GetWide(), whole.GetCodePage());
  } else {
    SplitText(this, whole.GetNarrow(), between.GetNarrow(), whole.GetCodePage());
  }
}

void OStringArray::SplitAny(const OString& text, const OString& charSet) {
  OString whole = text;
  OString ends = charSet;
  SetSize(0);
  auto bytes = TextOf(whole.GetNarrow());
  if (bytes.empty()) return;
  AddFields(this, bytes, 1, 0,
            [&](size_t position) { return bytes.find_first_of(ends.GetNarrow(), position); });
}

}  // namespace ostvt
