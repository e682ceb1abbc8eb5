// Sixteen rows of sixteen bytes become sixteen columns.
#pragma once

#include <emmintrin.h>

#include <cstdint>

namespace ostvt {

// A template so that it is compiled anew for each kind of processor.
template <class Isa>
class DitherTranspose {
 public:
  static void Run(const uint8_t (*rows)[16], uint8_t (*columns)[16]) {
    __m128i a[16];
    __m128i b[16];
    for (int i = 0; i < 16; ++i) {
      a[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(rows[i]));
    }
    // Each step puts a row beside the one eight further down; four of them have moved every byte's
    // row number into its place, and its column number into the row.
    Interleave(a, b);
    Interleave(b, a);
    Interleave(a, b);
    Interleave(b, a);
    for (int i = 0; i < 16; ++i) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(columns[i]), a[i]);
    }
  }

 private:
  static void Interleave(const __m128i* from, __m128i* to) {
    for (int i = 0; i < 8; ++i) {
      to[2 * i] = _mm_unpacklo_epi8(from[i], from[i + 8]);
      to[2 * i + 1] = _mm_unpackhi_epi8(from[i], from[i + 8]);
    }
  }
};

}  // namespace ostvt
