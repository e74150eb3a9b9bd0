// The scans of up to a million files, and the calls that the deletion of a file takes, on the machine in memory.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/Ranges.h"
#include "console/frmFind.h"
#include "platform/memory/MemoryMachine.h"

namespace {

using platform::memory::MemoryMachine;

constexpr std::int64_t kFilesInFolder = 40;

// Every second file is junk, every fourth has no bytes.
void fill(MemoryMachine& machine, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string folder =
        "C:\\tree\\" + std::to_string(i / kFilesInFolder % 100) + '\\' + std::to_string(i / kFilesInFolder) + '\\';
    machine.addFile(folder + "file" + std::to_string(i) + (i % 2 == 0 ? ".tmp" : ".txt"), i % 4 == 3 ? "" : "bytes");
  }
}

struct Console {
  explicit Console(MemoryMachine& machine) {
    form.load();
    machine.addFolder("C:\\tree");
    static_cast<void>(form.Dir1.setPath("C:\\tree"));
    for (controls::CheckBox& box : form.Check) box.setTicked(true);
  }

  frmFind form;
};

void expectRows(benchmark::State& state, const controls::ListView& list, std::int64_t rows) {
  if (list.rowCount() != static_cast<std::size_t>(rows)) state.SkipWithError("rows are missing");
  state.SetComplexityN(state.range(0));
}

void junkScan(benchmark::State& state) {
  MemoryMachine machine;
  const platform::ScopedMachine use(machine);
  fill(machine, state.range(0));
  Console console(machine);
  for (auto _ : state) console.form.Scan.click();
  expectRows(state, console.form.ListView1, state.range(0) / 2);
}
BENCHMARK(junkScan)->Apply(upToAMillion);

void zeroByteScan(benchmark::State& state) {
  MemoryMachine machine;
  const platform::ScopedMachine use(machine);
  fill(machine, state.range(0));
  Console console(machine);
  for (auto _ : state) {
    console.form.ListView2.clear();
    std::string path = "C:\\tree";
    std::int32_t files = 0;
    std::int32_t folders = 0;
    std::int64_t total = 0;
    console.form.FindZeros(path, "*.*", files, folders, total);
  }
  expectRows(state, console.form.ListView2, state.range(0) / 4);
}
BENCHMARK(zeroByteScan)->Apply(upToAMillion);

// Counts the calls of all operations on files while every row is deleted.
void deletion(benchmark::State& state, bool wipes) {
  constexpr std::int64_t kFiles = 2'000;
  int calls = 0;
  for (auto _ : state) {
    MemoryMachine machine;
    const platform::ScopedMachine use(machine);
    fill(machine, kFiles);
    Console console(machine);
    console.form.Scan.click();
    console.form.Select_All.click();
    (wipes ? console.form.optWipe : console.form.optRecycle).setTicked(true);
    machine.answer(platform::Answer::kYes);
    const auto count = [&machine] {
      int sum = 0;
      for (const char* operation :
           {"anyFileMatches", "closeFile", "closeHandle", "createFile",        "deleteFile",
            "fileOperation",  "fileSize",  "findClose",   "findFirstFile",     "findNextFile",
            "folderExists",   "freeFile",  "getFile",     "getFileAttributes", "getFullPathName",
            "holdFolder",     "moveFile",  "openBinary",  "readFolder",        "remove"}) {
        sum += machine.faults().calls(operation);
      }
      return sum;
    };
    const int before = count();
    console.form.Delete.click();
    calls = count() - before;
    if (!console.form.ListView1.empty()) state.SkipWithError("rows are left");
  }
  state.counters["calls_per_file"] = static_cast<double>(calls) / (kFiles / 2);
}
BENCHMARK_CAPTURE(deletion, shell, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(deletion, wipe, true)->Unit(benchmark::kMillisecond);

}  // namespace
