// Converting a binary data file of 20 channels, and opening one, in bytes of file a second on one
// core.

#include "BinaryGenerator.h"

#include "base/SilentSinks.h"
#include "logger/CDumpDBD.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/FileLoader.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

using namespace pellam;
namespace fs = std::filesystem;

constexpr std::uint32_t kRows = 500'000; // 105 MB

std::string binaryFile() {
    const std::string path = fs::temp_directory_path() / "pellam-bench-binary.dbd";
    if (!fs::exists(path) && !BinaryGenerator{kRows, 20, 1}.write(path)) std::abort();
    return path;
}

void setBytes(benchmark::State& state) {
    const auto size = static_cast<std::int64_t>(fs::file_size(binaryFile()));
    state.SetBytesProcessed(size * static_cast<std::int64_t>(state.iterations()));
}

void convert(benchmark::State& state) {
    const std::string input = binaryFile();
    const std::string output = fs::temp_directory_path() / "pellam-bench-binary.txt";
    const InternationalSettings international;
    SilentMessages messages;
    SilentProgress progress;
    for (auto _ : state) {
        CDumpDBD dumper({international, messages, progress});
        if (dumper.dumpFile({input}, output, 0) != CDumpDBD::kDone) state.SkipWithError("failed");
    }
    setBytes(state);
    fs::remove(output);
}

void open(benchmark::State& state) {
    const std::string input = binaryFile();
    const InternationalSettings international;
    SilentMessages messages;
    SilentProgress progress;
    AllChannels chooser;
    for (auto _ : state) {
        GridData grid;
        LoadContext context{grid, international, messages, progress, chooser};
        context.saveFolder = [] { return fs::temp_directory_path().string(); };
        if (FileLoader(context).load(input).rows != kRows) state.SkipWithError("rows missing");
    }
    setBytes(state);
    fs::remove(fs::temp_directory_path() / "pellam-bench-binary.csv");
}

BENCHMARK(convert)->Unit(benchmark::kMillisecond);
BENCHMARK(open)->Unit(benchmark::kMillisecond);

} // namespace
