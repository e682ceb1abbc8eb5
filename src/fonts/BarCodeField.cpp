#include "fonts/BarCodeField.h"

#include "core/Memory.h"

namespace ostvt {
namespace {

// From the body's start on. Every kind of body fills the same room, so a place is inside whichever
// it is.
struct Place {
  bool IsMatrix;
  size_t Offset;
};

Place PlaceOf(BarCodeField field) {
  switch (field) {
    case BarCodeField::kOption1:
      return {false, offsetof(LinearBody, Option1)};
    case BarCodeField::kOption2:
      return {false, offsetof(LinearBody, Option2)};
    case BarCodeField::kSupplement:
      return {false, offsetof(LinearBody, Supplement)};
    case BarCodeField::kHighPriority:
      return {false, offsetof(LinearBody, HighPriority)};
    default:
      return {true, offsetof(MatrixBody, Words) + sizeof(uint16_t) * static_cast<size_t>(field)};
  }
}

}  // namespace

uint16_t GetBarCodeField(const BarCodeFont& font, BarCodeField field) {
  const Place place = PlaceOf(field);
  uint16_t value = 0;
  if (place.IsMatrix == font.IsMatrix()) {
    CopyBytes(&value, reinterpret_cast<const uint8_t*>(&font.Linear) + place.Offset, sizeof value);
  }
  return value;
}

void SetBarCodeField(BarCodeFont* font, BarCodeField field, uint16_t value) {
  const Place place = PlaceOf(field);
  if (place.IsMatrix != font->IsMatrix()) return;
  CopyBytes(reinterpret_cast<uint8_t*>(&font->Linear) + place.Offset, &value, sizeof value);
}

}  // namespace ostvt
