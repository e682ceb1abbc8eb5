// Tables of code pages against the system's own converters, asked directly, and what Windows and
// Linux make of the same page.
#include <gtest/gtest.h>
#include <zlib.h>

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
    {20127, "US-ASCII"},           {20866, "ibm-878_P100-1996"},  {21866, "ibm-1168_P100-2002"},
    {28591, "ISO-8859-1"},         {28592, "ibm-912_P100-1995"},  {28593, "ibm-913_P100-2000"},
    {28594, "ibm-914_P100-1995"},  {28595, "ibm-915_P100-1995"},  {28596, "ibm-1089_P100-1995"},
    {28597, "ibm-9005_X110-2007"}, {28598, "ibm-5012_P100-1999"}, {28599, "ibm-920_P100-1995"},
    {28603, "ibm-921_P100-1995"},  {28605, "ibm-923_P100-1998"},
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

TEST(CodePageSource, TableIsWhatTheSystemMakesOfEachByte) {
  for (const Source& source : kSources) {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(source.Converter, &error);
    ASSERT_TRUE(U_SUCCESS(error)) << source.Converter;
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    std::vector<uint16_t> expected;
    for (int byte = 128; byte < 256; ++byte) expected.push_back(UnitOf(converter, byte));
    ucnv_close(converter);
    EXPECT_EQ(expected, HighHalf(source.Page)) << source.Page;
  }
}

// ICU has none of these, or no character of one high byte in them.
TEST(CodePageSource, OtherPagesHaveNoHighCharacters) {
  const std::vector<uint16_t> none(128);
  int pages = 0;
  for (uint32_t page = 0; page < 65536; ++page) {
    bool isListed = false;
    for (const Source& source : kSources) isListed = isListed || source.Page == page;
    if (isListed || !platform::IsValidCodePage(page)) continue;
    EXPECT_EQ(none, HighHalf(page)) << page;
    ++pages;
  }
  EXPECT_EQ(4, pages);  // 1361, 54936, 65000, 65001
}

#endif

struct Page {
  uint32_t Number;
  uint32_t Crc;  // of the high half where the systems agree, 0 elsewhere
};

// The CRCs were made by Python out of both systems' tables, written down by small programs.
constexpr Page kPages[] = {
    {437, 0x60FC31EF},  {737, 0x108747ED},  {775, 0x80C1EA5F},  {850, 0x78F9EDC0},
    {852, 0x7AC7C2E6},  {855, 0x96A5CECD},  {857, 0x7DEB328E},  {858, 0xBE35B03B},
    {860, 0x0E144885},  {861, 0x5CCCA9FA},  {862, 0x19F9E052},  {863, 0x13F1F5A8},
    {864, 0x7BBB4C06},  {865, 0x99904126},  {866, 0x546195C4},  {869, 0xEBDEA5A2},
    {874, 0x99A047FE},  {932, 0x9064D703},  {936, 0x78391768},  {949, 0xC964AC43},
    {950, 0xC964AC43},  {1250, 0xCD713AB4}, {1251, 0x45530B10}, {1252, 0x27D5F856},
    {1253, 0x6CCC1CAE}, {1254, 0x0E056E25}, {1255, 0xD80C0A72}, {1256, 0xC4196668},
    {1257, 0x01D69F24}, {1258, 0x536BE813}, {1361, 0x0D968558},
};

struct Difference {
  uint32_t Page;
  int Byte;
  uint16_t Linux;
  uint16_t Windows;
};

constexpr Difference kDifferences[] = {
    // The small mu, which in Unicode is the sign for a millionth or a Greek letter.
    {437, 0xE6, 0x03BC, 0x00B5},
    {860, 0xE6, 0x03BC, 0x00B5},
    {861, 0xE6, 0x03BC, 0x00B5},
    {862, 0xE6, 0x03BC, 0x00B5},
    {863, 0xE6, 0x03BC, 0x00B5},
    {865, 0xE6, 0x03BC, 0x00B5},
    // Bytes that one of both leaves open.
    {852, 0xAA, 0x0000, 0x00AC},
    {864, 0x9B, 0x0000, 0x009B},
    {864, 0x9C, 0x0000, 0x009C},
    {869, 0x80, 0x0000, 0x0080},
    {869, 0x81, 0x0000, 0x0081},
    {869, 0x82, 0x0000, 0x0082},
    {869, 0x83, 0x0000, 0x0083},
    {869, 0x84, 0x0000, 0x0084},
    {869, 0x85, 0x0000, 0x0085},
    {869, 0x87, 0x0000, 0x0087},
    {869, 0x93, 0x0000, 0x0093},
    {869, 0x94, 0x0000, 0x0094},
    {932, 0x80, 0x0000, 0x0080},
    {1253, 0xAA, 0x00AA, 0x0000},
    {1255, 0xCA, 0x0000, 0x05BA},
    {1361, 0x80, 0x0000, 0x0080},
    {1361, 0x81, 0x0000, 0x0081},
    {1361, 0x82, 0x0000, 0x0082},
    {1361, 0x83, 0x0000, 0x0083},
    // Arabic letters in another form, a blank without width; Greek accents.
    {864, 0x9F, 0x200B, 0x009F},
    {864, 0xD7, 0xFEC3, 0xFEC1},
    {864, 0xD8, 0xFEC7, 0xFEC5},
    {864, 0xF1, 0xFE7C, 0x0651},
    {869, 0x88, 0x0387, 0x00B7},
    {869, 0xEF, 0x00B4, 0x0384},
};

TEST(CodePageSource, SystemsAgreeButForTheBytesListed) {
  for (const Page& page : kPages) {
    // Only Wine lacks it.
    if (page.Number == 858 && !platform::IsValidCodePage(858)) continue;
    std::vector<uint16_t> half = HighHalf(page.Number);
    for (const Difference& difference : kDifferences) {
      if (difference.Page != page.Number) continue;
      uint16_t& unit = half[static_cast<size_t>(difference.Byte - 128)];
#ifdef _WIN32
      EXPECT_EQ(difference.Windows, unit) << page.Number << " byte " << difference.Byte;
#else
      EXPECT_EQ(difference.Linux, unit) << page.Number << " byte " << difference.Byte;
#endif
      unit = 0;
    }
    EXPECT_EQ(page.Crc, crc32(0, reinterpret_cast<const Bytef*>(half.data()), 256)) << page.Number;
  }
}

}  // namespace
}  // namespace ostvt::test
