// Finding the layout of a text file: of the large one, whatever its length, and of what has no
// layout at all.

#include "FileGenerator.h"

#include "base/InternationalSettings.h"
#include "delimited/layout/LayoutDetector.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

namespace {

using namespace pellam;

void detectFile(benchmark::State& state) {
    const std::string path = std::filesystem::temp_directory_path() / "pellam-bench-csv.csv";
    if (!std::filesystem::exists(path)) FileGenerator({"csv", 1'000'000, 20, 1}).write(path);
    const InternationalSettings settings;
    for (auto _ : state) {
        Failure failure;
        TextLayout layout = LayoutDetector(',', settings).detect(path, failure);
        if (failure || layout.columns != 21) state.SkipWithError("not the layout of the file");
        benchmark::DoNotOptimize(layout);
    }
    state.counters["file MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}

// 64 KiB of a text again and again, without a wish and with one.
void detectText(benchmark::State& state, const std::string& unit) {
    std::string text;
    while (text.size() < TextSample::kSize)
        text += unit;
    const TextSample sample = TextSample::ofText(text);
    const InternationalSettings settings;
    LayoutWishes wishes;
    wishes.decimal = '.';
    for (auto _ : state) {
        TextLayout layout = LayoutDetector(',', settings).detect(sample);
        TextLayout wished = LayoutDetector(',', settings).detect(sample, wishes);
        benchmark::DoNotOptimize(layout);
        benchmark::DoNotOptimize(wished);
    }
}

std::string noise(int least, int most) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> byte(least, most);
    std::string text(TextSample::kSize, '\0');
    for (char& c : text)
        c = static_cast<char>(byte(random));
    return text;
}

BENCHMARK(detectFile)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, quotes, "\"")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, quoted_lines, "\"a,1\n")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, separators, ",")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, separator_lines, ",;\t|\n")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, one_column, "7\n")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, wide, "1,2021-01-01 00:00:00,")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, dates, "1/2/3,4:5,6/7/8,9:1,2/3/4,5:6\n")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, blanks, " \t")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, binary, noise(0, 255))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detectText, rubbish, noise(9, 126))->Unit(benchmark::kMillisecond);

} // namespace
