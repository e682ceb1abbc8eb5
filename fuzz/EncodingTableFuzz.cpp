// Tables of encodings from outside, of any length and as any text: there are 256 entries, of what
// is there and zeros behind, or none.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/PackedText.h"
#include "fonts/FontRecords.h"
#include "fonts/OptionalFontTable.h"
#include "fuzz/MemoryFile.h"

namespace {

constexpr size_t kTableBytes = 512;

// Whether the table begins with the bytes and has zeros behind them.
bool Holds(const ostvt::WordArray& table, const uint8_t* data, size_t size) {
  if (table.Count != 256) return false;
  uint8_t expected[kTableBytes] = {};
  if (size > 0) memcpy(expected, data, std::min(size, kTableBytes));
  return memcmp(table.Data, expected, kTableBytes) == 0;
}

// The table of a font whose record has this value.
void ReadFromText(const std::string& value, ostvt::WordArray* table) {
  ostvt::fuzz::MemoryFile file(
      "<font type='Optional'>\nFontName=A\nCategory=Custom\nType=Bitmap\nEncodingTable=" + value +
      "\n</font>\n");
  ostvt::OptionalFontTable fonts;
  fonts.ReadText(file, nullptr);
  table->SetSize(0);
  if (fonts.GetCount() > 0) table->Copy(fonts.GetAt(0)->EncodingTable);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostvt::WordArray table;
  ostvt::SetEncodingTable(&table, data, static_cast<uint32_t>(size));
  if (!Holds(table, data, size)) abort();

  ReadFromText(std::string(reinterpret_cast<const char*>(data), size), &table);
  if (table.Count != 0 && table.Count != 256) abort();

  if (size == 0) return 0;
  ReadFromText(ostvt::PackText(data, static_cast<uint32_t>(size)).GetNarrow(), &table);
  if (table.Count != 0 && !Holds(table, data, size)) abort();
  return 0;
}
