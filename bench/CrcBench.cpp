// CRC32 beside the library's own function, for a key, a device mode and a member.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <string>

#include "core/Crc.h"

namespace {

std::string Bytes(const benchmark::State& state) {
  std::string bytes(static_cast<size_t>(state.range(0)), '\0');
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 131);
  return bytes;
}

void Crc32(benchmark::State& state) {
  const std::string bytes = Bytes(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ostvt::CRC32(bytes.data(), static_cast<uint32_t>(bytes.size()), 0));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void Crc32OfZlib(benchmark::State& state) {
  const std::string bytes = Bytes(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void Crc16(benchmark::State& state) {
  const std::string bytes = Bytes(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ostvt::CRC16(bytes.data(), static_cast<uint32_t>(bytes.size()), 0xFFFF));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(Crc32)->Arg(16)->Arg(1516)->Arg(65536);
BENCHMARK(Crc32OfZlib)->Arg(16)->Arg(1516)->Arg(65536);
BENCHMARK(Crc16)->Arg(16)->Arg(1516);
