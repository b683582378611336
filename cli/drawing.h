// quelcnv dibujo: draws what a file holds as an SVG file.
#pragma once

#include <string>
#include <vector>

namespace quelcnv::cli {

// The words after "dibujo": ENTRADA SALIDA.svg, and for a LandXML document
// at most one of --eje NOMBRE|N, --rasante "EJE: RASANTE",
// --transversales "EJE: SUPERFICIE". The exit status: 0 drawn, 1 nothing to
// draw or the drawing cannot be written, 2 wrong usage, 3 the input cannot
// be opened.
int runDrawing(const std::vector<std::string>& words);

}  // namespace quelcnv::cli
