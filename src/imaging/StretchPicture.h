// The stretch itself, with the processor's abilities as an argument so that each way can be tested.
#pragma once

#include "imaging/ImageStretch.h"
#include "imaging/StretchShuffle.h"

namespace ostvt {

// As ImageStretch::StretchInto. `level` must not be beyond what this processor has.
void StretchPicture(const ImageStretchRecord& record, uint8_t* destination, ShuffleLevel level);

}  // namespace ostvt
