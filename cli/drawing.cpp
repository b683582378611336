#include "cli/drawing.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "cli/info.h"
#include "cli/report.h"
#include "cli/svg_drawing.h"
#include "cli/terminal_text.h"
#include "common/text_case.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

const Problem* problemOf(const FileSummary& summary, ProblemKind kind) {
    auto found = std::ranges::find(summary.problems, kind, &Problem::kind);
    return found == summary.problems.end() ? nullptr : &*found;
}

// "1 fila", "5 filas": a count and its noun.
std::string counted(std::size_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string whatIsDrawn(const FileModel& content) {
    switch (content.kind) {
        case ModelKind::profile:
            return "rasante, " + counted(content.profile.size(), "vértice", "vértices");
        case ModelKind::superelevation:
            return "peralte, " + counted(content.superelevation.size(), "fila", "filas");
        case ModelKind::sections:
            return counted(content.sections.size(), "sección transversal",
                           "secciones transversales");
        case ModelKind::points: return counted(content.points.size(), "punto", "puntos");
        case ModelKind::plan: break;
    }
    std::size_t elements = 0;
    for (const NamedAlignment& a : content.alignments) elements += a.elements.size();
    return "eje en planta, " + counted(elements, "elemento", "elementos");
}

std::string optionOf(const LandXmlChoice& choice) {
    return choice.alignment ? "--eje" : choice.profile ? "--rasante" : "--transversales";
}

void checkRequest(const DrawingRequest& request, std::optional<DataKind> asked) {
    if (!equalsIgnoringCase(std::filesystem::path(request.output).extension().string(), ".svg"))
        throw UsageError("el dibujo se escribe en SVG: la salida ha de acabar en .svg: " +
                         pathText(request.output));
    if (request.type && !asked)
        throw UsageError("--tipo ha de ser eje, rasante, peralte, transversales o puntos");
    std::optional<DataKind> chosen = chosenKind(request.choice);
    if (asked && chosen && asked != chosen)
        throw UsageError("--tipo " + *request.type + " y " + optionOf(request.choice) +
                         " piden dos tipos distintos");
}

}  // namespace

int runDrawing(const DrawingRequest& request) {
    std::optional<DataKind> asked =
        request.type ? modelKind(*request.type) : std::optional<DataKind>();
    checkRequest(request, asked);
    FileSummary summary = recogniseFile(request.input);
    if (!summary.opened) {
        say(std::cerr,
            "quelcnv: no se puede abrir el fichero de entrada: " + pathText(request.input) + "\n");
        return exitNoInput;
    }
    if (const Problem* unit = problemOf(summary, ProblemKind::nonMetricUnit))
        say(std::cerr,
            "quelcnv: aviso: " + pathText(request.input) + ": " + problemText(*unit) + "\n");
    ModelSource source = openFileModel(request.input, summary, asked, request.choice);
    if (!source.model) {
        say(std::cerr, "quelcnv: " + source.problem + "\n");
        return exitFailed;
    }
    if (!writeSvgDrawing(*source.model, request.output).ok()) {
        say(std::cerr,
            "quelcnv: no se puede escribir el dibujo: " + pathText(request.output) + "\n");
        return exitFailed;
    }
    say(std::cerr,
        "quelcnv: dibujado " + pathText(request.output) + ": " + whatIsDrawn(*source.model) + "\n");
    return exitDone;
}

}  // namespace quelcnv::cli
