#include "core/CodePageTables.h"

namespace ostvt {
namespace {

struct Pair {
  uint16_t Key;
  uint8_t Charset;
};

// Each table ends at a zero key.
constexpr Pair kWindowsPages[] = {
    {874, 222},  {932, 128},  {936, 134},  {949, 129},  {950, 136},  {1250, 238},
    {1251, 204}, {1252, 0},   {1253, 161}, {1254, 162}, {1255, 177}, {1256, 178},
    {1257, 186}, {1258, 163}, {1361, 130}, {2, 2},      {0, 0},
};
constexpr Pair kDosPages[] = {
    {437, 0},   {737, 161}, {775, 186}, {850, 0},   {852, 238}, {855, 204},
    {857, 162}, {858, 0},   {860, 0},   {861, 0},   {862, 177}, {863, 0},
    {864, 178}, {865, 0},   {866, 204}, {869, 161}, {0, 0},
};
constexpr Pair kIsoNumbers[] = {
    {4, 0}, {6, 0}, {11, 0}, {15, 0}, {17, 0}, {21, 0}, {60, 0}, {69, 0}, {0, 0},
};
constexpr Pair kIsoParts[] = {
    {1, 0},   {2, 238}, {3, 0},    {4, 0},    {5, 204}, {6, 178}, {7, 161}, {8, 177},
    {9, 162}, {10, 0},  {11, 222}, {13, 186}, {14, 0},  {15, 0},  {0, 0},
};

int CharsetIn(const Pair* table, uint32_t key) {
  for (; table->Key != 0; ++table) {
    if (table->Key == key) return table->Charset;
  }
  return -1;
}

}  // namespace

int CharsetOfWindowsCodePage(uint32_t codePage) { return CharsetIn(kWindowsPages, codePage); }

int CharsetOfDosCodePage(uint32_t codePage) { return CharsetIn(kDosPages, codePage); }

int CharsetOfIsoNumber(uint32_t number) { return CharsetIn(kIsoNumbers, number); }

int CharsetOfIsoPart(uint32_t part) { return CharsetIn(kIsoParts, part); }

int CharsetOfName(const OString& name) {
  if (name.CompareNoCase("JIS") == 0) return 128;
  if (name.CompareNoCase("Mac-Western") == 0) return 0;
  return -1;
}

uint32_t CodePageOfCharset(int charset) {
  for (const Pair* pair = kWindowsPages; pair->Key != 0; ++pair) {
    if (pair->Charset == charset) return pair->Key;
  }
  return 0;
}

}  // namespace ostvt
