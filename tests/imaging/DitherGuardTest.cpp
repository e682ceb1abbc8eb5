// Pictures that end where memory ends, or begin where it begins: nothing beyond them is read or
// written, by either version.
#include "tests/imaging/RandomDither.h"
#include "tests/support/GuardedBlock.h"

namespace ostvt::test {
namespace {

void DitherGuarded(DitherRunner run, uint32_t seed, Guard guard) {
  RandomDither random(seed);
  for (int i = 0; i < 1200; ++i) {
    ImageDitherRecord record = random.Record(i % 20 == 0 ? 600 : 70, 40);
    Bytes pixels(size_t{record.width} * record.height * 3);
    random.Paint(&pixels);
    const GuardedBlock block(pixels, guard);
    record.pixels = block.Data();
    if (i % 4 == 0) {
      DitherSmoothWith(run, &record);
    } else {
      DitherWith(run, &record);
    }
    if (testing::Test::HasFailure()) {
      ADD_FAILURE() << Describe(record);
      return;
    }
  }
}

TEST(DitherGuard, NothingBehindThePixelsIsTouched) {
  uint32_t seed = 11;
  for (const DitherVersion& version : DitherVersions())
    DitherGuarded(version.Run, seed++, Guard::kBehind);
}

TEST(DitherGuard, NothingInFrontOfThePixelsIsTouched) {
  uint32_t seed = 31;
  for (const DitherVersion& version : DitherVersions())
    DitherGuarded(version.Run, seed++, Guard::kInFront);
}

}  // namespace
}  // namespace ostvt::test
