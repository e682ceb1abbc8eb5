// One call's work, made ready, and the versions of it for different processors.
#pragma once

#include "imaging/DitherAdjustment.h"
#include "imaging/DitherPalette.h"
#include "imaging/DitherPattern.h"
#include "imaging/DitherPicture.h"

namespace ostvt {

struct DitherJob {
  explicit DitherJob(const ImageDitherRecord& record)
      : Picture(record),
        Adjustment(record),
        Palette(record),
        Pattern(record),
        Setup(record.setup),
        ColorMode(record.colorMode),
        IsIndexed(record.indexedOutput != 0) {}

  bool Mirrors() const { return (Setup.flags & kDitherMirror) != 0; }
  bool Flips() const { return (Setup.flags & kDitherFlip) != 0; }
  bool HasBlackPlane() const {
    return ColorMode == kDitherPlanesWithBlack || ColorMode == kDitherPlanesWithBlack + 1;
  }

  DitherPicture Picture;
  DitherAdjustment Adjustment;
  DitherPalette Palette;
  DitherPattern Pattern;
  DitherSetup Setup;
  uint32_t ColorMode;
  bool IsIndexed;
};

// All of them change the same pixels into the same dots.
using DitherRunner = void (*)(const DitherJob& job);
// For every processor that this module runs on.
void RunDitherSse2(const DitherJob& job);
// Only where HasAvx2().
void RunDitherAvx2(const DitherJob& job);

// The best one for this processor.
DitherRunner ChooseDitherRunner();

// ImageDither's calls with a version of one's choice.
void DitherWith(DitherRunner run, ImageDitherRecord* record);
void DitherSmoothWith(DitherRunner run, ImageDitherRecord* record);

}  // namespace ostvt
