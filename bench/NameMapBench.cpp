// A look-up among 100 definition keys, beside the standard hash map with the same keys.
#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "model/NameMap.h"

namespace ostvt {
namespace {

constexpr int kKeys = 100;

std::string KeyText(int i) {
  constexpr const char* kHeads[] = {"Stock.Minimum.X", "Text.Rotation", "BarCode.Anchor.Relative",
                                    "Color"};
  return kHeads[i % 4] + ("." + std::to_string(i));
}

void FindInNameMap(benchmark::State& state) {
  NameMap map;
  std::vector<OString> keys;
  for (int i = 0; i < kKeys; ++i) {
    const OString key = KeyText(i).c_str();
    map.Set(key, &map);
    keys.push_back(KeyText(i).c_str());  // a body of its own, as a caller's key has
  }
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(map.Find(keys[i]));
    i = i + 1 < keys.size() ? i + 1 : 0;
  }
}
BENCHMARK(FindInNameMap);

void FindInUnorderedMap(benchmark::State& state) {
  std::unordered_map<std::string, void*> map;
  std::vector<std::string> keys;
  for (int i = 0; i < kKeys; ++i) {
    map[KeyText(i)] = &map;
    keys.push_back(KeyText(i));
  }
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(map.find(keys[i]));
    i = i + 1 < keys.size() ? i + 1 : 0;
  }
}
BENCHMARK(FindInUnorderedMap);

}  // namespace
}  // namespace ostvt
