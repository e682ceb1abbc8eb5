#include "comm/PrinterCommand.h"

#include <cstring>
#include <string>

#include "comm/XpmlText.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr char16_t kHidden = 0x2022;
constexpr uint32_t kLineBytes = 10;
constexpr char16_t kDigits[] = u"0123456789ABCDEF";

constexpr uint32_t kXpmlSize = sizeof kXpmlBegin - 1;

bool IsControl(char16_t character) {
  return character < 32 || (character >= 128 && character <= 159);
}

char16_t Shown(char16_t character) {
  if (character == 9 || character == 10 || character == 13) return character;
  return IsControl(character) ? kHidden : character;
}

void ShowText(const Buffer& answer, std::u16string* view) {
  for (uint32_t i = 0; i < answer.Size; ++i) *view += Shown(answer.Data[i]);
}

bool IsContinuation(const Buffer& bytes, uint32_t at) {
  return at < bytes.Size && (bytes.Data[at] & 0xC0) == 0x80;
}

// The character at `at` and its bytes; 0 when no whole sequence in its shortest form stands there.
uint32_t TakeUtf8(const Buffer& bytes, uint32_t at, char16_t* character) {
  const uint8_t* data = bytes.Data + at;
  if (data[0] < 0x80) {
    *character = data[0];
    return 1;
  }
  if ((data[0] & 0xE0) == 0xC0 && IsContinuation(bytes, at + 1)) {
    *character = static_cast<char16_t>((data[0] & 0x1F) << 6 | (data[1] & 0x3F));
    return *character >= 0x80 ? 2 : 0;
  }
  if ((data[0] & 0xF0) == 0xE0 && IsContinuation(bytes, at + 1) && IsContinuation(bytes, at + 2)) {
    *character =
        static_cast<char16_t>((data[0] & 0x0F) << 12 | (data[1] & 0x3F) << 6 | (data[2] & 0x3F));
    const bool isSurrogate = *character >= 0xD800 && *character <= 0xDFFF;
    return *character >= 0x800 && !isSurrogate ? 3 : 0;
  }
  return 0;
}

void ShowUtf8(const Buffer& answer, std::u16string* view) {
  for (uint32_t at = 0; at < answer.Size;) {
    char16_t character = 0;
    const uint32_t taken = TakeUtf8(answer, at, &character);
    *view += taken > 0 ? Shown(character) : kHidden;
    at += taken > 0 ? taken : 1;
  }
}

void ShowHexadecimal(const Buffer& answer, std::u16string* view) {
  for (uint32_t line = 0; line < answer.Size; line += kLineBytes) {
    if (line > 0) *view += u"\r\n";
    std::u16string characters;
    for (uint32_t at = line; at < line + kLineBytes; ++at) {
      if (at >= answer.Size) {
        *view += u"   ";
        characters += u' ';
        continue;
      }
      const uint8_t byte = answer.Data[at];
      *view += kDigits[byte >> 4];
      *view += kDigits[byte & 15];
      *view += u' ';
      characters += IsControl(byte) ? kHidden : char16_t{byte};
    }
    *view += u' ';
    *view += characters;
  }
}

}  // namespace

void MakeCommandBytes(const OString& text, Buffer* bytes) {
  if (!text.StartsWith(kXpmlBegin)) {
    PrinterModel::ExpandCommandText(text, bytes);
    return;
  }
  // By its wide form, so that the text's own code page doesn't matter.
  const OString ansi(text.GetWide());
  const char* narrow = ansi.GetNarrow();
  bytes->Resize(static_cast<uint32_t>(strlen(narrow)));
  CopyBytes(bytes->Data, narrow, bytes->Size);
}

bool IsMonitorRequest(const Buffer& bytes) {
  return bytes.Size >= kXpmlSize && memcmp(bytes.Data, kXpmlBegin, kXpmlSize) == 0;
}

bool ShowAnswer(const Buffer& answer, AnswerView how, OString* view) {
  if (answer.Size == 0) return false;
  std::u16string text;
  switch (how) {
    case AnswerView::kText:
      ShowText(answer, &text);
      break;
    case AnswerView::kUtf8:
      ShowUtf8(answer, &text);
      break;
    case AnswerView::kHexadecimal:
      ShowHexadecimal(answer, &text);
      break;
  }
  *view = text.c_str();
  return true;
}

}  // namespace ostvt
