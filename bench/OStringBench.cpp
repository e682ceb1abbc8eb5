// Copying, appending and comparing text, beside std::string and a shared one.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "core/OString.h"

namespace {

using ostvt::OString;

constexpr const char* kText = "Settings:Fonts/Utility::";  // 24 characters
constexpr const char* kOther = "Settings:Fonts/Utility:.";

void CopyOString(benchmark::State& state) {
  OString text(kText);
  for (auto _ : state) {
    OString copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(CopyOString);

void CopyStdString(benchmark::State& state) {
  std::string text(kText);
  for (auto _ : state) {
    std::string copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(CopyStdString);

void CopySharedString(benchmark::State& state) {
  auto text = std::make_shared<std::string>(kText);
  for (auto _ : state) {
    std::shared_ptr<std::string> copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(CopySharedString);

// A key's path out of four pieces, as the store makes them.
void AppendOString(benchmark::State& state) {
  OString piece("Utility/");
  for (auto _ : state) {
    OString path("Settings:");
    for (int i = 0; i < 4; ++i) path += piece;
    benchmark::DoNotOptimize(path);
  }
}
BENCHMARK(AppendOString);

void AppendStdString(benchmark::State& state) {
  std::string piece("Utility/");
  for (auto _ : state) {
    std::string path("Settings:");
    for (int i = 0; i < 4; ++i) path += piece;
    benchmark::DoNotOptimize(path);
  }
}
BENCHMARK(AppendStdString);

void AppendSharedString(benchmark::State& state) {
  std::string piece("Utility/");
  for (auto _ : state) {
    auto path = std::make_shared<std::string>("Settings:");
    for (int i = 0; i < 4; ++i) *path += piece;
    benchmark::DoNotOptimize(path);
  }
}
BENCHMARK(AppendSharedString);

void AppendCharactersOString(benchmark::State& state) {
  for (auto _ : state) {
    OString text;
    for (const char* c = kText; *c; ++c) text += *c;
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(AppendCharactersOString);

void AppendCharactersStdString(benchmark::State& state) {
  for (auto _ : state) {
    std::string text;
    for (const char* c = kText; *c; ++c) text += *c;
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(AppendCharactersStdString);

// Texts that differ in the last character.
void CompareOString(benchmark::State& state) {
  OString a(kText);
  OString b(kOther);
  for (auto _ : state) benchmark::DoNotOptimize(a.Compare(b));
}
BENCHMARK(CompareOString);

void CompareWideOString(benchmark::State& state) {
  OString a(u"Settings:Fonts/Utility::");
  OString b(u"Settings:Fonts/Utility:.");
  for (auto _ : state) benchmark::DoNotOptimize(a.Compare(b));
}
BENCHMARK(CompareWideOString);

void CompareStdString(benchmark::State& state) {
  std::string a(kText);
  std::string b(kOther);
  for (auto _ : state) benchmark::DoNotOptimize(a.compare(b));
}
BENCHMARK(CompareStdString);

void CompareSharedString(benchmark::State& state) {
  auto a = std::make_shared<std::string>(kText);
  auto b = std::make_shared<std::string>(kOther);
  for (auto _ : state) benchmark::DoNotOptimize(a->compare(*b));
}
BENCHMARK(CompareSharedString);

}  // namespace
