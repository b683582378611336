#include "cli/report.h"

#include "cli/terminal_text.h"
#include "common/scratch.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

bool isInputArgument(std::string_view name) {
    return name == "entrada" || name == "lecturas" || name == "puntos";
}

bool isOutputArgument(std::string_view name) {
    return name == "salida" || name == "salida1" || name == "salida2";
}

// The first argument of that kind, as UTF-8 for a message, or an empty
// text.
std::string firstOf(const Operation& op, const std::vector<std::string>& arguments,
                    bool (*kind)(std::string_view)) {
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size() && i < arguments.size(); ++i)
        if (kind(names[i])) return pathText(arguments[i]);
    return {};
}

std::string atLine(long line) { return line > 0 ? " (línea " + std::to_string(line) + ")" : ""; }

void addCount(std::string& text, long count, const char* one, const char* many) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + " " + (count == 1 ? one : many);
}

bool isSelection(const Operation& op) { return op.name.starts_with("selecciona"); }

// Where the good conversion's output went: the output file, or the selection list.
std::string destination(const Operation& op, const std::vector<std::string>& arguments) {
    if (isSelection(op)) return "lista de selección";
    return firstOf(op, arguments, isOutputArgument);
}

std::string failureMessage(const Operation& op, const std::vector<std::string>& arguments,
                           const Outcome& outcome) {
    std::string input = firstOf(op, arguments, isInputArgument);
    std::string output = firstOf(op, arguments, isOutputArgument);
    std::string line = atLine(outcome.line);
    switch (outcome.failure) {
        case Failure::none: break;
        case Failure::inputUnreadable: return "no se puede leer el fichero de entrada: " + input;
        case Failure::outputUnwritable:
            return "no se puede escribir el fichero de salida: " +
                   (isSelection(op) ? std::string("lista de selección") : output);
        case Failure::noData:
            return "no se ha reconocido ningún dato en el fichero de entrada: " + input;
        case Failure::rejected:
            return "el fichero de entrada no tiene el formato esperado" + line + ": " + input;
        case Failure::malformed:
            return "el documento XML no está bien formado" + line + ": " + input;
        case Failure::tooLarge:
            return "el fichero de entrada pide un tamaño imposible" + line + ": " + input;
        case Failure::scratchUnavailable:
            return "no se puede usar la carpeta de ficheros temporales";
        case Failure::readerUnavailable: return "no se puede crear el lector XML";
        case Failure::invalidArgument: return "selec no puede ser negativo";
        case Failure::sameFile:
            return "no se ha escrito nada: " + pathText(outcome.writtenFile) +
                   " es el mismo fichero que " + pathText(outcome.clashingFile);
        case Failure::notProvided:
            return "la conversión " + std::string(op.name) + " no está disponible en esta versión";
    }
    return std::string(describe(outcome.failure));
}

int statusOf(Failure failure) {
    if (failure == Failure::inputUnreadable) return exitNoInput;
    if (failure == Failure::invalidArgument) return exitUsage;
    return exitFailed;
}

}  // namespace

std::string describeWritten(const Written& written) {
    std::string text;
    addCount(text, written.sections, "sección", "secciones");
    addCount(text, written.points, "punto", "puntos");
    addCount(text, written.records, "punto de eje", "puntos de eje");
    addCount(text, written.vertices, "vértice", "vértices");
    addCount(text, written.names, "nombre", "nombres");
    if (text.empty()) addCount(text, written.lines, "línea", "líneas");
    return text;
}

Report reportOf(const Operation& op, const std::vector<std::string>& arguments,
                const Outcome& outcome) {
    std::string input = firstOf(op, arguments, isInputArgument);
    bool read = outcome.failure != Failure::inputUnreadable && outcome.failure != Failure::sameFile;
    if (op.availability == Availability::readsOnly && read)
        return {exitFailed,
                "esta versión lee " + input + " pero no lo convierte: no se ha escrito nada"};
    if (!outcome.ok()) return {statusOf(outcome.failure), failureMessage(op, arguments, outcome)};
    std::string written = describeWritten(outcome.written);
    if (written.empty() && !input.empty())
        return {exitFailed, "no se ha reconocido ningún dato en el fichero de entrada: " + input};
    if (written.empty()) return {};
    return {exitDone, written + " -> " + destination(op, arguments)};
}

}  // namespace quelcnv::cli
