// The NEVO alignment writer on long alignments full of arcs that turn more
// than half a circle, each split at its middle before writing: 100,000
// elements must convert in well under a second, and so must a hostile file
// of arcs that never get shorter.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "alignment/nevo_alignment.h"
#include "alignment/ruxo_alignment_file.h"

namespace {

using namespace quelcnv;

// Straights and arcs in turn; every arc turns 250 grads.
std::string writeArcs(int elements) {
    std::string path = (std::filesystem::temp_directory_path() /
                        ("quelcnv-bench-arcs-" + std::to_string(elements) + ".ruxo"))
                           .string();
    std::vector<AlignmentRecord> records(static_cast<std::size_t>(elements) + 1);
    double azimuth = 0.0;
    for (int i = 0; i <= elements; ++i) {
        AlignmentRecord& r = records[static_cast<std::size_t>(i)];
        r.station = 100.0 * i;
        r.x = 450000.0 + 50.0 * i;
        r.y = 4300000.0 + 30.0 * i;
        r.azimuth = azimuth;
        if (i % 2 == 1 && i < elements) {
            r.radius = i % 4 == 1 ? 22.918 : -22.918;  // 100 m over 250 grads
            azimuth += i % 4 == 1 ? 250.0 : -250.0;
            if (azimuth >= 400.0) azimuth -= 400.0;
            if (azimuth < 0.0) azimuth += 400.0;
        }
    }
    writeAlignmentFile(records, path);
    return path;
}

void BM_ElementFormWithLongArcs(benchmark::State& state) {
    std::string input = writeArcs(static_cast<int>(state.range(0)));
    std::string output = input + ".nev";
    for (auto _ : state) benchmark::DoNotOptimize(writeElementForm(input, output));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    std::filesystem::remove(input);
    std::filesystem::remove(output);
}
BENCHMARK(BM_ElementFormWithLongArcs)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_IntersectionFormWithLongArcs(benchmark::State& state) {
    std::string input = writeArcs(static_cast<int>(state.range(0)));
    std::string output = input + ".nev";
    for (auto _ : state) benchmark::DoNotOptimize(writeIntersectionForm(input, output));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    std::filesystem::remove(input);
    std::filesystem::remove(output);
}
BENCHMARK(BM_IntersectionFormWithLongArcs)->Arg(100000)->Unit(benchmark::kMillisecond);

// Arcs of no length that turn 250 grads: each split leaves the same arc to
// split again, until the records fill their room (three per line).
void BM_ZeroLengthArcs(benchmark::State& state) {
    std::string input =
        (std::filesystem::temp_directory_path() / "quelcnv-bench-zero.ruxo").string();
    std::vector<AlignmentRecord> records(static_cast<std::size_t>(state.range(0)));
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].azimuth = i % 2 == 0 ? 0.0 : 250.0;
        records[i].radius = i % 2 == 0 ? 10.0 : 0.0;
    }
    writeAlignmentFile(records, input);
    std::string output = input + ".nev";
    for (auto _ : state) benchmark::DoNotOptimize(writeIntersectionForm(input, output));
    std::filesystem::remove(input);
    std::filesystem::remove(output);
}
BENCHMARK(BM_ZeroLengthArcs)->Arg(20000)->Unit(benchmark::kMillisecond);

}  // namespace
