// The two forms of a string body: which one is authoritative, how each is made from the other, and
// how both grow. For OString's own files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/OStringBody.h"

namespace ostvt {

// One unit of the narrow or the wide form.
template <typename Unit>
std::basic_string_view<Unit> TextOf(const Unit* text) {
  return std::basic_string_view<Unit>(text);
}

// At most `count` units of `text`, ending at a NUL; null and negative counts give an empty text.
template <typename Unit>
std::basic_string_view<Unit> BoundedText(const Unit* text, int count) {
  size_t length = 0;
  if (text) {
    while (count > 0 && length < static_cast<size_t>(count) && text[length] != 0) ++length;
  }
  return std::basic_string_view<Unit>(length ? text : nullptr, length);
}

inline bool HasNarrow(const OStringBody* body) { return body && body->Narrow && body->Narrow[0]; }
inline bool HasWide(const OStringBody* body) { return body && body->Wide && body->Wide[0]; }

// Page 1208, or an East Asian page of one or two bytes a character.
bool IsMultiByte(uint32_t codePage);
// Whether the wide form is the one to work on.
bool NeedsWide(const OStringBody* body);
bool NeedsWide(const OStringBody* a, const OStringBody* b);

// Makes room for `count` characters and a terminator. With `keep` the present forms survive a
// growth; without it both are stale afterwards, and no buffer is made. The only place where
// Capacity changes: it stays a multiple of 32 above `count`.
void Reserve(OStringBody* body, size_t count, bool keep);

// The form made from the other one where it is missing. False if it is absent afterwards: the
// string is empty, or its code page could not be converted.
bool MakeForm(OStringBody* body, const char*);
bool MakeForm(OStringBody* body, const char16_t*);

// The form's buffer, allocated at the current capacity where it is missing.
char* RoomOf(OStringBody* body, const char*);
char16_t* RoomOf(OStringBody* body, const char16_t*);

// The form of the given unit has been written: the other one is stale.
void MarkOtherStale(OStringBody* body, const char*);
void MarkOtherStale(OStringBody* body, const char16_t*);

// The form's text; empty where it is absent.
inline const char* FormOf(const OStringBody* body, const char*) {
  return HasNarrow(body) ? body->Narrow : "";
}
inline const char16_t* FormOf(const OStringBody* body, const char16_t*) {
  return HasWide(body) ? body->Wide : u"";
}

// Names a form in the calls above.
template <typename Unit>
inline constexpr const Unit* kForm = nullptr;

// Whether `text` lies in one of the body's buffers.
bool Holds(const OStringBody* body, const void* text);

OStringBody* Clone(const OStringBody* body);

}  // namespace ostvt
