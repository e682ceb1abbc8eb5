// The one string type of the system: a shared, copy-on-write text in up to two physical forms.
//
// The narrow form is bytes in a code page, the wide form 16-bit units. Neither is made before it
// is asked for. A copy is a pointer and a counter; the first write makes a body of its own.
//
// Units: positions, counts and Length() count 16-bit units when the string "needs wide" (its wide
// form is present, or its code page is multi-byte: 1208, 932, 936, 949, 950, 1361), else bytes.
// Bad arguments never stop an operation: positions are clamped, negative counts are 0, null text is
// empty text. Empty and absent are alike. GetNarrow() and GetWide() never give null; what they give
// is valid until the string, or a copy sharing its body, is written or destroyed.
//
// Thread rule: a body belongs to one thread, since reads convert lazily and the counter is plain.
// A value goes to another thread as a copy of its text, never as a copy of the OString.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/OStringBody.h"

namespace ostvt {

// UTF-8 under this system's own number; the only page that does not go to the platform.
inline constexpr uint32_t kCodePageUtf8 = 1208;
// Numbers saturate at plus or minus this value wherever text is parsed.
inline constexpr int32_t kNumberLimit = 2000000000;
// Room that Format() works in, in 16-bit units, terminator included.
inline constexpr int kFormatUnits = 4096;

class OString {
 public:
  OString() = default;
  OString(const OString& other) : Body(other.Body) {
    if (Body) ++Body->RefCount;
  }
  OString(OString&& other) noexcept : Body(other.Body) { other.Body = nullptr; }
  OString(const char* text);
  OString(const char16_t* text);
  explicit OString(char character);
  explicit OString(char16_t character);
  ~OString() { Drop(Body); }

  // Drops this value's share of the body; the string is empty afterwards.
  void Release() {
    Drop(Body);
    Body = nullptr;
  }

  const char* GetNarrow() const;
  const char16_t* GetWide() const;
  // A writable buffer for `n` characters and a terminator; the old text is gone, and the other form
  // is stale. The caller terminates what it writes, before any other call.
  char* GetNarrowBuffer(int n);
  char16_t* GetWideBuffer(int n);
  bool HasNarrow() const;
  bool HasWide() const;
  bool IsEmpty() const;
  int Length() const;
  uint32_t GetCodePage() const;
  // The characters survive, the bytes do not: a present narrow form is made again when asked for.
  void SetCodePage(uint32_t codePage);

  // The code page of the target goes with its body.
  OString& operator=(const OString& other) {
    if (other.Body) ++other.Body->RefCount;
    Drop(Body);
    Body = other.Body;
    return *this;
  }
  OString& operator=(OString&& other) noexcept {
    if (this != &other) {
      Drop(Body);
      Body = other.Body;
      other.Body = nullptr;
    }
    return *this;
  }
  // The target keeps its code page.
  OString& operator=(const char* text);
  OString& operator=(const char16_t* text);
  // At most `n` characters, stopping at a NUL in `text`.
  void AssignCount(const char* text, int n);
  void AssignCount(const char16_t* text, int n);

  OString& operator+=(const OString& text);
  // Once the text has been asked for wide, a byte is a character of its own, except for the bytes
  // from 0x80 up in UTF-8.
  OString& operator+=(char character);
  OString& operator+=(char16_t character);
  OString& operator+=(const char* text);
  OString& operator+=(const char16_t* text);
  void AppendInt(int32_t value);
  void AppendTab();
  void AppendNewLine();  // CR LF

  // -1, 0 or 1, by unsigned units of the form that the pair needs.
  int Compare(const OString& other) const;
  // The same with a-z folded to A-Z; no other letter is folded.
  int CompareNoCase(const OString& other) const;
  // Every text begins with the empty one.
  bool StartsWith(const OString& prefix) const;
  bool StartsWithNoCase(const OString& prefix) const;  // folds as CompareNoCase does
  // "*" any run, "?" exactly one unit, case-sensitive, the whole string. No recursion.
  bool Match(const OString& pattern) const;

  // All give -1 when nothing is found, or when `start` is at or past the end.
  int Find(char character, int start = 0) const;
  int Find(char16_t character, int start = 0) const;
  int Find(const char* text, int start = 0) const;
  int Find(const char16_t* text, int start = 0) const;
  int Find(const OString& text, int start = 0) const;
  int ReverseFind(char character) const;
  int ReverseFind(char16_t character) const;
  int FindOneOf(const OString& set) const;
  int ReverseFindOneOf(const OString& set) const;

  OString Mid(int start, int count) const;
  OString Mid(int start) const;
  OString Left(int n) const;
  OString Right(int n) const;
  // Text before the last "\\", empty when there is none.
  OString DirectoryPart() const;
  // Text behind the last "\\", the whole string when there is none.
  OString FileNamePart() const;

  // Each returns the new Length(). At most `count` characters, stopping at a NUL in `text`. An
  // empty string keeps its code page.
  int Insert(int position, const char* text, int count);
  int Insert(int position, const char16_t* text, int count);
  int Insert(int position, const OString& text);
  int Delete(int position, int count);
  void Truncate(int n);
  void Clear();  // the capacity is kept
  void PadLeft(int width, char16_t character);
  void MakeUpper();  // ASCII letters only
  void MakeLower();
  // The number of replacements. Replacement text is never searched again.
  int Replace(const OString& oldText, const OString& newText);
  // A character of the system's page, whatever this string's is.
  int Remove(char character);
  // By the form that this string needs; that of the set does not matter.
  void TrimLeft(const OString& set);
  void TrimRight(const OString& set);
  void Trim(const OString& set);  // at both ends

  // Blanks and tabs, one sign, digits; the rest is ignored. Saturates at kNumberLimit.
  int32_t ToInt() const;
  static int32_t ParseInt(const char* text);
  // Decimal, zero-padded to `width` digits; a "-" comes in front and is not counted.
  void AssignPadded(int32_t value, int width);
  static OString FromInt(int32_t value, int width);
  // Two upper-case digits a byte; a negative `n` reads the `-n` bytes from the last to the first.
  void AssignHex(const void* bytes, int n);
  static OString HexOf(const void* bytes, int n);
  static OString HexOf(uint32_t value);  // eight digits, most significant first
  // The platform's wvsprintf conversions and its limit: a text ends after 1023 units. The arguments
  // may be texts of this string.
  void Format(const char16_t* format, ...);
  // The next name of a series: "Label", "Label 2", "Label 3" (`spaced`) or "Label2". Stops changing
  // at the number limit: who loops "until unique" gives up when the text did not change.
  void IncrementNumber(bool spaced);

 private:
  static void Drop(OStringBody* body) {
    if (body && --body->RefCount == 0) Destroy(body);
  }
  static void Destroy(OStringBody* body);
  OStringBody* MakeUnique();
  bool NeedsWide() const;
  bool NeedsWide(const OString& other) const;

  template <typename Unit>
  void AssignUnits(const Unit* text, size_t count);
  template <typename Unit>
  void AppendUnits(const Unit* text, size_t count);
  template <typename Unit>
  int InsertUnits(int position, const Unit* text, size_t count);
  template <typename Unit>
  int ReplaceUnits(const Unit* oldText, const Unit* newText);
  template <typename Unit>
  void IncrementUnits(bool spaced);

  OStringBody* Body = nullptr;
};

inline bool operator==(const OString& a, const OString& b) { return a.Compare(b) == 0; }
inline bool operator==(const OString& a, const char* b) { return a.Compare(OString(b)) == 0; }

OString operator+(const OString& a, const OString& b);
OString operator+(const OString& a, char b);
OString operator+(const OString& a, const char* b);
OString operator+(const char* a, const OString& b);

// A string with the same text and code page and a body of its own, fit for another thread.
OString CopyOfText(const OString& text);

}  // namespace ostvt
