// UTF-8 as this system writes and reads it: one 16-bit unit at a time, so a surrogate is a
// character of three bytes, and malformed input gives wrong characters, never an error.
#pragma once

namespace ostvt {

// NUL-terminated to NUL-terminated. `target` has room for three bytes a unit and one more.
void EncodeUtf8(const char16_t* source, char* target);
// `target` has room for as many units as `source` has bytes, terminator included. A continuation
// byte that is missing at the end of the text counts as 0.
void DecodeUtf8(const char* source, char16_t* target);

}  // namespace ostvt
