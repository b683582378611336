#include "cli/command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <regex>

#include "cli/batch.h"
#include "cli/drawing.h"
#include "cli/help.h"
#include "cli/info.h"
#include "cli/landxml_tools.h"
#include "cli/report.h"
#include "cli/run_operation.h"
#include "cli/terminal_text.h"
#include "frame/library_version.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

void setEnvironment(const char* name, const std::string& value) {
#ifdef _WIN32
    _putenv_s(name, value.c_str());
#else
    setenv(name, value.c_str(), 1);
#endif
}

// The options that go anywhere on the line.
struct GlobalOptions {
    bool crlf = false, silent = false, help = false, version = false;
    std::string scratch;

    void addTo(CLI::App& app) {
        // "/obra/eje.txt" is a path, never a Windows-style option.
        app.allow_windows_style_options(false);
        app.set_help_flag();
        app.add_flag("--crlf", crlf);
        app.add_flag("--silencio", silent);
        app.add_flag("-h,--help", help);
        app.add_flag("--version", version);
        app.add_option("--scratch", scratch);
    }
};

// The Spanish of what CLI11 found wrong on the line.
std::string parseErrorText(const CLI::ParseError& error) {
    std::string text = error.what();
    std::smatch match;
    if (std::regex_search(text, match, std::regex("not expected: (.*)$"))) {
        std::string extras = match[1];
        std::string first = extras.substr(0, extras.find(' '));
        return first.starts_with('-') ? "opción desconocida: " + pathText(first)
                                      : "sobran argumentos: " + pathText(extras);
    }
    if (std::regex_search(text, match, std::regex("^(\\S+): \\d+ required")))
        return "falta el valor de " + std::string(match[1]);
    if (std::regex_search(text, match,
                          std::regex("^(\\S+): Value (.*) not in range (\\S+) to (\\S+)")))
        return std::string(match[1]) + " necesita un número de " + std::string(match[3]) + " a " +
               std::string(match[4]) + ": " + pathText(std::string(match[2]));
    if (std::regex_search(text, match, std::regex("^(\\S+) excludes (\\S+)")))
        return std::string(match[1]) + " y " + std::string(match[2]) + " no van juntas";
    if (std::regex_search(text, match, std::regex("^(\\S+): (.*) not in \\{")))
        return "valor no válido para " + std::string(match[1]) + ": " +
               pathText(std::string(match[2]));
    return "uso incorrecto: " + text;
}

int usageError(const std::string& message, const std::string& usage) {
    say(std::cerr, "quelcnv: " + message + "\n" + usage);
    return exitUsage;
}

int showText(const std::string& text) {
    say(std::cout, text);
    return exitDone;
}

int showVersion() {
    return showText("quelcnv " + std::string(libraryVersion()) + " (biblioteca quelcnv " +
                    std::string(libraryVersion()) + ")\n");
}

void applyGlobalOptions(const GlobalOptions& options) {
    if (options.crlf) setEnvironment("QUELCNV_NEWLINE", "crlf");
    if (!options.scratch.empty()) setEnvironment("QUELCNV_SCRATCH", options.scratch);
}

// Once the whole line is read: the help or the version when asked for, else
// nothing, the options set for the conversion.
std::optional<int> answeredFirst(const GlobalOptions& options, const std::string& help) {
    if (options.help) return showText(help);
    if (options.version) return showVersion();
    applyGlobalOptions(options);
    return std::nullopt;
}

// The second reading of the line: what follows the operation or order, with
// the global options again, in any order. CLI11 takes the words last first.
void parseRest(CLI::App& app, GlobalOptions& options, std::vector<std::string> rest) {
    options.addTo(app);
    app.allow_extras(false);
    std::reverse(rest.begin(), rest.end());
    app.parse(rest);
}

int runOperationLine(const Operation& op, GlobalOptions& options,
                     const std::vector<std::string>& rest) {
    CLI::App app;
    std::vector<std::string> arguments;
    app.add_option("argumentos", arguments);
    parseRest(app, options, rest);
    if (auto answered = answeredFirst(options, operationHelp(op))) return *answered;
    return runOperation(op, arguments, options.silent);
}

int runBatchLine(GlobalOptions& options, const std::vector<std::string>& rest) {
    CLI::App app;
    BatchRequest request;
    std::vector<std::string> words;
    app.add_option("palabras", words);
    app.add_option("--salida", request.folder);
    app.add_option("-j", request.processes)->check(CLI::Range(1, 256));
    app.add_option("--con", request.given)->allow_extra_args(false);
    parseRest(app, options, rest);
    if (auto answered = answeredFirst(options, orderHelp(*findOrder("lote")))) return *answered;
    if (words.empty()) throw UsageError("falta la operación");
    if (request.folder.empty()) throw UsageError("falta --salida CARPETA");
    request.operation = words.front();
    request.inputs.assign(words.begin() + 1, words.end());
    return runBatch(request);
}

int runDrawingLine(GlobalOptions& options, const std::vector<std::string>& rest) {
    CLI::App app;
    DrawingRequest request;
    std::vector<std::string> files;
    std::string type, alignment, profile, surface;
    app.add_option("ficheros", files);
    app.add_option("--tipo", type)
        ->check(CLI::IsMember({"eje", "rasante", "peralte", "transversales", "puntos"}));
    auto* byAlignment = app.add_option("--eje", alignment);
    auto* byProfile = app.add_option("--rasante", profile);
    auto* bySurface = app.add_option("--transversales", surface);
    byAlignment->excludes(byProfile)->excludes(bySurface);
    byProfile->excludes(bySurface);
    parseRest(app, options, rest);
    if (auto answered = answeredFirst(options, orderHelp(*findOrder("dibujo")))) return *answered;
    if (files.size() != 2)
        throw UsageError("dibujo necesita un fichero de entrada y uno de salida");
    request.input = files[0];
    request.output = files[1];
    if (!type.empty()) request.type = type;
    if (byAlignment->count() > 0) request.choice.alignment = nameFromUser(alignment);
    if (byProfile->count() > 0) request.choice.profile = nameFromUser(profile);
    if (bySurface->count() > 0) request.choice.surface = nameFromUser(surface);
    return runDrawing(request);
}

// info and contenido: one file.
int runFileLine(const Order& order, GlobalOptions& options, const std::vector<std::string>& rest) {
    CLI::App app;
    std::vector<std::string> files;
    bool json = false;
    app.add_option("fichero", files);
    if (order.name == "info") app.add_flag("--json", json);
    parseRest(app, options, rest);
    if (auto answered = answeredFirst(options, orderHelp(order))) return *answered;
    if (files.size() != 1) throw UsageError(std::string(order.name) + " necesita un fichero");
    if (order.name == "contenido") return showContents(files[0]);
    return runInfo(files[0], json);
}

int runListLine(const Order& order, GlobalOptions& options, const std::vector<std::string>& rest) {
    CLI::App app;
    std::vector<std::string> words;
    app.add_option("palabras", words);
    parseRest(app, options, rest);
    if (auto answered = answeredFirst(options, orderHelp(order))) return *answered;
    if (order.name == "lista") {
        if (!words.empty()) throw UsageError("lista no lleva argumentos");
        return showText(operationList());
    }
    if (words.empty()) return showText(generalHelp());
    if (words.size() > 1) throw UsageError("ayuda lleva a lo sumo un nombre");
    if (const Operation* op = findOperation(words[0])) return showText(operationHelp(*op));
    if (const Order* other = findOrder(words[0])) return showText(orderHelp(*other));
    throw UsageError("no hay ninguna operación ni orden llamada " + pathText(words[0]) +
                     " (quelcnv lista muestra las operaciones)");
}

// The usage to show after a usage error of that operation or order.
std::string usageOf(const std::string& name) {
    if (const Order* order = findOrder(name))
        return "Uso: quelcnv " + std::string(order->usage) + "\n";
    if (const Operation* op = findOperation(name)) return "Uso: " + operationSignature(*op) + "\n";
    return usageText();
}

int runName(const std::string& name, GlobalOptions& options, const std::vector<std::string>& rest) {
    if (const Operation* op = findOperation(name)) return runOperationLine(*op, options, rest);
    const Order* order = findOrder(name);
    if (order == nullptr)
        throw UsageError("operación desconocida: " + pathText(name) +
                         " (quelcnv lista las muestra todas)");
    if (name == "lote") return runBatchLine(options, rest);
    if (name == "dibujo") return runDrawingLine(options, rest);
    if (name == "info" || name == "contenido") return runFileLine(*order, options, rest);
    return runListLine(*order, options, rest);
}

int runLine(const std::vector<std::string>& words) {
    GlobalOptions options;
    CLI::App top;
    options.addTo(top);
    top.prefix_command();
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    std::string name;
    try {
        top.parse(reversed);
        std::vector<std::string> rest = top.remaining();
        if (!rest.empty() && rest.front().starts_with('-'))
            return usageError("opción desconocida: " + pathText(rest.front()), usageText());
        if (rest.empty()) {
            if (options.version) return showVersion();
            if (options.help) return showText(generalHelp());
            return usageError("falta la operación", usageText());
        }
        name = rest.front();
        rest.erase(rest.begin());
        return runName(name, options, rest);
    } catch (const CLI::ParseError& error) {
        return usageError(parseErrorText(error), usageOf(name));
    } catch (const UsageError& error) {
        return usageError(error.what(), usageOf(name));
    }
}

}  // namespace

int runCommand(const std::vector<std::string>& words) {
    // A command has no window: the library's messages go with its own, to
    // standard error.
    setEnvironment("QUELCNV_MESSAGES", "stderr");
    try {
        return runLine(words);
    } catch (const std::exception& error) {
        say(std::cerr, std::string("quelcnv: error interno: ") + error.what() + "\n");
        return exitFailed;
    }
}

}  // namespace quelcnv::cli
