// The region below is compiled for processors with AVX2. What it shares with the rest is included
// before it, so that no function that is used elsewhere is compiled for them. It goes on to the end
// of the file, where templates are compiled.
#include <immintrin.h>

#include <cstring>

#include "imaging/DitherJob.h"
#include "imaging/DitherLevels.h"
#include "imaging/DitherShuffles.h"

#ifdef __clang__
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC target("avx2")
#endif

#include "imaging/DitherAvx2.h"
#include "imaging/DitherRun.h"

namespace ostvt {

void RunDitherAvx2(const DitherJob& job) { RunDither<DitherAvx2>(job); }

}  // namespace ostvt

#ifdef __clang__
#pragma clang attribute pop
#endif
