// The nearest palette entries of sixteen pixels at once.
//
// A distance, 20 bits, and the entry's index are one number, distance * 256 + index: the smallest
// of these is the nearest entry, and the lowest one of those that are equally near.
#pragma once

#include "imaging/DitherPalette.h"

namespace ostvt {

template <class Isa>
class DitherSearch {
 public:
  using V = typename Isa::V;

  // Lanes 0 to 7 and 8 to 15, in the order that Isa::Pack32 undoes.
  struct Keys {
    V Low;
    V High;
  };

  static Keys None() { return {Isa::Set32(INT32_MAX), Isa::Set32(INT32_MAX)}; }
  static V IndexOf(const Keys& keys) {
    const V byte = Isa::Set32(255);
    return Isa::Pack32(Isa::And(keys.Low, byte), Isa::And(keys.High, byte));
  }

  // There must be an entry.
  static Keys FindNearest(const DitherPalette& palette, V blue, V green, V red) {
    Keys nearest = None();
    for (int32_t i = 0; i < palette.EntryCount; ++i) {
      const Keys key = KeysOf(palette.Entries[i], blue, green, red);
      nearest = {Isa::Min32(nearest.Low, key.Low), Isa::Min32(nearest.High, key.High)};
    }
    return nearest;
  }

  // There must be two.
  static void FindTwo(const DitherPalette& palette, V blue, V green, V red, Keys* first,
                      Keys* second) {
    Keys nearest = None();
    Keys next = None();
    for (int32_t i = 0; i < palette.EntryCount; ++i) {
      const Keys key = KeysOf(palette.Entries[i], blue, green, red);
      next = {Isa::Min32(next.Low, Isa::Max32(nearest.Low, key.Low)),
              Isa::Min32(next.High, Isa::Max32(nearest.High, key.High))};
      nearest = {Isa::Min32(nearest.Low, key.Low), Isa::Min32(nearest.High, key.High)};
    }
    *first = nearest;
    *second = next;
  }

  // The first where (first + second) * level < second * scale, else the second. The products wrap
  // in 32 bits and are compared as signed numbers.
  static V Choose(const Keys& first, const Keys& second, V level, int32_t scale) {
    const V sign = Isa::Greater16(Isa::Set16(0), level);
    const V factor = Isa::Set32(scale);
    return IndexOf({Choose32(first.Low, second.Low, Isa::UnpackLow16(level, sign), factor),
                    Choose32(first.High, second.High, Isa::UnpackHigh16(level, sign), factor)});
  }

 private:
  // All in 16 bits, sixteen pixels a step, but for the sums: a product's two halves are worked out
  // apart, so that `& 0xFF00` there is the same as >> 8 << 8 of the whole.
  static Keys KeysOf(const DitherPalette::Entry& entry, V blue, V green, V red) {
    const V mean512 = Isa::template ShiftRight16<1>(Isa::Add16(red, Isa::Load(entry.RedPlus1024)));
    const V mean767 = Isa::Sub16(Isa::Set16(512 + 767), mean512);  // 767 - mean
    const V r = Square(Isa::Sub16(red, Isa::Load(entry.Red)));
    const V g = Square(Isa::Sub16(green, Isa::Load(entry.Green)));
    const V b = Square(Isa::Sub16(blue, Isa::Load(entry.Blue)));
    const V whole = Isa::Set16(0xFF00);
    const V redLow = Isa::And(Isa::MulLow16(mean512, r), whole);
    const V redHigh = Isa::MulHigh16(mean512, r);
    const V blueLow = Isa::And(Isa::MulLow16(mean767, b), whole);
    const V blueHigh = Isa::MulHigh16(mean767, b);
    const V greenLow = Isa::Or(Isa::template ShiftLeft16<10>(g), Isa::Load(entry.Index));
    const V greenHigh = Isa::template ShiftRight16<6>(g);
    return {Isa::Add32(
                Isa::Add32(Isa::UnpackLow16(redLow, redHigh), Isa::UnpackLow16(blueLow, blueHigh)),
                Isa::UnpackLow16(greenLow, greenHigh)),
            Isa::Add32(Isa::Add32(Isa::UnpackHigh16(redLow, redHigh),
                                  Isa::UnpackHigh16(blueLow, blueHigh)),
                       Isa::UnpackHigh16(greenLow, greenHigh))};
  }
  static V Square(V a) { return Isa::MulLow16(a, a); }

  static V Choose32(V first, V second, V level, V scale) {
    const V near = Isa::template ShiftRight32<8>(first);
    const V far = Isa::template ShiftRight32<8>(second);
    const V takesFirst =
        Isa::Greater32(Isa::Mul32(far, scale), Isa::Mul32(Isa::Add32(near, far), level));
    return Isa::Blend(takesFirst, first, second);
  }
};

}  // namespace ostvt
