// Replays the fuzz corpus without libFuzzer: every file under
// <corpus>/<operation>/ goes through that entry point, as its fuzz target
// would run it, and every file under <corpus>/recognition/ through the
// recogniser of file formats. Fails when a reading entry point has no corpus, so that a new
// entry point cannot go unfuzzed. A plain test of the release and sanitizer
// builds: the findings kept in the corpus stay fixed.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/entry_point_fuzz.h"

namespace {

std::vector<char> contentsOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<char>((std::istreambuf_iterator<char>(in)),
                             std::istreambuf_iterator<char>());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "uso: corpus_replay CARPETA_DEL_CORPUS\n");
        return 2;
    }
    namespace fs = std::filesystem;
    int inputs = 0, missing = 0;
    for (std::string_view operation : quelcnv::fuzz::readingOperations()) {
        fs::path folder = fs::path(argv[1]) / std::string(operation);
        if (!fs::is_directory(folder)) {
            std::fprintf(stderr, "sin corpus: %s\n", folder.c_str());
            ++missing;
            continue;
        }
        for (const auto& entry : fs::directory_iterator(folder)) {
            std::vector<char> bytes = contentsOf(entry.path());
            quelcnv::fuzz::runEntryPoint(
                operation, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++inputs;
        }
    }
    fs::path recognised = fs::path(argv[1]) / std::string(quelcnv::fuzz::recognitionTarget);
    if (!fs::is_directory(recognised)) {
        std::fprintf(stderr, "sin corpus: %s\n", recognised.c_str());
        ++missing;
    } else {
        for (const auto& entry : fs::directory_iterator(recognised)) {
            std::vector<char> bytes = contentsOf(entry.path());
            quelcnv::fuzz::runRecogniser(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                         bytes.size());
            ++inputs;
        }
    }
    std::printf("%d entradas repetidas\n", inputs);
    return missing == 0 && inputs > 0 ? 0 : 1;
}
