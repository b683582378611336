// The RUXO profile file (station, elevation and vertical-curve length per
// vertex, separated by commas) and its conversion to the five-column tab
// vertex file.
#pragma once

#include <string>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// The vertices of a RUXO profile file, with tangent = half the curve length.
// A last line without a line break is used. Lines without three
// comma-separated parts are skipped.
ProfileRead readRuxoProfile(const std::string& path);

// Reads the RUXO profile file entrada and writes salida, one line per vertex
// with station, elevation, kv, tangent and external separated by tabs; the
// first and the last vertex with zeros for the curve. Fails with
// inputUnreadable when entrada cannot be opened or read, with noData
// (creating nothing) when it holds no vertex, and with outputUnwritable when
// salida cannot be written.
Outcome convertRuxoProfileToVertexFile(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
