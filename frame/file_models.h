// What a file holds, read into a model: alignments in plan, a vertical
// profile, superelevation, cross sections or points, as the drawings and the
// public API take them. Every format goes through the library's own reader
// of it, or its importer into the library's own format (in a private
// temporary folder) and the reader of that.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alignment/nevo_alignment_reading.h"
#include "alignment/plan_geometry.h"
#include "common/error_message.h"
#include "crosssection/section_point.h"
#include "fielddata/point_files.h"
#include "frame/recognition.h"
#include "profile/profile_vertex.h"
#include "profile/superelevation_file.h"

namespace quelcnv {

enum class ModelKind { plan, profile, superelevation, sections, points };

struct NamedAlignment {
    std::string name;
    std::vector<PlanElement> elements;
};

struct CrossSection {
    double station = 0.0;
    std::vector<SectionPoint> points;  // by offset
};

// The unit of a model read from a document that declares feet.
inline constexpr std::string_view feetWord = "pies";

struct FileModel {
    ModelKind kind = ModelKind::plan;
    std::string file;        // the file read
    std::string name;        // what was chosen from a LandXML document, in the code page
    std::string unit = "m";  // the unit of lengths and stations, as drawings label them
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

// The kind the choice asks for: alignment, profile, cross sections; none
// when nothing is chosen.
std::optional<DataKind> chosenKind(const LandXmlChoice& choice);

struct ModelSource {
    std::optional<FileModel> model;
    std::string problem;  // why there is no model, in UTF-8, the file not named
};

// The file read in one format, through the library's reader of it or its
// importer into the library's own format; nothing, with the reason, when
// the format is not read into a model or the file gives nothing.
ModelSource readFormatModel(const std::string& path, FileFormat format);

// Whether the format is read into a model.
bool isModelFormat(FileFormat format);

// The file read as a kind in the kind's plain formats, in a fixed order:
// the first that gives a model.
ModelSource readKindModel(const std::string& path, DataKind kind);

// From a LandXML document whose names the contents give: its alignments
// (all, or the one chosen), a profile or a surface's cross sections, as the
// kind says. A profile or a surface not chosen by name is the document's
// only one. The alignment reader's messages go to showMessage.
ModelSource readLandXmlModel(const std::string& path, const LandXmlContents& contents,
                             DataKind kind, const LandXmlChoice& choice,
                             const ErrorMessage& showMessage = showErrorMessage);

// What the file the summary describes holds, as the kind asked for or,
// when none is asked, as the kind recognised. Refused without a kind asked:
// a file whose format is unknown or only possible, or of a kind that is not
// read into a model. With a kind asked: read in the recognised format when
// it is of that kind, else in the kind's plain formats. The problem is a
// whole sentence naming the file, as the command says it ("nada que dibujar
// en eje.txt: ...").
ModelSource openFileModel(const std::string& path, const FileSummary& summary,
                          std::optional<DataKind> asked, const LandXmlChoice& choice,
                          const ErrorMessage& showMessage = showErrorMessage);

// The kinds read into models, as their words say them ("eje", "rasante",
// "peralte", "transversales", "puntos").
std::optional<DataKind> modelKind(std::string_view word);

// The consecutive points sharing a station (within 0.001), each section's
// points ordered by offset.
std::vector<CrossSection> groupSections(const std::vector<SectionPoint>& points);

}  // namespace quelcnv
