// Sixteen 16-bit lanes and rows of pixels with AVX2. Include it inside the region that is compiled
// for such processors. Memory is never taken to be aligned: not every compiler keeps its own stack
// so.
#pragma once

#include <immintrin.h>

#include <cstdint>

#include "imaging/DitherAdjustment.h"
#include "imaging/DitherShuffles.h"

namespace ostvt {

struct DitherAvx2 {
  using V = __m256i;

  static V Load(const int16_t* words) { return Load256(words); }
  static void Store(int16_t* words, V a) { Store256(words, a); }
  static V LoadBytes(const uint8_t* bytes) { return _mm256_cvtepu8_epi16(Load128(bytes)); }
  static void StoreBytes(uint8_t* bytes, V a) {
    Store128(bytes, _mm_packus_epi16(_mm256_castsi256_si128(a), _mm256_extracti128_si256(a, 1)));
  }
  static V Set16(int value) { return _mm256_set1_epi16(static_cast<int16_t>(value)); }
  static V Set32(int value) { return _mm256_set1_epi32(value); }

  static V Add16(V a, V b) { return _mm256_add_epi16(a, b); }
  static V Sub16(V a, V b) { return _mm256_sub_epi16(a, b); }
  static V MulLow16(V a, V b) { return _mm256_mullo_epi16(a, b); }
  static V MulHigh16(V a, V b) { return _mm256_mulhi_epu16(a, b); }
  static V Min16(V a, V b) { return _mm256_min_epi16(a, b); }
  static V Max16(V a, V b) { return _mm256_max_epi16(a, b); }
  static V Greater16(V a, V b) { return _mm256_cmpgt_epi16(a, b); }
  static V Abs16(V a) { return _mm256_abs_epi16(a); }
  static V WithSign16(V magnitude, V a) { return _mm256_sign_epi16(magnitude, a); }
  template <int kBits>
  static V ShiftRight16(V a) {
    return _mm256_srli_epi16(a, kBits);
  }
  template <int kBits>
  static V ShiftLeft16(V a) {
    return _mm256_slli_epi16(a, kBits);
  }

  static V And(V a, V b) { return _mm256_and_si256(a, b); }
  static V AndNot(V a, V b) { return _mm256_andnot_si256(a, b); }
  static V Or(V a, V b) { return _mm256_or_si256(a, b); }
  static V Blend(V mask, V yes, V no) { return _mm256_blendv_epi8(no, yes, mask); }

  static V UnpackLow16(V a, V b) { return _mm256_unpacklo_epi16(a, b); }
  static V UnpackHigh16(V a, V b) { return _mm256_unpackhi_epi16(a, b); }
  static V Pack32(V low, V high) { return _mm256_packs_epi32(low, high); }
  static V Add32(V a, V b) { return _mm256_add_epi32(a, b); }
  static V Mul32(V a, V b) { return _mm256_mullo_epi32(a, b); }
  static V Greater32(V a, V b) { return _mm256_cmpgt_epi32(a, b); }
  static V Min32(V a, V b) { return _mm256_min_epi32(a, b); }
  static V Max32(V a, V b) { return _mm256_max_epi32(a, b); }
  template <int kBits>
  static V ShiftRight32(V a) {
    return _mm256_srli_epi32(a, kBits);
  }

  template <int kLanes>
  static V LanesUp(V a) {
    const V below = _mm256_permute2x128_si256(a, a, 0x08);  // zero, low half
    return _mm256_alignr_epi8(a, below, 16 - 2 * kLanes);
  }
  static V Lookup(const uint8_t* table, V a) {
    // The upper byte of a lane, 128, gives 0.
    return _mm256_shuffle_epi8(Both(table), Or(a, Set16(0x8000)));
  }

  static void Split(const uint8_t* pixels, uint8_t* blues, uint8_t* greens, uint8_t* reds) {
    const Triple128 bytes = LoadPixels(pixels);
    Store128(blues, Gather<0>(bytes));
    Store128(greens, Gather<1>(bytes));
    Store128(reds, Gather<2>(bytes));
  }
  static void Join(uint8_t* pixels, const uint8_t* blues, const uint8_t* greens,
                   const uint8_t* reds) {
    const Triple128 channels = {Scatter<0>(blues), Scatter<1>(greens), Scatter<2>(reds)};
    Store128(pixels, ByChannel<0>(channels));
    Store128(pixels + 16, ByChannel<1>(channels));
    Store128(pixels + 32, ByChannel<2>(channels));
  }
  static void GetFirsts(const uint8_t* pixels, uint8_t* firsts) {
    Store128(firsts, Gather<0>(LoadPixels(pixels)));
  }
  static void PutFirsts(uint8_t* pixels, const uint8_t* firsts) {
    const __m128i values = Scatter<0>(firsts);
    for (int v = 0; v < 3; ++v) {
      const __m128i old = Load128(pixels + 16 * v);
      Store128(pixels + 16 * v, _mm_blendv_epi8(old, values, Load128(kDitherShuffles.Mask[v][0])));
    }
  }
  static void PutTriples(uint8_t* pixels, const uint8_t* values) {
    const __m128i all = Load128(values);
    for (int v = 0; v < 3; ++v) {
      Store128(pixels + 16 * v, _mm_shuffle_epi8(all, Load128(kDitherShuffles.Triple[v])));
    }
  }

  static void Greys(const DitherAdjustment& adjustment, const uint8_t* pixels, uint8_t* greys,
                    int32_t count) {
    if (!adjustment.IsLinear) {
      adjustment.Greys(pixels, greys, count);
    } else if (adjustment.Percent == 100) {
      PlainGreys(adjustment, pixels, greys, count);
    } else {
      ContrastGreys(adjustment, pixels, greys, count);
    }
  }
  static void Colors(const DitherAdjustment& adjustment, uint8_t* pixels, int32_t count) {
    if (adjustment.IsIdentity) return;
    if (!adjustment.IsLinear) {
      adjustment.Colors(pixels, count);
    } else if (adjustment.Percent == 100) {
      PlainColors(adjustment, pixels, count);
    } else {
      ContrastColors(adjustment, pixels, count);
    }
  }

  template <bool kIndexed>
  static void GreyDots(uint8_t* pixels, const uint8_t* greys, const uint8_t* levels,
                       const uint8_t* always, int32_t count) {
    for (int32_t i = 0; i < count; i += 32, pixels += 96) {
      const V grey = Load256(greys + i);
      const V on = Exceeds(always ? Or(grey, Load256(always + i)) : grey, Load256(levels + i));
      if (kIndexed) {
        const V index = And(on, _mm256_set1_epi8(1));
        StorePixels(pixels,
                    {FirstOf<0>(index, grey), FirstOf<1>(index, grey), FirstOf<2>(index, grey)});
      } else {
        StorePixels(pixels, {Triples<0>(on), Triples<1>(on), Triples<2>(on)});
      }
    }
  }
  template <bool kIndexed>
  static void PlaneDots(uint8_t* pixels, const uint8_t* levels, const uint8_t* always,
                        int32_t count, uint8_t allOff) {
    for (int32_t i = 0; i < count; i += 32, pixels += 96) {
      const V level = Load256(levels + i);
      const V or255 = always ? Load256(always + i) : _mm256_setzero_si256();
      const Triple256 old = LoadPixels32(pixels);
      const Triple256 on = {Exceeds(Or(old.A, Triples<0>(or255)), Triples<0>(level)),
                            Exceeds(Or(old.B, Triples<1>(or255)), Triples<1>(level)),
                            Exceeds(Or(old.C, Triples<2>(or255)), Triples<2>(level))};
      if (!kIndexed) {
        StorePixels(pixels, on);
        continue;
      }
      const V sum = Or(AndNot(Gather32<0>(on), _mm256_set1_epi8(8)),
                       Or(AndNot(Gather32<2>(on), _mm256_set1_epi8(4)),
                          AndNot(Gather32<1>(on), _mm256_set1_epi8(2))));
      const V index = Blend(_mm256_cmpeq_epi8(sum, _mm256_set1_epi8(14)),
                            _mm256_set1_epi8(static_cast<char>(allOff)), sum);
      StorePixels(pixels, {Blend(Both(kDitherShuffles.Mask[0][0]), Triples<0>(index), old.A),
                           Blend(Both(kDitherShuffles.Mask[1][0]), Triples<1>(index), old.B),
                           Blend(Both(kDitherShuffles.Mask[2][0]), Triples<2>(index), old.C)});
    }
  }

 private:
  // 48 bytes of sixteen pixels.
  struct Triple128 {
    __m128i A;
    __m128i B;
    __m128i C;
  };
  // Those of thirty-two, the second sixteen in the upper halves.
  struct Triple256 {
    V A;
    V B;
    V C;
  };

  static __m128i Load128(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
  }
  static void Store128(void* to, __m128i a) { _mm_storeu_si128(static_cast<__m128i*>(to), a); }
  static V Load256(const void* from) {
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
  }
  static void Store256(void* to, V a) { _mm256_storeu_si256(static_cast<__m256i*>(to), a); }
  static V Both(const uint8_t* table) { return _mm256_broadcastsi128_si256(Load128(table)); }
  static V Halves(const uint8_t* low, const uint8_t* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(Load128(low)), Load128(high), 1);
  }

  static Triple128 LoadPixels(const uint8_t* pixels) {
    return {Load128(pixels), Load128(pixels + 16), Load128(pixels + 32)};
  }
  // Of three vectors, each byte from the one whose mask has it.
  template <int kChannel>
  static __m128i Gather(const Triple128& bytes) {
    const __m128i two =
        _mm_blendv_epi8(bytes.A, bytes.B, Load128(kDitherShuffles.Mask[1][kChannel]));
    const __m128i all = _mm_blendv_epi8(two, bytes.C, Load128(kDitherShuffles.Mask[2][kChannel]));
    return _mm_shuffle_epi8(all, Load128(kDitherShuffles.Gather[kChannel]));
  }
  template <int kChannel>
  static __m128i Scatter(const uint8_t* values) {
    return _mm_shuffle_epi8(Load128(values), Load128(kDitherShuffles.Scatter[kChannel]));
  }
  template <int kVector>
  static __m128i ByChannel(const Triple128& channels) {
    const __m128i two =
        _mm_blendv_epi8(channels.A, channels.B, Load128(kDitherShuffles.Mask[kVector][1]));
    return _mm_blendv_epi8(two, channels.C, Load128(kDitherShuffles.Mask[kVector][2]));
  }

  static Triple256 LoadPixels32(const uint8_t* pixels) {
    return {Halves(pixels, pixels + 48), Halves(pixels + 16, pixels + 64),
            Halves(pixels + 32, pixels + 80)};
  }
  static void StorePixels(uint8_t* pixels, const Triple256& a) {
    Store256(pixels, _mm256_permute2x128_si256(a.A, a.B, 0x20));
    Store256(pixels + 32, _mm256_blend_epi32(a.C, a.A, 0xF0));
    Store256(pixels + 64, _mm256_permute2x128_si256(a.B, a.C, 0x31));
  }
  template <int kChannel>
  static V Gather32(const Triple256& bytes) {
    const V two = Blend(Both(kDitherShuffles.Mask[1][kChannel]), bytes.B, bytes.A);
    const V all = Blend(Both(kDitherShuffles.Mask[2][kChannel]), bytes.C, two);
    return _mm256_shuffle_epi8(all, Both(kDitherShuffles.Gather[kChannel]));
  }
  template <int kVector>
  static V Triples(V values) {
    return _mm256_shuffle_epi8(values, Both(kDitherShuffles.Triple[kVector]));
  }
  template <int kVector>
  static V FirstOf(V first, V others) {
    return Blend(Both(kDitherShuffles.Mask[kVector][0]), Triples<kVector>(first),
                 Triples<kVector>(others));
  }
  // 255 where the unsigned byte `a` is above `b`.
  static V Exceeds(V a, V b) {
    const V atMost = _mm256_cmpeq_epi8(_mm256_subs_epu8(a, b), _mm256_setzero_si256());
    return _mm256_xor_si256(atMost, _mm256_set1_epi8(-1));
  }

  // A twentieth of sums below 2 to the 15, those below 0 giving 0: 52429 is 2 to the 20 over 20.
  static V Twentieth(V sum) {
    return ShiftRight16<4>(MulHigh16(Max16(sum, Set16(0)), Set16(52429)));
  }

  static void PlainGreys(const DitherAdjustment& adjustment, const uint8_t* pixels, uint8_t* greys,
                         int32_t count) {
    const auto& weights = DitherAdjustment::kGreyWeights;
    int32_t constant = 0;
    for (int i = 0; i < 3; ++i) {
      constant += weights[i] * (adjustment.Offsets[i] + (adjustment.Inverts ? 256 : 0));
    }
    const int sign = adjustment.Inverts ? -1 : 1;
    const V offset = Set16(constant);
    const V blueGreen = Set16((sign * weights[0] & 255) | sign * weights[1] * 256);
    const V red = Set16(sign * weights[2] & 255);
    const V zero = _mm256_setzero_si256();
    for (int32_t i = 0; i < count; i += 32, pixels += 96) {
      const Triple256 bytes = LoadPixels32(pixels);
      const V b = Gather32<0>(bytes);
      const V g = Gather32<1>(bytes);
      const V r = Gather32<2>(bytes);
      const V low = Add16(_mm256_maddubs_epi16(_mm256_unpacklo_epi8(b, g), blueGreen),
                          _mm256_maddubs_epi16(_mm256_unpacklo_epi8(r, zero), red));
      const V high = Add16(_mm256_maddubs_epi16(_mm256_unpackhi_epi8(b, g), blueGreen),
                           _mm256_maddubs_epi16(_mm256_unpackhi_epi8(r, zero), red));
      Store256(greys + i,
               _mm256_packus_epi16(Twentieth(Add16(low, offset)), Twentieth(Add16(high, offset))));
    }
  }

  // One channel: distance from the middle times percent over 100, rounded, then back.
  struct Contrast {
    Contrast(const DitherAdjustment& adjustment)
        : Percent(Set16(adjustment.Percent)), Inverse(adjustment.Inverts ? Set16(-1) : Set16(0)) {}
    // `offset`: to the middle; one more if inverted, since the inverse is the complement plus 1.
    V operator()(V value, V offset) const {
      const V distance = Add16(_mm256_xor_si256(value, Inverse), offset);
      const V scaled = Add16(MulLow16(Abs16(distance), Percent), Set16(50));
      // 5243 is 2 to the 17 over 25.
      const V rounded = ShiftRight16<1>(MulHigh16(ShiftRight16<2>(scaled), Set16(5243)));
      return Add16(WithSign16(rounded, distance), Set16(128));
    }
    V Percent;
    V Inverse;
  };
  static int ContrastOffset(const DitherAdjustment& adjustment, int channel) {
    return adjustment.Offsets[channel] - 128 + (adjustment.Inverts ? 257 : 0);
  }

  static void ContrastGreys(const DitherAdjustment& adjustment, const uint8_t* pixels,
                            uint8_t* greys, int32_t count) {
    const auto& weights = DitherAdjustment::kGreyWeights;
    const Contrast contrast(adjustment);
    const V zero = _mm256_setzero_si256();
    V offsets[3];
    for (int i = 0; i < 3; ++i) offsets[i] = Set16(ContrastOffset(adjustment, i));
    for (int32_t i = 0; i < count; i += 32, pixels += 96) {
      const Triple256 bytes = LoadPixels32(pixels);
      const V channels[3] = {Gather32<0>(bytes), Gather32<1>(bytes), Gather32<2>(bytes)};
      V low = zero;
      V high = zero;
      for (int c = 0; c < 3; ++c) {
        const V weight = Set16(weights[c]);
        const V a = contrast(_mm256_unpacklo_epi8(channels[c], zero), offsets[c]);
        const V b = contrast(_mm256_unpackhi_epi8(channels[c], zero), offsets[c]);
        low = Add16(low, MulLow16(a, weight));
        high = Add16(high, MulLow16(b, weight));
      }
      Store256(greys + i, _mm256_packus_epi16(Twentieth(low), Twentieth(high)));
    }
  }

  static void PlainColors(const DitherAdjustment& adjustment, uint8_t* pixels, int32_t count) {
    uint8_t more[48];
    uint8_t less[48];
    for (int i = 0; i < 48; ++i) {
      const int amount = adjustment.Offsets[i % 3] + (adjustment.Inverts ? 1 : 0);
      more[i] = static_cast<uint8_t>(amount < 0 ? 0 : amount > 255 ? 255 : amount);
      less[i] = static_cast<uint8_t>(amount > 0 ? 0 : amount < -255 ? 255 : -amount);
    }
    const __m128i inverse = adjustment.Inverts ? _mm_set1_epi8(-1) : _mm_setzero_si128();
    for (const uint8_t* end = pixels + count * 3; pixels != end; pixels += 48) {
      for (int v = 0; v < 48; v += 16) {
        const __m128i value = _mm_xor_si128(Load128(pixels + v), inverse);
        Store128(pixels + v,
                 _mm_subs_epu8(_mm_adds_epu8(value, Load128(more + v)), Load128(less + v)));
      }
    }
  }
  static void ContrastColors(const DitherAdjustment& adjustment, uint8_t* pixels, int32_t count) {
    int16_t words[48];
    for (int i = 0; i < 48; ++i) {
      words[i] = static_cast<int16_t>(ContrastOffset(adjustment, i % 3));
    }
    const V offsets[3] = {Load(words), Load(words + 16), Load(words + 32)};
    const Contrast contrast(adjustment);
    for (const uint8_t* end = pixels + count * 3; pixels != end; pixels += 48) {
      for (int v = 0; v < 3; ++v) {
        StoreBytes(pixels + 16 * v, contrast(LoadBytes(pixels + 16 * v), offsets[v]));
      }
    }
  }
};

}  // namespace ostvt
