// The drawing of what a file holds, as an SVG file for checking geometry by
// eye: alignments in plan, a vertical profile with its vertical curves, the
// superelevation's cross-falls along the stations, cross sections as a grid
// of panels, or points in plan; each with a scale bar, stations every 100
// units where there are stations, and a legend.
//
// The geometry is kept in true coordinates: each drawn group carries a
// transform from the file's units (less an origin the group states in its
// data-origen-x and data-origen-y attributes) to the page, so the points in
// the file are the points of the road.
#pragma once

#include <string>
#include <string_view>

#include "common/outcome.h"
#include "frame/file_models.h"

namespace quelcnv::cli {

// The SVG text of the drawing.
std::string svgDrawing(const FileModel& content);

// Writes it to path, leaving no partial file behind.
Outcome writeSvgDrawing(const FileModel& content, const std::string& path);

// "0+100", "12+345.600": a station as kilometres and metres.
std::string stationLabel(double station, int decimals = 0);

// The same in the drawing's unit: in feet, stations of 100 feet and feet
// ("12+50"); in any other unit, as in metres.
std::string stationLabelIn(double station, std::string_view unit, int decimals = 0);

}  // namespace quelcnv::cli
