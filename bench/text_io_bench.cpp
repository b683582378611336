// Throughput of the shared text rules on which every converter rests:
// reading, tokenizing and converting numbers, formatting and writing.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/text_format.h"

namespace {

using namespace quelcnv;

// A RUXO alignment file of the given number of key points.
std::string writeAlignment(int records) {
    std::string path = (std::filesystem::temp_directory_path() /
                        ("quelcnv-bench-" + std::to_string(records) + ".ruxo"))
                           .string();
    std::vector<AlignmentRecord> list(static_cast<std::size_t>(records));
    for (int i = 0; i < records; ++i) {
        AlignmentRecord& r = list[static_cast<std::size_t>(i)];
        r.station = 1000.0 + 25.0 * i;
        r.x = 450000.123 + 17.3 * i;
        r.y = 4300000.456 + 11.9 * i;
        r.azimuth = (i * 7) % 400;
        r.radius = (i % 3 == 1) ? -350.0 : 0.0;
    }
    writeAlignmentFile(list, path);
    return path;
}

void readRuxoAlignment(benchmark::State& state) {
    std::string path = writeAlignment(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        AlignmentFile file = readAlignmentFile(path, CommentLines::skipped);
        benchmark::DoNotOptimize(file.records.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    std::filesystem::remove(path);
}
BENCHMARK(readRuxoAlignment)->Arg(100000)->Unit(benchmark::kMillisecond);

void writeRuxoAlignment(benchmark::State& state) {
    std::string path = writeAlignment(static_cast<int>(state.range(0)));
    AlignmentFile file = readAlignmentFile(path, CommentLines::skipped);
    for (auto _ : state) writeAlignmentFile(file.records, path);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    std::filesystem::remove(path);
}
BENCHMARK(writeRuxoAlignment)->Arg(100000)->Unit(benchmark::kMillisecond);

void parseNumbers(benchmark::State& state) {
    const char* texts[] = {"4500123.456", "-0.001", "1e-3", "  97.12345678"};
    for (auto _ : state) {
        for (const char* text : texts) benchmark::DoNotOptimize(parseNumber(text));
    }
    state.SetItemsProcessed(state.iterations() * 4);
}
BENCHMARK(parseNumbers);

void formatNumbers(benchmark::State& state) {
    double value = 4300000.4567;
    for (auto _ : state) benchmark::DoNotOptimize(formatText("%0.3lf %8.3lf"_fmt, value, -value));
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(formatNumbers);

}  // namespace

BENCHMARK_MAIN();
