// All sections of all sample definitions, parsed from their text, beside GLib's GKeyFile on the
// same texts. Both figures are bytes of text a second.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "model/DefinitionText.h"
#include "model/StringMap.h"

namespace ostvt {
namespace {

struct Sample {
  std::string Text;
  std::vector<OString> Sections;
};

// One line of a text for each call.
template <typename Use>
void ForEachLine(const std::string& text, Use use) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) use(line);
}

std::vector<Sample> LoadSamples() {
  const std::filesystem::path here = __FILE__;
  std::vector<Sample> samples;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(
           here.parent_path().parent_path() / "data" / "definitions")) {
    if (entry.path().extension() != ".d") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    Sample sample;
    sample.Text.assign(std::istreambuf_iterator<char>(file), {});
    std::set<std::string> sections;
    ForEachLine(sample.Text, [&sections](const std::string& line) {
      if (line.size() > 2 && line[0] == '[') sections.insert(line.substr(1, line.find(']') - 1));
    });
    for (const std::string& section : sections) sample.Sections.push_back(section.c_str());
    samples.push_back(std::move(sample));
  }
  return samples;
}

int64_t Bytes(const std::vector<Sample>& samples) {
  int64_t bytes = 0;
  for (const Sample& sample : samples) bytes += static_cast<int64_t>(sample.Text.size());
  return bytes;
}

void ParseDefinitions(benchmark::State& state) {
  const std::vector<Sample> samples = LoadSamples();
  if (samples.empty()) state.SkipWithError("no sample definitions");
  for (auto _ : state) {
    for (const Sample& sample : samples) {
      DefinitionText text(sample.Text.data(), static_cast<uint32_t>(sample.Text.size()));
      for (const OString& section : sample.Sections) {
        StringMap map;
        text.ReadSection(section, &map);
        benchmark::DoNotOptimize(map.Values.Count);
      }
    }
  }
  state.SetBytesProcessed(state.iterations() * Bytes(samples));
}
BENCHMARK(ParseDefinitions);

// Comments begin with "#" there.
void ParseKeyFiles(benchmark::State& state) {
  std::vector<Sample> samples = LoadSamples();
  if (samples.empty()) state.SkipWithError("no sample definitions");
  for (Sample& sample : samples) {
    std::string text;
    ForEachLine(sample.Text, [&text](std::string line) {
      if (!line.empty() && line[0] == '!') line[0] = '#';
      text += line + "\n";
    });
    sample.Text = text;
  }
  for (auto _ : state) {
    for (const Sample& sample : samples) {
      GKeyFile* file = g_key_file_new();
      if (!g_key_file_load_from_data(file, sample.Text.data(), sample.Text.size(), G_KEY_FILE_NONE,
                                     nullptr)) {
        state.SkipWithError("GKeyFile refused a sample");
      }
      g_key_file_free(file);
    }
  }
  state.SetBytesProcessed(state.iterations() * Bytes(samples));
}
BENCHMARK(ParseKeyFiles);

}  // namespace
}  // namespace ostvt
