#include "fuzz/entry_point_fuzz.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

#include "cli/operations.h"
#include "frame/conversion.h"
#include "frame/recognition.h"

namespace quelcnv::fuzz {

namespace {

namespace fs = std::filesystem;

// The process's own folder: the input, the output, the host's folder and the
// scratch folder, so that fuzzers running side by side never meet.
struct Folder {
    fs::path root;
    std::string input, output, host;

    Folder() {
        root = fs::temp_directory_path() / ("quelcnv-fuzz-" + std::to_string(::getpid()));
        fs::create_directories(root / "host");
        input = (root / "entrada").string();
        output = (root / "salida").string();
        host = (root / "host").string();
        ::setenv("QUELCNV_SCRATCH", (root / "scratch").c_str(), 1);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
    static const Folder& folder() {
        static const Folder made;
        return made;
    }
};

bool isInput(std::string_view argument) { return argument == "entrada" || argument == "lecturas"; }

void writeFile(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

// The next "|"-separated field of the arguments line.
std::string_view nextField(std::string_view& line) {
    std::size_t bar = line.find('|');
    std::string_view field = line.substr(0, bar);
    line = bar == std::string_view::npos ? std::string_view() : line.substr(bar + 1);
    return field;
}

std::string argumentValue(std::string_view name, std::string_view field, const Folder& folder) {
    if (name == "salida") return folder.output;
    if (name == "pathAp") {
        std::string settings = folder.host + "/quelvar.ini";
        if (field.empty()) {
            std::remove(settings.c_str());
        } else {
            writeFile(settings, field);
        }
        return folder.host;
    }
    if (name == "selec") {
        int selec = 0;
        std::from_chars(field.data(), field.data() + field.size(), selec);
        return std::to_string(selec);
    }
    return std::string(field);
}

bool contains(const std::vector<int>& values, int value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace

std::vector<std::string_view> readingOperations() {
    std::vector<std::string_view> names;
    for (const cli::Operation& op : cli::operations()) {
        if (op.availability == cli::Availability::unavailable) continue;
        for (std::string_view argument : op.argumentNames()) {
            if (isInput(argument)) names.push_back(op.name);
        }
    }
    return names;
}

void runEntryPoint(std::string_view operation, const std::uint8_t* data, std::size_t size) {
    const cli::Operation* op = cli::findOperation(operation);
    const Conversion* conversion = findConversion(operation);
    if (op == nullptr || conversion == nullptr) std::abort();
    const Folder& folder = Folder::folder();

    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::vector<std::string_view> names = op->argumentNames();
    bool hasOthers = std::any_of(names.begin(), names.end(), [](std::string_view name) {
        return !isInput(name) && name != "salida";
    });
    std::string_view line;
    if (hasOthers) {
        std::size_t lineFeed = bytes.find('\n');
        line = bytes.substr(0, lineFeed);
        bytes =
            lineFeed == std::string_view::npos ? std::string_view() : bytes.substr(lineFeed + 1);
    }
    std::vector<std::string> values;
    for (std::string_view name : names) {
        if (isInput(name)) {
            writeFile(folder.input, bytes);
            values.push_back(folder.input);
        } else {
            values.push_back(argumentValue(name, name == "salida" ? "" : nextField(line), folder));
        }
    }

    std::remove(folder.output.c_str());
    int result = op->invoke(values);
    DocumentedResults documented = documentedResults(conversion->result);
    if (!contains(documented.possible, result)) {
        std::fprintf(stderr, "%.*s gave %d, which it never gives\n", int(operation.size()),
                     operation.data(), result);
        std::abort();
    }
    if (contains(documented.failures, result) && fs::exists(folder.output)) {
        std::fprintf(stderr, "%.*s failed (%d) and left an output\n", int(operation.size()),
                     operation.data(), result);
        std::abort();
    }
}

void runRecogniser(const std::uint8_t* data, std::size_t size) {
    const Folder& folder = Folder::folder();
    writeFile(folder.input, std::string_view(reinterpret_cast<const char*>(data), size));
    FileSummary summary = recogniseFile(folder.input);
    bool stations = summary.firstStation.has_value() == summary.lastStation.has_value();
    bool counts = summary.lines >= 0 && summary.items >= 0 && summary.sections >= 0;
    if (!summary.opened || summary.kind != kindOf(summary.format) || !stations || !counts) {
        std::fprintf(stderr, "the recogniser's summary contradicts itself\n");
        std::abort();
    }
}

}  // namespace quelcnv::fuzz
