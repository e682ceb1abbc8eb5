// Numbers, hexadecimal text and formatting.
#include <stdarg.h>

#include <algorithm>

#include "core/Memory.h"
#include "core/OString.h"
#include "core/OStringForms.h"
#include "platform/Format.h"

namespace ostvt {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";
// "4294967295" and a terminator.
constexpr size_t kDecimalRoom = 11;

template <typename Unit>
bool IsDigit(Unit unit) {
  return unit >= '0' && unit <= '9';
}

// Blanks, a sign, digits; the accumulator stops growing at the limit and so never overflows.
template <typename Unit>
int32_t ParseUnits(const Unit* text) {
  while (*text == ' ' || *text == '\t') ++text;
  bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  int32_t value = 0;
  for (; IsDigit(*text); ++text) {
    value = static_cast<int32_t>(*text - '0') + 10 * std::min(value, kNumberLimit / 10);
  }
  value = std::min(value, kNumberLimit);
  return negative ? -value : value;
}

// Writes decimal digits and a terminator to the end of `room`; the first digit.
template <typename Unit>
const Unit* Decimal(uint32_t value, Unit (&room)[kDecimalRoom]) {
  Unit* digit = room + kDecimalRoom - 1;
  *digit = 0;
  do {
    *--digit = static_cast<Unit>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  return digit;
}

// Also right for the smallest integer.
uint32_t Magnitude(int32_t value) {
  auto bits = static_cast<uint32_t>(value);
  return value < 0 ? 0U - bits : bits;
}

}  // namespace

void OString::AppendInt(int32_t value) {
  char room[kDecimalRoom];
  OString text(value < 0 ? "-" : "");
  text += Decimal(Magnitude(value), room);
  *this += text;
}

int32_t OString::ToInt() const { return ParseUnits(GetNarrow()); }

int32_t OString::ParseInt(const char* text) { return text ? ParseUnits(text) : 0; }

void OString::AssignPadded(int32_t value, int width) {
  char room[kDecimalRoom];
  *this = Decimal(Magnitude(value), room);
  PadLeft(width, u'0');
  if (value < 0) Insert(0, "-", 1);
}

OString OString::FromInt(int32_t value, int width) {
  OString text;
  text.AssignPadded(value, width);
  return text;
}

void OString::AssignHex(const void* bytes, int n) {
  auto* source = static_cast<const uint8_t*>(bytes);
  size_t count = source ? Magnitude(n) : 0;
  OString digits;
  digits.SetCodePage(GetCodePage());
  OStringBody* body = digits.MakeUnique();
  Reserve(body, count * 2, false);
  char* out = RoomOf(body, kForm<char>);
  for (size_t i = 0; i < count; ++i) {
    uint8_t byte = source[n < 0 ? count - 1 - i : i];
    *out++ = kHexDigits[byte >> 4];
    *out++ = kHexDigits[byte & 15];
  }
  *out = 0;
  *this = digits;
}

OString OString::HexOf(const void* bytes, int n) {
  OString text;
  text.AssignHex(bytes, n);
  return text;
}

OString OString::HexOf(uint32_t value) {
  char digits[9] = {};
  for (int i = 7; i >= 0; --i, value >>= 4) digits[i] = kHexDigits[value & 15];
  return OString(digits);
}

void OString::Format(const char16_t* format, ...) {
  char16_t buffer[kFormatUnits];
  va_list arguments;
  va_start(arguments, format);
  platform::FormatWide(buffer, format ? format : u"", arguments);
  va_end(arguments);
  *this = buffer;
}

template <typename Unit>
void OString::IncrementUnits(bool spaced) {
  if (!MakeForm(Body, kForm<Unit>) && !IsEmpty()) return;  // rather than lose the text
  const Unit* text = FormOf(Body, kForm<Unit>);
  size_t length = TextOf(text).size();
  size_t digits = 0;
  while (digits < length && IsDigit(text[length - digits - 1])) ++digits;

  size_t kept = length - digits;
  Unit room[kDecimalRoom];
  const Unit* number =
      Decimal(digits ? static_cast<uint32_t>(ParseUnits(text + kept)) + 1 : 2U, room);
  bool gap = digits == 0 && spaced && length > 0 && text[length - 1] != ' ';

  OStringBody* body = MakeUnique();
  MarkOtherStale(body, kForm<Unit>);
  size_t added = TextOf(number).size();
  Reserve(body, kept + gap + added, true);
  Unit* out = RoomOf(body, kForm<Unit>) + kept;
  if (gap) *out++ = ' ';
  CopyBytes(out, number, (added + 1) * sizeof(Unit));
}

void OString::IncrementNumber(bool spaced) {
  // On the narrow form, unless that could lack characters which its code page cannot say.
  if (NeedsWide() && GetCodePage() != kCodePageUtf8) {
    IncrementUnits<char16_t>(spaced);
  } else {
    IncrementUnits<char>(spaced);
  }
}

}  // namespace ostvt
