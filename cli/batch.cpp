#include "cli/batch.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <set>

#ifndef _WIN32
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "cli/input_warnings.h"
#include "cli/run_operation.h"
#include "cli/terminal_text.h"
#include "frame/conversion.h"

namespace quelcnv::cli {

namespace {

namespace fs = std::filesystem;
using namespace exits;

struct Batch {
    const Operation* op = nullptr;
    fs::path folder;
    int processes = 1;
    std::map<std::string, std::string, std::less<>> given;  // --con NOMBRE=VALOR
    std::vector<std::string> inputs;
};

struct Done {
    std::size_t index = 0;
    int status = exitDone;
    std::string message;  // UTF-8
};

// The batch the request asks for; a UsageError when it cannot be run.
Batch batchOf(const BatchRequest& request) {
    Batch batch;
    batch.op = findOperation(request.operation);
    if (batch.op == nullptr)
        throw UsageError("operación desconocida: " + pathText(request.operation));
    batch.folder = request.folder;
    batch.processes = request.processes;
    batch.inputs = request.inputs;
    for (const std::string& pair : request.given) {
        std::size_t equals = pair.find('=');
        if (equals == std::string::npos)
            throw UsageError("--con necesita NOMBRE=VALOR: " + pathText(pair));
        batch.given[pair.substr(0, equals)] = pair.substr(equals + 1);
    }
    if (batch.inputs.empty()) throw UsageError("no hay ficheros de entrada");
    std::vector<std::string_view> names = batch.op->argumentNames();
    if (std::count(names.begin(), names.end(), "entrada") != 1 ||
        std::count(names.begin(), names.end(), "salida") != 1)
        throw UsageError("la operación " + std::string(batch.op->name) +
                         " no convierte de entrada a salida");
    for (std::string_view name : names) {
        if (name != "entrada" && name != "salida" && !batch.given.contains(name))
            throw UsageError("falta --con " + std::string(name) + "=VALOR");
    }
    return batch;
}

fs::path outputOf(const Batch& batch, const std::string& input) {
    return batch.folder /
           (fs::path(input).stem().string() + std::string(usualExtension(batch.op->name)));
}

Done convertFile(const Batch& batch, std::size_t index, const std::set<fs::path>& repeated) {
    const std::string& input = batch.inputs[index];
    fs::path output = outputOf(batch, input);
    if (repeated.contains(output))
        return {index, exitFailed,
                "otra entrada da el mismo nombre de salida: " + pathText(output.string())};
    std::vector<std::string> arguments;
    for (std::string_view name : batch.op->argumentNames()) {
        if (name == "entrada")
            arguments.push_back(input);
        else if (name == "salida")
            arguments.push_back(output.string());
        else
            arguments.push_back(batch.given.find(name)->second);
    }
    PreparedArguments prepared = prepareArguments(*batch.op, arguments);
    if (prepared.error) return {index, exitUsage, *prepared.error};
    bool zeros = warnAboutInputs(*batch.op, prepared.values);
    std::vector<std::string> converted = prepared.values;
    Report report = convertAndReport(*batch.op, converted);
    if (report.status == exitDone && !zeros) warnOfZeroOutputs(*batch.op, prepared.values);
    return {index, report.status, report.message};
}

class Progress {
public:
    explicit Progress(std::size_t total) : total_(total) {
#ifndef _WIN32
        bar_ = isatty(STDERR_FILENO) != 0;
#endif
    }
    void show(const Batch& batch, const Done& done) {
        ++count_;
        const std::string& input = batch.inputs[done.index];
        std::string counted = std::to_string(count_) + "/" + std::to_string(total_);
        if (!bar_) {
            std::string outcome = done.status == exitDone ? "bien" : "fallo: " + done.message;
            say(std::cerr, "[" + counted + "] " + pathText(input) + ": " + outcome + "\n");
            return;
        }
        constexpr std::size_t width = 30;
        std::size_t filled = width * count_ / total_;
        std::string bar = std::string(filled, '#') + std::string(width - filled, '.');
        std::string name = pathText(fs::path(input).filename().string());
        say(std::cerr,
            "\r[" + bar + "] " + counted + " " + name + "\x1b[K" + (count_ == total_ ? "\n" : ""));
        std::cerr << std::flush;
    }

private:
    std::size_t total_;
    std::size_t count_ = 0;
    bool bar_ = false;
};

// Output names that more than one input would take.
std::set<fs::path> repeatedOutputs(const Batch& batch) {
    std::set<fs::path> seen, repeated;
    for (const std::string& input : batch.inputs) {
        fs::path output = outputOf(batch, input);
        if (!seen.insert(output).second) repeated.insert(output);
    }
    return repeated;
}

void convertHere(const Batch& batch, std::vector<Done>& results, Progress& progress) {
    std::set<fs::path> repeated = repeatedOutputs(batch);
    for (std::size_t i = 0; i < batch.inputs.size(); ++i) {
        results[i] = convertFile(batch, i, repeated);
        progress.show(batch, results[i]);
    }
}

#ifndef _WIN32
// -j N: N child processes, each with its own scratch folder, child k taking
// every Nth file; each sends a line per file: index, status, message.
void convertInProcesses(const Batch& batch, std::vector<Done>& results, Progress& progress) {
    std::set<fs::path> repeated = repeatedOutputs(batch);
    std::vector<pollfd> pipes;
    std::vector<pid_t> children;
    std::vector<fs::path> scratches;
    for (int k = 0; k < batch.processes && std::size_t(k) < batch.inputs.size(); ++k) {
        int ends[2];
        char scratch[] = "/tmp/quelcnv-lote-XXXXXX";
        if (pipe(ends) != 0 || mkdtemp(scratch) == nullptr) break;
        scratches.emplace_back(scratch);
        std::fflush(nullptr);
        pid_t child = fork();
        if (child == 0) {
            close(ends[0]);
            setenv("QUELCNV_SCRATCH", scratch, 1);
            FILE* out = fdopen(ends[1], "w");
            for (std::size_t i = std::size_t(k); i < batch.inputs.size(); i += batch.processes) {
                Done done = convertFile(batch, i, repeated);
                // One line per file: a line break in a file name stays out of it.
                std::replace(done.message.begin(), done.message.end(), '\n', ' ');
                std::fprintf(out, "%zu\t%d\t%s\n", done.index, done.status, done.message.c_str());
                std::fflush(out);
            }
            std::_Exit(0);
        }
        close(ends[1]);
        children.push_back(child);
        pipes.push_back({ends[0], POLLIN, 0});
    }
    std::vector<std::string> pending(pipes.size());
    std::vector<bool> reported(batch.inputs.size(), false);
    for (std::size_t open = pipes.size(); open > 0;) {
        if (poll(pipes.data(), pipes.size(), -1) < 0) break;
        for (std::size_t p = 0; p < pipes.size(); ++p) {
            if (pipes[p].fd < 0 || pipes[p].revents == 0) continue;
            char buffer[4096];
            ssize_t n = read(pipes[p].fd, buffer, sizeof buffer);
            if (n <= 0) {
                close(pipes[p].fd);
                pipes[p].fd = -1;
                --open;
                continue;
            }
            pending[p].append(buffer, std::size_t(n));
            for (std::size_t end; (end = pending[p].find('\n')) != std::string::npos;) {
                std::string line = pending[p].substr(0, end);
                pending[p].erase(0, end + 1);
                std::size_t tab1 = line.find('\t'), tab2 = line.find('\t', tab1 + 1);
                Done done{std::stoul(line.substr(0, tab1)),
                          std::stoi(line.substr(tab1 + 1, tab2 - tab1 - 1)), line.substr(tab2 + 1)};
                if (done.index >= results.size()) continue;
                results[done.index] = done;
                reported[done.index] = true;
                progress.show(batch, done);
            }
        }
    }
    for (pid_t child : children) waitpid(child, nullptr, 0);
    std::error_code ignored;
    for (const fs::path& scratch : scratches) fs::remove_all(scratch, ignored);
    for (std::size_t i = 0; i < reported.size(); ++i) {
        if (!reported[i]) {
            results[i] = {i, exitFailed, "el proceso que la convertía acabó antes de tiempo"};
            progress.show(batch, results[i]);
        }
    }
}
#endif

int summarise(const Batch& batch, const std::vector<Done>& results) {
    std::size_t failed = 0;
    for (const Done& done : results) failed += done.status != exitDone;
    say(std::cerr, "Hechos: " + std::to_string(results.size() - failed) +
                       ". Fallidos: " + std::to_string(failed) + ".\n");
    for (const Done& done : results) {
        if (done.status != exitDone)
            say(std::cerr, "  " + pathText(batch.inputs[done.index]) + ": " + done.message + "\n");
    }
    return failed == 0 ? exitDone : exitFailed;
}

}  // namespace

std::string_view usualExtension(std::string_view operation) {
    const EntryPoint* entry = findEntryPoint(operation);
    return entry != nullptr && !entry->output.empty() ? entry->output : ".nev";
}

int runBatch(const BatchRequest& request) {
    Batch batch = batchOf(request);
    std::error_code error;
    fs::create_directories(batch.folder, error);
    if (!fs::is_directory(batch.folder)) {
        say(std::cerr,
            "quelcnv: no se puede crear la carpeta de salida: " + pathText(request.folder) + "\n");
        return exitFailed;
    }
    std::vector<Done> results(batch.inputs.size());
    Progress progress(batch.inputs.size());
#ifndef _WIN32
    if (batch.processes > 1) {
        convertInProcesses(batch, results, progress);
        return summarise(batch, results);
    }
#endif
    convertHere(batch, results, progress);
    return summarise(batch, results);
}

}  // namespace quelcnv::cli
