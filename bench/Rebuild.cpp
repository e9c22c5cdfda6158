// Building the chart's curves from the grid: cells a second on one core, from packed cells.

#include "base/InternationalSettings.h"
#include "base/SilentSinks.h"
#include "grid/DecimalCell.h"
#include "grid/TimeCell.h"
#include "views/series/TrendTableReader.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <random>

namespace {

using namespace pellam;

void writeTime(GridData& grid, Row row, bool shuffled) {
    // Where rows are to be out of order, every thousandth one exchanges its place with the next.
    const Row second = shuffled && row % 1000 < 2 ? row - row % 1000 + 1 - row % 1000 : row;
    std::array<char, 40> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "2024/%02d/%02d %02d:%02d:%02d",
                      int(1 + second / 2'419'200 % 12), int(1 + second / 86'400 % 28),
                      int(second / 3600 % 24), int(second / 60 % 60), int(second % 60));
    Cell cell;
    TimeCell::pack({text.data(), static_cast<std::size_t>(length)}, cell);
    grid.column(0).setCell(row, cell);
}

void fill(GridData& grid, Row rows, int channels, bool shuffled) {
    std::mt19937 random(1);
    grid.setColumnCount(channels + 1);
    grid.setChannelCount(channels);
    grid.setRowCount(rows);
    for (Row row = 0; row < rows; ++row)
        writeTime(grid, row, shuffled);
    for (int i = 1; i <= channels; ++i) {
        Column& column = grid.column(i);
        column.setCharted(true);
        column.setLabel("Channel(m)");
        for (Row row = 0; row < rows; ++row)
            column.setCell(row, Cell::decimal(random() % 2 != 0, 3, random() % 1'000'000));
    }
}

void rebuild(benchmark::State& state, bool shuffled) {
    const Row rows = state.range(0);
    const int channels = static_cast<int>(state.range(1));
    GridData grid;
    fill(grid, rows, channels, shuffled);
    SilentProgress progress;
    for (auto _ : state) {
        TrendTable table = TrendTableReader(grid, {}, progress).read();
        benchmark::DoNotOptimize(table.curves.data());
    }
    state.SetItemsProcessed(rows * (channels + 1) * state.iterations());
}

BENCHMARK_CAPTURE(rebuild, in_order, false)
    ->Args({1'000'000, 1})
    ->Args({1'000'000, 12})
    ->Args({10'000'000, 1})
    ->Args({10'000'000, 4})
    ->Args({10'000'000, 12})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rebuild, out_of_order, true)
    ->Args({1'000'000, 12})
    ->Unit(benchmark::kMillisecond);

} // namespace
