// What error diffusion makes of sixteen pixels: the dots, as they are stored, and the errors.
#pragma once

#include "imaging/DitherBand.h"
#include "imaging/DitherJob.h"
#include "imaging/DitherSearch.h"

namespace ostvt {

// Every class here has
//   kChannels           the channels of a pixel that take part
//   Choose(values, errors, results)
//                       of each channel; an error is the dot minus the value, a result what is
//                       stored for the channel
//   Store()             how the results are stored

template <class Isa>
class GreyDots {
 public:
  static constexpr int kChannels = 1;
  using V = typename Isa::V;

  explicit GreyDots(const DitherJob& job) : IsIndexed(job.IsIndexed) {}
  void Choose(const V* values, V* errors, V* results) const {
    const V on = Isa::Greater16(values[0], Isa::Set16(127));
    errors[0] = Isa::Sub16(Isa::And(on, Isa::Set16(255)), values[0]);
    results[0] = Isa::And(on, Isa::Set16(IsIndexed ? 1 : 255));
  }
  DitherStore Store() const { return IsIndexed ? DitherStore::kFirst : DitherStore::kTriple; }

 private:
  bool IsIndexed;
};

template <class Isa>
class PlaneDots {
 public:
  static constexpr int kChannels = 3;
  using V = typename Isa::V;

  explicit PlaneDots(const DitherJob& job)
      : IsIndexed(job.IsIndexed), AllOff(job.HasBlackPlane() ? 1 : 14) {}
  void Choose(const V* values, V* errors, V* results) const {
    V on[kChannels];
    for (int c = 0; c < kChannels; ++c) {
      on[c] = Isa::Greater16(values[c], Isa::Set16(127));
      results[c] = Isa::And(on[c], Isa::Set16(255));
      errors[c] = Isa::Sub16(results[c], values[c]);
    }
    if (!IsIndexed) return;
    const V sum =
        Isa::Or(Isa::AndNot(on[0], Isa::Set16(8)),
                Isa::Or(Isa::AndNot(on[2], Isa::Set16(4)), Isa::AndNot(on[1], Isa::Set16(2))));
    results[0] = Isa::Blend(Isa::Greater16(sum, Isa::Set16(13)), Isa::Set16(AllOff), sum);
    results[1] = values[1];
    results[2] = values[2];
  }
  DitherStore Store() const { return DitherStore::kChannels; }

 private:
  bool IsIndexed;
  int AllOff;
};

template <class Isa>
class PaletteDots {
 public:
  static constexpr int kChannels = 3;
  using V = typename Isa::V;

  // The palette must have an entry.
  explicit PaletteDots(const DitherJob& job) : IsIndexed(job.IsIndexed), Palette(job.Palette) {}
  void Choose(const V* values, V* errors, V* results) const {
    using Search = DitherSearch<Isa>;
    const V index = Search::IndexOf(Search::FindNearest(Palette, values[0], values[1], values[2]));
    results[0] = Isa::Lookup(Palette.Blue, index);
    results[1] = Isa::Lookup(Palette.Green, index);
    results[2] = Isa::Lookup(Palette.Red, index);
    for (int c = 0; c < kChannels; ++c) errors[c] = Isa::Sub16(results[c], values[c]);
    if (!IsIndexed) return;
    results[0] = index;
    results[1] = values[1];
    results[2] = values[2];
  }
  DitherStore Store() const { return DitherStore::kChannels; }

 private:
  bool IsIndexed;
  const DitherPalette& Palette;
};

// Without a palette a pixel stays but for its index, which is 0.
template <class Isa>
class NoDots {
 public:
  static constexpr int kChannels = 3;
  using V = typename Isa::V;

  explicit NoDots(const DitherJob& job) : IsIndexed(job.IsIndexed) {}
  void Choose(const V* values, V* errors, V* results) const {
    for (int c = 0; c < kChannels; ++c) {
      errors[c] = Isa::Set16(0);
      results[c] = values[c];
    }
    if (IsIndexed) results[0] = Isa::Set16(0);
  }
  DitherStore Store() const { return DitherStore::kChannels; }

 private:
  bool IsIndexed;
};

}  // namespace ostvt
