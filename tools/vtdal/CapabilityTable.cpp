#include "tools/vtdal/CapabilityTable.h"

#include <algorithm>
#include <cstring>

#include "tools/vtdal/DevModeFlags.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using Kind = CapabilityKind;

constexpr Capability kTable[] = {
    {1, "DC_FIELDS", Kind::kFields, 0},
    {2, "DC_PAPERS", Kind::kWords, 0},
    {3, "DC_PAPERSIZE", Kind::kSizes, 0},
    {4, "DC_MINEXTENT", Kind::kExtent, 0},
    {5, "DC_MAXEXTENT", Kind::kExtent, 0},
    {6, "DC_BINS", Kind::kWords, 0},
    {7, "DC_DUPLEX", Kind::kNumber, 0},
    {8, "DC_SIZE", Kind::kNumber, 0},
    {9, "DC_EXTRA", Kind::kNumber, 0},
    {10, "DC_VERSION", Kind::kVersion, 0},
    {11, "DC_DRIVER", Kind::kVersion, 0},
    {12, "DC_BINNAMES", Kind::kTexts, 24},
    {13, "DC_ENUMRESOLUTIONS", Kind::kResolutions, 0},
    {14, "DC_FILEDEPENDENCIES", Kind::kTexts, 64},
    {15, "DC_TRUETYPE", Kind::kNumber, 0},
    {16, "DC_PAPERNAMES", Kind::kTexts, 64},
    {17, "DC_ORIENTATION", Kind::kDegrees, 0},
    {18, "DC_COPIES", Kind::kNumber, 0},
    {19, "DC_BINADJUST", Kind::kNumber, 0},
    {20, "DC_EMF_COMPLIANT", Kind::kNumber, 0},
    {21, "DC_DATATYPE_PRODUCED", Kind::kNumber, 0},
    {22, "DC_COLLATE", Kind::kNumber, 0},
    {23, "DC_MANUFACTURER", Kind::kNumber, 0},
    {24, "DC_MODEL", Kind::kNumber, 0},
    {25, "DC_PERSONALITY", Kind::kTexts, 32},
    {26, "DC_PRINTRATE", Kind::kNumber, 0},
    {27, "DC_PRINTRATEUNIT", Kind::kNumber, 0},
    {28, "DC_PRINTERMEM", Kind::kNumber, 0},
    {29, "DC_MEDIAREADY", Kind::kNumber, 0},
    {30, "DC_STAPLE", Kind::kNumber, 0},
    {31, "DC_PRINTRATEPPM", Kind::kNumber, 0},
    {32, "DC_COLORDEVICE", Kind::kNumber, 0},
    {33, "DC_NUP", Kind::kDwords, 0},
};
static_assert(sizeof kTable / sizeof kTable[0] == kLastCapability);

std::string SizeText(int64_t width, int64_t height) {
  return DecimalText(width, 1) + " x " + DecimalText(height, 1) + " mm";
}

std::string Element(const CapabilityAnswer& answer, size_t index) {
  auto pair = [&](size_t part) {
    return static_cast<int32_t>(NumberAt(answer, index * 2 + part, 4));
  };
  switch (answer.Question->Kind) {
    case Kind::kWords:
      return std::to_string(NumberAt(answer, index, 2));
    case Kind::kDwords:
      return std::to_string(NumberAt(answer, index, 4));
    case Kind::kSizes:
      return SizeText(pair(0), pair(1));
    case Kind::kResolutions:
      return Format("%d x %d dpi", pair(0), pair(1));
    case Kind::kTexts:
      return Printable(TextAt(answer, index));
    default:
      return "";
  }
}

}  // namespace

const Capability& CapabilityAt(int index) { return kTable[index - kFirstCapability]; }

size_t ElementSize(const Capability& capability) {
  switch (capability.Kind) {
    case Kind::kWords:
      return 2;
    case Kind::kDwords:
      return 4;
    case Kind::kSizes:
    case Kind::kResolutions:
      return 8;
    case Kind::kTexts:
      return capability.SlotUnits * 2;
    default:
      return 0;
  }
}

uint32_t NumberAt(const CapabilityAnswer& answer, size_t index, size_t width) {
  uint32_t number = 0;
  if ((index + 1) * width <= answer.Output.size())
    memcpy(&number, answer.Output.data() + index * width, width);
  return number;
}

std::u16string TextAt(const CapabilityAnswer& answer, size_t index) {
  size_t units = answer.Question->SlotUnits;
  std::u16string text(units, u'\0');
  if ((index + 1) * units * 2 > answer.Output.size()) return {};
  memcpy(text.data(), answer.Output.data() + index * units * 2, units * 2);
  text.resize(std::min(text.find(u'\0'), units));
  return text;
}

std::vector<std::string> ReadableValues(const CapabilityAnswer& answer) {
  if (answer.Result == -1) return {};
  uint32_t result = static_cast<uint32_t>(answer.Result);
  switch (answer.Question->Kind) {
    case Kind::kNumber:
      return {};
    case Kind::kVersion:
      return {Format("0x%04X", result)};
    case Kind::kDegrees:
      return {Format("%u degrees", result)};
    case Kind::kFields:
      return FieldNames(result);
    case Kind::kExtent:
      return {SizeText(result & 0xFFFF, result >> 16)};
    default:
      break;
  }
  std::vector<std::string> values;
  for (size_t i = 0; i < answer.Output.size() / ElementSize(*answer.Question); i++)
    values.push_back(Element(answer, i));
  return values;
}

}  // namespace vtdal
