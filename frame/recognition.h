// Telling which of the library's formats a file is, from what it holds, and
// a light summary of it: what the command shows before converting or drawing
// a file, and what it checks a file against before handing it to an
// operation. The file name's extension only breaks a tie between formats
// whose contents fit equally well.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelcnv {

// What a file holds, as the command's --tipo words say it (kindWord).
enum class DataKind {
    unknown,
    alignment,
    profile,
    superelevation,
    crossSections,
    points,
    levelReadings,
    survey,  // LEA surveys, NEVO observations, Medrix observations
    roboticReadings,
    landXml,
};

// Every format the library reads or writes.
enum class FileFormat {
    unknown,
    // Alignments
    ruxoAlignment,      // station, x, y, azimuth, parameter, radius
    nevoAlignment,      // START, then STRAIGHT/SPIRAL/ARC or PT lines
    istramAlignment,    // fixed columns, lines of 100 characters or more
    istramListing,      // number, element word, then free-format numbers
    ispolAlignment,     // start station, then one line per element with its code
    htrazadoAlignment,  // two numbers, then six numbers a line
    clipPltAlignment,   // six numbers a line, separated by commas
    // Profiles
    // station, elevation, kv, tangent, external: the VELM file, and the
    // five-column files that rasruxo2nevo, rascartomap2ruxo and
    // rlandxml2nevoWCE write, which read the same
    velmProfile,
    ruxoProfile,         // station,elevation,curve length
    nevoProfile,         // "station, elevation, curve length", what rvelm2nevo writes
    curveLengthProfile,  // station elevation curve-length, what rlandxml2nevo writes
    istramProfile,       // eight fields, the grade leaving each vertex
    ispolProfile,        // eight fields, the grade arriving at each vertex
    cartomapProfile,     // INICIO, VERTICE, FINAL lines
    // Superelevation
    ispolSuperelevation,   // a title, then number, station, two or three cross-falls
    clipSuperelevation,    // station and two cross-falls
    superelevationOutput,  // "%8.3lf %6.3lf %6.3lf", what both converters write
    // Cross sections
    ruxoSections,      // station offset elevation [code], blanks or tabs
    nevoSections,      // station,offset,elevation[,code], what ruxo2nevo writes
    commaSections,     // station,offset,elevation[,rest], what traruxo2nevo reads; a file
                       // in NEVO's own spelling is either, its extension tells
    istramSections,    // section records of type 4, counts, then pairs
    mxroadSections,    // a title, headers of station and count, pairs
    htrazadoSections,  // "PK: station", then "offset , elevation"
    clipTerSections,   // fixed-column pairs of distance and elevation lines
    clipTrvSections,   // "*TRV" header, "station , count", points with commas
    cartomapSections,  // "PK" headers, or kilometre+metre headers under "Distancia"
    // Field data
    pointList,         // name x y z [code]
    nevoPoints,        // number,x,y,z[,code], what puntos2nevo writes
    levelReadings,     // the KL500 level's reading file
    levelBook,         // the IGN level book anivel2ing writes
    levelUpload,       // "z,01,..." lines, what puntos2nivel writes
    leaSurvey,         // S, E and P lines
    nevoObservations,  // station, point, five numbers [code]
    medrix,            // Medrix observation lines, fixed widths
    roboticReadings,   // NEVO-800 records: JOB, DATE, STN, BS, SS...
    // LandXML and the CLIP report
    landXml,
    clipReportRtf,
};

enum class Certainty {
    none,      // no format fits
    possible,  // the lines have the format's shape, as others' too
    likely,    // the shape and the values fit the format
    certain,   // the format's own words or structure
};

// What the command may want to warn about. Structured: the command phrases it.
enum class ProblemKind {
    notText,        // binary bytes: NUL bytes or many control bytes
    empty,          // the file holds no byte
    malformedXml,   // the XML document is not well-formed at `line`
    cutShort,       // the XML document ends before it is closed, at `line`
    linesSkipped,   // `count` lines the format's reader skips, the first at `line`
    lastLineLost,   // the last line, `line`, has no line break and the reader loses it
    allZero,        // every number read is zero
    nonMetricUnit,  // a LandXML linear unit other than metres, named in `detail`
    noData,         // the format's reader finds nothing to convert in it
};

struct Problem {
    ProblemKind kind = ProblemKind::notText;
    long line = 0;
    long count = 0;
    std::string detail;
};

// The names a LandXML document offers, as its selection lists give them.
struct LandXmlContents {
    std::string linearUnit;  // as the document's Metric or Imperial declares it; empty when none
    std::vector<std::string> alignments;  // the alignment list: first attribute of each Alignment
    std::vector<std::string> profiles;    // the profile list: "alignment: profile"
    std::vector<std::string> surfaces;    // the surface list: "alignment: surface"
    // DesignCrossSectSurf surfaces (Civil 3D corridors), "alignment: name",
    // each once; the conversions do not read them.
    std::vector<std::string> designSurfaces;
};

struct FileSummary {
    bool opened = false;  // the file could be opened and read
    FileFormat format = FileFormat::unknown;
    DataKind kind = DataKind::unknown;
    Certainty certainty = Certainty::none;
    long lines = 0;  // text lines
    // What the format's reader would take: key points of an alignment,
    // vertices of a profile, rows of superelevation, points of cross
    // sections or point lists, readings and observations; 0 for LandXML,
    // whose contents are listed in landXml.
    long items = 0;
    long sections = 0;  // cross sections (runs of one station)
    std::optional<double> firstStation, lastStation;
    std::optional<LandXmlContents> landXml;
    std::vector<Problem> problems;
};

// Recognises the file at path. A file that cannot be opened or read gives
// opened false and nothing else. Only the first few hundred lines decide the
// format; the counts go through the whole file with that format's rules, and
// a LandXML document is read to its end (or to where it breaks off, the
// names found up to there being listed).
FileSummary recogniseFile(const std::string& path);

// The formats that an operation (an entry point's name without "MyDll_", as
// in frame/entry_points.txt) reads as its first file input; empty for an
// operation that reads no file, is not provided, or is not known.
std::span<const FileFormat> formatsReadBy(std::string_view operation);

// Short Spanish names in plain ASCII for messages: the format ("RUXO de
// eje", "ISTRAM de transversales", "LandXML"...) and the kind as the
// command's --tipo words say it ("eje", "rasante", "peralte",
// "transversales", "puntos", "nivelacion", "levantamiento", "robotizada",
// "landxml"; "desconocido" for unknown).
std::string_view formatName(FileFormat format);
std::string_view kindWord(DataKind kind);
// The kind of data a format holds.
DataKind kindOf(FileFormat format);

}  // namespace quelcnv
