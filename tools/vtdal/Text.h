// Text on its way out: UTF-8 on every system.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vtdal {

// Halves of surrogate pairs become U+FFFD.
std::string ToUtf8(std::u16string_view text);

// Text for a terminal: control characters become "\xNN".
std::string Printable(std::string_view text);
std::string Printable(std::u16string_view text);

// printf into a string.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);

// `value` / 10 ^ `decimals` without needless zeros: 1016 and 1 give "101.6".
std::string DecimalText(int64_t value, int decimals);

// `text` filled up with blanks to `width` characters.
std::string Padded(std::string_view text, size_t width);

// A table: `columns` are of equal length, under their titles.
void PrintColumns(const std::vector<std::string>& titles,
                  const std::vector<std::vector<std::string>>& columns);

// The same without titles.
void PrintRows(const std::vector<std::vector<std::string>>& columns);

// Appends to what the command prints. Nothing comes out before FlushOutput.
void Print(std::string_view text);
// False when the output could not be written whole.
bool FlushOutput();

// "vtdal: " and `text` on stderr.
void PrintError(std::string_view text);

}  // namespace vtdal
