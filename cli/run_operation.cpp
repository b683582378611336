#include "cli/run_operation.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "cli/input_warnings.h"
#include "cli/landxml_tools.h"
#include "cli/terminal_text.h"
#include "common/file_path.h"
#include "common/scratch.h"
#include "common/settings.h"
#include "frame/conversion.h"

namespace quelcnv::cli {

namespace {

namespace fs = std::filesystem;
using namespace exits;

// A 32-bit whole number and nothing else, as selec must be.
bool isWholeNumber(const std::string& text) {
    const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
    int value = 0;
    auto [end, error] = std::from_chars(first, text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

std::optional<std::string> countError(const Operation& op, std::size_t given) {
    std::size_t wanted = op.argumentNames().size();
    if (given == wanted) return std::nullopt;
    std::string count = wanted == 1 ? "1 argumento" : std::to_string(wanted) + " argumentos";
    return "la operación " + std::string(op.name) + " necesita " + count + ": " +
           std::string(op.arguments);
}

std::optional<std::string> valueError(const Operation& op, const std::vector<std::string>& args) {
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == "selec" && !isWholeNumber(args[i]))
            return "selec debe ser un número entero: " + pathText(args[i]);
        if (isPathArgument(names[i]) && args[i].size() > maxPathLength)
            return "la ruta es demasiado larga (más de 255 bytes): " + pathText(args[i]);
    }
    return std::nullopt;
}

// The names of the LandXML conversions, from the terminal's encoding into
// the library's; an alignment's name in place of selec becomes its index.
std::optional<std::string> takeLandXmlNames(const Operation& op, std::vector<std::string>& args) {
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size() && i < args.size(); ++i)
        if (names[i] == "nombreRas" || names[i] == "transver" || names[i] == "capa")
            args[i] = nameFromUser(args[i]);
    if (op.name.starts_with("alandxml2nevo") && args.size() == 4 && !isWholeNumber(args[0])) {
        std::optional<int> index = alignmentIndex(args[1], nameFromUser(args[0]));
        if (!index)
            return "el documento no tiene ningún eje llamado \"" + pathText(args[0]) +
                   "\": " + pathText(args[1]);
        args[0] = std::to_string(*index);
    }
    return std::nullopt;
}

// "Eje A: Terreno" in place of transver and capa.
std::optional<std::string> splitSurface(const Operation& op, std::vector<std::string>& args) {
    if (!op.name.starts_with("tralandxml2nevo") || args.size() != 3) return std::nullopt;
    std::size_t colon = args[0].find(": ");
    if (colon == std::string::npos)
        return "la superficie va como la muestra la lista, \"EJE: SUPERFICIE\": " +
               pathText(args[0]);
    args.insert(args.begin() + 1, args[0].substr(colon + 2));
    args[0].resize(colon);
    return std::nullopt;
}

// The files the conversion writes that do not exist yet.
std::vector<std::string> newOutputs(const Operation& op, const std::vector<std::string>& args) {
    const Conversion* conversion = findConversion(op.name);
    auto names = op.argumentNames();
    std::vector<std::string> outputs;
    std::error_code ignored;
    for (std::size_t i = 0; i < names.size() && i < args.size(); ++i) {
        if (!names[i].starts_with("salida")) continue;
        outputs.push_back(args[i]);
        if (conversion != nullptr && !conversion->besideOutput.empty())
            outputs.push_back(replaceExtension(args[i], conversion->besideOutput));
    }
    std::erase_if(outputs, [&](const std::string& path) {
        return fs::exists(fs::symlink_status(path, ignored));
    });
    return outputs;
}

void printSelectionList() {
    ScratchSession scratch(environmentSettings().scratchFolder);
    if (!scratch.ready()) return;
    std::ifstream list(scratch.path(ScratchFile::selectionList), std::ios::binary);
    for (std::string line; std::getline(list, line);) {
        if (line.ends_with('\r')) line.pop_back();
        say(std::cout, nameText(line) + "\n");
    }
}

}  // namespace

PreparedArguments prepareArguments(const Operation& op, std::vector<std::string> typed) {
    PreparedArguments prepared;
    if (auto error = splitSurface(op, typed)) prepared.error = error;
    if (!prepared.error) prepared.error = countError(op, typed.size());
    if (!prepared.error) prepared.error = takeLandXmlNames(op, typed);
    if (!prepared.error) prepared.error = valueError(op, typed);
    prepared.values = std::move(typed);
    return prepared;
}

Report convertAndReport(const Operation& op, std::vector<std::string>& arguments) {
    const Conversion* conversion = findConversion(op.name);
    std::vector<std::string> given = arguments;
    std::vector<std::string> created = newOutputs(op, arguments);
    Outcome outcome = conversion != nullptr
                          ? runConversion(*conversion, arguments, environmentSettings())
                          : Outcome::failed(Failure::notProvided);
    Report report = reportOf(op, given, outcome);
    if (report.status != exitDone) {
        std::error_code ignored;
        for (const std::string& path : created)
            if (fs::is_regular_file(fs::symlink_status(path, ignored))) fs::remove(path, ignored);
    }
    return report;
}

int runOperation(const Operation& op, std::vector<std::string> typed, bool silent) {
    PreparedArguments prepared = prepareArguments(op, std::move(typed));
    if (prepared.error) throw UsageError(*prepared.error);
    bool zeros = warnAboutInputs(op, prepared.values);
    std::vector<std::string> arguments = prepared.values;
    Report report = convertAndReport(op, arguments);
    if (report.status == exitDone && !zeros) warnOfZeroOutputs(op, prepared.values);
    // The sample entry point hands its buffer back in place of its argument.
    if (op.name == "ReverseString") say(std::cout, arguments[0] + "\n");
    if (!report.message.empty() && (report.status != exitDone || !silent))
        say(std::cerr, "quelcnv: " + report.message + "\n");
    if (report.status == exitDone && op.name.starts_with("selecciona")) printSelectionList();
    return report.status;
}

}  // namespace quelcnv::cli
