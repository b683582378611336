#include "frame/file_models.h"

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
#include "common/numbers.h"
#include "common/temp_folder.h"
#include "common/text_case.h"
#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "frame/report_text.h"
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

namespace quelcnv {

namespace {

using F = FileFormat;

ModelSource nothing(std::string reason) { return {std::nullopt, std::move(reason)}; }

ModelSource modelOf(FileModel content) { return {std::move(content), std::string()}; }

// Why a reader or an importer gave up, with the input's line when it found one.
std::string failureReason(const Outcome& outcome) {
    std::string reason(describe(outcome.failure));
    if (outcome.line > 0) reason += " (línea " + std::to_string(outcome.line) + ")";
    return reason;
}

ModelSource planOf(std::vector<NamedAlignment> alignments, std::string name = "") {
    std::erase_if(alignments, [](const NamedAlignment& a) { return a.elements.empty(); });
    if (alignments.empty()) return nothing("no hay ningún elemento de eje");
    FileModel content;
    content.name = std::move(name);
    content.alignments = std::move(alignments);
    return modelOf(std::move(content));
}

ModelSource profileOf(const ProfileRead& read, std::string name = "") {
    if (!read.outcome.ok()) return nothing(failureReason(read.outcome));
    Profile vertices = read.vertices;
    std::erase_if(vertices, [](const ProfileVertex& v) {
        return !std::isfinite(v.station) || !std::isfinite(v.elevation);
    });
    if (vertices.size() < 2) return nothing("la rasante no tiene al menos dos vértices");
    FileModel content;
    content.kind = ModelKind::profile;
    content.name = std::move(name);
    content.profile = std::move(vertices);
    return modelOf(std::move(content));
}

// The points handed over one by one by a cross-section reader, grouped into
// sections.
ModelSource sectionsOf(Outcome (*read)(const std::string&, const EachPoint&),
                       const std::string& path, std::string name = "") {
    std::vector<SectionPoint> points;
    Outcome outcome = read(path, [&points](const SectionPointText& p) {
        if (std::isfinite(p.station) && std::isfinite(p.offset) && std::isfinite(p.elevation))
            points.push_back(p.owned());
    });
    if (!outcome.ok()) return nothing(failureReason(outcome));
    if (points.empty()) return nothing("no hay ningún punto de transversal");
    FileModel content;
    content.kind = ModelKind::sections;
    content.name = std::move(name);
    content.sections = groupSections(points);
    return modelOf(std::move(content));
}

// Station, elevation and full curve length, as the LandXML profile
// conversion writes them.
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

ModelSource ruxoPlan(const std::string& path) { return planOf({{"", ruxoElements(path)}}); }
ModelSource nevoPlan(const std::string& path) { return planOf({{"", readNevoAlignment(path)}}); }
ModelSource velmModel(const std::string& path) { return profileOf(readVelmProfile(path)); }
ModelSource ruxoProfileModel(const std::string& path) { return profileOf(readRuxoProfile(path)); }
ModelSource curveLengthModel(const std::string& path) { return profileOf(readCurveLengths(path)); }
ModelSource istramProfileModel(const std::string& path) {
    return profileOf(readIstramProfile(path));
}
ModelSource ispolProfileModel(const std::string& path) { return profileOf(readIspolProfile(path)); }
ModelSource ruxoSectionsModel(const std::string& path) {
    return sectionsOf(readRuxoSections, path);
}
ModelSource commaSectionsModel(const std::string& path) {
    return sectionsOf(readCommaSections, path);
}

ModelSource superelevationModel(const std::string& path) {
    std::optional<std::vector<SuperelevationRow>> rows = readSuperelevationFile(path);
    if (!rows) return nothing(std::string(describe(Failure::inputUnreadable)));
    std::erase_if(*rows, [](const SuperelevationRow& r) {
        return !std::isfinite(r.station) || !std::isfinite(r.firstFall) ||
               !std::isfinite(r.secondFall);
    });
    if (rows->empty()) return nothing("no hay ninguna fila de peralte");
    FileModel content;
    content.kind = ModelKind::superelevation;
    content.superelevation = std::move(*rows);
    return modelOf(std::move(content));
}

ModelSource pointsOf(std::optional<std::vector<NamedPoint>> points) {
    if (!points) return nothing(std::string(describe(Failure::inputUnreadable)));
    std::erase_if(*points, [](const NamedPoint& p) {
        return !std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z);
    });
    if (points->empty()) return nothing("no hay ningún punto");
    FileModel content;
    content.kind = ModelKind::points;
    content.points = std::move(*points);
    return modelOf(std::move(content));
}

ModelSource pointListModel(const std::string& path) { return pointsOf(readPointList(path)); }
ModelSource nevoPointsModel(const std::string& path) { return pointsOf(readNevoPoints(path)); }

// How a format is drawn: read as it is, or imported first into the
// library's own format of its kind (the RUXO alignment or cross-section
// file, the VELM profile file, the superelevation file) and that read.
struct FormatReader {
    FileFormat format;
    FileConversion import;  // nullptr: read as it is
    ModelSource (*read)(const std::string& path);
};

constexpr FormatReader formatReaders[] = {
    {F::ruxoAlignment, nullptr, ruxoPlan},
    {F::nevoAlignment, nullptr, nevoPlan},
    {F::istramAlignment, importIstramAlignment, ruxoPlan},
    {F::istramListing, importIstramListingAlignment, ruxoPlan},
    {F::ispolAlignment, importIspolAlignment, ruxoPlan},
    {F::htrazadoAlignment, importHtrazadoAlignment, ruxoPlan},
    {F::clipPltAlignment, importClipPltAlignment, ruxoPlan},
    {F::velmProfile, nullptr, velmModel},
    {F::ruxoProfile, nullptr, ruxoProfileModel},
    {F::nevoProfile, nullptr, ruxoProfileModel},
    {F::curveLengthProfile, nullptr, curveLengthModel},
    {F::istramProfile, nullptr, istramProfileModel},
    {F::ispolProfile, nullptr, ispolProfileModel},
    {F::cartomapProfile, convertCartomapProfileToVelm, velmModel},
    {F::ispolSuperelevation, convertIspolSuperelevation, superelevationModel},
    {F::clipSuperelevation, convertClipSuperelevation, superelevationModel},
    {F::superelevationOutput, nullptr, superelevationModel},
    {F::ruxoSections, nullptr, ruxoSectionsModel},
    {F::nevoSections, nullptr, commaSectionsModel},
    {F::commaSections, nullptr, commaSectionsModel},
    {F::istramSections, importIstramSections, ruxoSectionsModel},
    {F::mxroadSections, importMxroadSections, ruxoSectionsModel},
    {F::htrazadoSections, importHtrazadoSections, ruxoSectionsModel},
    {F::clipTerSections, importClipTerSections, ruxoSectionsModel},
    {F::clipTrvSections, importClipTrvSections, ruxoSectionsModel},
    {F::cartomapSections, importCartomapSections, ruxoSectionsModel},
    {F::pointList, nullptr, pointListModel},
    {F::nevoPoints, nullptr, nevoPointsModel},
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

ModelSource imported(const std::string& path, const FormatReader& reader) {
    TempFolder folder("modelo");
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

ModelSource landXmlAlignments(const std::string& path, const LandXmlContents& contents,
                              const std::optional<std::string>& choice,
                              const ErrorMessage& showMessage) {
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
        LandXmlAlignment read = readLandXmlAlignment(path, index, showMessage);
        if (!read.outcome.ok()) return nothing(failureReason(read.outcome));
        alignments.push_back({contents.alignments[static_cast<std::size_t>(index)],
                              elementsFromRecords(read.records)});
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

ModelSource landXmlProfile(const std::string& path, const std::string& name) {
    LandXmlProfile read = readLandXmlProfile(name, path);
    if (!read.outcome.ok()) return nothing(failureReason(read.outcome));
    ModelSource source = profileOf({read.outcome, read.vertices}, name);
    if (!source.model)
        source.problem = "el documento no tiene la rasante \"" + nameText(name) + "\"";
    return source;
}

ModelSource landXmlSections(const std::string& path, const std::string& surface,
                            TempFolder& folder) {
    std::size_t colon = surface.find(": ");
    if (colon == std::string::npos)
        return nothing("la superficie va como la muestra la lista, \"EJE: SUPERFICIE\"");
    std::string ruxo = folder.file("transversales");
    Outcome outcome =
        importLandXmlSections(surface.substr(0, colon), surface.substr(colon + 2), path, ruxo);
    if (!outcome.ok()) return nothing(failureReason(outcome));
    ModelSource source = sectionsOf(readRuxoSections, ruxo, surface);
    if (!source.model)
        source.problem = "el documento no tiene la superficie \"" + nameText(surface) + "\"";
    return source;
}

constexpr char kindsAsked[] = "--tipo eje|rasante|peralte|transversales|puntos";

// The field data the drawings do not draw, as a sentence names them.
std::string notDrawn(FileFormat format) {
    switch (format) {
        case FileFormat::levelReadings: return "un fichero KL500 de nivelación";
        case FileFormat::levelBook: return "una libreta de nivelación IGN";
        case FileFormat::levelUpload: return "una carga de cotas para el nivel";
        case FileFormat::leaSurvey: return "un levantamiento LEA";
        case FileFormat::nevoObservations: return "un fichero NEVO de observaciones";
        case FileFormat::medrix: return "un fichero Medrix de observaciones";
        case FileFormat::roboticReadings: return "un fichero de lecturas de la robotizada NEVO-800";
        default: return "un fichero " + std::string(formatName(format));
    }
}

const Problem* problemOf(const FileSummary& summary, ProblemKind kind) {
    auto found = std::ranges::find(summary.problems, kind, &Problem::kind);
    return found == summary.problems.end() ? nullptr : &*found;
}

// Why the recogniser could not tell the file: it is empty, it is no text,
// or its lines have a format's shape as others' do.
std::string unknownSentence(const std::string& path, const FileSummary& summary) {
    std::string why;
    for (ProblemKind kind : {ProblemKind::empty, ProblemKind::notText})
        if (const Problem* problem = problemOf(summary, kind)) why = problemText(*problem);
    if (why.empty() && summary.format != FileFormat::unknown)
        why = "quizá " + std::string(formatName(summary.format));
    return "no se sabe qué es " + pathText(path) + (why.empty() ? "" : " (" + why + ")") +
           ": dígalo con " + kindsAsked;
}

bool drawsKind(DataKind kind) { return modelKind(kindWord(kind)).has_value(); }

// Without a kind asked: why a file not surely recognised, or of a kind not
// drawn, is refused.
std::optional<std::string> refusal(const std::string& path, const FileSummary& summary) {
    if (summary.format == FileFormat::unknown || summary.certainty <= Certainty::possible)
        return unknownSentence(path, summary);
    if (!drawsKind(summary.kind))
        return pathText(path) + " es " + notDrawn(summary.format) + ", que no se dibuja";
    return std::nullopt;
}

ModelSource asKind(const std::string& path, const FileSummary& summary, DataKind kind) {
    if (summary.kind == kind && isModelFormat(summary.format))
        return readFormatModel(path, summary.format);
    ModelSource source = readKindModel(path, kind);
    if (!source.model)
        source.problem = "leído como " + std::string(kindWord(kind)) + ", " + source.problem;
    return source;
}

// "pies" for the feet a LandXML document may declare, else the unit as
// declared.
std::string unitWord(const std::string& declared) {
    for (const char* feet : {"foot", "USSurveyFoot", "InternationalFoot"})
        if (declared == feet) return std::string(feetWord);
    return declared;
}

ModelSource fromLandXml(const std::string& path, const FileSummary& summary,
                        std::optional<DataKind> asked, const LandXmlChoice& choice,
                        const ErrorMessage& showMessage) {
    if (!summary.landXml) return {std::nullopt, "no se puede leer el documento LandXML"};
    DataKind kind = chosenKind(choice).value_or(asked.value_or(DataKind::alignment));
    ModelSource source = readLandXmlModel(path, *summary.landXml, kind, choice, showMessage);
    if (const Problem* unit = problemOf(summary, ProblemKind::nonMetricUnit); unit && source.model)
        source.model->unit = unitWord(unit->detail);
    return source;
}

}  // namespace

ModelSource readFormatModel(const std::string& path, FileFormat format) {
    const FormatReader* reader = readerOf(format);
    if (!reader) return nothing(std::string(formatName(format)) + ": no se dibuja");
    ModelSource source = reader->import ? imported(path, *reader) : reader->read(path);
    // The HTRAZADO alignment importer converts no element in this version.
    if (!source.model && format == F::htrazadoAlignment)
        source.problem =
            "esta versión no convierte los ejes HTRAZADO: su importación no da "
            "ningún elemento";
    return source;
}

bool isModelFormat(FileFormat format) { return readerOf(format) != nullptr; }

ModelSource readKindModel(const std::string& path, DataKind kind) {
    std::optional<ModelSource> first;  // the main format's reason, when none gives anything
    for (FileFormat format : plainFormats(kind)) {
        ModelSource source = readFormatModel(path, format);
        if (source.model) return source;
        if (!first) first = std::move(source);
    }
    return first.value_or(nothing("no se dibuja como " + std::string(kindWord(kind))));
}

ModelSource readLandXmlModel(const std::string& path, const LandXmlContents& contents,
                             DataKind kind, const LandXmlChoice& choice,
                             const ErrorMessage& showMessage) {
    TempFolder folder("modelo");
    if (!folder.ready()) return nothing(std::string(describe(Failure::scratchUnavailable)));
    std::string why;
    switch (kind) {
        case DataKind::alignment:
            return landXmlAlignments(path, contents, choice.alignment, showMessage);
        case DataKind::profile: {
            auto name = chosenName(choice.profile, contents.profiles, why, "rasante",
                                   "--rasante \"EJE: RASANTE\"");
            return name ? landXmlProfile(path, *name) : nothing(why);
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

ModelSource openFileModel(const std::string& path, const FileSummary& summary,
                          std::optional<DataKind> asked, const LandXmlChoice& choice,
                          const ErrorMessage& showMessage) {
    ModelSource source;
    if (summary.kind == DataKind::landXml) {
        source = fromLandXml(path, summary, asked, choice, showMessage);
    } else if (choice.any()) {
        source.problem = "--eje, --rasante y --transversales solo valen para LandXML";
    } else if (asked) {
        source = asKind(path, summary, *asked);
    } else if (std::optional<std::string> refused = refusal(path, summary)) {
        return {std::nullopt, *refused};
    } else {
        source = readFormatModel(path, summary.format);
    }
    if (source.model)
        source.model->file = path;
    else
        source.problem = "nada que dibujar en " + pathText(path) + ": " + source.problem;
    return source;
}

std::optional<DataKind> chosenKind(const LandXmlChoice& choice) {
    if (choice.alignment) return DataKind::alignment;
    if (choice.profile) return DataKind::profile;
    if (choice.surface) return DataKind::crossSections;
    return std::nullopt;
}

std::optional<DataKind> modelKind(std::string_view word) {
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

}  // namespace quelcnv
