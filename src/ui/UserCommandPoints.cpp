#include "ui/UserCommandPoints.h"

#include <cstring>
#include <string>
#include <string_view>

#include "core/WholeUnits.h"
#include "language/resource.h"
#include "settings/DevMode.h"

namespace ostvt {
namespace {

struct CommandSlot {
  uint32_t Start;  // in CommandTexts
  uint32_t Size;
  int32_t Limit;
};

// The preset's name, which lies behind the last slot, is only noted while that holds no more.
constexpr CommandSlot kSlots[kCommandPointCount] = {
    {0, 256, 255}, {256, 256, 255}, {512, 256, 255}, {768, 252, 250}};

// In the order of their names.
constexpr CommandInsertion kInsertions[kCommandInsertionCount] = {
    {IDS_INSERT_ESCAPE, "\\e"},          {IDS_INSERT_CARRIAGE_RETURN, "\\r"},
    {IDS_INSERT_LINE_FEED, "\\n"},       {IDS_INSERT_TAB, "\\t"},
    {IDS_INSERT_START_OF_TEXT, "\\x02"}, {IDS_INSERT_END_OF_TEXT, "\\x03"},
    {IDS_INSERT_FORM_FEED, "\\x0C"},     {IDS_INSERT_NUL, "\\x00"},
    {IDS_INSERT_BACKSLASH, "\\\\"},      {IDS_INSERT_BYTE, "\\x"},
};
static_assert(IDS_INSERT_LAST - IDS_INSERT_FIRST + 1 == kCommandInsertionCount);

bool IsPoint(int32_t point) { return point >= 0 && point < kCommandPointCount; }

// Null where the record doesn't reach so far.
char* SlotOf(const DevMode& devMode, const CommandSlot& slot) {
  const ModelRecordView& view = devMode.GetRecord();
  if (!view.Record || view.Room < slot.Start + slot.Size) return nullptr;
  return view.Record->CommandTexts + slot.Start;
}

std::string Narrowed(std::u16string_view text) {
  OString narrow(std::u16string(text).c_str());
  narrow.SetCodePage(0);
  return narrow.GetNarrow();
}

}  // namespace

int32_t CommandTextLimit(int32_t point) { return IsPoint(point) ? kSlots[point].Limit : 0; }

OString GetCommandText(const DevMode& devMode, int32_t point) {
  if (!IsPoint(point)) return OString();
  const CommandSlot& slot = kSlots[point];
  const char* bytes = SlotOf(devMode, slot);
  if (!bytes) return OString();
  OString text;
  text.AssignCount(bytes, static_cast<int>(strnlen(bytes, slot.Size)));
  return text;
}

OString FitCommandText(const OString& text, int32_t point) {
  const auto limit = static_cast<size_t>(CommandTextLimit(point));
  std::u16string_view rest = text.GetWide();
  // Each unit makes a byte or more, but for pairs that make one.
  rest = rest.substr(0, 2 * limit);
  while (!rest.empty() && (IsLeadSurrogate(rest.back()) || Narrowed(rest).size() > limit))
    rest.remove_suffix(1);
  return OString(Narrowed(rest).c_str());
}

bool SetCommandText(DevMode* devMode, int32_t point, const OString& text) {
  if (!IsPoint(point)) return false;
  const CommandSlot& slot = kSlots[point];
  char* bytes = SlotOf(*devMode, slot);
  if (!bytes) return false;
  const OString fitted = FitCommandText(text, point);
  const char* narrow = fitted.GetNarrow();
  const size_t length = strlen(narrow);
  if (strnlen(bytes, slot.Size) == length && memcmp(bytes, narrow, length) == 0) return false;
  memset(bytes, 0, slot.Size);
  memcpy(bytes, narrow, length);
  return true;
}

const CommandInsertion& GetCommandInsertion(int32_t index) { return kInsertions[index]; }

OString CommandTextOfBytes(const void* bytes, uint32_t size) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const std::string_view rest(static_cast<const char*>(bytes), size);
  std::string text;
  for (size_t i = 0; i < rest.size(); ++i) {
    const auto byte = static_cast<uint8_t>(rest[i]);
    if (byte == '\r' && i + 1 < rest.size() && rest[i + 1] == '\n') {
      text += "\r\n";
      ++i;
    } else if (byte == '\\') {
      text += "\\\\";
    } else if (byte == '\r') {
      text += "\\r";
    } else if (byte == '\n') {
      text += "\\n";
    } else if (byte == '\t') {
      text += "\\t";
    } else if (byte == 27) {
      text += "\\e";
    } else if (byte >= ' ' && byte < 127) {
      text += static_cast<char>(byte);
    } else {
      text += "\\x";
      text += kDigits[byte >> 4];
      text += kDigits[byte & 15];
    }
  }
  return OString(text.c_str());
}

}  // namespace ostvt
