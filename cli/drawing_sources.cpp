#include "cli/drawing_sources.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "alignment/ruxo_alignment_file.h"
#include "cli/temp_folder.h"
#include "cli/terminal_text.h"
#include "common/numbers.h"
#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "profile/cartomap_profile.h"
#include "profile/clip_superelevation.h"
#include "profile/ispol_profile.h"
#include "profile/ispol_superelevation.h"
#include "profile/istram_profile.h"
#include "profile/ruxo_profile.h"
#include "profile/velm_profile.h"
#include "profile/vertex_lines.h"

namespace quelcnv::cli {

namespace {

using F = FileFormat;

DrawingSource nothing(std::string reason) { return {std::nullopt, std::move(reason)}; }

DrawingSource drawingOf(DrawingContent content) { return {std::move(content), std::string()}; }

// Why a reader or an importer gave up, with the input's line when it found one.
std::string failureReason(const Outcome& outcome) {
    std::string reason(describe(outcome.failure));
    if (outcome.line > 0) reason += " (línea " + std::to_string(outcome.line) + ")";
    return reason;
}

DrawingSource planOf(std::vector<NamedAlignment> alignments, std::string name = "") {
    std::erase_if(alignments, [](const NamedAlignment& a) { return a.elements.empty(); });
    if (alignments.empty()) return nothing("no hay ningún elemento de eje");
    DrawingContent content;
    content.name = std::move(name);
    content.alignments = std::move(alignments);
    return drawingOf(std::move(content));
}

DrawingSource profileOf(const ProfileRead& read, std::string name = "") {
    if (!read.outcome.ok()) return nothing(failureReason(read.outcome));
    Profile vertices = read.vertices;
    std::erase_if(vertices, [](const ProfileVertex& v) {
        return !std::isfinite(v.station) || !std::isfinite(v.elevation);
    });
    if (vertices.size() < 2) return nothing("la rasante no tiene al menos dos vértices");
    DrawingContent content;
    content.kind = DrawingKind::profile;
    content.name = std::move(name);
    content.profile = std::move(vertices);
    return drawingOf(std::move(content));
}

// The points handed over one by one by a cross-section reader, grouped into
// sections.
DrawingSource sectionsOf(Outcome (*read)(const std::string&, const EachPoint&),
                         const std::string& path, std::string name = "") {
    std::vector<SectionPoint> points;
    Outcome outcome = read(path, [&points](const SectionPointText& p) {
        if (std::isfinite(p.station) && std::isfinite(p.offset) && std::isfinite(p.elevation))
            points.push_back(p.owned());
    });
    if (!outcome.ok()) return nothing(failureReason(outcome));
    if (points.empty()) return nothing("no hay ningún punto de transversal");
    DrawingContent content;
    content.kind = DrawingKind::sections;
    content.name = std::move(name);
    content.sections = groupSections(points);
    return drawingOf(std::move(content));
}

// Station, elevation and full curve length, as the LandXML profile is taken
// out of a document.
ProfileRead readCurveLengths(const std::string& path) {
    ProfileRead read;
    read.outcome = readVertexLines(
        path, 3,
        [](std::span<const std::string_view> fields) {
            return ProfileVertex{parseNumber(fields[0]), parseNumber(fields[1]), 0.0,
                                 parseNumber(fields[2]) / 2.0};
        },
        read.vertices);
    return read;
}

std::vector<PlanElement> ruxoElements(const std::string& path) {
    return elementsFromRecords(readAlignmentFile(path, CommentLines::skipped).records);
}

DrawingSource ruxoPlan(const std::string& path) { return planOf({{"", ruxoElements(path)}}); }
DrawingSource nevoPlan(const std::string& path) { return planOf({{"", readNevoAlignment(path)}}); }
DrawingSource velmDrawing(const std::string& path) { return profileOf(readVelmProfile(path)); }
DrawingSource ruxoProfileDrawing(const std::string& path) {
    return profileOf(readRuxoProfile(path));
}
DrawingSource curveLengthDrawing(const std::string& path) {
    return profileOf(readCurveLengths(path));
}
DrawingSource istramProfileDrawing(const std::string& path) {
    return profileOf(readIstramProfile(path));
}
DrawingSource ispolProfileDrawing(const std::string& path) {
    return profileOf(readIspolProfile(path));
}
DrawingSource ruxoSectionsDrawing(const std::string& path) {
    return sectionsOf(readRuxoSections, path);
}
DrawingSource commaSectionsDrawing(const std::string& path) {
    return sectionsOf(readCommaSections, path);
}

DrawingSource superelevationDrawing(const std::string& path) {
    std::optional<std::vector<SuperelevationRow>> rows = readSuperelevationFile(path);
    if (!rows) return nothing(std::string(describe(Failure::inputUnreadable)));
    std::erase_if(*rows, [](const SuperelevationRow& r) {
        return !std::isfinite(r.station) || !std::isfinite(r.firstFall) ||
               !std::isfinite(r.secondFall);
    });
    if (rows->empty()) return nothing("no hay ninguna fila de peralte");
    DrawingContent content;
    content.kind = DrawingKind::superelevation;
    content.superelevation = std::move(*rows);
    return drawingOf(std::move(content));
}

DrawingSource pointsOf(std::optional<std::vector<NamedPoint>> points) {
    if (!points) return nothing(std::string(describe(Failure::inputUnreadable)));
    std::erase_if(*points, [](const NamedPoint& p) {
        return !std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z);
    });
    if (points->empty()) return nothing("no hay ningún punto");
    DrawingContent content;
    content.kind = DrawingKind::points;
    content.points = std::move(*points);
    return drawingOf(std::move(content));
}

DrawingSource pointListDrawing(const std::string& path) { return pointsOf(readPointList(path)); }
DrawingSource nevoPointsDrawing(const std::string& path) { return pointsOf(readNevoPoints(path)); }

// How a format is drawn: read as it is, or imported first into the
// library's own format of its kind (the RUXO alignment or cross-section
// file, the VELM profile file, the superelevation file) and that read.
struct FormatReader {
    FileFormat format;
    FileConversion import;  // nullptr: read as it is
    DrawingSource (*read)(const std::string& path);
};

constexpr FormatReader formatReaders[] = {
    {F::ruxoAlignment, nullptr, ruxoPlan},
    {F::nevoAlignment, nullptr, nevoPlan},
    {F::istramAlignment, importIstramAlignment, ruxoPlan},
    {F::istramListing, importIstramListingAlignment, ruxoPlan},
    {F::ispolAlignment, importIspolAlignment, ruxoPlan},
    {F::htrazadoAlignment, importHtrazadoAlignment, ruxoPlan},
    {F::clipPltAlignment, importClipPltAlignment, ruxoPlan},
    {F::velmProfile, nullptr, velmDrawing},
    {F::ruxoProfile, nullptr, ruxoProfileDrawing},
    {F::nevoProfile, nullptr, ruxoProfileDrawing},
    {F::curveLengthProfile, nullptr, curveLengthDrawing},
    {F::istramProfile, nullptr, istramProfileDrawing},
    {F::ispolProfile, nullptr, ispolProfileDrawing},
    {F::cartomapProfile, convertCartomapProfileToVelm, velmDrawing},
    {F::ispolSuperelevation, convertIspolSuperelevation, superelevationDrawing},
    {F::clipSuperelevation, convertClipSuperelevation, superelevationDrawing},
    {F::superelevationOutput, nullptr, superelevationDrawing},
    {F::ruxoSections, nullptr, ruxoSectionsDrawing},
    {F::nevoSections, nullptr, commaSectionsDrawing},
    {F::commaSections, nullptr, commaSectionsDrawing},
    {F::istramSections, importIstramSections, ruxoSectionsDrawing},
    {F::mxroadSections, importMxroadSections, ruxoSectionsDrawing},
    {F::htrazadoSections, importHtrazadoSections, ruxoSectionsDrawing},
    {F::clipTerSections, importClipTerSections, ruxoSectionsDrawing},
    {F::clipTrvSections, importClipTrvSections, ruxoSectionsDrawing},
    {F::cartomapSections, importCartomapSections, ruxoSectionsDrawing},
    {F::pointList, nullptr, pointListDrawing},
    {F::nevoPoints, nullptr, nevoPointsDrawing},
};

const FormatReader* readerOf(FileFormat format) {
    for (const FormatReader& reader : formatReaders)
        if (reader.format == format) return &reader;
    return nullptr;
}

// The formats a file is tried in when the user says its kind and the
// recogniser did not find it of that kind: the library's own files first.
constexpr F plainAlignments[] = {F::ruxoAlignment, F::nevoAlignment};
constexpr F plainProfiles[] = {F::velmProfile, F::ruxoProfile, F::curveLengthProfile};
constexpr F plainSuperelevation[] = {F::superelevationOutput};
constexpr F plainSections[] = {F::ruxoSections, F::commaSections};
constexpr F plainPoints[] = {F::pointList, F::nevoPoints};

std::span<const FileFormat> plainFormats(DataKind kind) {
    switch (kind) {
        case DataKind::alignment: return plainAlignments;
        case DataKind::profile: return plainProfiles;
        case DataKind::superelevation: return plainSuperelevation;
        case DataKind::crossSections: return plainSections;
        case DataKind::points: return plainPoints;
        default: return {};
    }
}

DrawingSource imported(const std::string& path, const FormatReader& reader) {
    TempFolder folder("dibujo");
    if (!folder.ready()) return nothing(std::string(describe(Failure::scratchUnavailable)));
    std::string scratch = folder.file("importado");
    Outcome outcome = reader.import(path, scratch);
    if (!outcome.ok()) return nothing(failureReason(outcome));
    return reader.read(scratch);
}

std::optional<int> chosenIndex(const std::string& choice, const LandXmlContents& contents) {
    int index = -1;
    auto [end, error] = std::from_chars(choice.data(), choice.data() + choice.size(), index);
    if (error == std::errc() && end == choice.data() + choice.size())
        return index >= 0 && static_cast<std::size_t>(index) < contents.alignments.size()
                   ? std::optional(index)
                   : std::nullopt;
    auto named = std::find(contents.alignments.begin(), contents.alignments.end(), choice);
    if (named == contents.alignments.end()) return std::nullopt;
    return static_cast<int>(named - contents.alignments.begin());
}

DrawingSource landXmlAlignments(const std::string& path, const LandXmlContents& contents,
                                const std::optional<std::string>& choice, TempFolder& folder) {
    std::vector<int> chosen;
    if (choice) {
        std::optional<int> index = chosenIndex(*choice, contents);
        if (!index) return nothing("el documento no tiene el eje \"" + nameText(*choice) + "\"");
        chosen.push_back(*index);
    } else {
        for (std::size_t i = 0; i < contents.alignments.size(); ++i)
            chosen.push_back(static_cast<int>(i));
    }
    if (chosen.empty()) return nothing("el documento no tiene ejes (vea quelcnv contenido)");
    std::vector<NamedAlignment> alignments;
    for (int index : chosen) {
        std::string ruxo = folder.file(("eje" + std::to_string(index)).c_str());
        Outcome outcome = importLandXmlAlignment(path, index, ruxo);
        if (!outcome.ok()) return nothing(failureReason(outcome));
        alignments.push_back(
            {contents.alignments[static_cast<std::size_t>(index)], ruxoElements(ruxo)});
    }
    std::string name = choice ? alignments.front().name : "";
    return planOf(std::move(alignments), name);
}

// The name chosen, or the document's only one of its list; else why not.
std::optional<std::string> chosenName(const std::optional<std::string>& choice,
                                      const std::vector<std::string>& names, std::string& why,
                                      std::string_view what, std::string_view option) {
    if (choice) return choice;
    if (names.size() == 1) return names.front();
    why = names.empty()
              ? "el documento no tiene " + std::string(what) + "s"
              : "el documento tiene " + std::to_string(names.size()) + " " + std::string(what) +
                    "s: elija una con " + std::string(option) + " (vea quelcnv contenido)";
    return std::nullopt;
}

DrawingSource landXmlProfile(const std::string& path, const std::string& name, TempFolder& folder) {
    std::string vertices = folder.file("rasante");
    Outcome outcome = convertLandXmlProfile(name, path, vertices, ProfileColumns::curveLengths);
    if (!outcome.ok()) return nothing(failureReason(outcome));
    DrawingSource source = profileOf(readCurveLengths(vertices), name);
    if (!source.content)
        source.problem = "el documento no tiene la rasante \"" + nameText(name) + "\"";
    return source;
}

DrawingSource landXmlSections(const std::string& path, const std::string& surface,
                              TempFolder& folder) {
    std::size_t colon = surface.find(": ");
    if (colon == std::string::npos)
        return nothing("la superficie va como la muestra la lista, \"EJE: SUPERFICIE\"");
    std::string ruxo = folder.file("transversales");
    Outcome outcome =
        importLandXmlSections(surface.substr(0, colon), surface.substr(colon + 2), path, ruxo);
    if (!outcome.ok()) return nothing(failureReason(outcome));
    DrawingSource source = sectionsOf(readRuxoSections, ruxo, surface);
    if (!source.content)
        source.problem = "el documento no tiene la superficie \"" + nameText(surface) + "\"";
    return source;
}

}  // namespace

DrawingSource readDrawingFormat(const std::string& path, FileFormat format) {
    const FormatReader* reader = readerOf(format);
    if (!reader) return nothing(std::string(formatName(format)) + ": no se dibuja");
    DrawingSource source = reader->import ? imported(path, *reader) : reader->read(path);
    // The HTRAZADO alignment importer converts no element in this version.
    if (!source.content && format == F::htrazadoAlignment)
        source.problem =
            "esta versión no convierte los ejes HTRAZADO: su importación no da "
            "ningún elemento";
    return source;
}

bool isDrawnFormat(FileFormat format) { return readerOf(format) != nullptr; }

DrawingSource readDrawingKind(const std::string& path, DataKind kind) {
    std::optional<DrawingSource> first;  // the main format's reason, when none gives anything
    for (FileFormat format : plainFormats(kind)) {
        DrawingSource source = readDrawingFormat(path, format);
        if (source.content) return source;
        if (!first) first = std::move(source);
    }
    return first.value_or(nothing("no se dibuja como " + std::string(kindWord(kind))));
}

DrawingSource readLandXmlDrawing(const std::string& path, const LandXmlContents& contents,
                                 DataKind kind, const LandXmlChoice& choice) {
    TempFolder folder("dibujo");
    if (!folder.ready()) return nothing(std::string(describe(Failure::scratchUnavailable)));
    std::string why;
    switch (kind) {
        case DataKind::alignment:
            return landXmlAlignments(path, contents, choice.alignment, folder);
        case DataKind::profile: {
            auto name = chosenName(choice.profile, contents.profiles, why, "rasante",
                                   "--rasante \"EJE: RASANTE\"");
            return name ? landXmlProfile(path, *name, folder) : nothing(why);
        }
        case DataKind::crossSections: {
            auto name = chosenName(choice.surface, contents.surfaces, why, "superficie",
                                   "--transversales \"EJE: SUPERFICIE\"");
            return name ? landXmlSections(path, *name, folder) : nothing(why);
        }
        default:
            return nothing(
                "de un documento LandXML se dibujan ejes, rasantes o transversales, "
                "no " +
                std::string(kindWord(kind)));
    }
}

std::optional<DataKind> drawnKind(std::string_view word) {
    for (DataKind kind : {DataKind::alignment, DataKind::profile, DataKind::superelevation,
                          DataKind::crossSections, DataKind::points})
        if (kindWord(kind) == word) return kind;
    return std::nullopt;
}

std::vector<CrossSection> groupSections(const std::vector<SectionPoint>& points) {
    std::vector<CrossSection> sections;
    for (const SectionPoint& p : points) {
        if (sections.empty() || std::abs(sections.back().station - p.station) >= 0.001)
            sections.push_back({p.station, {}});
        sections.back().points.push_back(p);
    }
    for (CrossSection& section : sections)
        std::stable_sort(
            section.points.begin(), section.points.end(),
            [](const SectionPoint& a, const SectionPoint& b) { return a.offset < b.offset; });
    return sections;
}

}  // namespace quelcnv::cli
