// How an error spreads: to the pixels behind it in its row, and to those of the next rows.
#pragma once

#include <cstring>

#include "imaging/DitherPicture.h"

namespace ostvt {

// Sixteen rows advance together, a lane each, every row three columns behind the one above it: far
// enough that whatever a pixel takes from above is there before its turn. In a lane's step it takes
// its shares one by one, in the order in which they would come row by row and left to right, and is
// limited to a byte after each, as the result depends on both.
//
// One channel's shares of the last steps. Blocks are of sixteen steps.
inline constexpr int kDitherLag = 3;
inline constexpr int kDitherSteps = 16;

template <class Isa>
class DitherShares {
 public:
  using V = typename Isa::V;

  // A share of an error is weight / divisor of its magnitude, truncated, with its sign.
  // `kFactor` is weight * 65536 / divisor, rounded up: exact for every error, 255 at most.
  template <int kFactor>
  static V Share(V error, V magnitude) {
    return Isa::WithSign16(Isa::MulHigh16(magnitude, Isa::Set16(kFactor)), error);
  }
  static V Take(V value, V share) {
    return Isa::Min16(Isa::Max16(Isa::Sub16(value, share), Isa::Set16(0)), Isa::Set16(255));
  }
};

// The last `kHistory` steps' vectors before those of the block at hand.
template <class Isa, int kHistory>
class DitherHistory {
 public:
  using V = typename Isa::V;

  // Of `ago` steps before `step`.
  V Get(int step, int ago) const { return Isa::Load(Words[step + kHistory - ago]); }
  void Put(int step, V value) { Isa::Store(Words[step + kHistory], value); }
  void EndBlock() { memcpy(Words, Words[kDitherSteps], kHistory * sizeof(Words[0])); }

 private:
  static_assert(kHistory <= kDitherSteps);
  int16_t Words[kHistory + kDitherSteps][16] = {};
};

// Floyd-Steinberg, sixteenths: 7 behind; 3, 5, 1 below.
template <class Isa>
class FloydSteinbergSpread {
 public:
  static constexpr int kRowsBelow = 1;
  using V = typename Isa::V;

  FloydSteinbergSpread() : Behind7(Isa::Set16(0)) {}

  // `value` after all that it takes from other pixels.
  V Take(int step, V value) const {
    value = Shares::Take(value, Below1.Get(step, kDitherLag + 1));
    value = Shares::Take(value, Below5.Get(step, kDitherLag));
    value = Shares::Take(value, Below3.Get(step, kDitherLag - 1));
    return Shares::Take(value, Behind7);
  }
  void Give(int step, V error) {
    Behind7 = Shares::template Share<7 * kUnit>(error, Isa::Abs16(error));
    const V below = Isa::template LanesUp<1>(error);
    const V magnitude = Isa::Abs16(below);
    Below1.Put(step, Shares::template Share<1 * kUnit>(below, magnitude));
    Below5.Put(step, Shares::template Share<5 * kUnit>(below, magnitude));
    Below3.Put(step, Shares::template Share<3 * kUnit>(below, magnitude));
  }
  void EndBlock() {
    Below1.EndBlock();
    Below5.EndBlock();
    Below3.EndBlock();
  }

 private:
  using Shares = DitherShares<Isa>;
  using History = DitherHistory<Isa, kDitherLag + 1>;
  static constexpr int kUnit = 65536 / 16;

  V Behind7;
  History Below1;
  History Below5;
  History Below3;
};

// Jarvis, forty-eighths: 7, 5 behind; 3, 5, 7, 5, 3 below; 1, 3, 5, 3, 1 below that.
template <class Isa>
class JarvisSpread {
 public:
  static constexpr int kRowsBelow = 2;
  using V = typename Isa::V;

  JarvisSpread() : Behind7(Isa::Set16(0)), Behind5(Behind7), NextBehind5(Behind7) {}

  V Take(int step, V value) const {
    constexpr int kLag2 = 2 * kDitherLag;
    value = Shares::Take(value, Far1.Get(step, kLag2 + 2));
    value = Shares::Take(value, Far3.Get(step, kLag2 + 1));
    value = Shares::Take(value, Far5.Get(step, kLag2));
    value = Shares::Take(value, Far3.Get(step, kLag2 - 1));
    value = Shares::Take(value, Far1.Get(step, kLag2 - 2));
    value = Shares::Take(value, Below3.Get(step, kDitherLag + 2));
    value = Shares::Take(value, Below5.Get(step, kDitherLag + 1));
    value = Shares::Take(value, Below7.Get(step, kDitherLag));
    value = Shares::Take(value, Below5.Get(step, kDitherLag - 1));
    value = Shares::Take(value, Below3.Get(step, kDitherLag - 2));
    value = Shares::Take(value, Behind5);
    return Shares::Take(value, Behind7);
  }
  void Give(int step, V error) {
    const V magnitude = Isa::Abs16(error);
    Behind5 = NextBehind5;
    NextBehind5 = Shares::template Share<5 * kUnit>(error, magnitude);
    Behind7 = Shares::template Share<7 * kUnit>(error, magnitude);
    const V below = Isa::template LanesUp<1>(error);
    const V belowMagnitude = Isa::Abs16(below);
    Below3.Put(step, Shares::template Share<3 * kUnit>(below, belowMagnitude));
    Below5.Put(step, Shares::template Share<5 * kUnit>(below, belowMagnitude));
    Below7.Put(step, Shares::template Share<7 * kUnit>(below, belowMagnitude));
    const V far = Isa::template LanesUp<2>(error);
    const V farMagnitude = Isa::Abs16(far);
    Far1.Put(step, Shares::template Share<1 * kUnit>(far, farMagnitude));
    Far3.Put(step, Shares::template Share<3 * kUnit>(far, farMagnitude));
    Far5.Put(step, Shares::template Share<5 * kUnit>(far, farMagnitude));
  }
  void EndBlock() {
    Below3.EndBlock();
    Below5.EndBlock();
    Below7.EndBlock();
    Far1.EndBlock();
    Far3.EndBlock();
    Far5.EndBlock();
  }

 private:
  using Shares = DitherShares<Isa>;
  using BelowHistory = DitherHistory<Isa, kDitherLag + 2>;
  using FarHistory = DitherHistory<Isa, 2 * kDitherLag + 2>;
  static constexpr int kUnit = 65536 / 48 + 1;

  V Behind7;
  V Behind5;      // of two steps before
  V NextBehind5;  // of the step before
  BelowHistory Below3;
  BelowHistory Below5;
  BelowHistory Below7;
  FarHistory Far1;
  FarHistory Far3;
  FarHistory Far5;
};

// An unknown kind: the error goes nowhere.
template <class Isa>
class NoSpread {
 public:
  static constexpr int kRowsBelow = 0;
  using V = typename Isa::V;
  V Take(int, V value) const { return value; }
  void Give(int, V) {}
  void EndBlock() {}
};

}  // namespace ostvt
