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

constexpr char kindsAsked[] = "--tipo eje|rasante|peralte|transversales|puntos";

// "1 fila", "5 filas": a count and its noun.
std::string counted(std::size_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string whatIsDrawn(const DrawingContent& content) {
    switch (content.kind) {
        case DrawingKind::profile:
            return "rasante, " + counted(content.profile.size(), "vértice", "vértices");
        case DrawingKind::superelevation:
            return "peralte, " + counted(content.superelevation.size(), "fila", "filas");
        case DrawingKind::sections:
            return counted(content.sections.size(), "sección transversal",
                           "secciones transversales");
        case DrawingKind::points: return counted(content.points.size(), "punto", "puntos");
        case DrawingKind::plan: break;
    }
    std::size_t elements = 0;
    for (const NamedAlignment& a : content.alignments) elements += a.elements.size();
    return "eje en planta, " + counted(elements, "elemento", "elementos");
}

// The field data the drawings do not draw, as a sentence names them.
std::string notDrawn(FileFormat format) {
    switch (format) {
        case FileFormat::levelReadings: return "un fichero KL500 de nivelación";
        case FileFormat::levelBook: return "una libreta de nivelación IGN";
        case FileFormat::levelUpload: return "una carga de cotas para el nivel";
        case FileFormat::leaSurvey: return "un levantamiento LEA";
        case FileFormat::nevoObservations: return "un fichero NEVO de observaciones";
        case FileFormat::medrix: return "un fichero Medrix de observaciones";
        case FileFormat::roboticReadings: return "un fichero de lecturas de la robotizada NEVO-800";
        default: return "un fichero " + std::string(formatName(format));
    }
}

const Problem* problemOf(const FileSummary& summary, ProblemKind kind) {
    auto found = std::ranges::find(summary.problems, kind, &Problem::kind);
    return found == summary.problems.end() ? nullptr : &*found;
}

// Why the recogniser could not tell the file: it is empty, it is no text,
// or its lines have a format's shape as others' do.
std::string unknownSentence(const std::string& path, const FileSummary& summary) {
    std::string why;
    for (ProblemKind kind : {ProblemKind::empty, ProblemKind::notText})
        if (const Problem* problem = problemOf(summary, kind)) why = problemText(*problem);
    if (why.empty() && summary.format != FileFormat::unknown)
        why = "quizá " + std::string(formatName(summary.format));
    return "no se sabe qué es " + pathText(path) + (why.empty() ? "" : " (" + why + ")") +
           ": dígalo con " + kindsAsked;
}

bool drawsKind(DataKind kind) { return drawnKind(kindWord(kind)).has_value(); }

// Without a kind asked: why a file not surely recognised, or of a kind not
// drawn, is refused.
std::optional<std::string> refusal(const std::string& path, const FileSummary& summary) {
    if (summary.format == FileFormat::unknown || summary.certainty <= Certainty::possible)
        return unknownSentence(path, summary);
    if (!drawsKind(summary.kind))
        return pathText(path) + " es " + notDrawn(summary.format) + ", que no se dibuja";
    return std::nullopt;
}

DrawingSource asKind(const std::string& path, const FileSummary& summary, DataKind kind) {
    if (summary.kind == kind && isDrawnFormat(summary.format))
        return readDrawingFormat(path, summary.format);
    DrawingSource source = readDrawingKind(path, kind);
    if (!source.content)
        source.problem = "leído como " + std::string(kindWord(kind)) + ", " + source.problem;
    return source;
}

// "pies" for the feet a LandXML document may declare, else the unit as
// declared.
std::string unitWord(const std::string& declared) {
    for (const char* feet : {"foot", "USSurveyFoot", "InternationalFoot"})
        if (declared == feet) return std::string(feetWord);
    return declared;
}

// The kind a LandXML option chooses.
std::optional<DataKind> kindChosen(const LandXmlChoice& choice) {
    if (choice.alignment) return DataKind::alignment;
    if (choice.profile) return DataKind::profile;
    if (choice.surface) return DataKind::crossSections;
    return std::nullopt;
}

DrawingSource fromLandXml(const std::string& path, const FileSummary& summary,
                          std::optional<DataKind> asked, const LandXmlChoice& choice) {
    if (!summary.landXml) return {std::nullopt, "no se puede leer el documento LandXML"};
    DataKind kind = kindChosen(choice).value_or(asked.value_or(DataKind::alignment));
    DrawingSource source = readLandXmlDrawing(path, *summary.landXml, kind, choice);
    if (const Problem* unit = problemOf(summary, ProblemKind::nonMetricUnit);
        unit && source.content)
        source.content->unit = unitWord(unit->detail);
    return source;
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
    std::optional<DataKind> chosen = kindChosen(request.choice);
    if (asked && chosen && asked != chosen)
        throw UsageError("--tipo " + *request.type + " y " + optionOf(request.choice) +
                         " piden dos tipos distintos");
}

}  // namespace

DrawingSource readDrawingSource(const std::string& path, const FileSummary& summary,
                                std::optional<DataKind> asked, const LandXmlChoice& choice) {
    DrawingSource source;
    if (summary.kind == DataKind::landXml) {
        source = fromLandXml(path, summary, asked, choice);
    } else if (choice.any()) {
        source.problem = "--eje, --rasante y --transversales solo valen para LandXML";
    } else if (asked) {
        source = asKind(path, summary, *asked);
    } else if (std::optional<std::string> refused = refusal(path, summary)) {
        return {std::nullopt, *refused};
    } else {
        source = readDrawingFormat(path, summary.format);
    }
    if (source.content)
        source.content->file = path;
    else
        source.problem = "nada que dibujar en " + pathText(path) + ": " + source.problem;
    return source;
}

int runDrawing(const DrawingRequest& request) {
    std::optional<DataKind> asked =
        request.type ? drawnKind(*request.type) : std::optional<DataKind>();
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
    DrawingSource source = readDrawingSource(request.input, summary, asked, request.choice);
    if (!source.content) {
        say(std::cerr, "quelcnv: " + source.problem + "\n");
        return exitFailed;
    }
    if (!writeSvgDrawing(*source.content, request.output).ok()) {
        say(std::cerr,
            "quelcnv: no se puede escribir el dibujo: " + pathText(request.output) + "\n");
        return exitFailed;
    }
    say(std::cerr, "quelcnv: dibujado " + pathText(request.output) + ": " +
                       whatIsDrawn(*source.content) + "\n");
    return exitDone;
}

}  // namespace quelcnv::cli
