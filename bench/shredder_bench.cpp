// Benchmarks of the shredder: its keystream, and whole files on the in-memory machine.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "platform/memory/MemoryMachine.h"
#include "shredder/modMain.h"

namespace {

constexpr std::int64_t kBlock = 1 << 14;
constexpr std::int64_t kMiB = 1 << 20;

void Keystream(benchmark::State& state) {
  SeedKeystream("benchmark");
  for (auto _ : state) benchmark::DoNotOptimize(RandomBytes(static_cast<std::int32_t>(state.range(0)) - 1));
  state.SetBytesProcessed(state.iterations() * state.range(0));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(Keystream)->Arg(kBlock)->Arg(kMiB)->Arg(16 * kMiB)->Arg(256 * kMiB)->Complexity(benchmark::oN);

// The throughput counts each byte of the file once, although it is written 84 times.
void ShredWholeFile(benchmark::State& state) {
  platform::memory::MemoryMachine machine;
  const platform::ScopedMachine use(machine);
  machine.disk().forgetWrites();
  for (auto _ : state) {
    state.PauseTiming();
    machine.addSizedFile("C:\\file.bin", static_cast<std::uint64_t>(state.range(0)));
    state.ResumeTiming();
    ShredFile("C:\\file.bin", SHRED_ROUNDS, [](std::int16_t) {});
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ShredWholeFile)
    ->Arg(kMiB)
    ->Arg(16 * kMiB)
    ->Arg(256 * kMiB)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace
