// A list's commands on up to a million rows.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

#include "bench/Ranges.h"
#include "console/frmFind.h"
#include "platform/memory/MemoryMachine.h"

namespace {

struct ListForm : controls::Form {
  ListForm() : controls::Form("ListForm", "Bench") {}
  controls::Box layout() override { return {}; }
  controls::ListView list{*this, "list", {}, {{"File"}, {"Size"}}};
};

void fill(controls::ListView& list, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    list.add("C:\\Documents and Settings\\User\\Folder\\file" + std::to_string(i) + ".tmp", {"12 Kb"});
  }
}

void addRowsWithKeys(benchmark::State& state) {
  ListForm form;
  form.list.indexBy([](std::string_view text) { return std::string(text); });
  for (auto _ : state) {
    form.list.clear();
    fill(form.list, state.range(0));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(addRowsWithKeys)->Apply(upToAMillion);

// What a row takes on the heap beyond the characters of its texts.
void memoryOfRows(benchmark::State& state) {
  constexpr std::int64_t kRows = 1'000'000;
  double perRow = 0;
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks;
    ListForm form;
    form.list.indexBy([](std::string_view text) { return std::string(text); });
    fill(form.list, kRows);
    std::size_t characters = 0;
    for (std::size_t i = 0; i < form.list.rowCount(); ++i) {
      characters += form.list.text(i).size() + form.list.row(i).subItems.front().size();
    }
    perRow = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd - before - characters) / kRows;
  }
  state.counters["bytes_per_row"] = perRow;
}
BENCHMARK(memoryOfRows)->Iterations(1)->Unit(benchmark::kMillisecond);

void tickAllAndInvert(benchmark::State& state) {
  ListForm form;
  fill(form.list, state.range(0));
  for (auto _ : state) {
    for (std::size_t i = 0; i < form.list.rowCount(); ++i) form.list.setTicked(i, true);
    for (std::size_t i = 0; i < form.list.rowCount(); ++i) form.list.setTicked(i, !form.list.ticked(i));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(tickAllAndInvert)->Apply(upToAMillion);

// A console with so many rows in its junk list, on a machine of its own.
struct FilledConsole {
  explicit FilledConsole(std::int64_t rows) {
    form.load();
    fill(form.ListView1, rows);
  }

  platform::memory::MemoryMachine machine;
  platform::ScopedMachine use{machine};
  frmFind form;
};

// As the user does it, with all that follows each tick in the console.
void selectAllInTheConsole(benchmark::State& state) {
  FilledConsole console(state.range(0));
  console.form.Select_All.enable();
  for (auto _ : state) {
    console.form.Select_All.click();
    state.PauseTiming();
    console.form.Select_All.click();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(selectAllInTheConsole)->Apply(upToAMillion);

// By the first column, of which every row shares most with its neighbours.
void sortByPath(benchmark::State& state) {
  ListForm form;
  form.load();
  fill(form.list, state.range(0));
  for (auto _ : state) form.list.clickColumn(0);
}
BENCHMARK(sortByPath)->Unit(benchmark::kMillisecond)->Arg(1'000'000);

// Space on a million selected rows, in the console.
void tickSelectedInTheConsole(benchmark::State& state) {
  FilledConsole console(state.range(0));
  console.form.ListView1.markAllSelected(true);
  for (auto _ : state) console.form.ListView1.toggleTicks(0);
}
BENCHMARK(tickSelectedInTheConsole)->Unit(benchmark::kMillisecond)->Arg(1'000'000);

void removeEverySecondRow(benchmark::State& state) {
  ListForm form;
  for (auto _ : state) {
    state.PauseTiming();
    form.list.clear();
    fill(form.list, state.range(0));
    std::vector<std::size_t> rows;
    for (std::size_t i = form.list.rowCount(); i > 0; i -= 2) rows.push_back(i - 1);
    state.ResumeTiming();
    form.list.removeRows(std::move(rows));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(removeEverySecondRow)->Apply(upToAMillion);

}  // namespace
