// Stretching beside the plain loop and a copy of the result, for a large and a usual picture.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "imaging/StretchPicture.h"
#include "tests/imaging/ReferenceStretch.h"

namespace {

using namespace ostvt;

struct Size {
  int Width;
  int Height;
};
constexpr Size kSizes[] = {{4096, 4096}, {832, 1216}};

// A source of noise and its stretch to `numerator` / `denominator` of its size.
struct Work {
  Work(int bitCount, Size size, int numerator, int denominator)
      : Header(40), Colors(1024), Record() {
    const int rowBytes = (size.Width * bitCount + 31) / 32 * 4;
    Bits.resize(static_cast<size_t>(rowBytes) * static_cast<size_t>(size.Height));
    for (uint8_t& byte : Bits) byte = static_cast<uint8_t>(rand());
    for (uint8_t& byte : Colors) byte = static_cast<uint8_t>(rand());
    Header[14] = static_cast<uint8_t>(bitCount);
    Record.header = Header.data();
    Record.colorTable = Colors.data();
    Record.bits = Bits.data();
    Record.sourceWidth = static_cast<int16_t>(size.Width);
    Record.sourceHeight = static_cast<int16_t>(size.Height);
    Record.sourceRowBytes = static_cast<int16_t>(rowBytes);
    Record.destWidth = static_cast<int16_t>(size.Width * numerator / denominator);
    Record.destHeight = static_cast<int16_t>(size.Height * numerator / denominator);
    Record.destRowBytes = static_cast<int16_t>((Record.destWidth * 3 + 3) / 4 * 4);
    Result.resize(static_cast<size_t>(Record.destRowBytes) *
                  static_cast<size_t>(Record.destHeight));
  }

  std::vector<uint8_t> Header;
  std::vector<uint8_t> Colors;
  std::vector<uint8_t> Bits;
  std::vector<uint8_t> Result;
  ImageStretchRecord Record;
};

enum Way { kOurs, kSsse3, kNoShuffle, kReference, kCopy };
constexpr const char* kWays[] = {"ours", "ours, SSSE3", "ours, plain", "reference", "memcpy"};

// Millions of result pixels a second.
void Stretch(benchmark::State& state) {
  const auto bitCount = static_cast<int>(state.range(0));
  const Size size = kSizes[state.range(1)];
  Work work(bitCount, size, static_cast<int>(state.range(2)), static_cast<int>(state.range(3)));
  const auto way = static_cast<Way>(state.range(4));
  std::vector<uint8_t> copied(way == kCopy ? work.Result.size() : 0);
  for (auto _ : state) {
    if (way == kCopy) memcpy(copied.data(), work.Result.data(), copied.size());
    if (way == kOurs) ImageStretch::StretchInto(&work.Record, work.Result.data());
    if (way == kSsse3) StretchPicture(work.Record, work.Result.data(), ShuffleLevel::kSsse3);
    if (way == kNoShuffle) StretchPicture(work.Record, work.Result.data(), ShuffleLevel::kNone);
    if (way == kReference) test::ReferenceStretch(work.Record, work.Result.data());
    benchmark::ClobberMemory();
  }
  state.SetLabel(kWays[way]);
  state.counters["Mpixel/s"] =
      benchmark::Counter(static_cast<double>(work.Record.destWidth) * work.Record.destHeight * 1e-6,
                         benchmark::Counter::kIsIterationInvariantRate);
}

void Cases(benchmark::internal::Benchmark* bench) {
  struct Ratio {
    int Numerator;
    int Denominator;
  };
  bench->ArgNames({"bits", "size", "up", "down", "way"})->Unit(benchmark::kMillisecond);
  for (int64_t bits : {1, 4, 8, 16, 24, 32}) {
    for (int64_t size : {0, 1}) {
      // The rare depths are measured once, and the ways of other processors where they differ most.
      if (size == 0 && (bits < 8 || bits == 16)) continue;
      for (Ratio ratio : {Ratio{1, 1}, Ratio{2, 1}, Ratio{3, 2}, Ratio{1, 2}, Ratio{1, 3}}) {
        for (int64_t way : {kOurs, kSsse3, kNoShuffle, kReference, kCopy}) {
          if (bits != 24 && (way == kSsse3 || way == kNoShuffle)) continue;
          bench->Args({bits, size, ratio.Numerator, ratio.Denominator, way});
        }
      }
    }
  }
}

}  // namespace

BENCHMARK(Stretch)->Apply(Cases);
