// quelcnv dibujo: draws what a file holds, when the library's recogniser
// says what it is or the user does.
#pragma once

#include <optional>
#include <string>

#include "frame/file_models.h"
#include "frame/recognition.h"

namespace quelcnv::cli {

// ENTRADA SALIDA.svg [--tipo TIPO] and, for a LandXML document, at most one
// of --eje NOMBRE|N, --rasante "EJE: RASANTE", --transversales
// "EJE: SUPERFICIE".
struct DrawingRequest {
    std::string input, output;
    std::optional<std::string> type;  // eje, rasante, peralte, transversales, puntos
    LandXmlChoice choice;
};

// The exit status: 0 drawn, 1 nothing to draw, the file refused or the
// drawing cannot be written, 3 the input cannot be opened; a UsageError for
// a request that cannot be drawn as asked (an output that is not .svg, a
// type that is no kind drawn or that contradicts the LandXML option given).
int runDrawing(const DrawingRequest& request);

}  // namespace quelcnv::cli
