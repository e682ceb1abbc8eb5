#include "imaging/StretchShuffle.h"

#include <immintrin.h>

#include <algorithm>
#include <cstring>

#include "imaging/Processor.h"

namespace ostvt {
namespace {

constexpr int32_t kBlock = 16;
constexpr uint8_t kNothing = 0x80;  // a shuffle's index that gives 0

// What a kernel needs; second windows follow `Count` first ones.
struct Plan {
  const int32_t* Offsets;
  const uint8_t* Masks;
  int32_t Count;
  int32_t RowBytes;
};

const __m128i* At128(const uint8_t* bytes) { return reinterpret_cast<const __m128i*>(bytes); }

template <bool kTwoWindows>
__attribute__((target("ssse3"))) __m128i ShuffledBlock(const Plan& plan, int32_t i,
                                                       const uint8_t* source) {
  __m128i bytes = _mm_shuffle_epi8(_mm_loadu_si128(At128(source + plan.Offsets[i])),
                                   _mm_loadu_si128(At128(plan.Masks + i * kBlock)));
  if (kTwoWindows) {
    i += plan.Count;
    bytes = _mm_or_si128(bytes, _mm_shuffle_epi8(_mm_loadu_si128(At128(source + plan.Offsets[i])),
                                                 _mm_loadu_si128(At128(plan.Masks + i * kBlock))));
  }
  return bytes;
}

// The blocks from `i` on. The last one ends with the row, so it may cover a part of the one before.
template <bool kTwoWindows>
__attribute__((target("ssse3"))) void RunSsse3(const Plan& plan, int32_t i, const uint8_t* source,
                                               uint8_t* target) {
  for (; i < plan.Count - 1; ++i) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + i * kBlock),
                     ShuffledBlock<kTwoWindows>(plan, i, source));
  }
  _mm_storeu_si128(reinterpret_cast<__m128i*>(target + plan.RowBytes - kBlock),
                   ShuffledBlock<kTwoWindows>(plan, i, source));
}

// Two blocks at once, the second in the upper half.
__attribute__((target("avx2"))) inline __m256i ShuffledPair(const Plan& plan, int32_t i,
                                                            const uint8_t* source) {
  const __m128i low = _mm_loadu_si128(At128(source + plan.Offsets[i]));
  const __m128i high = _mm_loadu_si128(At128(source + plan.Offsets[i + 1]));
  const auto* masks = reinterpret_cast<const __m256i*>(plan.Masks + i * kBlock);
  return _mm256_shuffle_epi8(_mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1),
                             _mm256_loadu_si256(masks));
}

template <bool kTwoWindows>
__attribute__((target("avx2"))) void RunAvx2(const Plan& plan, const uint8_t* source,
                                             uint8_t* target) {
  int32_t i = 0;
  for (; i < plan.Count - 2; i += 2) {
    __m256i bytes = ShuffledPair(plan, i, source);
    if (kTwoWindows) bytes = _mm256_or_si256(bytes, ShuffledPair(plan, i + plan.Count, source));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i * kBlock), bytes);
  }
  RunSsse3<kTwoWindows>(plan, i, source, target);
}

// The first source byte that the result's bytes from `byte` on need. A pixel that is shown twice
// begins anew behind its last byte.
int32_t FirstNeeded(const int32_t* offsets, int32_t count, int32_t byte) {
  const int32_t pixel = byte / 3;
  const bool isRepeated = pixel + 1 < count && offsets[pixel + 1] == offsets[pixel];
  return isRepeated ? offsets[pixel] : offsets[pixel] + byte % 3;
}

}  // namespace

ShuffleLevel DetectShuffleLevel() {
  if (HasAvx2()) return ShuffleLevel::kAvx2;
  return HasSsse3() ? ShuffleLevel::kSsse3 : ShuffleLevel::kNone;
}

bool StretchShuffle::Build(const int32_t* offsets, int32_t count, ShuffleLevel level) {
  Level = level;
  RowBytes = count * 3;
  if (level == ShuffleLevel::kNone || RowBytes < kBlock) return false;
  // No window goes beyond the last sampled byte, since the source may end there.
  const int32_t lastWindow = offsets[count - 1] + 3 - kBlock;
  if (lastWindow < offsets[0]) return false;

  const int32_t blocks = (RowBytes + kBlock - 1) / kBlock;
  Offsets.Resize(static_cast<uint32_t>(blocks) * 2 * sizeof(int32_t));
  Masks.Resize(static_cast<uint32_t>(blocks) * 2 * kBlock);
  memset(Masks.Data, kNothing, Masks.Size);
  auto* starts = reinterpret_cast<int32_t*>(Offsets.Data);
  UsesTwoWindows = false;
  for (int32_t i = 0; i < blocks; ++i) {
    const int32_t first = std::min(i * kBlock, RowBytes - kBlock);
    int32_t window = i;
    starts[i] = starts[blocks + i] = std::min(FirstNeeded(offsets, count, first), lastWindow);
    for (int32_t j = 0; j < kBlock; ++j) {
      const int32_t at = offsets[(first + j) / 3] + (first + j) % 3;
      if (at - starts[window] >= kBlock) {
        if (window != i) return false;
        UsesTwoWindows = true;
        window += blocks;
        starts[window] = std::min(FirstNeeded(offsets, count, first + j), lastWindow);
      }
      Masks.Data[window * kBlock + j] = static_cast<uint8_t>(at - starts[window]);
    }
  }
  return true;
}

void StretchShuffle::Run(const uint8_t* source, uint8_t* target) const {
  const Plan plan = {reinterpret_cast<const int32_t*>(Offsets.Data), Masks.Data,
                     (RowBytes + kBlock - 1) / kBlock, RowBytes};
  if (Level == ShuffleLevel::kAvx2) {
    UsesTwoWindows ? RunAvx2<true>(plan, source, target) : RunAvx2<false>(plan, source, target);
  } else {
    UsesTwoWindows ? RunSsse3<true>(plan, 0, source, target)
                   : RunSsse3<false>(plan, 0, source, target);
  }
}

}  // namespace ostvt
