// What a file holds, read for drawing: alignments in plan, a vertical
// profile, or cross sections. The kind is told from the file itself: the
// library's alignment, profile and cross-section files, and LandXML.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/plan_geometry.h"
#include "crosssection/section_point.h"
#include "profile/profile_vertex.h"

namespace quelcnv::cli {

enum class DrawingKind { plan, profile, sections };

struct NamedAlignment {
    std::string name;
    std::vector<PlanElement> elements;
};

struct CrossSection {
    double station = 0.0;
    std::vector<SectionPoint> points;  // by offset
};

struct DrawingContent {
    DrawingKind kind = DrawingKind::plan;
    std::string file;  // the file drawn
    std::string name;  // what was chosen from a LandXML document, in the code page
    std::vector<NamedAlignment> alignments;
    Profile profile;
    std::vector<CrossSection> sections;
};

// From a LandXML document, one of: an alignment by name or index (none: all
// of them), a profile as its list shows it ("EJE: RASANTE"), the cross
// sections of a surface as its list shows it ("EJE: SUPERFICIE").
struct LandXmlChoice {
    std::optional<std::string> alignment, profile, surface;
};

struct DrawingSource {
    std::optional<DrawingContent> content;
    bool unreadable = false;  // the file cannot be opened
    std::string problem;      // why there is nothing to draw
};

DrawingSource readDrawingSource(const std::string& path, const LandXmlChoice& choice);

// The consecutive points sharing a station (within 0.001), each section's
// points ordered by offset.
std::vector<CrossSection> groupSections(const std::vector<SectionPoint>& points);

}  // namespace quelcnv::cli
