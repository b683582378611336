#include "cli/drawing.h"

#include <cctype>
#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/drawing_sources.h"
#include "cli/report.h"
#include "cli/svg_drawing.h"
#include "cli/terminal_text.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

std::string whatIsDrawn(const DrawingContent& content) {
    switch (content.kind) {
        case DrawingKind::profile:
            return "rasante, " + std::to_string(content.profile.size()) + " vértices";
        case DrawingKind::sections:
            return std::to_string(content.sections.size()) + " secciones transversales";
        default: {
            std::size_t elements = 0;
            for (const NamedAlignment& a : content.alignments) elements += a.elements.size();
            return "eje en planta, " + std::to_string(elements) + " elementos";
        }
    }
}

}  // namespace

int runDrawing(const DrawingRequest& request) {
    std::string extension = std::filesystem::path(request.output).extension().string();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (extension != ".svg")
        throw UsageError("el dibujo se escribe en SVG: la salida ha de acabar en .svg: " +
                         pathText(request.output));
    DrawingSource source = readDrawingSource(request.input, request.choice);
    if (source.unreadable) {
        say(std::cerr, "quelcnv: " + source.problem + ": " + pathText(request.input) + "\n");
        return exitNoInput;
    }
    if (!source.content) {
        say(std::cerr, "quelcnv: nada que dibujar en " + pathText(request.input) + ": " +
                           source.problem + "\n");
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
