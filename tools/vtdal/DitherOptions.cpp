#include "tools/vtdal/DitherOptions.h"

#include <iterator>

#include "tools/vtdal/PictureOptions.h"
#include "tools/vtdal/StoreValues.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::DitherColor;
using ostvt::ImageDither;
using ostvt::ImageDitherRecord;

struct Choice {
  const char* Name;
  uint16_t Value;
};
using Choices = std::vector<Choice>;

const Choices kMethods = {{"none", ostvt::kDitherNone},
                          {"ordered", ostvt::kDitherOrdered},
                          {"halftone", ostvt::kDitherHalftone},
                          {"screen", ostvt::kDitherScreen},
                          {"diffusion", ostvt::kDitherDiffusion}};
const Choices kModes = {{"gray", ostvt::kDitherGrey},
                        {"palette", ostvt::kDitherPalette},
                        {"planes", ostvt::kDitherPlanes},
                        {"black", ostvt::kDitherPlanesWithBlack}};
const Choices kOrderedSizes = {{"8", 2}, {"4", 1}, {"2", 0}};
const Choices kHalftoneSizes = {{"8", 3}, {"6", 2}, {"4", 1}, {"2", 0}};
const Choices kKernels = {{"floyd-steinberg", 0}, {"jarvis", 1}};

constexpr DitherColor kCommonColors[] = {
    {0, 0, 0, 0},       {128, 0, 0, 0},   {0, 128, 0, 0},   {128, 128, 0, 0},
    {0, 0, 128, 0},     {128, 0, 128, 0}, {0, 128, 128, 0}, {192, 192, 192, 0},
    {128, 128, 128, 0}, {255, 0, 0, 0},   {0, 255, 0, 0},   {255, 255, 0, 0},
    {0, 0, 255, 0},     {255, 0, 255, 0}, {0, 255, 255, 0}, {255, 255, 255, 0}};

// `value` stays as it is without the option.
bool ReadChoice(const Arguments& arguments, const char* option, const Choices& choices,
                uint16_t* value, std::string* error) {
  if (!arguments.Has(option)) return true;
  const std::string word = ToUtf8(arguments.Value(option));
  std::string names;
  for (const Choice& choice : choices) {
    if (word == choice.Name) {
      *value = choice.Value;
      return true;
    }
    names += std::string(names.empty() ? "" : ", ") + choice.Name;
  }
  *error = "'" + Printable(word) + "' is none of " + option + "'s: " + names;
  return false;
}

bool ReadNumber(const Arguments& arguments, const char* option, int least, int most, int16_t* value,
                std::string* error) {
  if (!arguments.Has(option)) return true;
  int64_t number = 0;
  if (!ParseNumber(arguments.Value(option), least, most, &number)) {
    *error = "'" + Printable(arguments.Value(option)) + "' is no number for " + option +
             Format(", %d to %d", least, most);
    return false;
  }
  *value = static_cast<int16_t>(number);
  return true;
}

// Adjustments and screen.
bool ReadNumbers(const Arguments& arguments, ImageDitherRecord* record, std::string* error) {
  // Members of a packed record have no address of their own.
  int16_t values[5] = {};
  const char* options[5] = {"--brightness", "--contrast", "--red", "--green", "--blue"};
  for (int i = 0; i < 5; i++) {
    if (!ReadNumber(arguments, options[i], -100, 100, &values[i], error)) return false;
  }
  record->setup.brightness = values[0];
  record->setup.contrast = values[1];
  record->setup.redAdjust = values[2];
  record->setup.greenAdjust = values[3];
  record->setup.blueAdjust = values[4];
  int16_t screen = 18;
  if (!ReadNumber(arguments, "--screen", 0, 19, &screen, error)) return false;
  record->setup.screenIndex = screen;
  return true;
}

bool ReadMethod(const Arguments& arguments, ImageDitherRecord* record, std::string* error) {
  uint16_t method = ostvt::kDitherHalftone;
  uint16_t kernel = 0;
  if (!ReadChoice(arguments, "--method", kMethods, &method, error) ||
      !ReadChoice(arguments, "--kernel", kKernels, &kernel, error)) {
    return false;
  }
  const bool isOrdered = method == ostvt::kDitherOrdered;
  const Choices& sizes = isOrdered ? kOrderedSizes : kHalftoneSizes;
  uint16_t size = sizes.front().Value;
  if (arguments.Has("--size") && !isOrdered && method != ostvt::kDitherHalftone) {
    *error = "--size belongs to the methods ordered and halftone";
    return false;
  }
  if (!ReadChoice(arguments, "--size", sizes, &size, error)) return false;
  record->setup.method = method;
  record->setup.diffusionKind = kernel;
  record->setup.orderedSize = isOrdered ? size : kOrderedSizes.front().Value;
  record->setup.halftoneSize = isOrdered ? kHalftoneSizes.front().Value : size;
  return true;
}

bool ParseColor(const std::string& text, DitherColor* color) {
  int64_t value = 0;
  if (text.size() != 6 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
    return false;
  value = std::stoll(text, nullptr, 16);
  *color = {static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 8),
            static_cast<uint8_t>(value), 0};
  return true;
}

bool ReadColors(const Arguments& arguments, ImageDitherRecord* record, std::string* error) {
  uint16_t mode = ostvt::kDitherGrey;
  if (!ReadChoice(arguments, "--mode", kModes, &mode, error)) return false;
  ImageDither::SetColorMode(record, mode, false);
  ImageDither::SetPalette(record, kCommonColors, std::size(kCommonColors));
  if (!arguments.Has("--colors")) return true;
  std::vector<DitherColor> colors;
  std::string rest = ToUtf8(arguments.Value("--colors")) + ",";
  while (!rest.empty()) {
    const size_t end = rest.find(',');
    DitherColor color;
    if (colors.size() == ostvt::kDitherPaletteSize || !ParseColor(rest.substr(0, end), &color)) {
      *error =
          "'" + Printable(arguments.Value("--colors")) + "' is no list of 1 to 16 colors as RRGGBB";
      return false;
    }
    colors.push_back(color);
    rest.erase(0, end + 1);
  }
  ImageDither::SetPalette(record, colors.data(), static_cast<uint32_t>(colors.size()));
  return true;
}

bool ReadOrigin(const Arguments& arguments, ImageDitherRecord* record, std::string* error) {
  if (!arguments.Has("--origin")) return true;
  std::vector<int64_t> numbers;
  if (!ParseNumbers(arguments.Value("--origin"), u',', 2, INT32_MIN, INT32_MAX, &numbers)) {
    *error = "'" + Printable(arguments.Value("--origin")) + "' is no origin X,Y";
    return false;
  }
  record->originX = static_cast<int32_t>(numbers[0]);
  record->originY = static_cast<int32_t>(numbers[1]);
  return true;
}

}  // namespace

std::vector<OptionRule> DitherOptionRules() {
  return {{"--method", true}, {"--mode", true},    {"--colors", true},     {"--size", true},
          {"--screen", true}, {"--kernel", true},  {"--brightness", true}, {"--contrast", true},
          {"--red", true},    {"--green", true},   {"--blue", true},       {"--mirror", false},
          {"--flip", false},  {"--invert", false}, {"--origin", true},     {"--smooth", false},
          {"--json", false}};
}

bool ReadDitherOptions(const Arguments& arguments, ImageDitherRecord* record, std::string* error) {
  ImageDither::Init(record);
  const int flags = (arguments.Has("--mirror") ? ostvt::kDitherMirror : 0) |
                    (arguments.Has("--flip") ? ostvt::kDitherFlip : 0) |
                    (arguments.Has("--invert") ? ostvt::kDitherInvert : 0);
  record->setup.flags = static_cast<uint8_t>(flags);
  return ReadMethod(arguments, record, error) && ReadNumbers(arguments, record, error) &&
         ReadColors(arguments, record, error) && ReadOrigin(arguments, record, error);
}

}  // namespace vtdal
