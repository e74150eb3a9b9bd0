// Benchmarks of the Internet cache page on the in-memory machine: listing the entries, and deleting all of them.
#include <benchmark/benchmark.h>

#include "console/frmFind.h"
#include "platform/memory/MemoryMachine.h"

namespace {

using platform::memory::MemoryMachine;

void fill(MemoryMachine& machine, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string name = "page" + std::to_string(i);
    machine.urlCache().add({.url = "http://bench.example/" + name, .localFile = "C:\\Cache\\" + name + "[1].htm"});
  }
}

void listCache(benchmark::State& state) {
  MemoryMachine machine;
  const platform::ScopedMachine use(machine);
  fill(machine, state.range(0));
  frmFind form;
  form.load();
  for (auto _ : state) form.Del_Cache.click();
  if (form.lvCache.rowCount() != static_cast<std::size_t>(state.range(0))) state.SkipWithError("entries are missing");
  state.SetComplexityN(state.range(0));
}
BENCHMARK(listCache)->Unit(benchmark::kMillisecond)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity();

void cleanCache(benchmark::State& state) {
  MemoryMachine machine;
  const platform::ScopedMachine use(machine);
  frmFind form;
  form.load();
  for (auto _ : state) {
    state.PauseTiming();
    fill(machine, state.range(0));
    form.Del_Cache.click();
    form.cmdSelect.click();
    machine.answer(platform::Answer::kYes);
    state.ResumeTiming();
    form.cmdCleanCache.click();
  }
  if (!machine.urlCache().urls().empty()) state.SkipWithError("entries are left");
  state.SetComplexityN(state.range(0));
}
BENCHMARK(cleanCache)->Unit(benchmark::kMillisecond)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity();

}  // namespace
