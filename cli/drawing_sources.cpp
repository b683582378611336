#include "cli/drawing_sources.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "alignment/ruxo_alignment_file.h"
#include "cli/landxml_tools.h"
#include "cli/temp_folder.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"
#include "crosssection/ruxo_sections.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "profile/ruxo_profile.h"
#include "profile/velm_profile.h"
#include "profile/vertex_lines.h"

namespace quelcnv::cli {

namespace {

enum class FileShape {
    unknown,
    landXml,
    nevoAlignment,
    ruxoAlignment,
    vertexFile,     // station, elevation, kv, tangent, external
    curveLengths,   // station, elevation, curve length
    commaProfile,   // the same separated by commas
    blankSections,  // station, offset, elevation [code]
    commaSections,
};

constexpr std::size_t linesLooked = 200;

bool isNumber(std::string_view token) {
    NumberScan scan = scanNumber(token);
    return scan.length != 0 && scan.length == token.size();
}

// What the first lines of a file look like.
struct Look {
    bool opened = false;
    bool startsXml = false, startsNevo = false, comma = false, code = false, repeated = false;
    std::size_t numbers = 0;  // the most leading numbers on a line
};

void lookAtLine(std::string_view line, Look& look, std::vector<double>& stations) {
    static constexpr Separators separators = " \t,\r\n";
    Tokenizer tokens(line);
    std::size_t numbers = 0;
    while (auto token = tokens.next(separators)) {
        if (!isNumber(*token)) {
            look.code = look.code || numbers >= 3;
            break;
        }
        if (numbers++ == 0) stations.push_back(parseNumber(*token));
    }
    look.numbers = std::max(look.numbers, numbers);
    look.comma = look.comma || line.find(',') != std::string_view::npos;
}

Look lookAt(const std::string& path) {
    Look look;
    LineReader reader;
    if (!reader.open(path)) return look;
    look.opened = true;
    std::vector<double> stations;
    std::string text;
    bool first = true;
    for (std::size_t n = 0; n < linesLooked && readLineThroughEnd(reader, text); ++n) {
        std::string_view line = text;
        line.remove_prefix(std::min(line.find_first_not_of(" \t\r\n\xEF\xBB\xBF"), line.size()));
        if (line.empty() || line[0] == '#' || line[0] == '*') continue;
        if (first) {
            look.startsXml = line[0] == '<';
            look.startsNevo = line.starts_with("START");
            first = false;
        }
        lookAtLine(line, look, stations);
    }
    for (std::size_t i = 1; i < stations.size(); ++i)
        look.repeated = look.repeated || std::abs(stations[i] - stations[i - 1]) < 0.001;
    return look;
}

FileShape shapeOf(const Look& look) {
    if (look.startsXml) return FileShape::landXml;
    if (look.startsNevo) return FileShape::nevoAlignment;
    if (look.numbers >= 6 && !look.comma) return FileShape::ruxoAlignment;
    if (look.numbers == 5) return FileShape::vertexFile;
    if (look.numbers == 4 || (look.numbers == 3 && (look.code || look.repeated)))
        return look.comma ? FileShape::commaSections : FileShape::blankSections;
    if (look.numbers == 3) return look.comma ? FileShape::commaProfile : FileShape::curveLengths;
    return FileShape::unknown;
}

DrawingSource nothing(std::string problem) { return {std::nullopt, false, std::move(problem)}; }

DrawingSource drawingOf(DrawingContent content) {
    return {std::move(content), false, std::string()};
}

DrawingContent contentOf(DrawingKind kind, std::string file, std::string name) {
    DrawingContent content;
    content.kind = kind;
    content.file = std::move(file);
    content.name = std::move(name);
    return content;
}

DrawingSource planOf(std::vector<NamedAlignment> alignments, std::string file,
                     std::string name = "") {
    std::erase_if(alignments, [](const NamedAlignment& a) { return a.elements.empty(); });
    if (alignments.empty()) return nothing("no hay ningun elemento de eje que dibujar");
    DrawingContent content = contentOf(DrawingKind::plan, std::move(file), std::move(name));
    content.alignments = std::move(alignments);
    return drawingOf(std::move(content));
}

DrawingSource profileOf(Profile vertices, std::string file, std::string name = "") {
    std::erase_if(vertices, [](const ProfileVertex& v) {
        return !std::isfinite(v.station) || !std::isfinite(v.elevation);
    });
    if (vertices.size() < 2) return nothing("la rasante no tiene al menos dos vertices");
    DrawingContent content = contentOf(DrawingKind::profile, std::move(file), std::move(name));
    content.profile = std::move(vertices);
    return drawingOf(std::move(content));
}

DrawingSource sectionsOf(bool comma, const std::string& path, std::string file,
                         std::string name = "") {
    std::vector<SectionPoint> points;
    auto keep = [&points](const SectionPointText& p) {
        if (std::isfinite(p.station) && std::isfinite(p.offset) && std::isfinite(p.elevation))
            points.push_back(p.owned());
    };
    comma ? readCommaSections(path, keep) : readRuxoSections(path, keep);
    if (points.empty()) return nothing("no hay ningun punto de transversal");
    DrawingContent content = contentOf(DrawingKind::sections, std::move(file), std::move(name));
    content.sections = groupSections(points);
    return drawingOf(std::move(content));
}

// Station, elevation and full curve length, as the LandXML profile is
// taken out of a document.
Profile readCurveLengths(const std::string& path) {
    Profile vertices;
    readVertexLines(
        path, 3,
        [](std::span<const std::string_view> fields) {
            return ProfileVertex{parseNumber(fields[0]), parseNumber(fields[1]), 0.0,
                                 parseNumber(fields[2]) / 2.0};
        },
        vertices);
    return vertices;
}

std::vector<PlanElement> ruxoElements(const std::string& path) {
    return elementsFromRecords(readAlignmentFile(path, CommentLines::skipped).records);
}

DrawingSource plainFile(const std::string& path, FileShape shape) {
    switch (shape) {
        case FileShape::nevoAlignment: return planOf({{"", readNevoAlignment(path)}}, path);
        case FileShape::ruxoAlignment: return planOf({{"", ruxoElements(path)}}, path);
        case FileShape::vertexFile: return profileOf(readVelmProfile(path).vertices, path);
        case FileShape::curveLengths: return profileOf(readCurveLengths(path), path);
        case FileShape::commaProfile: return profileOf(readRuxoProfile(path).vertices, path);
        case FileShape::blankSections:
        case FileShape::commaSections:
            return sectionsOf(shape == FileShape::commaSections, path, path);
        default: return nothing("no se reconoce ni un eje, ni una rasante, ni transversales");
    }
}

std::optional<int> chosenIndex(const std::string& path, const std::string& choice,
                               std::size_t count) {
    int index = -1;
    auto [end, error] = std::from_chars(choice.data(), choice.data() + choice.size(), index);
    if (error == std::errc() && end == choice.data() + choice.size())
        return index >= 0 && static_cast<std::size_t>(index) < count ? std::optional(index)
                                                                     : std::nullopt;
    return alignmentIndex(path, choice);
}

DrawingSource landXmlAlignments(const std::string& path, const LandXmlContents& contents,
                                const std::optional<std::string>& choice, TempFolder& folder) {
    std::vector<int> chosen;
    if (choice) {
        std::optional<int> index = chosenIndex(path, *choice, contents.alignments.size());
        if (!index) return nothing("el documento no tiene el eje \"" + *choice + "\"");
        chosen.push_back(*index);
    } else {
        for (std::size_t i = 0; i < contents.alignments.size(); ++i)
            chosen.push_back(static_cast<int>(i));
    }
    if (chosen.empty()) return nothing("el documento no tiene ejes (vea quelcnv contenido)");
    std::vector<NamedAlignment> alignments;
    for (int index : chosen) {
        std::string ruxo = folder.file(("eje" + std::to_string(index)).c_str());
        importLandXmlAlignment(path, index, ruxo);
        alignments.push_back(
            {contents.alignments[static_cast<std::size_t>(index)], ruxoElements(ruxo)});
    }
    std::string name = choice ? alignments.front().name : "";
    return planOf(std::move(alignments), path, name);
}

DrawingSource landXmlSections(const std::string& path, const std::string& surface,
                              TempFolder& folder) {
    std::size_t colon = surface.find(": ");
    if (colon == std::string::npos)
        return nothing("la superficie va como la muestra la lista, \"EJE: SUPERFICIE\"");
    std::string ruxo = folder.file("transversales");
    importLandXmlSections(surface.substr(0, colon), surface.substr(colon + 2), path, ruxo);
    DrawingSource source = sectionsOf(false, ruxo, path, surface);
    if (!source.content) source.problem = "el documento no tiene la superficie \"" + surface + "\"";
    return source;
}

DrawingSource landXmlFile(const std::string& path, const LandXmlChoice& choice) {
    TempFolder folder("dibujo");
    std::optional<LandXmlContents> contents = readContents(path);
    if (!folder.ready() || !contents) return nothing("no se puede leer el documento LandXML");
    if (choice.surface) return landXmlSections(path, *choice.surface, folder);
    if (choice.profile) {
        std::string vertices = folder.file("rasante");
        convertLandXmlProfile(*choice.profile, path, vertices, ProfileColumns::curveLengths);
        DrawingSource source = profileOf(readCurveLengths(vertices), path, *choice.profile);
        if (!source.content)
            source.problem = "el documento no tiene la rasante \"" + *choice.profile + "\"";
        return source;
    }
    return landXmlAlignments(path, *contents, choice.alignment, folder);
}

}  // namespace

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

DrawingSource readDrawingSource(const std::string& path, const LandXmlChoice& choice) {
    Look look = lookAt(path);
    if (!look.opened) return {std::nullopt, true, "no se puede abrir el fichero de entrada"};
    FileShape shape = shapeOf(look);
    bool chosen = choice.alignment || choice.profile || choice.surface;
    if (shape == FileShape::landXml) return landXmlFile(path, choice);
    if (chosen) return nothing("--eje, --rasante y --transversales solo valen para LandXML");
    return plainFile(path, shape);
}

}  // namespace quelcnv::cli
