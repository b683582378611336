#include "frame/report_text.h"

#include <algorithm>

#include "common/code_page.h"

namespace quelcnv {

namespace {

// The first argument of that kind, as UTF-8 for a message, or an empty text.
std::string firstOf(const CallDescription& call, bool (*kind)(std::string_view)) {
    for (std::size_t i = 0; i < call.argumentNames.size() && i < call.arguments.size(); ++i)
        if (kind(call.argumentNames[i])) return pathText(call.arguments[i]);
    return {};
}

std::string atLine(long line) { return line > 0 ? " (línea " + std::to_string(line) + ")" : ""; }

void addCount(std::string& text, long count, const char* one, const char* many) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + " " + (count == 1 ? one : many);
}

bool isSelection(const CallDescription& call) { return call.operation.starts_with("selecciona"); }

// Where the good conversion's output went: the output file, or the selection list.
std::string destination(const CallDescription& call) {
    if (isSelection(call)) return "lista de selección";
    return firstOf(call, isOutputArgument);
}

std::string failureText(const CallDescription& call, const Outcome& outcome) {
    std::string input = firstOf(call, isInputArgument);
    std::string output = firstOf(call, isOutputArgument);
    std::string line = atLine(outcome.line);
    switch (outcome.failure) {
        case Failure::none: break;
        case Failure::inputUnreadable: return "no se puede leer el fichero de entrada: " + input;
        case Failure::outputUnwritable:
            return "no se puede escribir el fichero de salida: " +
                   (isSelection(call) ? std::string("lista de selección") : output);
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
            return "la conversión " + std::string(call.operation) +
                   " no está disponible en esta versión";
    }
    return std::string(describe(outcome.failure));
}

Verdict verdictOf(Failure failure) {
    if (failure == Failure::inputUnreadable) return Verdict::noInput;
    if (failure == Failure::invalidArgument) return Verdict::badArgument;
    return Verdict::failed;
}

std::string warning(const std::string& path, const std::string& what) {
    return pathText(path) + ": " + what;
}

// A file recognised for sure, or nearly, as a format the operation does not
// read.
void addFormatWarning(const CallDescription& call, const std::string& path,
                      const FileSummary& summary, std::vector<std::string>& texts) {
    std::span<const FileFormat> read = formatsReadBy(call.operation);
    if (read.empty() || summary.format == FileFormat::unknown ||
        summary.certainty < Certainty::likely || std::ranges::count(read, summary.format) > 0)
        return;
    std::string expected;
    for (FileFormat format : read)
        expected += (expected.empty() ? "" : ", ") + std::string(formatName(format));
    texts.push_back(warning(path, "parece un fichero " + std::string(formatName(summary.format)) +
                                      ", y " + std::string(call.operation) + " lee " + expected));
}

bool hasAllZero(const FileSummary& summary) {
    return std::ranges::any_of(summary.problems, [](const Problem& problem) {
        return problem.kind == ProblemKind::allZero;
    });
}

}  // namespace

std::string pathText(std::string_view path) { return utf8Text(fileNameCharacters(path)); }

std::string nameText(std::string_view codePageName) {
    return utf8Text(codePageCharacters(codePageName));
}

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

ConversionText conversionText(const CallDescription& call, const Outcome& outcome) {
    std::string input = firstOf(call, isInputArgument);
    bool read = outcome.failure != Failure::inputUnreadable && outcome.failure != Failure::sameFile;
    if (call.readsOnly && read)
        return {Verdict::failed,
                "esta versión lee " + input + " pero no lo convierte: no se ha escrito nada"};
    if (!outcome.ok()) return {verdictOf(outcome.failure), failureText(call, outcome)};
    std::string written = describeWritten(outcome.written);
    if (written.empty() && !input.empty())
        return {Verdict::failed,
                "no se ha reconocido ningún dato en el fichero de entrada: " + input};
    if (written.empty()) return {};
    return {Verdict::done, written + " -> " + destination(call)};
}

std::string problemText(const Problem& problem) {
    std::string line = std::to_string(problem.line);
    switch (problem.kind) {
        case ProblemKind::notText: return "no es un fichero de texto";
        case ProblemKind::empty: return "está vacío";
        case ProblemKind::malformedXml:
            return "el documento XML no está bien formado (línea " + line + ")";
        case ProblemKind::cutShort:
            return "el documento XML se acaba antes de cerrarse (línea " + line + ")";
        case ProblemKind::linesSkipped:
            return std::to_string(problem.count) +
                   (problem.count == 1 ? " línea no se lee" : " líneas no se leen") +
                   " (la primera, la " + line + ")";
        case ProblemKind::lastLineLost:
            return "la última línea (" + line + ") no acaba en un salto de línea y no se lee";
        case ProblemKind::allZero: return "todos los números leídos son cero";
        case ProblemKind::nonMetricUnit:
            return "declara la unidad lineal " + nameText(problem.detail) +
                   "; las conversiones toman las coordenadas tal cual, como metros";
        case ProblemKind::noData: return "no tiene ningún dato que convertir";
    }
    return "";
}

InputWarnings inputWarnings(const CallDescription& call) {
    InputWarnings warnings;
    bool first = true;
    for (std::size_t i = 0; i < call.argumentNames.size() && i < call.arguments.size(); ++i) {
        if (!isInputArgument(call.argumentNames[i])) continue;
        const std::string& path = call.arguments[i];
        FileSummary summary = recogniseFile(path);
        if (!summary.opened) continue;  // the conversion says it cannot read it
        if (first) addFormatWarning(call, path, summary, warnings.texts);
        first = false;
        for (const Problem& problem : summary.problems)
            if (problem.kind == ProblemKind::allZero ||
                problem.kind == ProblemKind::nonMetricUnit || problem.kind == ProblemKind::notText)
                warnings.texts.push_back(warning(path, problemText(problem)));
        warnings.allZero = warnings.allZero || hasAllZero(summary);
    }
    return warnings;
}

std::vector<std::string> zeroOutputWarnings(const CallDescription& call) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < call.argumentNames.size() && i < call.arguments.size(); ++i) {
        if (!isOutputArgument(call.argumentNames[i])) continue;
        if (hasAllZero(recogniseFile(call.arguments[i])))
            texts.push_back(
                warning(call.arguments[i],
                        "solo tiene ceros: todo lo que se ha leído de la entrada es cero"));
    }
    return texts;
}

}  // namespace quelcnv
