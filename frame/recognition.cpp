#include "frame/recognition.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "common/file_status.h"
#include "common/text_case.h"
#include "frame/recognition_rules.h"

namespace quelcnv {

namespace {

using recognition::FormatRule;

struct FormatInfo {
    FileFormat format;
    DataKind kind;
    std::string_view name;
};

constexpr FormatInfo formats[] = {
    {FileFormat::unknown, DataKind::unknown, "desconocido"},
    {FileFormat::ruxoAlignment, DataKind::alignment, "RUXO de eje"},
    {FileFormat::nevoAlignment, DataKind::alignment, "NEVO de eje"},
    {FileFormat::istramAlignment, DataKind::alignment, "ISTRAM de eje"},
    {FileFormat::istramListing, DataKind::alignment, "listado ISTRAM de eje"},
    {FileFormat::ispolAlignment, DataKind::alignment, "ISPOL de eje"},
    {FileFormat::htrazadoAlignment, DataKind::alignment, "HTRAZADO de eje"},
    {FileFormat::clipPltAlignment, DataKind::alignment, "CLIP PLT de eje"},
    {FileFormat::velmProfile, DataKind::profile, "VELM de rasante"},
    {FileFormat::ruxoProfile, DataKind::profile, "RUXO de rasante"},
    {FileFormat::nevoProfile, DataKind::profile, "NEVO de rasante"},
    {FileFormat::curveLengthProfile, DataKind::profile,
     "rasante de PK, cota y longitud de acuerdo"},
    {FileFormat::istramProfile, DataKind::profile, "ISTRAM de rasante"},
    {FileFormat::ispolProfile, DataKind::profile, "ISPOL de rasante"},
    {FileFormat::cartomapProfile, DataKind::profile, "CartoMAP de rasante"},
    {FileFormat::ispolSuperelevation, DataKind::superelevation, "ISPOL de peralte"},
    {FileFormat::clipSuperelevation, DataKind::superelevation, "CLIP de peralte"},
    {FileFormat::superelevationOutput, DataKind::superelevation, "fichero de peraltes"},
    {FileFormat::ruxoSections, DataKind::crossSections, "RUXO de transversales"},
    {FileFormat::nevoSections, DataKind::crossSections, "NEVO de transversales"},
    {FileFormat::commaSections, DataKind::crossSections, "transversales separados por comas"},
    {FileFormat::istramSections, DataKind::crossSections, "ISTRAM/ISPOL de transversales"},
    {FileFormat::mxroadSections, DataKind::crossSections, "MXROAD de transversales"},
    {FileFormat::htrazadoSections, DataKind::crossSections, "HTRAZADO de transversales"},
    {FileFormat::clipTerSections, DataKind::crossSections, "CLIP TER de transversales"},
    {FileFormat::clipTrvSections, DataKind::crossSections, "CLIP TRV de transversales"},
    {FileFormat::cartomapSections, DataKind::crossSections, "CartoMAP de transversales"},
    {FileFormat::pointList, DataKind::points, "lista de puntos"},
    {FileFormat::nevoPoints, DataKind::points, "NEVO de puntos"},
    {FileFormat::levelReadings, DataKind::levelReadings, "lecturas del nivel KL500"},
    {FileFormat::levelBook, DataKind::levelReadings, "libreta de nivelacion IGN"},
    {FileFormat::levelUpload, DataKind::levelReadings, "carga de cotas del nivel"},
    {FileFormat::leaSurvey, DataKind::survey, "LEA de levantamiento"},
    {FileFormat::nevoObservations, DataKind::survey, "NEVO de observaciones"},
    {FileFormat::medrix, DataKind::survey, "Medrix de observaciones"},
    {FileFormat::roboticReadings, DataKind::roboticReadings, "lecturas de robotizada NEVO-800"},
    {FileFormat::landXml, DataKind::landXml, "LandXML"},
    {FileFormat::clipReportRtf, DataKind::crossSections, "informe CLIP de transversales (RTF)"},
};

const FormatInfo& infoOf(FileFormat format) {
    for (const FormatInfo& info : formats)
        if (info.format == format) return info;
    return formats[0];
}

// The formats each operation reads as its first file input.
using F = FileFormat;
constexpr F ruxoAlignments[] = {F::ruxoAlignment};
constexpr F istramAlignments[] = {F::istramAlignment};
constexpr F htrazadoAlignments[] = {F::htrazadoAlignment};
constexpr F pltAlignments[] = {F::clipPltAlignment};
constexpr F istramListings[] = {F::istramListing};
constexpr F ispolAlignments[] = {F::ispolAlignment};
constexpr F landXmlDocuments[] = {F::landXml};
constexpr F velmProfiles[] = {F::velmProfile, F::ispolProfile};
constexpr F ruxoProfiles[] = {F::ruxoProfile, F::nevoProfile};
constexpr F istramProfiles[] = {F::istramProfile};
constexpr F ispolProfiles[] = {F::ispolProfile};
constexpr F cartomapProfiles[] = {F::cartomapProfile};
constexpr F ispolSuperelevations[] = {F::ispolSuperelevation};
constexpr F clipSuperelevations[] = {F::clipSuperelevation, F::superelevationOutput};
constexpr F ruxoSections[] = {F::ruxoSections};
constexpr F commaSections[] = {F::commaSections, F::nevoSections};
constexpr F istramSections[] = {F::istramSections};
constexpr F mxroadSections[] = {F::mxroadSections};
constexpr F htrazadoSections[] = {F::htrazadoSections};
constexpr F clipTerSections[] = {F::clipTerSections};
constexpr F clipTrvSections[] = {F::clipTrvSections};
constexpr F cartomapSections[] = {F::cartomapSections};
constexpr F pointLists[] = {F::pointList};
constexpr F levelReadings[] = {F::levelReadings};
constexpr F leaSurveys[] = {F::leaSurvey};
constexpr F nevoObservations[] = {F::nevoObservations};
constexpr F roboticReadings[] = {F::roboticReadings};

struct OperationInput {
    std::string_view operation;
    std::span<const FileFormat> formats;
};

constexpr OperationInput operationInputs[] = {
    {"puntos2nevo", pointLists},
    {"ruxo2nevo", ruxoSections},
    {"istram2nevo", istramSections},
    {"mxroad2nevo", mxroadSections},
    {"htrazado2nevo", htrazadoSections},
    {"clip2nevo", clipTerSections},
    {"cliptrv2nevo", clipTrvSections},
    {"seleccionaTransverLandXML", landXmlDocuments},
    {"tralandxml2nevo", landXmlDocuments},
    {"tralandxml2nevoWCE", landXmlDocuments},
    {"traCartomap2ruxo", cartomapSections},
    {"traruxo2nevo", commaSections},
    {"travelm2landxml", commaSections},
    {"tracliptrv2landxml", clipTrvSections},
    {"traclip2landxml", clipTerSections},
    {"traistram2landxml", istramSections},
    {"tramxroad2landxml", mxroadSections},
    {"trahtrazado2lamdxml", htrazadoSections},
    {"aruxo2nevo", ruxoAlignments},
    {"aruxo2nevoWCE", ruxoAlignments},
    {"aistram2nevo", istramAlignments},
    {"ahtrazado2nevo", htrazadoAlignments},
    {"aclipplt2nevo", pltAlignments},
    {"aistramList2nevo", istramListings},
    {"aispol2nevo", ispolAlignments},
    {"aclipplt2ruxo", pltAlignments},
    {"seleccionaEjeLandXML", landXmlDocuments},
    {"alandxml2nevo", landXmlDocuments},
    {"alandxml2nevoWCE", landXmlDocuments},
    {"aVELM2LandXML", ruxoAlignments},
    {"aistram2LandXML", istramAlignments},
    {"ahtrazado2LandXML", htrazadoAlignments},
    {"aclipplt2LandXML", pltAlignments},
    {"aistramList2LandXML", istramListings},
    {"aispol2LandXML", ispolAlignments},
    {"aistram2ruxo", istramAlignments},
    {"ristram2nevo", istramProfiles},
    {"rvelm2nevo", velmProfiles},
    {"rispol2nevo", ispolProfiles},
    {"seleccionaRasanteLandXML", landXmlDocuments},
    {"rlandxml2nevo", landXmlDocuments},
    {"rlandxml2nevoWCE", landXmlDocuments},
    {"rvelm2landxml", velmProfiles},
    {"ristram2landxml", istramProfiles},
    {"rispol2landxml", ispolProfiles},
    {"rasruxo2nevo", ruxoProfiles},
    {"rascartomap2ruxo", cartomapProfiles},
    {"anivel2ing", levelReadings},
    {"puntos2nivel", pointLists},
    {"peralteispol2nevo", ispolSuperelevations},
    {"peralteClip2nevo", clipSuperelevations},
    {"topoLea2Medrix", leaSurveys},
    {"lectnevo2medrix", nevoObservations},
    {"procesaCabecera", roboticReadings},
};

// The first bytes of a file tell binary data, XML and RTF apart from text.
constexpr std::size_t headSize = 65536;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::optional<std::string> readHead(const std::string& path) {
    std::unique_ptr<std::FILE, FileCloser> file(openInputFile(path));
    if (!file) return std::nullopt;
    std::string head(headSize, '\0');
    std::size_t read = std::fread(head.data(), 1, head.size(), file.get());
    if (std::ferror(file.get())) return std::nullopt;
    head.resize(read);
    return head;
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

// An XML document in UTF-16, which has NUL bytes between its ASCII characters.
bool looksLikeUtf16Xml(std::string_view head) {
    return startsWith(head, "\xFF\xFE<") || startsWith(head, std::string_view("\xFE\xFF\0<", 4)) ||
           startsWith(head, std::string_view("<\0", 2)) ||
           startsWith(head, std::string_view("\0<", 2));
}

// Markup first, after a byte-order mark and white space.
bool startsWithMarkup(std::string_view head) {
    if (startsWith(head, "\xEF\xBB\xBF")) head.remove_prefix(3);
    std::size_t start = head.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos && head[start] == '<';
}

// Binary data: a NUL byte, or more than one byte in twenty a control
// character that text does not hold.
bool looksBinary(std::string_view head) {
    std::size_t controls = 0;
    for (char c : head) {
        auto byte = static_cast<unsigned char>(c);
        if (byte == 0) return true;
        bool space = c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
        if ((byte < 0x20 && !space) || byte == 0x7F) ++controls;
    }
    return controls * 20 > head.size();
}

std::string extensionOf(const std::string& path) {
    std::size_t slash = path.find_last_of("/\\");
    std::size_t dot = path.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    return lowerCase(std::string_view(path).substr(dot + 1));
}

bool hasExtension(const FormatRule& rule, const std::string& extension) {
    if (extension.empty()) return false;
    Tokenizer words(rule.extensions);
    while (auto word = words.next(" "))
        if (*word == extension) return true;
    return false;
}

struct Choice {
    const FormatRule* rule = nullptr;
    Certainty certainty = Certainty::none;
};

// The rule that fits best; of two that fit equally, the one whose extension
// the file has, else the one listed first.
Choice bestRule(const recognition::Sample& sample, const std::string& extension) {
    Choice best;
    bool bestByName = false;
    for (auto rules : {recognition::alignmentRules(), recognition::headedSectionRules(),
                       recognition::sectionRules(), recognition::profileRules(),
                       recognition::fieldDataRules()}) {
        for (const FormatRule& rule : rules) {
            Certainty certainty = rule.judge(sample);
            if (certainty == Certainty::none || certainty < best.certainty) continue;
            bool byName = hasExtension(rule, extension);
            if (certainty == best.certainty && (bestByName || !byName)) continue;
            best = {&rule, certainty};
            bestByName = byName;
        }
    }
    return best;
}

void found(FileSummary& summary, FileFormat format, Certainty certainty) {
    summary.format = format;
    summary.kind = kindOf(format);
    summary.certainty = certainty;
}

void countLinesOnly(const std::string& path, FileSummary& summary) {
    recognition::walkFile(path, summary, [](const recognition::WalkedLine&) {});
}

void recogniseText(const std::string& path, FileSummary& summary) {
    recognition::Sample sample = recognition::sampleOf(path);
    Choice choice = bestRule(sample, extensionOf(path));
    if (!choice.rule) return countLinesOnly(path, summary);
    found(summary, choice.rule->format, choice.certainty);
    choice.rule->count(path, summary);
}

}  // namespace

FileSummary recogniseFile(const std::string& path) {
    FileSummary summary;
    std::optional<std::string> head = readHead(path);
    if (!head) return summary;
    summary.opened = true;
    bool utf16 = looksLikeUtf16Xml(*head);
    if (head->empty()) {
        summary.problems.push_back({ProblemKind::empty, 0, 0, {}});
    } else if (!utf16 && looksBinary(*head)) {
        summary.problems.push_back({ProblemKind::notText, 0, 0, {}});
    } else if (utf16 || startsWithMarkup(*head)) {
        recognition::summariseXml(path, summary);
    } else if (startsWith(*head, "{\\rtf")) {
        found(summary, FileFormat::clipReportRtf, Certainty::possible);
        countLinesOnly(path, summary);
    } else {
        recogniseText(path, summary);
    }
    return summary;
}

std::span<const FileFormat> formatsReadBy(std::string_view operation) {
    for (const OperationInput& input : operationInputs)
        if (input.operation == operation) return input.formats;
    return {};
}

std::string_view formatName(FileFormat format) { return infoOf(format).name; }

DataKind kindOf(FileFormat format) { return infoOf(format).kind; }

std::string_view kindWord(DataKind kind) {
    switch (kind) {
        case DataKind::alignment: return "eje";
        case DataKind::profile: return "rasante";
        case DataKind::superelevation: return "peralte";
        case DataKind::crossSections: return "transversales";
        case DataKind::points: return "puntos";
        case DataKind::levelReadings: return "nivelacion";
        case DataKind::survey: return "levantamiento";
        case DataKind::roboticReadings: return "robotizada";
        case DataKind::landXml: return "landxml";
        case DataKind::unknown: break;
    }
    return "desconocido";
}

}  // namespace quelcnv
