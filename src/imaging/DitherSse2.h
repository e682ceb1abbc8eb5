// Sixteen 16-bit lanes and rows of pixels on any processor that this module runs on. The lanes act
// as those of DitherAvx2: two halves, and what interleaves does so inside each.
#pragma once

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

#include "imaging/DitherAdjustment.h"

namespace ostvt {

struct DitherSse2 {
  struct V {
    __m128i Low;
    __m128i High;
  };

  static V Load(const int16_t* words) { return {Load128(words), Load128(words + 8)}; }
  static void Store(int16_t* words, V a) {
    Store128(words, a.Low);
    Store128(words + 8, a.High);
  }
  // Sixteen bytes, one a lane.
  static V LoadBytes(const uint8_t* bytes) {
    const __m128i all = Load128(bytes);
    const __m128i zero = _mm_setzero_si128();
    return {_mm_unpacklo_epi8(all, zero), _mm_unpackhi_epi8(all, zero)};
  }
  // Lanes outside a byte take the nearest one.
  static void StoreBytes(uint8_t* bytes, V a) { Store128(bytes, _mm_packus_epi16(a.Low, a.High)); }
  static V Set16(int value) { return Both(_mm_set1_epi16(static_cast<int16_t>(value))); }
  static V Set32(int value) { return Both(_mm_set1_epi32(value)); }

  static V Add16(V a, V b) { return {_mm_add_epi16(a.Low, b.Low), _mm_add_epi16(a.High, b.High)}; }
  static V Sub16(V a, V b) { return {_mm_sub_epi16(a.Low, b.Low), _mm_sub_epi16(a.High, b.High)}; }
  static V MulLow16(V a, V b) {
    return {_mm_mullo_epi16(a.Low, b.Low), _mm_mullo_epi16(a.High, b.High)};
  }
  // The upper half of an unsigned product.
  static V MulHigh16(V a, V b) {
    return {_mm_mulhi_epu16(a.Low, b.Low), _mm_mulhi_epu16(a.High, b.High)};
  }
  static V Min16(V a, V b) { return {_mm_min_epi16(a.Low, b.Low), _mm_min_epi16(a.High, b.High)}; }
  static V Max16(V a, V b) { return {_mm_max_epi16(a.Low, b.Low), _mm_max_epi16(a.High, b.High)}; }
  static V Greater16(V a, V b) {
    return {_mm_cmpgt_epi16(a.Low, b.Low), _mm_cmpgt_epi16(a.High, b.High)};
  }
  static V Abs16(V a) { return Max16(a, Sub16(Set16(0), a)); }
  // `magnitude` with the sign of `a`; anything where `a` is 0 and so is the magnitude.
  static V WithSign16(V magnitude, V a) {
    const V sign = {_mm_srai_epi16(a.Low, 15), _mm_srai_epi16(a.High, 15)};
    return Sub16(Xor(magnitude, sign), sign);
  }
  template <int kBits>
  static V ShiftRight16(V a) {
    return {_mm_srli_epi16(a.Low, kBits), _mm_srli_epi16(a.High, kBits)};
  }
  template <int kBits>
  static V ShiftLeft16(V a) {
    return {_mm_slli_epi16(a.Low, kBits), _mm_slli_epi16(a.High, kBits)};
  }

  static V And(V a, V b) { return {_mm_and_si128(a.Low, b.Low), _mm_and_si128(a.High, b.High)}; }
  static V AndNot(V a, V b) {
    return {_mm_andnot_si128(a.Low, b.Low), _mm_andnot_si128(a.High, b.High)};
  }
  static V Or(V a, V b) { return {_mm_or_si128(a.Low, b.Low), _mm_or_si128(a.High, b.High)}; }
  static V Xor(V a, V b) { return {_mm_xor_si128(a.Low, b.Low), _mm_xor_si128(a.High, b.High)}; }
  static V Blend(V mask, V yes, V no) { return Or(And(mask, yes), AndNot(mask, no)); }

  static V UnpackLow16(V a, V b) {
    return {_mm_unpacklo_epi16(a.Low, b.Low), _mm_unpacklo_epi16(a.High, b.High)};
  }
  static V UnpackHigh16(V a, V b) {
    return {_mm_unpackhi_epi16(a.Low, b.Low), _mm_unpackhi_epi16(a.High, b.High)};
  }
  // Undoes the two.
  static V Pack32(V low, V high) {
    return {_mm_packs_epi32(low.Low, high.Low), _mm_packs_epi32(low.High, high.High)};
  }
  static V Add32(V a, V b) { return {_mm_add_epi32(a.Low, b.Low), _mm_add_epi32(a.High, b.High)}; }
  static V Mul32(V a, V b) { return {Mul32(a.Low, b.Low), Mul32(a.High, b.High)}; }
  static V Greater32(V a, V b) {
    return {_mm_cmpgt_epi32(a.Low, b.Low), _mm_cmpgt_epi32(a.High, b.High)};
  }
  static V Min32(V a, V b) { return Blend(Greater32(a, b), b, a); }
  static V Max32(V a, V b) { return Blend(Greater32(a, b), a, b); }
  template <int kBits>
  static V ShiftRight32(V a) {
    return {_mm_srli_epi32(a.Low, kBits), _mm_srli_epi32(a.High, kBits)};
  }

  // Every lane takes the one `kLanes`, 1 or 2, below it; the lowest become 0.
  template <int kLanes>
  static V LanesUp(V a) {
    return {
        _mm_slli_si128(a.Low, 2 * kLanes),
        _mm_or_si128(_mm_slli_si128(a.High, 2 * kLanes), _mm_srli_si128(a.Low, 16 - 2 * kLanes))};
  }
  // table[a] for lanes from 0 to 15.
  static V Lookup(const uint8_t* table, V a) {
    int16_t lanes[16];
    Store(lanes, a);
    for (int16_t& lane : lanes) lane = table[lane];
    return Load(lanes);
  }

  // Channels of sixteen pixels.
  static void Split(const uint8_t* pixels, uint8_t* blues, uint8_t* greens, uint8_t* reds) {
    for (int i = 0; i < 16; ++i, pixels += 3) {
      blues[i] = pixels[0];
      greens[i] = pixels[1];
      reds[i] = pixels[2];
    }
  }
  static void Join(uint8_t* pixels, const uint8_t* blues, const uint8_t* greens,
                   const uint8_t* reds) {
    for (int i = 0; i < 16; ++i, pixels += 3) {
      pixels[0] = blues[i];
      pixels[1] = greens[i];
      pixels[2] = reds[i];
    }
  }
  static void GetFirsts(const uint8_t* pixels, uint8_t* firsts) {
    for (int i = 0; i < 16; ++i) firsts[i] = pixels[3 * i];
  }
  static void PutFirsts(uint8_t* pixels, const uint8_t* firsts) {
    for (int i = 0; i < 16; ++i) pixels[3 * i] = firsts[i];
  }
  static void PutTriples(uint8_t* pixels, const uint8_t* values) {
    for (int i = 0; i < 16; ++i, pixels += 3) pixels[0] = pixels[1] = pixels[2] = values[i];
  }

  // Rows of `count` pixels, whole groups.
  static void Greys(const DitherAdjustment& adjustment, const uint8_t* pixels, uint8_t* greys,
                    int32_t count) {
    adjustment.Greys(pixels, greys, count);
  }
  static void Colors(const DitherAdjustment& adjustment, uint8_t* pixels, int32_t count) {
    adjustment.Colors(pixels, count);
  }
  // `always` may be null; so too below.
  template <bool kIndexed>
  static void GreyDots(uint8_t* pixels, const uint8_t* greys, const uint8_t* levels,
                       const uint8_t* always, int32_t count) {
    for (int32_t i = 0; i < count; ++i, pixels += 3) {
      const int value = always ? greys[i] | always[i] : greys[i];
      if (kIndexed) {
        pixels[0] = value > levels[i];
        pixels[1] = pixels[2] = greys[i];
      } else {
        pixels[0] = pixels[1] = pixels[2] = value > levels[i] ? 255 : 0;
      }
    }
  }
  // Indexed dots have 8, 4 and 2 for blue, red and green off, and `allOff` for all three.
  template <bool kIndexed>
  static void PlaneDots(uint8_t* pixels, const uint8_t* levels, const uint8_t* always,
                        int32_t count, uint8_t allOff) {
    for (int32_t i = 0; i < count; i += 16, pixels += 48) {
      uint8_t on[48];
      uint8_t sums[16];
      Exceed(pixels, levels + i, always ? always + i : nullptr, on);
      if (!kIndexed) {
        memcpy(pixels, on, sizeof(on));
        continue;
      }
      for (int x = 0; x < 16; ++x) {
        const int sum = (~on[3 * x] & 8) | (~on[3 * x + 2] & 4) | (~on[3 * x + 1] & 2);
        sums[x] = sum == 14 ? allOff : static_cast<uint8_t>(sum);
      }
      PutFirsts(pixels, sums);
    }
  }

 private:
  static V Both(__m128i a) { return {a, a}; }
  static __m128i Load128(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
  }
  static void Store128(void* to, __m128i a) { _mm_storeu_si128(static_cast<__m128i*>(to), a); }
  // 255 for each of sixteen pixels' bytes that is above the pixel's level.
  static void Exceed(const uint8_t* pixels, const uint8_t* levels, const uint8_t* always,
                     uint8_t* on) {
    uint8_t triples[48];
    uint8_t or255[48] = {};
    PutTriples(triples, levels);
    if (always) PutTriples(or255, always);
    for (int v = 0; v < 48; v += 16) {
      const __m128i value = _mm_or_si128(Load128(pixels + v), Load128(or255 + v));
      const __m128i over = _mm_subs_epu8(value, Load128(triples + v));
      const __m128i off = _mm_cmpeq_epi8(over, _mm_setzero_si128());
      Store128(on + v, _mm_xor_si128(off, _mm_set1_epi8(-1)));
    }
  }
  static __m128i Mul32(__m128i a, __m128i b) {
    const __m128i even = _mm_mul_epu32(a, b);
    const __m128i odd = _mm_mul_epu32(_mm_srli_si128(a, 4), _mm_srli_si128(b, 4));
    return _mm_unpacklo_epi32(_mm_shuffle_epi32(even, 0x08), _mm_shuffle_epi32(odd, 0x08));
  }
};

}  // namespace ostvt
