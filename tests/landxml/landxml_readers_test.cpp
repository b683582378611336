// The LandXML readers beyond what tests/data/landxml/cases.txt shows: the
// clothoid messages, hostile documents, and the real documents of
// ../shared/realdata/landxml, some of them checked against the document's
// own coordinates, stations and vertices.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <locale>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "cli/operations.h"
#include "common/text_format.h"
#include "landxml/alignment_reader.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

class LandXmlReadersTest : public test::FolderTest {
protected:
    int call(std::string_view name, std::vector<std::string> arguments) {
        const cli::Operation* op = cli::findOperation(name);
        EXPECT_NE(op, nullptr) << name;
        return op == nullptr ? -1 : op->invoke(arguments);
    }

    // The selection list's lines.
    std::vector<std::string> listed() {
        std::vector<std::string> names;
        std::istringstream list(test::readBytes(scratchFile("$$$$.EJE")));
        for (std::string line; std::getline(list, line);) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            names.push_back(line);
        }
        return names;
    }

    // Every selection and every conversion each list offers, into files of
    // this test's folder. The alignment conversions' results.
    std::vector<int> convertEverything(const std::string& document);
};

std::vector<int> LandXmlReadersTest::convertEverything(const std::string& document) {
    std::vector<int> results;
    std::string host = test::testData("alignment/host").string();
    EXPECT_EQ(call("seleccionaEjeLandXML", {document}), 1);
    std::vector<std::string> alignments = listed();
    for (std::size_t i = 0; i < alignments.size(); ++i) {
        std::string selec = std::to_string(i);
        results.push_back(call("alandxml2nevo", {selec, document, file("eje.nev"), host}));
        EXPECT_EQ(call("alandxml2nevoWCE", {selec, document, file("eje.ruxo"), host}),
                  results.back());
    }
    call("seleccionaRasanteLandXML", {document});
    for (const std::string& profile : listed()) {
        EXPECT_EQ(call("rlandxml2nevo", {profile, document, file("rasante.txt")}), 1);
        EXPECT_EQ(call("rlandxml2nevoWCE", {profile, document, file("rasante.wce")}), 1);
    }
    call("seleccionaTransverLandXML", {document});
    for (const std::string& surface : listed()) {
        std::size_t colon = surface.find(": ");
        std::string alignment = surface.substr(0, colon), capa = surface.substr(colon + 2);
        EXPECT_EQ(call("tralandxml2nevo", {alignment, capa, document, file("secc.nev")}), 1);
        EXPECT_EQ(call("tralandxml2nevoWCE", {alignment, capa, document, file("secc.ruxo")}), 1);
    }
    return results;
}

// The message goes through the seam; the reading goes on, fails, and still
// writes the RUXO file.
TEST_F(LandXmlReadersTest, ClothoidsFromAFiniteRadiusShowTheirMessages) {
    std::vector<std::string> messages;
    auto record = [&](std::string_view text) { messages.emplace_back(text); };
    std::string document = test::testData("landxml/clothoids.xml").string();
    Outcome read = importLandXmlAlignment(document, 0, file("eje.ruxo"), record);
    EXPECT_EQ(read.failure, Failure::rejected);
    EXPECT_EQ(messages,
              (std::vector<std::string>{
                  "El eje no puede empezar con una clotoide con radio inicial distinto de "
                  "infinito. \nLa importacion no es correcta",
                  "Hay una recta antes de una clotoide con radio inicial distinto de infinito. "
                  "\nLa importacion no es correcta"}));
    EXPECT_TRUE(fs::exists(file("eje.ruxo")));
}

// A circle at a vertex without a change of grade and without a curve: its
// radius is 0/0, not a number, and the sag worked out from that radius is
// the same not-a-number, sign and all.
TEST_F(LandXmlReadersTest, CircleWithoutAChangeOfGradeOrACurve) {
    std::string document = test::testData("landxml/flat_circle.xml").string();
    ASSERT_EQ(call("rlandxml2nevoWCE", {"E1: R1", document, file("r.wce")}), 1);
    const double nan = std::fabs(std::numeric_limits<double>::quiet_NaN());
    std::string expected =
        "     0.000   50.000     0.000    0.000    0.000\n" +
        formatText("%10.3lf %8.3lf %9.3lf %8.3lf %8.3lf\n"_fmt, 100.0, 51.0, nan, 0.0, nan) +
        "   200.000   52.000     0.000    0.000    0.000\n";
    EXPECT_EQ(test::readBytes(file("r.wce")), test::withPlatformNewlines(expected));
}

// A selection list that cannot be written gives 0 where the entry point has
// a result.
TEST_F(LandXmlReadersTest, SelectionListThatCannotBeWritten) {
    std::string document = test::testData("landxml/alignments.xml").string();
    fs::create_directories(scratchFile("$$$$.EJE"));
    EXPECT_EQ(call("seleccionaEjeLandXML", {document}), 0);
    EXPECT_EQ(call("seleccionaRasanteLandXML", {document}), 0);
    EXPECT_TRUE(fs::is_directory(scratchFile("$$$$.EJE")));
}

std::string repeated(std::string_view text, int times) {
    std::string out;
    out.reserve(text.size() * static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

// Documents built to cost time or memory, or to leak a file's content, get
// a defined result: no crash or hang (a zero-length arc turning half a circle,
// numbers out of range), every entry point answers, nothing of the file named
// by an external entity reaches an output. Whether a document with a
// DTD is read at all depends on the platform's parser.
TEST_F(LandXmlReadersTest, HostileDocumentsGetADefinedResult) {
    const std::string secret = "CONTENIDO-SECRETO-1234";
    test::writeBytes(file("secreto.txt"), secret);
    std::string laughs = "<!DOCTYPE LandXML [<!ENTITY l0 \"jaja\">";
    for (int i = 1; i <= 10; ++i) {
        std::string previous = "&l" + std::to_string(i - 1) + ";";
        laughs.append("<!ENTITY l").append(std::to_string(i)).append(" \"");
        laughs.append(repeated(previous, 10)).append("\">");
    }
    const std::string alignment = "<Alignment name=\"&l10;\"><CoordGeom/></Alignment>";
    const std::pair<const char*, std::string> documents[] = {
        {"laughs.xml", laughs + "]><LandXML>" + alignment + "</LandXML>"},
        {"external.xml", "<!DOCTYPE LandXML [<!ENTITY s SYSTEM \"" + file("secreto.txt") +
                             "\">]><LandXML><Alignment name=\"a&s;\"><CoordGeom><Line><Start>"
                             "&s; 1</Start></Line></CoordGeom></Alignment></LandXML>"},
        {"nested.xml", "<LandXML>" + repeated("<a>", 10000) + "<Alignment name=\"hondo\"/>" +
                           repeated("</a>", 10000) + "</LandXML>"},
        {"big_entity.xml", "<!DOCTYPE LandXML [<!ENTITY m \"" + std::string(1 << 20, 'x') +
                               "\">]><LandXML><Alignment name=\"m\"><Profile><ProfAlign name=\"r\">"
                               "<PVI>" +
                               repeated("&m;", 10000) +
                               "</PVI></ProfAlign></Profile></Alignment></LandXML>"},
        {"long_text.xml",
         "<LandXML><Alignment name=\"e\"><CoordGeom><Line><Start>" + std::string(5 << 20, '1') +
             "</Start></Line></CoordGeom><Profile><ProfAlign name=\"r\"><PVI>" +
             std::string(5 << 20, '2') + "</PVI></ProfAlign></Profile></Alignment></LandXML>"},
        {"geometry.xml",
         "<LandXML><Alignment name=\"a\"><CoordGeom><Curve radius=\"0.00001\" length=\"0\">"
         "<Start>0 0</Start><Center>0 0.00001</Center><End>0 0</End></Curve><Line><Start>0 0"
         "</Start><End>-1 0</End></Line></CoordGeom></Alignment><Alignment name=\"b\" "
         "staStart=\"1e308\"><CoordGeom><Curve rot=\"ccw\" radius=\"1e308\"><Start>1e308 "
         "1e308</Start><Center>-1e308 5</Center><End>3 1e999</End></Curve><Spiral "
         "radiusStart=\"1e-320\" radiusEnd=\"1e308\" length=\"1e308\"><Start>1 1</Start>"
         "</Spiral></CoordGeom></Alignment></LandXML>"},
        {"not_xml.xml", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)},
    };
    for (const auto& [name, bytes] : documents) {
        SCOPED_TRACE(name);
        test::writeBytes(file(name), bytes);
        convertEverything(file(name));
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dir_)) {
            if (!entry.is_regular_file() || entry.path().filename() == "secreto.txt") continue;
            EXPECT_EQ(test::readBytes(entry.path()).find(secret), std::string::npos)
                << entry.path();
        }
    }
}

fs::path realData(std::string_view name) { return fs::path(QUELCNV_REAL_DATA) / name; }

// Every real document goes through every selection and every conversion it
// offers.
TEST_F(LandXmlReadersTest, EveryRealDocumentConverts) {
    if (!fs::is_directory(realData(""))) GTEST_SKIP() << "no real documents at " << realData("");
    int documents = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(realData(""))) {
        if (entry.path().extension() != ".xml") continue;
        SCOPED_TRACE(entry.path().filename().string());
        std::vector<int> results = convertEverything(entry.path().string());
        EXPECT_FALSE(results.empty());
        ++documents;
    }
    EXPECT_EQ(documents, 11);
}

// The numbers of a text, in order.
std::vector<double> numbersOf(const std::string& text) {
    std::vector<double> numbers;
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    for (double n; in >> n;) numbers.push_back(n);
    return numbers;
}

// What the document itself says of its first alignment: its start station,
// each geometry element's length and start point (northing, easting), and
// the last element's end point; read with patterns, not with the library.
struct DocumentAlignment {
    double staStart = 0.0;
    std::vector<double> lengths;
    std::vector<std::vector<double>> starts;
    std::vector<double> end;
};

DocumentAlignment firstAlignmentOf(const std::string& text) {
    DocumentAlignment doc;
    std::smatch m;
    std::regex_search(text, m, std::regex("<Alignment [^>]*staStart=\"([^\"]+)\""));
    doc.staStart = test::cStrtod(m[1].str().c_str());
    std::regex element(
        "<(Line|Curve|Spiral) [^>]*length=\"([^\"]+)\"[^>]*>\\s*<Start>([^<]+)"
        "</Start>[\\s\\S]*?<End>([^<]+)</End>");
    std::string rest = text.substr(0, text.find("</Alignment>"));
    for (std::sregex_iterator i(rest.begin(), rest.end(), element), end; i != end; ++i) {
        doc.lengths.push_back(test::cStrtod((*i)[2].str().c_str()));
        doc.starts.push_back(numbersOf((*i)[3]));
        doc.end = numbersOf((*i)[4]);
    }
    return doc;
}

std::vector<std::vector<double>> rowsOf(const std::string& path, const char* separators) {
    std::vector<std::vector<double>> rows;
    std::istringstream in(test::readBytes(path));
    for (std::string line; std::getline(in, line);) {
        for (char& c : line)
            if (std::string_view(separators).find(c) != std::string_view::npos) c = ' ';
        rows.push_back(numbersOf(line));
    }
    return rows;
}

// The key points agree with the document's own points and stations within
// a millimetre; the NEVO element form starts there and gives the document's
// element lengths; the profile's vertices are the document's PVI texts.
TEST_F(LandXmlReadersTest, RealDocumentsAgreeWithTheirOwnFigures) {
    if (!fs::is_directory(realData(""))) GTEST_SKIP() << "no real documents at " << realData("");
    for (const char* name :
         {"STN01_Alignment_exchange.xml", "INDOT_PR_Twin_Branch_section_alignment.xml"}) {
        SCOPED_TRACE(name);
        std::string document = realData(name).string();
        std::string text = test::readBytes(document);
        DocumentAlignment doc = firstAlignmentOf(text);
        ASSERT_FALSE(doc.lengths.empty());
        std::string host = test::testData("alignment/host").string();
        ASSERT_EQ(call("alandxml2nevoWCE", {"0", document, file("eje.ruxo"), host}), 1);
        auto ruxo = rowsOf(file("eje.ruxo"), "\t");
        ASSERT_EQ(ruxo.size(), doc.lengths.size() + 1);
        double station = doc.staStart;
        for (std::size_t k = 0; k < ruxo.size(); ++k) {
            const std::vector<double>& point = k < doc.starts.size() ? doc.starts[k] : doc.end;
            EXPECT_NEAR(ruxo[k][0], station, 0.001) << k;
            EXPECT_NEAR(ruxo[k][1], point[1], 0.001) << k;
            EXPECT_NEAR(ruxo[k][2], point[0], 0.001) << k;
            if (k < doc.lengths.size()) station += doc.lengths[k];
        }
        ASSERT_EQ(call("alandxml2nevo", {"0", document, file("eje.nev"), host}), 1);
        auto nevo = rowsOf(file("eje.nev"), ",ABCDEGHILNOPRST");
        EXPECT_NEAR(nevo[0][0], doc.staStart, 0.001);
        EXPECT_NEAR(nevo[0][1], doc.starts[0][1], 0.001);
        EXPECT_NEAR(nevo[0][2], doc.starts[0][0], 0.001);
        for (std::size_t k = 0; k < doc.lengths.size(); ++k)
            EXPECT_NEAR(nevo[k + 1][1], doc.lengths[k], 0.001) << k;

        call("seleccionaRasanteLandXML", {document});
        ASSERT_FALSE(listed().empty());
        ASSERT_EQ(call("rlandxml2nevo", {listed()[0], document, file("rasante.txt")}), 1);
        std::regex vertex("<(PVI|ParaCurve|CircCurve)[^>]*>([^<]+)<");
        auto rows = rowsOf(file("rasante.txt"), "");
        std::size_t k = 0;
        for (std::sregex_iterator i(text.begin(), text.end(), vertex), end; i != end; ++i, ++k) {
            std::vector<double> pvi = numbersOf((*i)[2]);
            ASSERT_LT(k, rows.size());
            EXPECT_NEAR(rows[k][0], pvi[0], 0.001) << k;
            EXPECT_NEAR(rows[k][1], pvi[1], 0.001) << k;
        }
        EXPECT_EQ(k, rows.size());
    }
}

}  // namespace
}  // namespace quelcnv
