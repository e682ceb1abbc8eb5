// Code pages through ICU, with Windows' characters where its tables have others.
#include "platform/CodePages.h"

#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "platform/linux/CodePagePatches.h"
#include "platform/linux/IcuConverter.h"
#include "platform/linux/Johab.h"

namespace ostvt::platform {
namespace {

constexpr uint32_t kDefaultAnsi = 1252;
constexpr uint32_t kDefaultOem = 437;
// Numbers that stand for another page, as on Windows.
constexpr uint32_t kAnsiAlias = 0;
constexpr uint32_t kOemAlias = 1;
constexpr uint32_t kMacAlias = 2;
constexpr uint32_t kThreadAnsiAlias = 3;
constexpr uint32_t kMacRoman = 10000;
constexpr uint32_t kSymbol = 42;
constexpr uint32_t kJohab = 1361;
constexpr uint32_t kGb18030 = 54936;
constexpr uint32_t kUtf7 = 65000;
constexpr uint32_t kUtf8 = 65001;

struct Page {
  uint32_t Number;
  const char* Converter;
};

// Ascending. The converters come closest to Windows' tables; where they differ in what a byte is,
// CodePagePatches has Windows' character. For characters that a page lacks, ICU has other near
// misses than Windows.
constexpr Page kPages[] = {
    {437, "ibm-437"},          {720, "ibm-720"},       {737, "ibm-737"},
    {775, "ibm-775"},          {850, "ibm-850"},       {852, "ibm-852"},
    {855, "ibm-855"},          {857, "ibm-857"},       {858, "ibm-858"},
    {860, "ibm-860"},          {861, "ibm-861"},       {862, "ibm-862"},
    {863, "ibm-863"},          {864, "ibm-864"},       {865, "ibm-865"},
    {866, "ibm-866"},          {869, "ibm-869"},       {874, "windows-874"},
    {932, "windows-932"},      {936, "windows-936"},   {949, "windows-949"},
    {950, "windows-950"},      {1250, "windows-1250"}, {1251, "windows-1251"},
    {1252, "windows-1252"},    {1253, "windows-1253"}, {1254, "windows-1254"},
    {1255, "windows-1255"},    {1256, "windows-1256"}, {1257, "windows-1257"},
    {1258, "windows-1258"},    {10000, "macintosh"},   {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"}, {10029, "x-mac-ce"},    {10081, "x-mac-turkish"},
    {20127, "US-ASCII"},       {20866, "KOI8-R"},      {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},     {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},     {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},     {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},
    {28603, "ISO-8859-13"},    {28605, "ISO-8859-15"}, {kGb18030, "gb18030"},
    {kUtf7, "UTF-7"},          {kUtf8, "UTF-8"},
};

const char* ConverterName(uint32_t codePage) {
  auto* page = std::lower_bound(std::begin(kPages), std::end(kPages), codePage,
                                [](const Page& a, uint32_t number) { return a.Number < number; });
  return page != std::end(kPages) && page->Number == codePage ? page->Converter : nullptr;
}

// The page that `variable` of the environment names, or `standard`.
uint32_t ConfiguredPage(const char* variable, uint32_t standard) {
  const char* text = getenv(variable);
  if (!text) return standard;
  auto number = static_cast<uint32_t>(strtoul(text, nullptr, 10));
  return IsValidCodePage(number) ? number : standard;
}

uint32_t Resolved(uint32_t codePage) {
  switch (codePage) {
    case kAnsiAlias:
    case kThreadAnsiAlias:
      return AnsiCodePage();
    case kOemAlias:
      return OemCodePage();
    case kMacAlias:
      return kMacRoman;
    default:
      return codePage;
  }
}

// Pages that hold all of Unicode; each of the others has one or two bytes a character.
bool IsUnicode(uint32_t codePage) {
  return codePage == kUtf8 || codePage == kUtf7 || codePage == kGb18030;
}

// Whether `byte` begins a character of two bytes.
bool IsLead(uint32_t codePage, uint8_t byte) {
  switch (codePage) {
    case 932:
      return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950:
      return byte >= 0x81 && byte <= 0xFE;
    case kJohab:
      return (byte >= 0x84 && byte <= 0xD3) || (byte >= 0xD8 && byte <= 0xDE) ||
             (byte >= 0xE0 && byte <= 0xF9);
    default:
      return false;
  }
}

// What a character that the page does not define becomes.
char16_t Undefined(uint32_t codePage) {
  switch (codePage) {
    case 932:
      return 0x30FB;
    case 936:
    case 949:
    case 950:
    case kJohab:
    case 20127:
      return u'?';
    default:
      return 0xFFFD;
  }
}

// ASCII is the same in every page but UTF-7. The length with its terminator, or 0 if there is more
// than ASCII or no room.
template <typename Source, typename Target>
int CopyIfAscii(const Source* source, Target* target, int capacity) {
  for (int i = 0; i < capacity; ++i) {
    auto unit = static_cast<std::make_unsigned_t<Source>>(source[i]);
    if (unit >= 0x80) return 0;
    target[i] = static_cast<Target>(unit);
    if (unit == 0) return i + 1;
  }
  return 0;
}

template <typename Converter>
int DecodeByCharacter(Converter& converter, uint32_t codePage, const char* source, char16_t* target,
                      int capacity) {
  const CodePagePatches patches(codePage);
  for (int written = 0; written < capacity;) {
    auto first = static_cast<uint8_t>(*source);
    char16_t units[2] = {first};
    size_t count = 1;
    size_t size = 1;
    if (first >= 0x80) {
      // A lead byte takes what follows, whether the pair is defined or not.
      if (IsLead(codePage, first) && source[1]) size = 2;
      count = patches.ToWide(source, size, units);
      if (count == 0) count = converter.ToWide(source, size, units);
      if (count == 0) {
        units[0] = Undefined(codePage);
        count = 1;
      }
    }
    if (count > static_cast<size_t>(capacity - written)) return 0;
    memcpy(target + written, units, count * sizeof(*units));
    written += static_cast<int>(count);
    if (first == 0) return written;
    source += size;
  }
  return 0;
}

// ICU has DOS' lines and signs among the controls of this page, where they would not come back.
bool IsFalseControl(uint32_t codePage, char16_t unit, char narrow) {
  auto byte = static_cast<uint8_t>(narrow);
  return codePage == 28592 && unit >= 0xA0 && (byte < 0x20 || (byte >= 0x80 && byte < 0xA0));
}

// Each unit that the page lacks becomes "?", so a surrogate pair becomes two.
template <typename Converter>
int EncodeByCharacter(Converter& converter, uint32_t codePage, const char16_t* source, char* target,
                      int capacity) {
  const CodePagePatches patches(codePage);
  for (int written = 0; written < capacity; ++source) {
    char16_t unit = *source;
    char bytes[4] = {static_cast<char>(unit)};
    size_t count = 1;
    if (unit >= 0x80) {
      count = patches.ToNarrow(unit, bytes);
      if (count == 0) count = converter.ToNarrow(unit, bytes);
      if (count == 1 && IsFalseControl(codePage, unit, bytes[0])) count = 0;
      if (count == 0) {
        bytes[0] = '?';
        count = 1;
      }
    }
    if (count > static_cast<size_t>(capacity - written)) return 0;
    memcpy(target + written, bytes, count);
    written += static_cast<int>(count);
    if (unit == 0) return written;
  }
  return 0;
}

// Tables put bytes that a page leaves open there, so that they can be turned back.
bool IsPrivateUse(char16_t unit) { return unit >= 0xE000 && unit <= 0xF8FF; }

template <typename Converter>
void DecodeHighBytes(Converter& converter, uint32_t codePage, char16_t (&units)[kHighBytes]) {
  const CodePagePatches patches(codePage);
  for (int i = 0; i < kHighBytes; ++i) {
    const char byte = static_cast<char>(kFirstHighByte + static_cast<uint32_t>(i));
    char16_t wide[2];
    size_t count = patches.ToWide(&byte, 1, wide);
    if (count == 0) count = converter.ToWide(&byte, 1, wide);
    if (count == 1 && !IsPrivateUse(wide[0])) units[i] = wide[0];
  }
}

// Bytes 0x20 and up lie in the private area from U+F020 on.
int SymbolToWide(const char* source, char16_t* target, int capacity) {
  for (int i = 0; i < capacity; ++i) {
    auto byte = static_cast<uint8_t>(source[i]);
    target[i] = static_cast<char16_t>(byte < 0x20 ? byte : 0xF000 + byte);
    if (byte == 0) return i + 1;
  }
  return 0;
}

// A unit outside the page ends the conversion, as it does on Windows.
int WideToSymbol(const char16_t* source, char* target, int capacity) {
  for (int i = 0; i < capacity; ++i) {
    char16_t unit = source[i];
    if (unit >= 0x20 && (unit < 0xF020 || unit > 0xF0FF)) return 0;
    target[i] = static_cast<char>(unit);
    if (unit == 0) return i + 1;
  }
  return 0;
}

}  // namespace

uint32_t AnsiCodePage() {
  static const uint32_t page = ConfiguredPage("OSTVT_ANSI_CODE_PAGE", kDefaultAnsi);
  return page;
}

uint32_t OemCodePage() {
  static const uint32_t page = ConfiguredPage("OSTVT_OEM_CODE_PAGE", kDefaultOem);
  return page;
}

bool IsValidCodePage(uint32_t codePage) {
  return codePage == kJohab ? Johab().IsOpen() : IcuConverter(ConverterName(codePage)).IsOpen();
}

int NarrowToWide(uint32_t codePage, const char* source, char16_t* target, int capacity) {
  if (capacity <= 0) return 0;
  codePage = Resolved(codePage);
  if (codePage == kSymbol) return SymbolToWide(source, target, capacity);
  if (codePage == kJohab) {
    Johab johab;
    return johab.IsOpen() ? DecodeByCharacter(johab, codePage, source, target, capacity) : 0;
  }
  const char* name = ConverterName(codePage);
  if (!name) return 0;
  if (codePage != kUtf7) {
    int length = CopyIfAscii(source, target, capacity);
    if (length > 0) return length;
  }
  IcuConverter converter(name);
  if (!converter.IsOpen()) return 0;
  return IsUnicode(codePage) ? converter.TextToWide(source, target, capacity)
                             : DecodeByCharacter(converter, codePage, source, target, capacity);
}

int WideToNarrow(uint32_t codePage, const char16_t* source, char* target, int capacity) {
  if (capacity <= 0) return 0;
  codePage = Resolved(codePage);
  if (codePage == kSymbol) return WideToSymbol(source, target, capacity);
  if (codePage == kJohab) {
    Johab johab;
    return johab.IsOpen() ? EncodeByCharacter(johab, codePage, source, target, capacity) : 0;
  }
  const char* name = ConverterName(codePage);
  if (!name) return 0;
  if (codePage != kUtf7) {
    int length = CopyIfAscii(source, target, capacity);
    if (length > 0) return length;
  }
  IcuConverter converter(name);
  if (!converter.IsOpen()) return 0;
  return IsUnicode(codePage) ? converter.TextToNarrow(source, target, capacity)
                             : EncodeByCharacter(converter, codePage, source, target, capacity);
}

bool HighBytesToWide(uint32_t codePage, char16_t (&units)[kHighBytes]) {
  std::fill(std::begin(units), std::end(units), u'\0');
  if (!IsValidCodePage(codePage)) return false;
  if (codePage == kJohab) {
    Johab johab;
    DecodeHighBytes(johab, codePage, units);
  } else if (!IsUnicode(codePage)) {
    IcuConverter converter(ConverterName(codePage));
    DecodeHighBytes(converter, codePage, units);
  }
  return true;
}

}  // namespace ostvt::platform
