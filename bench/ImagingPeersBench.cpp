// Dithering and stretching beside what a user could pick instead, in million pixels a second of one
// core: the module's calls, the plain loops of their rules, and others' libraries. A stretch counts
// result pixels. Prints one table a picture; an argument keeps the pictures whose size it names.
#include <malloc.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <map>

#include "bench/DitherWork.h"
#include "bench/peers/Peers.h"
#include "imaging/ImageStretch.h"
#include "tests/imaging/ReferenceStretch.h"
// A benchmark is one program of one file.
#include "tests/imaging/ReferenceDither.cpp"

namespace peers {

Ratio RatioOf(Work work) {
  switch (work) {
    case kStretchDouble:
    case kStretchPaletteDouble:
      return {2, 1};
    case kStretchThreeHalves:
      return {3, 2};
    case kStretchHalf:
    case kStretchPaletteHalf:
      return {1, 2};
    default:
      return {1, 1};
  }
}

namespace {

using namespace ostvt;

constexpr const char* kNames[kWorkCount] = {"1 bit, ordered 8 x 8",
                                            "1 bit, halftone 8 x 8",
                                            "1 bit, screen",
                                            "planes, ordered 8 x 8",
                                            "planes, halftone 8 x 8",
                                            "planes, screen",
                                            "1 bit, Floyd-Steinberg",
                                            "1 bit, Jarvis",
                                            "16 colours, ordered 8 x 8",
                                            "16 colours, screen",
                                            "16 colours, Floyd-Steinberg",
                                            "stretch 24-bit, same size",
                                            "stretch 24-bit, x 2",
                                            "stretch 24-bit, x 1.5",
                                            "stretch 24-bit, / 2",
                                            "stretch 8-bit to 24-bit, x 2",
                                            "stretch 8-bit to 24-bit, / 2"};

Source PaintSource(int width, int height) {
  Source source = {width, height, bench::PaintPicture(width, height), {}, {}};
  // Three bits of red and green, two of blue.
  for (size_t i = 0; i < source.Colors.size(); i += 3) {
    const uint8_t* pixel = source.Colors.data() + i;
    source.Indexes.push_back(
        static_cast<uint8_t>((pixel[2] & 0xE0) | (pixel[1] & 0xE0) >> 3 | pixel[0] >> 6));
  }
  for (int i = 0; i < 256; ++i) {
    source.Palette.push_back(static_cast<uint8_t>((i & 3) * 85));
    source.Palette.push_back(static_cast<uint8_t>((i >> 2 & 7) * 36));
    source.Palette.push_back(static_cast<uint8_t>((i >> 5) * 36));
    source.Palette.push_back(0);
  }
  return source;
}

struct DitherWork {
  Work What;
  uint16_t Method;
  uint32_t Mode;
  uint16_t Kind;
};
constexpr DitherWork kDitherWorks[] = {
    {kOrdered, kDitherOrdered, kDitherGrey, 0},
    {kHalftone, kDitherHalftone, kDitherGrey, 0},
    {kScreen, kDitherScreen, kDitherGrey, 0},
    {kOrderedPlanes, kDitherOrdered, kDitherPlanes, 0},
    {kHalftonePlanes, kDitherHalftone, kDitherPlanes, 0},
    {kScreenPlanes, kDitherScreen, kDitherPlanes, 0},
    {kFloydSteinberg, kDitherDiffusion, kDitherGrey, 0},
    {kJarvis, kDitherDiffusion, kDitherGrey, 1},
    {kPaletteOrdered, kDitherOrdered, kDitherPalette, 0},
    {kPaletteScreen, kDitherScreen, kDitherPalette, 0},
    {kPaletteFloydSteinberg, kDitherDiffusion, kDitherPalette, 0}};

void MeasureDither(const Source& source, Results* results) {
  std::vector<uint8_t> pixels(source.Colors.size());
  for (const DitherWork& work : kDitherWorks) {
    ImageDitherRecord record = {};
    ImageDither::SetImage(&record, pixels.data(), static_cast<uint32_t>(source.Width),
                          static_cast<uint32_t>(source.Height), 0);
    bench::SetUpDither(&record, work.Method, work.Kind, work.Mode, false);
    // It works in place, so that each run begins with the picture anew.
    auto restore = [&] { memcpy(pixels.data(), source.Colors.data(), pixels.size()); };
    results->push_back(
        {work.What, "ours", BestSeconds(restore, [&] { ImageDither::Dither(&record); })});
    results->push_back(
        {work.What, "plain loop", BestSeconds(restore, [&] { reference::Dither(&record); })});
  }
}

void MeasureStretch(const Source& source, Results* results) {
  std::vector<uint8_t> header(40);
  for (int i = kStretchSame; i < kWorkCount; ++i) {
    const auto work = static_cast<Work>(i);
    const bool hasPalette = work >= kStretchPaletteDouble;
    const Ratio ratio = RatioOf(work);
    header[14] = hasPalette ? 8 : 24;
    ImageStretchRecord record = {};
    record.header = header.data();
    record.colorTable = source.Palette.data();
    record.bits = hasPalette ? source.Indexes.data() : source.Colors.data();
    record.sourceWidth = static_cast<int16_t>(source.Width);
    record.sourceHeight = static_cast<int16_t>(source.Height);
    record.sourceRowBytes = static_cast<int16_t>(source.Width * header[14] / 8);
    record.destWidth = static_cast<int16_t>(source.Width * ratio.Numerator / ratio.Denominator);
    record.destHeight = static_cast<int16_t>(source.Height * ratio.Numerator / ratio.Denominator);
    record.destRowBytes = static_cast<int16_t>(record.destWidth * 3);
    std::vector<uint8_t> result(static_cast<size_t>(record.destRowBytes) *
                                static_cast<size_t>(record.destHeight));
    uint8_t* target = result.data();
    results->push_back(
        {work, "ours", BestSeconds([&] { ImageStretch::StretchInto(&record, target); })});
    results->push_back(
        {work, "plain loop", BestSeconds([&] { test::ReferenceStretch(record, target); })});
    std::vector<uint8_t> copy(result.size());
    results->push_back(
        {work, "memcpy", BestSeconds([&] { memcpy(copy.data(), target, copy.size()); })});
  }
}

void PrintTable(const Source& source, const Results& results) {
  constexpr const char* kColumns[] = {"ours",      "plain loop", "Pillow",
                                      "FreeImage", "Leptonica",  "ImageMagick",
                                      "ffmpeg",    "netpbm",     "memcpy"};
  std::map<std::pair<int, std::string>, double> speeds;
  for (const Measured& measured : results) {
    const Ratio ratio = RatioOf(measured.What);
    const double pixels = static_cast<double>(source.Width * ratio.Numerator / ratio.Denominator) *
                          (source.Height * ratio.Numerator / ratio.Denominator);
    speeds[{measured.What, measured.Who}] = pixels * 1e-6 / measured.Seconds;
  }
  std::printf("%d x %d, million pixels a second\n%-30s", source.Width, source.Height, "");
  for (const char* column : kColumns) std::printf("%12s", column);
  std::printf("  beside best peer\n");
  for (int work = 0; work < kWorkCount; ++work) {
    std::printf("%-30s", kNames[work]);
    double best = 0;
    for (const char* column : kColumns) {
      const auto found = speeds.find({work, column});
      if (found == speeds.end()) {
        std::printf("%12s", "-");
        continue;
      }
      std::printf("%12.0f", found->second);
      const std::string who = column;
      const bool isPeer = who != "ours" && who != "plain loop" && who != "memcpy";
      if (isPeer && found->second > best) best = found->second;
    }
    const double ours = speeds[{work, "ours"}];
    best > 0 ? std::printf("%16.1f x\n", ours / best) : std::printf("%18s\n", "-");
  }
  std::printf("\n");
  std::fflush(stdout);
}

void MeasureAll(int width, int height) {
  const Source source = PaintSource(width, height);
  Results results;
  MeasureDither(source, &results);
  MeasureStretch(source, &results);
  MeasureFreeImage(source, &results);
  MeasureLeptonica(source, &results);
  MeasureMagick(source, &results);
  MeasureFfmpeg(source, &results);
  MeasurePrograms(source, &results);
  PrintTable(source, results);
}

}  // namespace
}  // namespace peers

int main(int count, char** arguments) {
  // Most of the others allocate each result. Memory that was used before comes without the cost of
  // new pages, as the module's caller has it.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
  // Options are Google Benchmark's, which bench/run gives to all.
  const std::string wanted = count > 1 && arguments[1][0] != '-' ? arguments[1] : "";
  for (const auto& [width, height] : {std::pair(4096, 4096), std::pair(832, 1216)}) {
    const std::string name = std::to_string(width) + "x" + std::to_string(height);
    if (name.find(wanted) != std::string::npos) peers::MeasureAll(width, height);
  }
  return 0;
}
