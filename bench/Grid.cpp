// The grid page over ten million rows: what a person waits for after a load, a key or an edit.

#include "base/InternationalSettings.h"
#include "grid/TimeCell.h"
#include "views/grid/CGridView.h"
#include "views/grid/GridClipboard.h"
#include "views/grid/MyCug.h"
#include "views/print/GridPrinter.h"
#include "views/scan/StatisticsScan.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>

#include <array>
#include <cstdio>
#include <random>

namespace {

using namespace pellam;

constexpr Row kRows = 10'000'000;

void fill(GridData& grid, Row rows, int channels) {
    std::mt19937 random(1);
    grid.setColumnCount(channels + 1);
    grid.setChannelCount(channels);
    grid.setRowCount(rows);
    std::array<char, 40> text{};
    for (Row row = 0; row < rows; ++row) {
        const int length = std::snprintf(text.data(), text.size(), "2024/%02d/%02d %02d:%02d:%02d",
                                         int(1 + row / 2'419'200 % 12), int(1 + row / 86'400 % 28),
                                         int(row / 3600 % 24), int(row / 60 % 60), int(row % 60));
        Cell cell;
        TimeCell::pack({text.data(), static_cast<std::size_t>(length)}, cell);
        grid.column(0).setCell(row, cell);
    }
    for (int i = 1; i <= channels; ++i) {
        grid.column(i).setLabel("Channel(m)");
        for (Row row = 0; row < rows; ++row)
            grid.column(i).setCell(row, Cell::decimal(random() % 2 != 0, 3, random() % 1'000'000));
    }
}

QApplication& application() {
    static int count = 1;
    static char name[] = "bench_Grid";
    static std::array<char*, 2> arguments{name, nullptr};
    static QApplication made(count, arguments.data());
    return made;
}

/// A page of its own for each size, made once.
struct Page {
    Page(Row rows, int channels) {
        fill(grid, rows, channels);
        view.beginLoad();
        view.endLoad(false, false);
        view.resize(1200, 800);
        view.show();
        view.grid().clipboard().setQuestion([](const QString&) { return true; });
        QApplication::processEvents();
    }

    void press(int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&view.grid(), &event);
    }

    QApplication& app = application(); // before any widget
    GridData grid;
    InternationalSettings settings;
    CGridView view{grid, settings};
};

Page& tall() {
    static auto* const page = new Page(kRows, 5); // never deleted: the application goes first
    return *page;
}

void endLoad(benchmark::State& state) {
    Page& page = tall();
    for (auto _ : state)
        page.view.endLoad(false, false);
}

void endLoadOfManyColumns(benchmark::State& state) {
    Page page(2000, 5000);
    for (auto _ : state)
        page.view.endLoad(false, false);
}

void paint(benchmark::State& state) {
    Page& page = tall();
    for (auto _ : state)
        page.view.grid().viewport()->repaint();
}

void ctrlEndAndHome(benchmark::State& state) {
    Page& page = tall();
    for (auto _ : state) {
        page.press(Qt::Key_End, Qt::ControlModifier);
        page.view.grid().viewport()->repaint();
        page.press(Qt::Key_Home, Qt::ControlModifier);
        page.view.grid().viewport()->repaint();
    }
}

void statisticsOfEverything(benchmark::State& state) {
    Page& page = tall();
    for (auto _ : state) {
        StatisticsScan scan(page.grid, {{1, 5, 1, kRows}});
        while (scan.step()) {
        }
        benchmark::DoNotOptimize(scan.result());
    }
}

void printLayout(benchmark::State& state) {
    Page& page = tall();
    for (auto _ : state) {
        GridPrinter printer(page.grid, {});
        printer.setPageSize({595, 842});
        benchmark::DoNotOptimize(printer.pageCount());
    }
}

void clearOneColumn(benchmark::State& state) {
    Page& page = tall();
    page.view.grid().selectArea({5, 5, 1, kRows});
    for (auto _ : state)
        page.view.grid().clipboard().clear();
}

BENCHMARK(endLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(endLoadOfManyColumns)->Unit(benchmark::kMillisecond);
BENCHMARK(paint)->Unit(benchmark::kMillisecond);
BENCHMARK(ctrlEndAndHome)->Unit(benchmark::kMillisecond);
BENCHMARK(statisticsOfEverything)->Unit(benchmark::kMillisecond);
BENCHMARK(printLayout)->Unit(benchmark::kMillisecond);
BENCHMARK(clearOneColumn)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
