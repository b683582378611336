// What a file holds, read for drawing: alignments in plan, a vertical
// profile, superelevation, cross sections or points. Every format goes
// through the library's own reader of it, or its importer into the
// library's own format and the reader of that.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alignment/nevo_alignment_reading.h"
#include "alignment/plan_geometry.h"
#include "crosssection/section_point.h"
#include "fielddata/point_files.h"
#include "frame/recognition.h"
#include "profile/profile_vertex.h"
#include "profile/superelevation_file.h"

namespace quelcnv::cli {

enum class DrawingKind { plan, profile, superelevation, sections, points };

struct NamedAlignment {
    std::string name;
    std::vector<PlanElement> elements;
};

struct CrossSection {
    double station = 0.0;
    std::vector<SectionPoint> points;  // by offset
};

// The unit a drawing is labelled in when its document declares feet.
inline constexpr std::string_view feetWord = "pies";

struct DrawingContent {
    DrawingKind kind = DrawingKind::plan;
    std::string file;        // the file drawn
    std::string name;        // what was chosen from a LandXML document, in the code page
    std::string unit = "m";  // the unit of lengths and stations, as the labels say it
    std::vector<NamedAlignment> alignments;
    Profile profile;
    std::vector<SuperelevationRow> superelevation;  // cross-falls in percent
    std::vector<CrossSection> sections;
    std::vector<NamedPoint> points;
};

// From a LandXML document, one of: an alignment by name or index (none: all
// of them), a profile as its list shows it ("EJE: RASANTE"), the cross
// sections of a surface as its list shows it ("EJE: SUPERFICIE").
struct LandXmlChoice {
    std::optional<std::string> alignment, profile, surface;
    bool any() const { return alignment || profile || surface; }
};

struct DrawingSource {
    std::optional<DrawingContent> content;
    std::string problem;  // why there is nothing to draw, in UTF-8, the file not named
};

// The file read in one format, through the library's reader of it or its
// importer into the library's own format; nothing, with the reason, when
// the format is not drawn or the file gives nothing to draw.
DrawingSource readDrawingFormat(const std::string& path, FileFormat format);

// Whether the drawings read the format.
bool isDrawnFormat(FileFormat format);

// The file read as a kind in the kind's plain formats, in a fixed order:
// the first that gives something to draw.
DrawingSource readDrawingKind(const std::string& path, DataKind kind);

// From a LandXML document whose names the contents give: its alignments
// (all, or the one chosen), a profile or a surface's cross sections, as the
// kind says. A profile or a surface not chosen by name is the document's
// only one.
DrawingSource readLandXmlDrawing(const std::string& path, const LandXmlContents& contents,
                                 DataKind kind, const LandXmlChoice& choice);

// The kinds the drawings draw, as the --tipo words say them.
std::optional<DataKind> drawnKind(std::string_view word);

// The consecutive points sharing a station (within 0.001), each section's
// points ordered by offset.
std::vector<CrossSection> groupSections(const std::vector<SectionPoint>& points);

}  // namespace quelcnv::cli
