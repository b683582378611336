#include "cli/drawing.h"

#include <iostream>
#include <optional>

#include "cli/drawing_sources.h"
#include "cli/report.h"
#include "cli/svg_drawing.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

int usage(const std::string& message) {
    std::cerr << "quelcnv: " << message << "\n"
              << "Uso: quelcnv dibujo ENTRADA SALIDA.svg [--eje NOMBRE|N | --rasante \"EJE: "
                 "RASANTE\" | --transversales \"EJE: SUPERFICIE\"]\n";
    return exitUsage;
}

std::string whatIsDrawn(const DrawingContent& content) {
    switch (content.kind) {
        case DrawingKind::profile:
            return "rasante, " + std::to_string(content.profile.size()) + " vertices";
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

int runDrawing(const std::vector<std::string>& words) {
    std::vector<std::string> files;
    LandXmlChoice choice;
    int chosen = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::optional<std::string>* option = words[i] == "--eje"             ? &choice.alignment
                                             : words[i] == "--rasante"       ? &choice.profile
                                             : words[i] == "--transversales" ? &choice.surface
                                                                             : nullptr;
        if (option == nullptr) {
            if (words[i].starts_with("--")) return usage("opcion desconocida: " + words[i]);
            files.push_back(words[i]);
            continue;
        }
        if (i + 1 == words.size()) return usage(words[i] + " necesita un nombre");
        *option = words[++i];
        ++chosen;
    }
    if (files.size() != 2) return usage("dibujo necesita un fichero de entrada y uno de salida");
    if (chosen > 1) return usage("--eje, --rasante y --transversales no van juntas");
    DrawingSource source = readDrawingSource(files[0], choice);
    if (source.unreadable) {
        std::cerr << "quelcnv: " << source.problem << ": " << files[0] << "\n";
        return exitNoInput;
    }
    if (!source.content) {
        std::cerr << "quelcnv: nada que dibujar en " << files[0] << ": " << source.problem << "\n";
        return exitFailed;
    }
    if (!writeSvgDrawing(*source.content, files[1]).ok()) {
        std::cerr << "quelcnv: no se puede escribir el dibujo: " << files[1] << "\n";
        return exitFailed;
    }
    std::cerr << "quelcnv: dibujado " << files[1] << ": " << whatIsDrawn(*source.content) << "\n";
    return exitDone;
}

}  // namespace quelcnv::cli
