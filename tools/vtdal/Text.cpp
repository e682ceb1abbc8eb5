#include "tools/vtdal/Text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace vtdal {
namespace {

std::string& Output() {
  static std::string output;
  return output;
}

void AppendUtf8(char32_t character, std::string* text) {
  auto add = [text](char32_t byte) { *text += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | (character >> 6));
    add(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    add(0xE0 | (character >> 12));
    add(0x80 | ((character >> 6) & 0x3F));
    add(0x80 | (character & 0x3F));
  } else {
    add(0xF0 | (character >> 18));
    add(0x80 | ((character >> 12) & 0x3F));
    add(0x80 | ((character >> 6) & 0x3F));
    add(0x80 | (character & 0x3F));
  }
}

size_t CountCharacters(std::string_view utf8) {
  size_t count = 0;
  for (char c : utf8) {
    if ((c & 0xC0) != 0x80) count++;
  }
  return count;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string result;
  for (size_t i = 0; i < text.size(); i++) {
    char32_t character = text[i];
    bool isHigh = (character & 0xFC00) == 0xD800;
    if (isHigh && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00)
      character = 0x10000 + ((character & 0x3FF) << 10) + (text[++i] & 0x3FF);
    else if ((character & 0xF800) == 0xD800)
      character = kReplacement;
    AppendUtf8(character, &result);
  }
  return result;
}

std::string Printable(std::string_view text) {
  std::string result;
  for (char c : text) {
    unsigned byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F)
      result += Format("\\x%02X", byte);
    else
      result += c;
  }
  return result;
}

std::string Printable(std::u16string_view text) { return Printable(ToUtf8(text)); }

std::string Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  int length = vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
  if (length > 0) vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

std::string DecimalText(int64_t value, int decimals) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  size_t behind = static_cast<size_t>(decimals);
  if (digits.size() <= behind) digits.insert(0, behind + 1 - digits.size(), '0');
  std::string fraction = digits.substr(digits.size() - behind);
  digits.resize(digits.size() - behind);
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  return (value < 0 ? "-" : "") + digits + (fraction.empty() ? "" : "." + fraction);
}

std::string Padded(std::string_view text, size_t width) {
  size_t characters = CountCharacters(text);
  std::string result(text);
  if (characters < width) result.append(width - characters, ' ');
  return result;
}

void PrintRows(const std::vector<std::vector<std::string>>& columns) {
  constexpr size_t kGap = 2;
  std::vector<size_t> widths;
  for (const std::vector<std::string>& column : columns) {
    size_t width = 0;
    for (const std::string& cell : column) width = std::max(width, CountCharacters(cell));
    widths.push_back(width + kGap);
  }
  size_t rows = columns.empty() ? 0 : columns[0].size();
  for (size_t row = 0; row < rows; row++) {
    std::string line;
    for (size_t i = 0; i < columns.size(); i++) line += Padded(columns[i][row], widths[i]);
    line.resize(line.find_last_not_of(' ') + 1);
    Print(line + '\n');
  }
}

void PrintColumns(const std::vector<std::string>& titles,
                  const std::vector<std::vector<std::string>>& columns) {
  std::vector<std::vector<std::string>> all = columns;
  for (size_t i = 0; i < all.size(); i++) all[i].insert(all[i].begin(), titles[i]);
  PrintRows(all);
}

void Print(std::string_view text) { Output() += text; }

bool FlushOutput() {
  const std::string& output = Output();
  bool whole = output.empty() || fwrite(output.data(), output.size(), 1, stdout) == 1;
  return fflush(stdout) == 0 && whole;
}

void PrintError(std::string_view text) {
  fprintf(stderr, "vtdal: %.*s\n", static_cast<int>(text.size()), text.data());
}

}  // namespace vtdal
