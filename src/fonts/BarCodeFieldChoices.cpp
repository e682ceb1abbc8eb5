// The fields that the editor shows for each symbology.
#include <span>

#include "fonts/BarCodeChoices.h"
#include "fonts/BarCodeRules.h"
#include "fonts/MessageTexts.h"
#include "fonts/SymbologyRules.h"

namespace ostvt {
namespace {

using Field = BarCodeField;

enum class Shown { kNumber, kLetter, kCode128, kVersion };

// A few values first, then a range.
struct FieldList {
  uint16_t Symbology;
  Field Of;
  Shown As;
  std::span<const uint16_t> Values;
  uint16_t First = 1;
  uint16_t Last = 0;
  int32_t Automatic = -1;  // the value that means that, if any
};

constexpr uint16_t kEncodings[] = {0, 2, 3, 4, 5};
constexpr uint16_t kAutomaticLevel[] = {kAutomatic};
constexpr uint16_t kAutomaticMask[] = {9};
constexpr uint16_t kCorrections[] = {'L', 'M', 'Q', 'H'};
constexpr uint16_t kModes[] = {0, 'A', 'K', 'B', 'M'};
constexpr uint16_t kSupplements[] = {0, 2, 5, kAutomatic};  // the last one: 2 or 5

constexpr FieldList kLists[] = {
    {3, Field::kOption1, Shown::kCode128, kEncodings, 1, 0, 0},
    {4, Field::kOption1, Shown::kLetter, {}, 'a', 'd'},
    {4, Field::kOption2, Shown::kLetter, {}, 'a', 'd'},
    {7, Field::kSupplement, Shown::kNumber, kSupplements, 1, 0, kAutomatic},
    {8, Field::kSupplement, Shown::kNumber, kSupplements, 1, 0, kAutomatic},
    {9, Field::kSupplement, Shown::kNumber, kSupplements, 1, 0, kAutomatic},
    {10, Field::kSupplement, Shown::kNumber, kSupplements, 1, 0, kAutomatic},
    {14, Field::kWord1, Shown::kVersion, {}, 0, 14, 0},
    {15, Field::kWord1, Shown::kNumber, kAutomaticLevel, 0, 8, kAutomatic},
    {15, Field::kWord3, Shown::kNumber, {}, 0, 30, 0},
    {15, Field::kWord5, Shown::kNumber, {}, 1, 10},
    {16, Field::kWord1, Shown::kNumber, kDataMatrixLevels},
    {17, Field::kWord1, Shown::kNumber, {}, 2, 6},
    {18, Field::kWord1, Shown::kNumber, {}, 1, 2},
    {18, Field::kWord2, Shown::kNumber, kAutomaticMask, 0, 7, 9},
    {18, Field::kWord3, Shown::kLetter, kCorrections},
    {18, Field::kWord4, Shown::kLetter, kModes, 1, 0, 0},
    {25, Field::kWord1, Shown::kNumber, {}, 1, 20},
    {26, Field::kWord1, Shown::kNumber, {}, 1, 20},
    {28, Field::kWord1, Shown::kNumber, kAutomaticLevel, 0, 8, kAutomatic},
    {28, Field::kWord3, Shown::kNumber, {}, 0, 30, 0},
    {28, Field::kWord5, Shown::kNumber, {}, 1, 10},
    {37, Field::kWord2, Shown::kNumber, kAutomaticMask, 0, 7, 9},
    {37, Field::kWord3, Shown::kLetter, kCorrections},
    {37, Field::kWord4, Shown::kLetter, kModes, 1, 0, 0},
};

// On or off, where the symbology's flags have the needed bit, if any, and not the barring one.
struct FieldSwitch {
  uint16_t Symbology;
  Field Of;
  uint32_t Needed;
  uint32_t Barring = 0;
};
constexpr FieldSwitch kSwitches[] = {
    {3, Field::kOption2, 0},
    {15, Field::kWord2, 0, kPdfTruncated},
    {28, Field::kWord2, 0},
    {16, Field::kWord4, kDataMatrixWhiteOnBlack},
    {17, Field::kWord2, kMaxiCodeZipperBlock},
    {17, Field::kWord3, kMaxiCodeContrastBlock},
    {21, Field::kHighPriority, kHasHighPriority},
};

constexpr int32_t kAutomaticMessage = 1600;
constexpr int32_t kFirstSubsetMessage = 1662;
constexpr uint16_t kFirstSubset = 2;
constexpr uint16_t kLastSubset = 4;
constexpr uint16_t kLastEncoding = 5;
constexpr int32_t kLastEncodingMessage = 1992;
constexpr const char* kVersions[] = {"",  "A",   "B",   "C",   "D",   "E",   "F",  "G",
                                     "H", "S10", "S20", "S30", "T16", "T32", "T48"};

const FieldList* ListOf(uint16_t symbology, Field field) {
  for (const FieldList& list : kLists) {
    if (list.Symbology == symbology && list.Of == field) return &list;
  }
  return nullptr;
}

OString Code128Text(uint16_t value, const MessageTexts& texts) {
  if (value >= kFirstSubset && value <= kLastSubset) {
    return texts.GetMessage(kFirstSubsetMessage + value - kFirstSubset);
  }
  return value == kLastEncoding ? texts.GetMessage(kLastEncodingMessage)
                                : OString::FromInt(value, 1);
}

OString LetterText(uint16_t value) {
  const char letter[] = {static_cast<char>(value), 0};
  return letter;
}

}  // namespace

void ListFieldValues(const BarCodeFont& font, BarCodeField field,
                     const CapabilitiesData& capabilities, std::vector<uint16_t>* values) {
  values->clear();
  const uint16_t symbology = font.GetSymbology();
  const FieldList* list = ListOf(symbology, field);
  if (!list || RuleOfSymbology(symbology).Kind != font.Header.Kind) return;
  if (symbology == kCode128 && (capabilities.Rows[symbology].Flags & kEncodesByItself) != 0) return;
  const auto offer = [&](uint16_t value) {
    if (IsValuePrintable(symbology, field, value, capabilities)) values->push_back(value);
  };
  for (const uint16_t value : list->Values) offer(value);
  for (uint32_t value = list->First; value <= list->Last; ++value) {
    offer(static_cast<uint16_t>(value));
  }
}

OString FieldValueText(uint16_t symbology, BarCodeField field, uint16_t value,
                       const MessageTexts& texts) {
  const FieldList* list = ListOf(symbology, field);
  if (list && list->Automatic == value) return texts.GetMessage(kAutomaticMessage);
  switch (list ? list->As : Shown::kNumber) {
    case Shown::kLetter:
      return LetterText(value);
    case Shown::kCode128:
      return Code128Text(value, texts);
    case Shown::kVersion:
      return value < std::size(kVersions) ? kVersions[value] : "";
    default:
      return OString::FromInt(value, 1);
  }
}

bool HasFieldSwitch(const BarCodeFont& font, BarCodeField field,
                    const CapabilitiesData& capabilities) {
  const uint16_t symbology = font.GetSymbology();
  if (RuleOfSymbology(symbology).Kind != font.Header.Kind) return false;
  for (const FieldSwitch& each : kSwitches) {
    if (each.Symbology != symbology || each.Of != field) continue;
    if (symbology == kCode128 && font.Linear.Option1 == kNoOption2) return false;
    const uint32_t flags = capabilities.Rows[symbology].Flags;
    return (each.Needed == 0 || (flags & each.Needed) != 0) && (flags & each.Barring) == 0;
  }
  return false;
}

}  // namespace ostvt
