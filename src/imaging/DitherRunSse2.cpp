#include "imaging/DitherRun.h"
#include "imaging/DitherSse2.h"

namespace ostvt {

void RunDitherSse2(const DitherJob& job) { RunDither<DitherSse2>(job); }

}  // namespace ostvt
