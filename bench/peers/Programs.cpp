// Peers that are no libraries: Pillow times itself in its own process; netpbm's programs are timed
// whole, from a picture file to nowhere.
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>

#include "bench/peers/Peers.h"
#include "tests/support/TempDirectory.h"

namespace peers {
namespace {

// What the programs that have ended took of the processor.
double ChildSeconds() {
  rusage usage = {};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = usage.ru_utime.tv_sec + usage.ru_stime.tv_sec;
  const auto microseconds = usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
  return static_cast<double>(seconds) + static_cast<double>(microseconds) * 1e-6;
}

std::string Text(const std::vector<uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

std::string NetpbmPicture(const Source& source) {
  std::string file =
      "P5\n" + std::to_string(source.Width) + " " + std::to_string(source.Height) + "\n255\n";
  for (size_t i = 0; i < source.Colors.size(); i += 3) {
    file += static_cast<char>(source.Colors[i + 1]);
  }
  return file;
}

std::string SixteenColorsInHex() {
  std::string text;
  for (const auto& color : kSixteenColors) {
    char part[8];
    std::snprintf(part, sizeof part, "%02x%02x%02x", color[0], color[1], color[2]);
    text += part;
  }
  return text;
}

void MeasurePillow(const Source& source, const ostvt::test::TempDirectory& directory,
                   Results* results) {
  // It keeps that many of its blocks of 16 MB for the next picture.
  std::string command = "PILLOW_BLOCKS_MAX=64 /usr/bin/python3 " PILLOW_SCRIPT " " +
                        std::to_string(source.Width) + " " + std::to_string(source.Height);
  command += " " + directory.Put("colors", Text(source.Colors));
  command += " " + directory.Put("indexes", Text(source.Indexes));
  command += " " + directory.Put("palette", Text(source.Palette));
  FILE* output = popen((command + " " + SixteenColorsInHex()).c_str(), "r");
  int work = 0;
  double seconds = 0;
  while (output && std::fscanf(output, "%d %lf", &work, &seconds) == 2) {
    results->push_back({static_cast<Work>(work), "Pillow", seconds});
  }
  if (!output || pclose(output) != 0) std::fprintf(stderr, "Pillow did not run\n");
}

}  // namespace

void MeasurePrograms(const Source& source, Results* results) {
  ostvt::test::TempDirectory directory;
  MeasurePillow(source, directory, results);
  const std::string file = directory.Put("picture.pgm", NetpbmPicture(source));
  const struct {
    Work What;
    const char* Method;
  } works[] = {{kOrdered, "-dither8"}, {kHalftone, "-cluster4"}, {kFloydSteinberg, "-floyd"}};
  for (const auto& work : works) {
    const std::string command =
        std::string("pamditherbw ") + work.Method + " " + file + " >/dev/null 2>&1";
    bool isRun = true;
    const double seconds =
        BestSeconds([] {}, [&] { isRun = isRun && system(command.c_str()) == 0; }, ChildSeconds);
    if (isRun) results->push_back({work.What, "netpbm", seconds});
  }
}

}  // namespace peers
