// Loading and exporting 1,000,000 rows of 20 channels, in bytes of file a second, on one core.

#include "FileGenerator.h"

#include "base/SilentSinks.h"
#include "export/GridWriter.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/FileLoader.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

using namespace pellam;

constexpr std::int64_t kRows = 1'000'000;
constexpr int kChannels = 20;

// The generated file of a kind, made once and left in the temporary folder.
std::string fileOf(const std::string& kind) {
    const std::string extension = kind.starts_with("replay") ? "dlr"
                                  : kind == "tab"            ? "txt"
                                                             : "csv";
    const std::string path =
        std::filesystem::temp_directory_path() / ("pellam-bench-" + kind + "." + extension);
    if (!std::filesystem::exists(path)) FileGenerator({kind, kRows, kChannels, 1}).write(path);
    return path;
}

class Session {
  public:
    explicit Session(const std::string& kind) : m_path(fileOf(kind)) {
        if (kind == "semicolon") {
            m_international.listSeparator = ';';
            m_international.decimalSeparator = ',';
        }
    }

    // A program that has just started loads into memory that it never touched before.
    LoadOutcome load() {
        grid = std::make_unique<GridData>(m_international.decimalSeparator);
        return reload();
    }

    LoadOutcome reload() {
        FileLoader loader({*grid, m_international, m_messages, m_progress, m_chooser});
        return loader.load(m_path);
    }

    std::unique_ptr<GridData> grid;

  private:
    std::string m_path;
    InternationalSettings m_international;
    SilentMessages m_messages;
    SilentProgress m_progress;
    AllChannels m_chooser;
};

void load(benchmark::State& state, const std::string& kind, bool again) {
    Session session(kind);
    LoadOutcome outcome = session.load();
    if (outcome.rows != kRows) state.SkipWithError("rows are missing");
    for (auto _ : state)
        outcome = again ? session.reload() : session.load();
    state.SetBytesProcessed(outcome.fileSize * static_cast<std::int64_t>(state.iterations()));
}

void exportGrid(benchmark::State& state, bool csv) {
    Session session("csv");
    session.load();
    const std::string path = std::filesystem::temp_directory_path() / "pellam-bench-export";
    const GridWriter writer(*session.grid);
    SilentProgress progress;
    for (auto _ : state) {
        const Failure failure =
            writer.write(path, csv ? GridWriter::Form::Csv : GridWriter::Form::Txt, ',', progress);
        if (failure) state.SkipWithError(failure.text().c_str());
    }
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path));
    state.SetBytesProcessed(size * static_cast<std::int64_t>(state.iterations()));
    std::filesystem::remove(path);
}

BENCHMARK_CAPTURE(load, csv, "csv", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, csv_again, "csv", true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, semicolon, "semicolon", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, tab, "tab", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, replay10, "replay10", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, replay10_again, "replay10", true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, replay14, "replay14", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportGrid, csv, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportGrid, txt, false)->Unit(benchmark::kMillisecond);

} // namespace
