#include "platform/Format.h"

#include <cstdint>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/CodePages.h"

namespace ostvt::platform {
namespace {

constexpr std::u16string_view kNullText = u"(null)";
// A 64-bit number in decimal with its sign.
constexpr size_t kNumberRoom = 24;

enum class Size { kPlain, kLong, kShort, kWide, k64 };

struct Conversion {
  bool LeftAlign = false;
  bool Prefix = false;
  bool ZeroPad = false;
  size_t Width = 0;
  size_t Precision = 0;  // 0 is none
  Size Operand = Size::kPlain;
};

// Numbers longer than any text can be are cut, so that they do not overflow.
size_t TakeNumber(const char16_t** format) {
  size_t number = 0;
  for (; **format >= u'0' && **format <= u'9'; ++*format) {
    number = std::min<size_t>(number * 10 + (**format - u'0'), kFormatBufferUnits);
  }
  return number;
}

bool Take(const char16_t** format, std::u16string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    if ((*format)[i] != text[i]) return false;
  }
  *format += text.size();
  return true;
}

Conversion TakeConversion(const char16_t** format) {
  Conversion conversion;
  conversion.LeftAlign = Take(format, u"-");
  conversion.Prefix = Take(format, u"#");
  conversion.ZeroPad = Take(format, u"0");
  conversion.Width = TakeNumber(format);
  if (Take(format, u".")) conversion.Precision = TakeNumber(format);
  if (Take(format, u"l")) {
    conversion.Operand = Size::kLong;
  } else if (Take(format, u"h")) {
    conversion.Operand = Size::kShort;
  } else if (Take(format, u"w")) {
    conversion.Operand = Size::kWide;
  } else if (Take(format, u"I32")) {
    conversion.Operand = Size::kPlain;
  } else if (Take(format, u"I64") || Take(format, u"I")) {
    conversion.Operand = Size::k64;  // "I" is the size of a pointer
  }
  return conversion;
}

class Output {
 public:
  explicit Output(char16_t* target) : Target(target) {}

  bool IsFull() const { return Length >= kLongestFormat; }
  void Put(char16_t unit) {
    if (!IsFull()) Target[Length++] = unit;
  }
  void Put(std::u16string_view text) {
    for (char16_t unit : text) Put(unit);
  }
  void Repeat(size_t count, char16_t unit) {
    for (; count > 0 && !IsFull(); --count) Put(unit);
  }
  int End() {
    Target[Length] = 0;
    return static_cast<int>(std::u16string_view(Target).size());
  }

 private:
  char16_t* Target;
  int Length = 0;
};

// Digits of `value`, written to the end of `room`.
std::u16string_view Digits(uint64_t value, unsigned base, bool upper,
                           char16_t (&room)[kNumberRoom]) {
  const char16_t* digits = upper ? u"0123456789ABCDEF" : u"0123456789abcdef";
  size_t first = kNumberRoom;
  do {
    room[--first] = digits[value % base];
    value /= base;
  } while (value != 0);
  return std::u16string_view(room + first, kNumberRoom - first);
}

void PutPadded(Output* out, const Conversion& conversion, std::u16string_view text) {
  size_t padding = conversion.Width > text.size() ? conversion.Width - text.size() : 0;
  if (!conversion.LeftAlign) out->Repeat(padding, u' ');
  out->Put(text);
  if (conversion.LeftAlign) out->Repeat(padding, u' ');
}

template <typename Unit>
std::basic_string_view<Unit> Measured(const Unit* text, size_t precision) {
  size_t limit = precision == 0 ? kFormatBufferUnits : precision;
  size_t length = 0;
  while (length < limit && text[length]) ++length;
  return std::basic_string_view<Unit>(text, length);
}

void PutWideText(Output* out, const Conversion& conversion, const char16_t* text) {
  if (!text) text = kNullText.data();
  PutPadded(out, conversion, Measured(text, conversion.Precision));
}

char16_t Widened(char character) {
  const char text[] = {character, 0};
  char16_t units[4] = {};
  NarrowToWide(0, text, units, std::size(units));
  return units[0];
}

// The bytes of the first `limit` characters of the system's page; no more is read.
std::string_view MeasuredCharacters(const char* text, size_t limit) {
  char16_t alone[kHighBytes];
  HighBytesToWide(AnsiCodePage(), alone);
  size_t length = 0;
  for (; limit > 0 && text[length]; --limit) {
    auto byte = static_cast<uint8_t>(text[length++]);
    // A byte that is nothing by itself takes the next one with it.
    if (byte >= kFirstHighByte && !alone[byte - kFirstHighByte] && text[length]) ++length;
  }
  return std::string_view(text, length);
}

void PutNarrowText(Output* out, const Conversion& conversion, const char* text) {
  if (!text) text = "(null)";
  size_t limit = conversion.Precision == 0 ? kFormatBufferUnits : conversion.Precision;
  char bytes[2 * kFormatBufferUnits + 1];
  auto shown = MeasuredCharacters(text, limit);
  bytes[shown.copy(bytes, std::size(bytes) - 1)] = 0;
  char16_t wide[std::size(bytes)] = {};
  NarrowToWide(0, bytes, wide, std::size(wide));
  PutPadded(out, conversion, wide);
}

// Neither width nor precision counts the prefix.
void PutNumber(Output* out, const Conversion& conversion, std::u16string_view digits,
               std::u16string_view sign, std::u16string_view prefix = u"") {
  size_t size = sign.size() + digits.size();
  size_t zeros = conversion.Precision > size ? conversion.Precision - size : 0;
  if (conversion.ZeroPad && !conversion.LeftAlign && conversion.Width > size + zeros) {
    zeros = conversion.Width - size;
  }
  size_t padding = conversion.Width > size + zeros ? conversion.Width - size - zeros : 0;
  if (!conversion.LeftAlign) out->Repeat(padding, u' ');
  out->Put(prefix);
  out->Put(sign);
  out->Repeat(zeros, u'0');
  out->Put(digits);
  if (conversion.LeftAlign) out->Repeat(padding, u' ');
}

}  // namespace

int FormatWide(char16_t (&buffer)[kFormatBufferUnits], const char16_t* format, va_list arguments) {
  va_list values;
  va_copy(values, arguments);
  Output out(buffer);
  while (*format && !out.IsFull()) {
    char16_t unit = *format++;
    if (unit != u'%' || Take(&format, u"%")) {
      out.Put(unit);
      continue;
    }
    Conversion conversion = TakeConversion(&format);
    char16_t room[kNumberRoom];
    char16_t kind = *format;
    if (kind == 0) break;
    ++format;
    auto number = [&]() -> uint64_t {
      return conversion.Operand == Size::k64 ? va_arg(values, uint64_t) : va_arg(values, uint32_t);
    };
    switch (kind) {
      case u'c':
      case u'C': {
        bool narrow = conversion.Operand == Size::kShort ||
                      (kind == u'C' && conversion.Operand != Size::kLong);
        int character = va_arg(values, int);
        char16_t shown =
            narrow ? Widened(static_cast<char>(character)) : static_cast<char16_t>(character);
        PutPadded(&out, conversion, std::u16string_view(&shown, 1));
        break;
      }
      case u's':
      case u'S': {
        bool narrow = conversion.Operand == Size::kShort ||
                      (kind == u'S' && conversion.Operand == Size::kPlain);
        const void* text = va_arg(values, const void*);
        if (narrow) {
          PutNarrowText(&out, conversion, static_cast<const char*>(text));
        } else {
          PutWideText(&out, conversion, static_cast<const char16_t*>(text));
        }
        break;
      }
      case u'd':
      case u'i': {
        uint64_t value = number();
        int64_t whole = conversion.Operand == Size::k64
                            ? static_cast<int64_t>(value)
                            : static_cast<int32_t>(static_cast<uint32_t>(value));
        uint64_t size = whole < 0 ? 0 - static_cast<uint64_t>(whole) : static_cast<uint64_t>(whole);
        PutNumber(&out, conversion, Digits(size, 10, false, room), whole < 0 ? u"-" : u"");
        break;
      }
      case u'u':
        PutNumber(&out, conversion, Digits(number(), 10, false, room), u"");
        break;
      case u'p':
        conversion.Width = 2 * sizeof(void*);
        conversion.ZeroPad = true;
        conversion.Operand = Size::k64;
        [[fallthrough]];
      case u'x':
      case u'X': {
        bool upper = kind != u'x';
        std::u16string_view prefix = !conversion.Prefix ? u"" : upper ? u"0X" : u"0x";
        PutNumber(&out, conversion, Digits(number(), 16, upper, room), u"", prefix);
        break;
      }
      default:
        // No conversion: the sign stands for itself, without its "%" and behind the padding of a
        // text as long as the precision.
        if (!conversion.LeftAlign && conversion.Width > conversion.Precision) {
          out.Repeat(conversion.Width - conversion.Precision, u' ');
        }
        --format;
        break;
    }
  }
  va_end(values);
  return out.End();
}

}  // namespace ostvt::platform
