// Telling a file's format by what it holds: every sample and every output
// the library writes as its own format, real LandXML documents with the
// names their selections list, files that look alike told apart, and the
// problems a summary reports.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include "frame/recognition.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;
using F = FileFormat;

std::string sample(std::string_view relative) {
    return (fs::path(QUELCNV_SAMPLES) / relative).string();
}

std::vector<std::string> linesOf(const std::string& path) {
    std::vector<std::string> lines;
    std::istringstream text(test::readBytes(path));
    for (std::string line; std::getline(text, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

bool hasProblem(const FileSummary& summary, ProblemKind kind) {
    return std::any_of(summary.problems.begin(), summary.problems.end(),
                       [kind](const Problem& p) { return p.kind == kind; });
}

const Problem* problemOf(const FileSummary& summary, ProblemKind kind) {
    for (const Problem& p : summary.problems)
        if (p.kind == kind) return &p;
    return nullptr;
}

class RecognitionTest : public test::FolderTest {
protected:
    FileSummary recogniseText(std::string_view name, std::string_view text) {
        test::writeBytes(file(name), text);
        return recogniseFile(file(name));
    }
};

struct SampleCase {
    const char* path;
    FileFormat format;
    DataKind kind;
    long items;
    long sections;
    long skipped;  // lines the format's reader skips
};

// The samples of a family hold the same data in every format, so the counts
// agree; each is told by its content alone too, copied without extension.
TEST_F(RecognitionTest, EverySampleIsItsOwnFormat) {
    const SampleCase cases[] = {
        {"alignment/eje.ruxo", F::ruxoAlignment, DataKind::alignment, 6, 0, 0},
        {"alignment/eje.htr", F::htrazadoAlignment, DataKind::alignment, 6, 0, 0},
        {"alignment/eje.plt", F::clipPltAlignment, DataKind::alignment, 6, 0, 0},
        {"alignment/eje.istram", F::istramAlignment, DataKind::alignment, 6, 0, 0},
        // The ISPOL file has no closing point; the listing's importer takes
        // its straights alone.
        {"alignment/eje.ispol", F::ispolAlignment, DataKind::alignment, 5, 0, 0},
        {"alignment/eje.lis", F::istramListing, DataKind::alignment, 2, 0, 3},
        {"crosssection/eje.ruxo", F::ruxoSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.csv", F::commaSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.istram", F::istramSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.mxroad", F::mxroadSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.htrazado", F::htrazadoSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.ter", F::clipTerSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/eje.trv", F::clipTrvSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/cartomap_pk.txt", F::cartomapSections, DataKind::crossSections, 10, 2, 0},
        {"crosssection/cartomap_distancia.txt", F::cartomapSections, DataKind::crossSections, 10, 2,
         0},
        {"profile/rasante.ruxo", F::ruxoProfile, DataKind::profile, 4, 0, 0},
        {"profile/rasante.velm", F::velmProfile, DataKind::profile, 4, 0, 0},
        {"profile/rasante.istram", F::istramProfile, DataKind::profile, 4, 0, 0},
        {"profile/rasante.ispol", F::ispolProfile, DataKind::profile, 4, 0, 0},
        {"profile/rasante.cartomap", F::cartomapProfile, DataKind::profile, 4, 0, 0},
        {"profile/peralte.ispol", F::ispolSuperelevation, DataKind::superelevation, 5, 0, 0},
        {"profile/peralte.clip", F::clipSuperelevation, DataKind::superelevation, 5, 0, 0},
        {"fielddata/puntos.txt", F::pointList, DataKind::points, 5, 0, 0},
        {"fielddata/nivelacion.dat", F::levelReadings, DataKind::levelReadings, 13, 0, 0},
        {"fielddata/levantamiento.lea", F::leaSurvey, DataKind::survey, 7, 0, 0},
        {"fielddata/observaciones.txt", F::nevoObservations, DataKind::survey, 5, 0, 0},
        {"fielddata/robotizada.txt", F::roboticReadings, DataKind::roboticReadings, 9, 0, 0},
        {"landxml/obra.xml", F::landXml, DataKind::landXml, 0, 0, 0},
    };
    std::set<std::string> covered;
    for (const SampleCase& c : cases) {
        SCOPED_TRACE(c.path);
        covered.insert(c.path);
        fs::copy_file(sample(c.path), file("sin_extension"), fs::copy_options::overwrite_existing);
        for (const std::string& path : {sample(c.path), file("sin_extension")}) {
            FileSummary s = recogniseFile(path);
            EXPECT_EQ(s.format, c.format) << formatName(s.format);
            EXPECT_EQ(s.kind, c.kind);
            EXPECT_GE(s.certainty, Certainty::likely);
            EXPECT_EQ(s.items, c.items);
            EXPECT_EQ(s.sections, c.sections);
            const Problem* skipped = problemOf(s, ProblemKind::linesSkipped);
            EXPECT_EQ(skipped ? skipped->count : 0, c.skipped);
        }
    }
    for (const auto& entry : fs::recursive_directory_iterator(QUELCNV_SAMPLES)) {
        std::string relative = entry.path().lexically_relative(QUELCNV_SAMPLES).generic_string();
        bool inFamily = entry.is_regular_file() && relative.find('/') != std::string::npos;
        EXPECT_TRUE(!inFamily || covered.count(relative)) << relative << " has no case";
    }
}

// The stations run from the first key point, vertex or section to the last.
TEST_F(RecognitionTest, StationsSpanTheFile) {
    FileSummary alignment = recogniseFile(sample("alignment/eje.ruxo"));
    EXPECT_EQ(alignment.firstStation, 0.0);
    EXPECT_EQ(alignment.lastStation, 466.0);
    EXPECT_EQ(alignment.lines, 6);
    FileSummary sections = recogniseFile(sample("crosssection/eje.mxroad"));
    EXPECT_EQ(sections.firstStation, 100.0);
    EXPECT_EQ(sections.lastStation, 120.0);
    FileSummary profile = recogniseFile(sample("profile/rasante.istram"));
    EXPECT_EQ(profile.lastStation, 400.0);
}

// Only the first lines decide, a section that they cut included; the counts
// go through the whole file.
TEST_F(RecognitionTest, LongFilesAreJudgedByTheirFirstLines) {
    std::string text = "SECCIONES MXROAD\n";
    for (int section = 0; section < 200; ++section) {
        text += std::to_string(100 + 20 * section) + ".000    3  SECCION\n";
        text += "-6.000 411.200 0.000 411.620\n6.000 411.200\n";
    }
    FileSummary s = recogniseText("largo.mxroad", text);
    EXPECT_EQ(s.format, F::mxroadSections);
    EXPECT_EQ(s.certainty, Certainty::certain);
    EXPECT_EQ(s.lines, 601);
    EXPECT_EQ(s.items, 600);
    EXPECT_EQ(s.sections, 200);
    EXPECT_EQ(s.lastStation, 4080.0);
}

struct OutputCase {
    const char* name;
    std::function<int(const char* out)> write;
    FileFormat format;
};

// What the library writes is recognised as the format it writes, so the
// command can look at an output as at any input.
TEST_F(RecognitionTest, OutputsAreTheFormatsWritten) {
    const std::string ruxo = sample("alignment/eje.ruxo"), obra = sample("landxml/obra.xml");
    const std::string host = sample("");
    const OutputCase cases[] = {
        {"eje.nev", [&](auto o) { return MyDll_aruxo2nevo(ruxo.c_str(), o, host.c_str()); },
         F::nevoAlignment},
        {"eje-pt.nev", [&](auto o) { return MyDll_aruxo2nevoWCE(ruxo.c_str(), o); },
         F::nevoAlignment},
        {"eje-istram.ruxo",
         [](auto o) { return MyDll_aistram2ruxo(sample("alignment/eje.istram").c_str(), o); },
         F::ruxoAlignment},
        {"eje-landxml.ruxo",
         [&](auto o) { return MyDll_alandxml2nevoWCE(0, obra.c_str(), o, host.c_str()); },
         F::ruxoAlignment},
        {"eje.xml", [&](auto o) { return MyDll_aVELM2LandXML(ruxo.c_str(), o); }, F::landXml},
        {"transversales.nev",
         [](auto o) { return MyDll_ruxo2nevo(sample("crosssection/eje.ruxo").c_str(), o); },
         F::nevoSections},
        {"transversales.txt",
         [](auto o) { return MyDll_traruxo2nevo(sample("crosssection/eje.csv").c_str(), o); },
         F::ruxoSections},
        {"transversales-landxml.ruxo",
         [&](auto o) { return MyDll_tralandxml2nevoWCE("Eje 1", "Terreno", obra.c_str(), o); },
         F::ruxoSections},
        {"rasante-tab.txt",
         [](auto o) { return MyDll_rasruxo2nevo(sample("profile/rasante.ruxo").c_str(), o); },
         F::velmProfile},
        {"rasante.nev",
         [](auto o) { return MyDll_rvelm2nevo(sample("profile/rasante.velm").c_str(), o); },
         F::nevoProfile},
        {"rasante-cartomap.velm",
         [](auto o) {
             return MyDll_rascartomap2ruxo(sample("profile/rasante.cartomap").c_str(), o);
         },
         F::velmProfile},
        {"rasante-landxml.txt",
         [&](auto o) { return MyDll_rlandxml2nevo("Eje 1: Rasante 1", obra.c_str(), o); },
         F::curveLengthProfile},
        {"rasante-landxml-wce.txt",
         [&](auto o) { return MyDll_rlandxml2nevoWCE("Eje 1: Rasante 1", obra.c_str(), o); },
         F::velmProfile},
        {"peralte-ispol.txt",
         [](auto o) { return MyDll_peralteispol2nevo(sample("profile/peralte.ispol").c_str(), o); },
         F::superelevationOutput},
        {"peralte-clip.txt",
         [](auto o) { return MyDll_peralteClip2nevo(sample("profile/peralte.clip").c_str(), o); },
         F::superelevationOutput},
        {"puntos.nev",
         [](auto o) { return MyDll_puntos2nevo(sample("fielddata/puntos.txt").c_str(), o); },
         F::nevoPoints},
        {"puntos-nivel.txt",
         [](auto o) { return MyDll_puntos2nivel(sample("fielddata/puntos.txt").c_str(), o); },
         F::levelUpload},
        {"nivelacion.ign",
         [](auto o) {
             return MyDll_anivel2ing(sample("fielddata/nivelacion.dat").c_str(), o, "Norte",
                                     "Garcia", "M-101", "M-102", "KL500-604233");
         },
         F::levelBook},
        {"levantamiento.med",
         [](auto o) {
             return MyDll_topoLea2Medrix(sample("fielddata/levantamiento.lea").c_str(), o);
         },
         F::medrix},
        {"observaciones.med",
         [](auto o) {
             return MyDll_lectnevo2medrix(sample("fielddata/observaciones.txt").c_str(), o);
         },
         F::medrix},
    };
    for (const OutputCase& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_EQ(c.write(file(c.name).c_str()), 1);
        FileSummary s = recogniseFile(file(c.name));
        EXPECT_EQ(s.format, c.format) << formatName(s.format);
        EXPECT_GE(s.certainty, Certainty::likely);
        EXPECT_GT(s.items + (s.landXml ? 1 : 0), 0);
    }
}

struct LookAlike {
    const char* name;  // its extension tempts towards the other format
    const char* text;
    FileFormat format;
};

// Formats whose lines look alike are told apart by their values and
// structure, whatever the file is called.
TEST_F(RecognitionTest, LookAlikesAreToldApart) {
    const LookAlike cases[] = {
        // Station and two cross-falls, not station, elevation, curve length.
        {"rasante.txt", "0.000 2.000 2.000\n50.000 2.500 2.500\n80.000 -3.500 3.500\n",
         F::clipSuperelevation},
        {"peralte.clip", "0.000 100.000 0.000\n100.000 102.000 80.000\n200.000 101.000 0.000\n",
         F::curveLengthProfile},
        // Numbered rows of five numbers are superelevation, not five-column vertices.
        {"peralte.velm", "PERALTES\n1 0.000 2.000 -2.000 -2.000\n2 50.000 2.500 -2.500 -2.500\n",
         F::ispolSuperelevation},
        // Points numbered without codes, and section points with numeric codes.
        {"puntos.ruxo", "1 100.250 200.500 10.5\n2 101.000 201.000 10.7\n3 99.5 198.25 10.1\n",
         F::pointList},
        {"transversales.txt",
         "100.000 -8.000 411.900 10\n100.000 0.000 412.000 0\n120.000 -4.000 410.100 10\n"
         "120.000 4.000 410.000 10\n",
         F::ruxoSections},
        // ISTRAM section records and pairs of six numbers are no RUXO key points.
        {"eje.ruxo",
         "4 1 0.000 0.000 100.000 0.000\n0 0 0 1 2\n3.500 411.550 3.500 411.550 6.000 411.200\n"
         "4 1 0.000 0.000 120.000 0.000\n0 0 0 1 2\n3.500 411.950 3.500 411.950 6.000 411.600\n",
         F::istramSections},
        // Comma-separated section points share their stations; profile vertices do not.
        {"rasante.csv", "100,0,411\n100,5,411.2\n120,0,412\n120,5,412.2\n", F::commaSections},
        {"transversales.csv", "0,100,0\n100,102,80\n200,101,0\n", F::ruxoProfile},
        // NEVO points are numbered; NEVO section points carry stations.
        {"puntos.nev", "100.000,-6.000,411.200,CUNETA\n100.000,0.000,411.620,EJE\n",
         F::nevoSections},
        {"transversales.nev", "1000,312045.125,4500123.250,101.235,BASE\n1001,1.000,2.000,3.000\n",
         F::nevoPoints},
        // HTRAZADO's header line of two numbers.
        {"eje.ruxo", "2 0\n0.000 0.0 0.0 50.0 0.0 0.0\n100.000 0.0 100.0 50.0 0.0 0.0\n",
         F::htrazadoAlignment},
    };
    for (const LookAlike& c : cases) {
        SCOPED_TRACE(c.text);
        FileSummary s = recogniseText(c.name, c.text);
        EXPECT_EQ(s.format, c.format) << formatName(s.format);
    }
}

// The samples of one kind copied under another format's extension stay what
// they are: the extension only breaks a tie.
TEST_F(RecognitionTest, ExtensionOnlyBreaksATie) {
    const std::pair<const char*, const char*> copies[] = {
        {"alignment/eje.istram", "transversales.ruxo"},
        {"crosssection/eje.istram", "eje.ruxo"},
        {"profile/peralte.clip", "rasante.txt"},
        {"fielddata/puntos.txt", "transversales.ruxo"},
        {"profile/rasante.ispol", "rasante.istram"},
    };
    for (const auto& [original, copy] : copies) {
        SCOPED_TRACE(original);
        fs::copy_file(sample(original), file(copy), fs::copy_options::overwrite_existing);
        EXPECT_EQ(recogniseFile(file(copy)).format, recogniseFile(sample(original)).format);
    }
    // A comma-separated section file that NEVO could have written is either.
    std::string text = test::readBytes(sample("crosssection/eje.csv"));
    EXPECT_EQ(recogniseText("eje.csv", text).format, F::commaSections);
    EXPECT_EQ(recogniseText("eje.nev", text).format, F::nevoSections);
}

// Every document names its alignments, profiles and surfaces exactly as the
// selection lists write them; the design surfaces of corridors apart.
TEST_F(RecognitionTest, RealLandXmlDocumentsListWhatTheirSelectionsList) {
    fs::path folder(QUELCNV_REAL_DATA);
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no real documents at " << folder;
    int documents = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".xml") continue;
        SCOPED_TRACE(entry.path().filename().string());
        std::string path = entry.path().string();
        FileSummary s = recogniseFile(path);
        EXPECT_EQ(s.format, F::landXml);
        EXPECT_EQ(s.certainty, Certainty::certain);
        ASSERT_TRUE(s.landXml);
        listLandXmlAlignments(path, file("ejes"));
        listLandXmlProfiles(path, file("rasantes"));
        listLandXmlSurfaces(path, file("superficies"));
        EXPECT_EQ(s.landXml->alignments, linesOf(file("ejes")));
        EXPECT_EQ(s.landXml->profiles, linesOf(file("rasantes")));
        EXPECT_EQ(s.landXml->surfaces, linesOf(file("superficies")));
        bool design = test::readBytes(path).find("<DesignCrossSectSurf") != std::string::npos;
        EXPECT_EQ(s.landXml->designSurfaces.empty(), !design);
        bool metres = s.landXml->linearUnit == "meter";
        EXPECT_EQ(hasProblem(s, ProblemKind::nonMetricUnit), !metres) << s.landXml->linearUnit;
        ++documents;
    }
    EXPECT_EQ(documents, 11);
}

// DesignCrossSectSurf surfaces are listed once per alignment and name (in
// any letter case), apart from the surfaces the conversions read; a unit of
// feet is named.
TEST_F(RecognitionTest, DesignSurfacesAreListedApart) {
    FileSummary s = recogniseFile(test::testData("recognition/corridor.xml").string());
    ASSERT_TRUE(s.landXml);
    EXPECT_EQ(s.landXml->surfaces, std::vector<std::string>{"Camino: Terreno"});
    EXPECT_EQ(s.landXml->designSurfaces,
              (std::vector<std::string>{"Camino: Firme", "Camino: Cuneta", "Ramal: Firme"}));
    EXPECT_EQ(s.landXml->alignments, (std::vector<std::string>{"Camino", "Ramal"}));
    EXPECT_EQ(s.landXml->linearUnit, "foot");
    const Problem* unit = problemOf(s, ProblemKind::nonMetricUnit);
    ASSERT_NE(unit, nullptr);
    EXPECT_EQ(unit->detail, "foot");
}

// A document that breaks off keeps the names read up to there, and says
// where it broke: at its last line it was cut short, before that it is
// malformed.
TEST_F(RecognitionTest, BrokenDocumentsKeepWhatTheyListed) {
    std::string cut = test::testData("landxml/cut.xml").string();
    FileSummary s = recogniseFile(cut);
    EXPECT_EQ(s.format, F::landXml);
    ASSERT_TRUE(s.landXml);
    EXPECT_EQ(s.landXml->alignments, linesOf(test::testData("landxml/cut.list").string()));
    const Problem* cutShort = problemOf(s, ProblemKind::cutShort);
    ASSERT_NE(cutShort, nullptr);
    EXPECT_EQ(cutShort->line, s.lines);

    FileSummary broken = recogniseText(
        "roto.xml",
        "<LandXML>\n<Alignments>\n<Alignment name=\"A\"/>\n<Alignment name=\"B\">\n</Alineacion>\n"
        "<Alignment name=\"C\"/>\n</Alignments>\n</LandXML>\n");
    ASSERT_TRUE(broken.landXml);
    EXPECT_EQ(broken.landXml->alignments, (std::vector<std::string>{"A", "B"}));
    const Problem* malformed = problemOf(broken, ProblemKind::malformedXml);
    ASSERT_NE(malformed, nullptr);
#ifdef _WIN32  // MSXML puts the error where the element it closes began
    EXPECT_GE(malformed->line, 4);
#else
    EXPECT_EQ(malformed->line, 5);
#endif
    EXPECT_FALSE(hasProblem(broken, ProblemKind::cutShort));
}

// Files that are no format: binary bytes, an empty file, another XML
// document, a missing file.
TEST_F(RecognitionTest, WhatIsNoFormatSaysWhy) {
    FileSummary png = recogniseText("dibujo.plt", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    EXPECT_EQ(png.format, F::unknown);
    EXPECT_TRUE(hasProblem(png, ProblemKind::notText));
    std::string controls;
    for (int i = 0; i < 200; ++i) controls += static_cast<char>(i % 2 ? 0x01 : 'a');
    EXPECT_TRUE(hasProblem(recogniseText("controles.txt", controls), ProblemKind::notText));

    FileSummary empty = recogniseText("vacio.ruxo", "");
    EXPECT_TRUE(empty.opened);
    EXPECT_EQ(empty.format, F::unknown);
    EXPECT_TRUE(hasProblem(empty, ProblemKind::empty));

    FileSummary svg = recogniseText("eje.svg", "<?xml version=\"1.0\"?>\n<svg width=\"10\"/>\n");
    EXPECT_EQ(svg.format, F::unknown);
    EXPECT_FALSE(svg.landXml);

    EXPECT_FALSE(recogniseFile(file("no_existe.ruxo")).opened);
    EXPECT_FALSE(recogniseFile(dir_.string()).opened);
}

// The counts follow the format's reader: a line it skips, a last line it
// loses for want of a line break, numbers that are all zero.
TEST_F(RecognitionTest, ProblemsFollowTheReadersRules) {
    FileSummary skipped = recogniseText(
        "eje.ruxo",
        "0 0 0 50 0 0\n1 2 3\n100 100 100 50 0 0\n200 200 200 50 0 0\n300 300 300 50 0 0");
    EXPECT_EQ(skipped.format, F::ruxoAlignment);
    EXPECT_EQ(skipped.items, 3);
    EXPECT_EQ(skipped.lines, 5);
    const Problem* line = problemOf(skipped, ProblemKind::linesSkipped);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->line, 2);
    EXPECT_EQ(line->count, 1);
    const Problem* lost = problemOf(skipped, ProblemKind::lastLineLost);
    ASSERT_NE(lost, nullptr);
    EXPECT_EQ(lost->line, 5);

    // The CLIP PLT reader takes the last line all the same.
    FileSummary plt = recogniseText("eje.plt",
                                    "0.0, 1.0, 2.0, 50.0, 0.0, 0.0\n"
                                    "100.0, 1.0, 102.0, 50.0, 0.0, 0.0");
    EXPECT_EQ(plt.items, 2);
    EXPECT_FALSE(hasProblem(plt, ProblemKind::lastLineLost));

    FileSummary zeros = recogniseText("ceros.ruxo", "0 0 0 0 0 0\n0.000 0 0 0 0 0\n");
    EXPECT_TRUE(hasProblem(zeros, ProblemKind::allZero));
    EXPECT_FALSE(hasProblem(skipped, ProblemKind::allZero));
}

// What each operation reads: the demo's inputs are the formats their
// operations read, and every provided operation with an input file names
// its formats.
TEST_F(RecognitionTest, OperationsNameTheFormatsTheyRead) {
    std::ifstream demo(sample("demo.txt"));
    int checked = 0;
    for (std::string line; std::getline(demo, line);) {
        std::istringstream words(line);
        std::string operation, word;
        if (!(words >> operation) || operation.starts_with("#")) continue;
        while (words >> word && !word.starts_with("samples/")) {
        }
        if (!word.starts_with("samples/") || !fs::is_regular_file(sample(word.substr(8)))) continue;
        SCOPED_TRACE(line);
        std::span<const FileFormat> formats = formatsReadBy(operation);
        if (formats.empty()) continue;  // not provided in this version
        FileFormat format = recogniseFile(sample(word.substr(8))).format;
        EXPECT_NE(std::find(formats.begin(), formats.end(), format), formats.end())
            << formatName(format);
        ++checked;
    }
    EXPECT_GE(checked, 40);

    std::ifstream table(QUELCNV_ENTRY_POINT_TABLE);
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::string name = line.substr(0, line.find(' '));
        bool reads = line.find(" entrada") != std::string::npos ||
                     line.find("| lecturas") != std::string::npos;
        bool provided = line.find("| unavailable |") == std::string::npos;
        EXPECT_EQ(formatsReadBy(name).empty(), !(reads && provided)) << name;
    }
    EXPECT_TRUE(formatsReadBy("MyDll_ruxo2nevo").empty());
}

// Every format has a name of its own, in plain ASCII, and a kind whose word
// the command's --tipo takes.
TEST(Recognition, FormatsHaveNamesAndKinds) {
    std::set<std::string_view> names;
    for (int f = static_cast<int>(F::unknown); f <= static_cast<int>(F::clipReportRtf); ++f) {
        auto format = static_cast<FileFormat>(f);
        std::string_view name = formatName(format);
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_TRUE(std::all_of(name.begin(), name.end(), [](char c) { return c > 0; })) << name;
        EXPECT_EQ(kindOf(format) == DataKind::unknown, format == F::unknown) << name;
    }
    EXPECT_EQ(formatName(F::landXml), "LandXML");
    const std::pair<DataKind, std::string_view> words[] = {
        {DataKind::alignment, "eje"},          {DataKind::profile, "rasante"},
        {DataKind::superelevation, "peralte"}, {DataKind::crossSections, "transversales"},
        {DataKind::points, "puntos"},          {DataKind::levelReadings, "nivelacion"},
        {DataKind::survey, "levantamiento"},   {DataKind::roboticReadings, "robotizada"},
        {DataKind::landXml, "landxml"},
    };
    for (const auto& [kind, word] : words) EXPECT_EQ(kindWord(kind), word);
}

}  // namespace
}  // namespace quelcnv
