// Editing in place.
#include <algorithm>
#include <climits>
#include <utility>

#include "core/Memory.h"
#include "core/OString.h"
#include "core/OStringForms.h"

namespace ostvt {
namespace {

// Closes the gap behind `position`, terminator included, where the form is present.
template <typename Unit>
void DeleteFrom(OStringBody* body, size_t position, size_t count) {
  auto length = TextOf(FormOf(body, kForm<Unit>)).size();
  if (length == 0) return;
  Unit* text = RoomOf(body, kForm<Unit>);
  MoveBytes(text + position, text + position + count,
            (length - position - count + 1) * sizeof(Unit));
}

template <typename Unit>
void FoldAll(OStringBody* body, char from, char to) {
  if (!MakeForm(body, kForm<Unit>)) return;
  for (Unit* unit = RoomOf(body, kForm<Unit>); *unit; ++unit) {
    if (*unit >= from && *unit <= from + ('z' - 'a')) *unit = static_cast<Unit>(*unit - from + to);
  }
  MarkOtherStale(body, kForm<Unit>);
}

template <typename Unit>
int CountLeading(const Unit* text, const Unit* set) {
  auto view = TextOf(text);
  return static_cast<int>(std::min(view.find_first_not_of(set), view.size()));
}

template <typename Unit>
int CountKeptOnTheLeft(const Unit* text, const Unit* set) {
  // npos + 1 is 0: nothing but characters of the set.
  return static_cast<int>(TextOf(text).find_last_not_of(set) + 1);
}

}  // namespace

template <typename Unit>
int OString::InsertUnits(int position, const Unit* text, size_t count) {
  OString kept;  // `text` may lie in the buffers that are about to move
  if (Holds(Body, text)) kept = *this;
  if (count == 0) {
    MakeForm(Body, kForm<Unit>);
    return Length();
  }
  OStringBody* body = MakeUnique();
  if (!MakeForm(body, kForm<Unit>) && !IsEmpty()) return Length();  // rather than lose the text
  MarkOtherStale(body, kForm<Unit>);
  size_t length = TextOf(FormOf(body, kForm<Unit>)).size();
  size_t at = std::min(static_cast<size_t>(std::max(position, 0)), length);
  Reserve(body, length + count, true);
  Unit* room = RoomOf(body, kForm<Unit>);
  MoveBytes(room + at + count, room + at, (length - at) * sizeof(Unit));
  CopyBytes(room + at, text, count * sizeof(Unit));
  room[length + count] = 0;
  return static_cast<int>(length + count);
}

int OString::Insert(int position, const char* text, int count) {
  auto added = BoundedText(text, count);
  if (IsEmpty()) {
    AssignUnits(added.data(), added.size());
    return Length();
  }
  if (!NeedsWide()) return InsertUnits(position, added.data(), added.size());
  // Positions count wide units here, and the narrow form may lack what its code page cannot say.
  OString widened;
  widened.SetCodePage(GetCodePage());
  widened.AssignUnits(added.data(), added.size());
  const char16_t* wide = widened.GetWide();
  return InsertUnits(position, wide, TextOf(wide).size());
}

int OString::Insert(int position, const char16_t* text, int count) {
  auto added = BoundedText(text, count);
  if (IsEmpty()) {
    AssignUnits(added.data(), added.size());
    return Length();
  }
  return InsertUnits(position, added.data(), added.size());
}

int OString::Insert(int position, const OString& text) {
  OString added = text;  // keeps the text in place when it is this string's own
  return NeedsWide(added) ? Insert(position, added.GetWide(), INT_MAX)
                          : Insert(position, added.GetNarrow(), INT_MAX);
}

int OString::Delete(int position, int count) {
  int length = Length();
  position = std::clamp(position, 0, length);
  count = std::clamp(count, 0, length - position);
  if (count == 0) return length;
  OStringBody* body = MakeUnique();
  if (NeedsWide() && MakeForm(body, kForm<char16_t>)) MarkOtherStale(body, kForm<char16_t>);
  DeleteFrom<char>(body, static_cast<size_t>(position), static_cast<size_t>(count));
  DeleteFrom<char16_t>(body, static_cast<size_t>(position), static_cast<size_t>(count));
  return length - count;
}

void OString::Truncate(int n) { Delete(std::max(n, 0), INT_MAX); }

void OString::Clear() { Truncate(0); }

void OString::PadLeft(int width, char16_t character) {
  int length = Length();
  if (width <= length || character == 0) return;
  int missing = width - length;
  OString padding;
  char16_t* room = padding.GetWideBuffer(missing);
  std::fill(room, room + missing, character);
  room[missing] = 0;
  Insert(0, room, missing);
}

void OString::MakeUpper() {
  OStringBody* body = MakeUnique();
  NeedsWide() ? FoldAll<char16_t>(body, 'a', 'A') : FoldAll<char>(body, 'a', 'A');
}

void OString::MakeLower() {
  OStringBody* body = MakeUnique();
  NeedsWide() ? FoldAll<char16_t>(body, 'A', 'a') : FoldAll<char>(body, 'A', 'a');
}

template <typename Unit>
int OString::ReplaceUnits(const Unit* oldText, const Unit* newText) {
  constexpr auto kNone = std::basic_string_view<Unit>::npos;
  MakeForm(Body, kForm<Unit>);
  auto source = TextOf(FormOf(Body, kForm<Unit>));
  auto searched = TextOf(oldText);
  auto inserted = TextOf(newText);
  if (searched.empty()) return 0;  // a text of a page that can't be converted
  size_t count = 0;
  for (size_t at = 0; (at = source.find(searched, at)) != kNone; at += searched.size()) ++count;
  if (count == 0) return 0;

  OString result;
  result.SetCodePage(GetCodePage());
  OStringBody* body = result.MakeUnique();
  size_t length = source.size() - count * searched.size() + count * inserted.size();
  Reserve(body, length, false);
  Unit* out = RoomOf(body, kForm<Unit>);
  auto put = [&out](std::basic_string_view<Unit> piece) {
    CopyBytes(out, piece.data(), piece.size() * sizeof(Unit));
    out += piece.size();
  };
  size_t done = 0;
  for (size_t at = 0; (at = source.find(searched, done)) != kNone; done = at + searched.size()) {
    put(source.substr(done, at - done));
    put(inserted);
  }
  put(source.substr(done));
  *out = 0;
  *this = std::move(result);
  return static_cast<int>(count);
}

int OString::Replace(const OString& oldText, const OString& newText) {
  if (oldText.IsEmpty() || oldText == newText) return 0;
  // The arguments may share this string's body: copies keep it alive.
  OString searched = oldText;
  OString inserted = newText;
  return NeedsWide(searched) || NeedsWide(inserted)
             ? ReplaceUnits(searched.GetWide(), inserted.GetWide())
             : ReplaceUnits(searched.GetNarrow(), inserted.GetNarrow());
}

int OString::Remove(char character) { return Replace(OString(character), OString()); }

void OString::TrimLeft(const OString& set) {
  Delete(0, NeedsWide() ? CountLeading(GetWide(), set.GetWide())
                        : CountLeading(GetNarrow(), set.GetNarrow()));
}

void OString::TrimRight(const OString& set) {
  Truncate(NeedsWide() ? CountKeptOnTheLeft(GetWide(), set.GetWide())
                       : CountKeptOnTheLeft(GetNarrow(), set.GetNarrow()));
}

void OString::Trim(const OString& set) {
  const OString characters = set;  // may be this string's own text
  TrimRight(characters);
  TrimLeft(characters);
}

}  // namespace ostvt
