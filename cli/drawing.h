// quelcnv dibujo: draws what a file holds.
#pragma once

#include <optional>
#include <string>

#include "cli/drawing_sources.h"

namespace quelcnv::cli {

// ENTRADA SALIDA.svg [--tipo TIPO] and, for a LandXML document, at most one
// of --eje NOMBRE|N, --rasante "EJE: RASANTE", --transversales
// "EJE: SUPERFICIE".
struct DrawingRequest {
    std::string input, output;
    std::optional<std::string> type;  // eje, rasante, peralte, transversales, puntos
    LandXmlChoice choice;
};

// The exit status: 0 drawn, 1 nothing to draw or the drawing cannot be
// written, 3 the input cannot be opened; a UsageError for a request that
// cannot be drawn as asked (an unknown type or output format).
int runDrawing(const DrawingRequest& request);

}  // namespace quelcnv::cli
