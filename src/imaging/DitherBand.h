// Sixteen rows of a picture as sixteen lanes, block by block, without a byte read or written beyond
// the picture.
#pragma once

#include <cstring>

#include "imaging/DitherPicture.h"
#include "imaging/DitherSpread.h"
#include "imaging/DitherTranspose.h"

namespace ostvt {

inline constexpr int kDitherLanes = 16;

// What a lane's pixels become.
enum class DitherStore {
  kChannels,  // three bytes from three
  kTriple,    // three bytes from one
  kFirst,     // byte 0 only
};

// Lane k is row FirstRow + k and, in step t, column t - k * kDitherLag.
template <class Isa>
struct DitherBand {
  const DitherPicture& Picture;
  int32_t FirstRow;
  int32_t Rows;    // that are dithered
  int32_t Stored;  // these and those below that take error; 16 at most

  // One channel of a block: a vector of lanes for every step.
  using Columns = uint8_t[kDitherSteps][kDitherLanes];

  // Steps from `step` on. Lanes that are outside the picture there hold anything.
  template <int kChannels>
  void Load(int32_t step, Columns* channels) const {
    uint8_t rows[kChannels][kDitherLanes][kDitherSteps];
    for (int lane = 0; lane < kDitherLanes; ++lane) {
      uint8_t block[kBlockBytes];
      const uint8_t* pixels = Find(step, lane, block, true);
      if (!pixels) {
        for (auto& row : rows) memset(row[lane], 0, kDitherSteps);
      } else if constexpr (kChannels == 1) {
        Isa::GetFirsts(pixels, rows[0][lane]);
      } else {
        Isa::Split(pixels, rows[0][lane], rows[1][lane], rows[2][lane]);
      }
    }
    for (int c = 0; c < kChannels; ++c) DitherTranspose<Isa>::Run(rows[c], channels[c]);
  }

  // `dots` for the rows that are dithered, `others` for those below.
  template <int kChannels>
  void Store(int32_t step, const Columns* channels, DitherStore dots, DitherStore others) const {
    uint8_t rows[kChannels][kDitherLanes][kDitherSteps];
    for (int c = 0; c < kChannels; ++c) DitherTranspose<Isa>::Run(channels[c], rows[c]);
    for (int lane = 0; lane < kDitherLanes; ++lane) {
      uint8_t block[kBlockBytes];
      const DitherStore store = lane < Rows ? dots : others;
      uint8_t* pixels = Find(step, lane, block, store == DitherStore::kFirst);
      if (!pixels) continue;
      if (store == DitherStore::kTriple) {
        Isa::PutTriples(pixels, rows[0][lane]);
      } else if (store == DitherStore::kFirst) {
        Isa::PutFirsts(pixels, rows[0][lane]);
      } else if constexpr (kChannels == 3) {
        Isa::Join(pixels, rows[0][lane], rows[1][lane], rows[2][lane]);
      }
      if (pixels == block) CopyBack(step, lane, block);
    }
  }

 private:
  static constexpr size_t kBlockBytes = kDitherSteps * kPixelBytes;

  // The part of a block that lies inside a row.
  struct Part {
    int32_t First;
    int32_t End;
  };
  Part PartOf(int32_t column) const {
    const int32_t rest = Picture.Width - column;
    return {column < 0 ? -column : 0, rest < kDitherSteps ? rest : kDitherSteps};
  }
  uint8_t* At(int lane, int32_t column) const {
    return Picture.Row(FirstRow + lane) + static_cast<ptrdiff_t>(column) * 3;
  }

  // Where a lane's sixteen pixels are: in the picture, or where they lie across its edge in
  // `block`, which then has what is inside if `filled`. Null if all are outside.
  uint8_t* Find(int32_t step, int lane, uint8_t* block, bool filled) const {
    const int32_t column = step - lane * kDitherLag;
    if (lane >= Stored || column <= -kDitherSteps || column >= Picture.Width) return nullptr;
    if (column >= 0 && column + kDitherSteps <= Picture.Width) return At(lane, column);
    if (filled) {
      const Part part = PartOf(column);
      memset(block, 0, kBlockBytes);
      memcpy(block + part.First * 3, At(lane, column + part.First),
             static_cast<size_t>(part.End - part.First) * kPixelBytes);
    }
    return block;
  }
  void CopyBack(int32_t step, int lane, const uint8_t* block) const {
    const int32_t column = step - lane * kDitherLag;
    const Part part = PartOf(column);
    memcpy(At(lane, column + part.First), block + part.First * 3,
           static_cast<size_t>(part.End - part.First) * kPixelBytes);
  }
};

}  // namespace ostvt
