// The numbers of rows or files that benchmarks run with.
#pragma once

#include <benchmark/benchmark.h>

// From a thousand to a million, with the growth printed at the end.
inline void upToAMillion(benchmark::internal::Benchmark* bench) {
  bench->Unit(benchmark::kMillisecond)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Complexity(benchmark::oN);
}
