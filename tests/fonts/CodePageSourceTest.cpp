// Tables of code pages against the system's own converters, asked directly, and against checksums
// that hold on Windows and Linux alike.
#include <gtest/gtest.h>
#include <zlib.h>

#include <iterator>
#include <string>
#include <vector>

#include "fonts/CodePageTable.h"
#include "platform/CodePages.h"

#ifdef _WIN32
#include "platform/windows/Win32.h"
#else
#include <unicode/ucnv.h>
#endif

namespace ostvt::test {
namespace {

std::vector<uint16_t> HighHalf(uint32_t page) {
  WordArray table;
  BuildCodePageTable(page, &table);
  return {table.Data + 128, table.Data + table.Count};
}

#ifdef _WIN32

std::vector<UINT> installedPages;

BOOL CALLBACK NoteInstalledPage(LPWSTR number) {
  installedPages.push_back(static_cast<UINT>(wcstoul(number, nullptr, 10)));
  return TRUE;
}

TEST(CodePageSource, TableIsWhatTheSystemMakesOfEachByte) {
  installedPages.clear();
  ASSERT_TRUE(EnumSystemCodePagesW(NoteInstalledPage, CP_INSTALLED));
  EXPECT_LT(40u, installedPages.size());
  for (const UINT page : installedPages) {
    // Scripts have tables of their own, whatever the system knows.
    if (page >= 57002 && page <= 57011) continue;
    std::vector<uint16_t> expected;
    for (int byte = 128; byte < 256; ++byte) {
      const char narrow = static_cast<char>(byte);
      wchar_t wide[8];
      const int count = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, &narrow, 1, wide, 8);
      expected.push_back(count == 1 ? wide[0] : uint16_t{0});
    }
    EXPECT_EQ(expected, HighHalf(page)) << page;
  }
}

#else

struct Source {
  uint32_t Page;
  const char* Converter;
};

// The files of ICU's data by their own names; Unicode pages have none.
constexpr Source kSources[] = {
    {437, "ibm-437_P100-1995"},    {720, "ibm-720_P100-1997"},    {737, "ibm-737_P100-1997"},
    {775, "ibm-775_P100-1996"},    {850, "ibm-850_P100-1995"},    {852, "ibm-852_P100-1995"},
    {855, "ibm-855_P100-1995"},    {857, "ibm-857_P100-1995"},    {858, "ibm-858_P100-1997"},
    {860, "ibm-860_P100-1995"},    {861, "ibm-861_P100-1995"},    {862, "ibm-862_P100-1995"},
    {863, "ibm-863_P100-1995"},    {864, "ibm-864_X110-1999"},    {865, "ibm-865_P100-1995"},
    {866, "ibm-866_P100-1995"},    {869, "ibm-869_P100-1995"},    {874, "windows-874-2000"},
    {932, "ibm-943_P15A-2003"},    {936, "windows-936-2000"},     {949, "windows-949-2000"},
    {950, "windows-950-2000"},     {1250, "ibm-5346_P100-1998"},  {1251, "ibm-5347_P100-1998"},
    {1252, "ibm-5348_P100-1997"},  {1253, "ibm-5349_P100-1998"},  {1254, "ibm-5350_P100-1998"},
    {1255, "ibm-9447_P100-2002"},  {1256, "ibm-9448_X100-2005"},  {1257, "ibm-9449_P100-2002"},
    {1258, "ibm-5354_P100-1998"},  {10000, "macos-0_2-10.2"},     {10006, "macos-6_2-10.4"},
    {10007, "macos-7_3-10.2"},     {10029, "macos-29-10.2"},      {10081, "macos-35-10.2"},
    {20866, "ibm-878_P100-1996"},  {21866, "ibm-1168_P100-2002"}, {28591, "ISO-8859-1"},
    {28592, "ibm-912_P100-1995"},  {28593, "ibm-913_P100-2000"},  {28594, "ibm-914_P100-1995"},
    {28595, "ibm-915_P100-1995"},  {28596, "ibm-1089_P100-1995"}, {28597, "ibm-9005_X110-2007"},
    {28598, "ibm-5012_P100-1999"}, {28599, "ibm-920_P100-1995"},  {28603, "ibm-921_P100-1995"},
    {28605, "ibm-923_P100-1998"},
};

struct Other {
  uint32_t Page;
  int Byte;
  uint16_t Unit;  // 0 for none
};

// What Windows has where ICU has something else.
constexpr Other kOthers[] = {
    {437, 0xE6, 0x00B5},   {720, 0x80, 0x0080},   {720, 0x81, 0x0081},   {720, 0x84, 0x0084},
    {720, 0x86, 0x0086},   {720, 0x8D, 0x008D},   {720, 0x8E, 0x008E},   {720, 0x8F, 0x008F},
    {720, 0x90, 0x0090},   {852, 0xAA, 0x00AC},   {860, 0xE6, 0x00B5},   {861, 0xE6, 0x00B5},
    {862, 0xE6, 0x00B5},   {863, 0xE6, 0x00B5},   {864, 0x9B, 0x009B},   {864, 0x9C, 0x009C},
    {864, 0x9F, 0x009F},   {864, 0xD7, 0xFEC1},   {864, 0xD8, 0xFEC5},   {864, 0xF1, 0x0651},
    {865, 0xE6, 0x00B5},   {869, 0x80, 0x0080},   {869, 0x81, 0x0081},   {869, 0x82, 0x0082},
    {869, 0x83, 0x0083},   {869, 0x84, 0x0084},   {869, 0x85, 0x0085},   {869, 0x87, 0x0087},
    {869, 0x88, 0x00B7},   {869, 0x93, 0x0093},   {869, 0x94, 0x0094},   {869, 0xEF, 0x0384},
    {932, 0x80, 0x0080},   {1253, 0xAA, 0x0000},  {1255, 0xCA, 0x05BA},  {10000, 0xBD, 0x2126},
    {10006, 0x9C, 0x00AD}, {10006, 0xAF, 0x0387}, {10006, 0xFF, 0x0000}, {10007, 0xA2, 0x00A2},
    {10007, 0xB6, 0x2202}, {10007, 0xFF, 0x00A4}, {10081, 0xBD, 0x2126}, {21866, 0xAE, 0x045E},
    {21866, 0xBE, 0x040E}, {28597, 0xA1, 0x02BD}, {28597, 0xA2, 0x02BC}, {28597, 0xA4, 0x0000},
    {28597, 0xA5, 0x0000}, {28597, 0xAA, 0x0000}, {28598, 0xAF, 0x203E}, {28598, 0xFD, 0x0000},
    {28598, 0xFE, 0x0000},
};

bool IsPrivateUse(uint32_t unit) { return unit >= 0xE000 && unit <= 0xF8FF; }

// One byte, and nothing but the byte.
uint16_t UnitOf(UConverter* converter, int byte) {
  const char narrow = static_cast<char>(byte);
  const char* source = &narrow;
  UErrorCode error = U_ZERO_ERROR;
  ucnv_reset(converter);
  const UChar32 character = ucnv_getNextUChar(converter, &source, source + 1, &error);
  if (U_FAILURE(error) || character > 0xFFFF || character == 0xFFFD) return 0;
  const auto unit = static_cast<uint32_t>(character);
  return IsPrivateUse(unit) ? uint16_t{0} : static_cast<uint16_t>(unit);
}

TEST(CodePageSource, TableIsWhatTheSystemMakesOfEachByteOrWindowsOther) {
  size_t others = 0;
  for (const Source& source : kSources) {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(source.Converter, &error);
    ASSERT_TRUE(U_SUCCESS(error)) << source.Converter;
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    std::vector<uint16_t> expected;
    for (int byte = 128; byte < 256; ++byte) expected.push_back(UnitOf(converter, byte));
    ucnv_close(converter);
    for (const Other& other : kOthers) {
      if (other.Page != source.Page) continue;
      uint16_t& unit = expected[static_cast<size_t>(other.Byte - 128)];
      EXPECT_NE(other.Unit, unit) << other.Page << " byte " << other.Byte;
      unit = other.Unit;
      ++others;
    }
    EXPECT_EQ(expected, HighHalf(source.Page)) << source.Page;
  }
  EXPECT_EQ(std::size(kOthers), others);
}

// ICU has none of these, or no character of one high byte in them.
TEST(CodePageSource, PagesOfUnicodeHaveNoHighCharacters) {
  const std::vector<uint16_t> none(128);
  int pages = 0;
  for (uint32_t page = 0; page < 65536; ++page) {
    bool isListed = false;
    for (const Source& source : kSources) isListed = isListed || source.Page == page;
    if (isListed || page == 1361 || page == 20127 || !platform::IsValidCodePage(page)) continue;
    EXPECT_EQ(none, HighHalf(page)) << page;
    ++pages;
  }
  EXPECT_EQ(3, pages);  // 54936, 65000, 65001
}

#endif

struct Page {
  uint32_t Number;
  uint32_t Crc;  // of the high half, little-endian
};

// The CRCs were made by Python out of Windows' tables, written down by a small program.
constexpr Page kPages[] = {
    {437, 0x835AA1C1},   {720, 0x6DB49DB1},   {737, 0x108747ED},   {775, 0x80C1EA5F},
    {850, 0x78F9EDC0},   {852, 0xBF0129EA},   {855, 0x96A5CECD},   {857, 0x7DEB328E},
    {858, 0xBE35B03B},   {860, 0xEDB2D8AB},   {861, 0xBF6A39D4},   {862, 0xFA5F707C},
    {863, 0xF0576586},   {864, 0x64DB4E43},   {865, 0x7A36D108},   {866, 0x546195C4},
    {869, 0x6C77BE69},   {874, 0x99A047FE},   {932, 0x5496FE18},   {936, 0x78391768},
    {949, 0xC964AC43},   {950, 0xC964AC43},   {1250, 0xCD713AB4},  {1251, 0x45530B10},
    {1252, 0x27D5F856},  {1253, 0x6CCC1CAE},  {1254, 0x0E056E25},  {1255, 0x01A365D4},
    {1256, 0xC4196668},  {1257, 0x01D69F24},  {1258, 0x536BE813},  {1361, 0xF8D2B702},
    {10000, 0x988B398C}, {10006, 0x735CEC39}, {10007, 0x6C89B75B}, {10029, 0x19326980},
    {10081, 0xE53AD9C3}, {20127, 0xD115530D}, {20866, 0x6481C3A0}, {21866, 0x861C2746},
    {28591, 0xBF947836}, {28592, 0x38E533BF}, {28593, 0x5899FBFE}, {28594, 0xF20905CD},
    {28595, 0x032629E9}, {28596, 0x519838C5}, {28597, 0x027F5B2E}, {28598, 0x3A212144},
    {28599, 0xBA6D23A0}, {28603, 0x1B1AEA13}, {28605, 0x64624AD4},
};

TEST(CodePageSource, SystemsAgreeOnEveryHighByte) {
  for (const Page& page : kPages) {
    // Only Wine lacks it.
    if (page.Number == 858 && !platform::IsValidCodePage(858)) continue;
    const std::vector<uint16_t> half = HighHalf(page.Number);
    EXPECT_EQ(page.Crc, crc32(0, reinterpret_cast<const Bytef*>(half.data()), 256)) << page.Number;
  }
}

}  // namespace
}  // namespace ostvt::test
