// The drawing of what a file holds, as an SVG file for checking geometry by
// eye: alignments in plan, a vertical profile with its vertical curves, or
// cross sections as a grid of panels; each with a scale bar, stations every
// 100 m where there are stations, and a legend.
//
// The geometry is kept in true coordinates: each drawn group carries a
// transform from metres (less an origin the group states in its data-origen-x
// and data-origen-y attributes) to the page, so the points in the file are
// the points of the road.
#pragma once

#include <string>

#include "cli/drawing_sources.h"
#include "common/outcome.h"

namespace quelcnv::cli {

// The SVG text of the drawing.
std::string svgDrawing(const DrawingContent& content);

// Writes it to path, leaving no partial file behind.
Outcome writeSvgDrawing(const DrawingContent& content, const std::string& path);

// "0+100", "12+345.600": a station as kilometres and metres.
std::string stationLabel(double station, int decimals = 0);

}  // namespace quelcnv::cli
