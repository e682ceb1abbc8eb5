#include "imaging/ImageStretch.h"

#include "imaging/StretchPicture.h"

namespace ostvt {

uint8_t* ImageStretch::Stretch(const ImageStretchRecord* record) {
  if (!record) return nullptr;
  StretchInto(record, record->destination);
  return record->destination;
}

void ImageStretch::StretchInto(const ImageStretchRecord* record, uint8_t* destination) {
  if (record) StretchPicture(*record, destination, DetectShuffleLevel());
}

}  // namespace ostvt
