// Comparison, wildcards, search and substrings.
#include <string.h>

#include <algorithm>
#include <climits>
#include <type_traits>

#include "core/OString.h"
#include "core/OStringForms.h"

namespace ostvt {
namespace {

template <typename Unit>
unsigned Bits(Unit unit) {
  return static_cast<std::make_unsigned_t<Unit>>(unit);
}

unsigned Folded(unsigned unit) { return unit >= 'a' && unit <= 'z' ? unit - ('a' - 'A') : unit; }

template <typename Unit, typename Fold>
int CompareTexts(const Unit* a, const Unit* b, Fold fold) {
  for (;; ++a, ++b) {
    unsigned left = fold(Bits(*a));
    unsigned right = fold(Bits(*b));
    if (left != right) return left < right ? -1 : 1;
    if (left == 0) return 0;
  }
}

// A prefix that goes on where the text ends differs there: the text's terminator is no unit of it.
template <typename Unit, typename Fold>
bool Begins(const Unit* text, const Unit* prefix, Fold fold) {
  for (; *prefix; ++text, ++prefix) {
    if (fold(Bits(*text)) != fold(Bits(*prefix))) return false;
  }
  return true;
}

constexpr auto kAsIs = [](unsigned unit) { return unit; };

// npos is the largest size_t, and no text is that long.
int Position(size_t found) {
  return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

template <typename Unit, typename What>
int FindFrom(const Unit* text, What what, int start) {
  auto view = TextOf(text);
  auto from = static_cast<size_t>(std::max(start, 0));
  if (from >= view.size()) return -1;
  return Position(view.find(what, from));
}

template <typename Unit>
int FindLast(const Unit* text, Unit character) {
  auto view = TextOf(text);
  if (view.empty()) return -1;
  // The search starts at the terminator.
  if (character == 0) return static_cast<int>(view.size());
  return Position(view.rfind(character));
}

// A byte at or above 0x80 becomes a unit from 0xFF80 on: it matches no ordinary character.
char16_t SignExtended(char character) {
  return static_cast<char16_t>(static_cast<signed char>(character));
}

}  // namespace

int OString::Compare(const OString& other) const {
  if (Body == other.Body) return 0;
  // Keys that are found again: narrow texts of one page are equal where their bytes are, and which
  // page that is need not be asked.
  if (Body && other.Body && Body->CodePage == other.Body->CodePage && !ostvt::HasWide(Body) &&
      !ostvt::HasWide(other.Body) &&
      strcmp(FormOf(Body, kForm<char>), FormOf(other.Body, kForm<char>)) == 0) {
    return 0;
  }
  int order = NeedsWide(other) ? CompareTexts(GetWide(), other.GetWide(), kAsIs)
                               : strcmp(FormOf(Body, kForm<char>), FormOf(other.Body, kForm<char>));
  return (order > 0) - (order < 0);
}

int OString::CompareNoCase(const OString& other) const {
  return NeedsWide(other) ? CompareTexts(GetWide(), other.GetWide(), Folded)
                          : CompareTexts(GetNarrow(), other.GetNarrow(), Folded);
}

bool OString::StartsWith(const OString& prefix) const {
  return NeedsWide(prefix) ? Begins(GetWide(), prefix.GetWide(), kAsIs)
                           : Begins(GetNarrow(), prefix.GetNarrow(), kAsIs);
}

bool OString::StartsWithNoCase(const OString& prefix) const {
  return NeedsWide(prefix) ? Begins(GetWide(), prefix.GetWide(), Folded)
                           : Begins(GetNarrow(), prefix.GetNarrow(), Folded);
}

bool OString::Match(const OString& pattern) const {
  const char16_t* text = GetWide();
  const char16_t* p = pattern.GetWide();
  // Where to go on when the text after the last "*" did not fit: one unit more for that "*".
  const char16_t* behindStar = nullptr;
  const char16_t* retry = nullptr;
  while (*text) {
    if (*p == u'*') {
      behindStar = ++p;
      retry = text;
    } else if (*p == u'?' || *p == *text) {
      ++p;
      ++text;
    } else if (behindStar) {
      p = behindStar;
      text = ++retry;
    } else {
      return false;
    }
  }
  while (*p == u'*') ++p;
  return *p == 0;
}

int OString::Find(char character, int start) const {
  return NeedsWide() ? FindFrom(GetWide(), SignExtended(character), start)
                     : FindFrom(GetNarrow(), character, start);
}

int OString::Find(char16_t character, int start) const {
  return FindFrom(GetWide(), character, start);
}

int OString::Find(const char* text, int start) const {
  if (!text) text = "";
  return NeedsWide() ? Find(OString(text).GetWide(), start)
                     : FindFrom(GetNarrow(), TextOf(text), start);
}

int OString::Find(const char16_t* text, int start) const {
  return FindFrom(GetWide(), TextOf(text ? text : u""), start);
}

int OString::Find(const OString& text, int start) const {
  // A text that can't be made wide would be found everywhere.
  if (!text.IsEmpty() && NeedsWide(text) && !*text.GetWide()) return -1;
  return NeedsWide(text) ? FindFrom(GetWide(), TextOf(text.GetWide()), start)
                         : FindFrom(GetNarrow(), TextOf(text.GetNarrow()), start);
}

int OString::ReverseFind(char character) const {
  return NeedsWide() ? FindLast(GetWide(), SignExtended(character))
                     : FindLast(GetNarrow(), character);
}

int OString::ReverseFind(char16_t character) const { return FindLast(GetWide(), character); }

int OString::FindOneOf(const OString& set) const {
  return Position(NeedsWide(set) ? TextOf(GetWide()).find_first_of(set.GetWide())
                                 : TextOf(GetNarrow()).find_first_of(set.GetNarrow()));
}

int OString::ReverseFindOneOf(const OString& set) const {
  return Position(NeedsWide(set) ? TextOf(GetWide()).find_last_of(set.GetWide())
                                 : TextOf(GetNarrow()).find_last_of(set.GetNarrow()));
}

OString OString::Mid(int start, int count) const {
  int length = Length();
  start = std::clamp(start, 0, length);
  count = std::clamp(count, 0, length - start);
  if (count == length && length > 0) return *this;
  OString part;
  part.SetCodePage(GetCodePage());
  if (NeedsWide()) {
    part.AssignCount(GetWide() + start, count);
  } else {
    part.AssignCount(GetNarrow() + start, count);
  }
  return part;
}

OString OString::Mid(int start) const { return Mid(start, INT_MAX); }

OString OString::Left(int n) const { return Mid(0, n); }

OString OString::Right(int n) const {
  int length = Length();
  n = std::clamp(n, 0, length);
  return Mid(length - n, n);
}

OString OString::DirectoryPart() const { return Left(ReverseFind('\\')); }

OString OString::FileNamePart() const { return Mid(ReverseFind('\\') + 1); }

}  // namespace ostvt
