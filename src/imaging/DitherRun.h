// The whole of a job on one kind of processor.
#pragma once

#include "imaging/DitherDiffusion.h"
#include "imaging/DitherPoints.h"

namespace ostvt {

template <class Isa>
void RunDither(const DitherJob& job) {
  switch (job.Setup.method) {
    case kDitherNone:
    case kDitherOrdered:
    case kDitherHalftone:
    case kDitherScreen:
      return DitherPoints<Isa>::Run(job);
    case kDitherDiffusion:
    case kDitherDiffusion + 1:
      return DitherDiffusion<Isa>::Run(job);
    default:
      return DitherPoints<Isa>::RunNone(job);
  }
}

}  // namespace ostvt
