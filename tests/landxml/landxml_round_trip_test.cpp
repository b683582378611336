// Every LandXML writer's document goes back through our own readers, its
// selection list first, and gives the same stations, coordinates, vertices
// and points as the conversions to NEVO and RUXO of the same input, within
// the printed precision. Every document is well-formed and, where xmllint
// and the schema are at hand, valid LandXML 1.2 once the namespace is put on
// its root.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <locale>
#include <sstream>

#include "cli/operations.h"
#include "landxml/sax_reader.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using Rows = std::vector<std::vector<double>>;

// The numbers of each line, any of the separators between them.
Rows rowsOf(const std::string& path, std::string_view separators) {
    Rows rows;
    std::istringstream in(test::readBytes(path));
    for (std::string line; std::getline(in, line);) {
        for (char& c : line)
            if (separators.find(c) != std::string_view::npos) c = ' ';
        std::istringstream fields(line);
        fields.imbue(std::locale::classic());
        std::vector<double> row;
        for (double value; fields >> value;) row.push_back(value);
        if (!row.empty()) rows.push_back(row);
    }
    return rows;
}

// The first count columns of each row, sorted, to compare points whatever
// their order.
Rows sortedColumns(Rows rows, std::size_t count) {
    for (auto& row : rows) row.resize(count);
    std::sort(rows.begin(), rows.end());
    return rows;
}

void expectSameRows(const Rows& got, const Rows& expected, std::size_t columns, double tolerance) {
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        for (std::size_t c = 0; c < columns; ++c)
            EXPECT_NEAR(got[i][c], expected[i][c], tolerance) << "row " << i << " column " << c;
    }
}

struct DocumentEnd : SaxHandler {
    bool reached = false;
    void startElement(std::string_view, const XmlAttributes&) override {}
    void endDocument() override { reached = true; }
};

class LandXmlRoundTripTest : public test::FolderTest {
protected:
    int call(std::string_view name, std::vector<std::string> arguments) {
        const cli::Operation* op = cli::findOperation(name);
        EXPECT_NE(op, nullptr) << name;
        return op == nullptr ? -1 : op->invoke(arguments);
    }

    std::string sample(std::string_view path) {
        return (fs::path(QUELCNV_SAMPLES) / path).string();
    }

    // The one line the selection lists for the document.
    std::string onlyListed(std::string_view selection, const std::string& document) {
        call(selection, {document});
        std::vector<std::string> lines;
        std::istringstream list(test::readBytes(scratchFile("$$$$.EJE")));
        for (std::string line; std::getline(list, line);)
            lines.push_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
        EXPECT_EQ(lines.size(), 1u);
        return lines.empty() ? std::string() : lines.front();
    }

    // Well-formed, read to its end; valid against the schema where xmllint
    // and the schema are at hand.
    void checkDocument(const std::string& document) {
        DocumentEnd end;
        ASSERT_EQ(runSaxParse(end, document).end, SaxEnd::whole);
        EXPECT_TRUE(end.reached) << document;
#ifndef _WIN32
        fs::path schema = fs::path(QUELCNV_REAL_DATA) / "schema/LandXML-1.2.xsd";
        if (!fs::exists(schema) || std::system("xmllint --version >/dev/null 2>&1") != 0) return;
        std::string text = test::readBytes(document);
        text.replace(text.find("<LandXML "), 9,
                     "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" ");
        test::writeBytes(file("namespaced.xml"), text);
        std::string command = "xmllint --noout --schema '" + schema.string() + "' '" +
                              file("namespaced.xml") + "' >'" + file("xmllint.txt") + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << test::readBytes(file("xmllint.txt"));
#endif
    }
};

// Alignments: the key points read back are those of the RUXO file written.
TEST_F(LandXmlRoundTripTest, Alignments) {
    std::string host = test::testData("alignment/host").string();
    struct Case {
        const char* writer;
        std::string input;
        const char* ruxoOperation;  // writes the same RUXO file (to salida or scratch)
    };
    // back_to_back: a reverse curve whose two clothoids meet at a straight
    // point, directly and through the CLIP PLT importer.
    std::string backToBack = test::testData("landxml/writer/back_to_back").string();
    const Case cases[] = {{"aVELM2LandXML", sample("alignment/eje.ruxo"), nullptr},
                          {"aistram2LandXML", sample("alignment/eje.istram"), "aistram2ruxo"},
                          {"aclipplt2LandXML", sample("alignment/eje.plt"), "aclipplt2ruxo"},
                          {"aispol2LandXML", sample("alignment/eje.ispol"), "aispol2nevo"},
                          {"aistramList2LandXML", sample("alignment/eje.lis"), "aistramList2nevo"},
                          {"aVELM2LandXML", backToBack + ".ruxo", nullptr},
                          {"aclipplt2LandXML", backToBack + ".plt", "aclipplt2ruxo"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.writer + (" " + c.input));
        const std::string& input = c.input;
        std::string ruxo = input;
        std::string_view operation = c.ruxoOperation == nullptr ? "" : c.ruxoOperation;
        if (operation.ends_with("ruxo")) {
            ruxo = file("imported.ruxo");
            ASSERT_EQ(call(operation, {input, ruxo}), 1);
        } else if (!operation.empty()) {  // they leave the scratch file behind
            ASSERT_EQ(call(operation, {input, file("x.nev"), host}), 1);
            ruxo = file("imported.ruxo");
            test::writeBytes(ruxo, test::readBytes(scratchFile("temp.$$$")));
        }
        std::string document = file("eje1.xml");
        ASSERT_EQ(call(c.writer, {input, document}), 1);
        checkDocument(document);
        EXPECT_EQ(onlyListed("seleccionaEjeLandXML", document), "eje1");
        ASSERT_EQ(call("alandxml2nevoWCE", {"0", document, file("back.ruxo"), host}), 1);
        expectSameRows(rowsOf(file("back.ruxo"), "\t"), rowsOf(ruxo, " \t"), 3, 0.0005);
    }
    // HTRAZADO alignments import as no record: no document.
    EXPECT_EQ(call("ahtrazado2LandXML", {sample("alignment/eje.htr"), file("htr.xml")}), 1);
    EXPECT_FALSE(fs::exists(file("htr.xml")));
}

// Profiles: the vertices and curve lengths read back are those of the NEVO
// profile file of the same input.
TEST_F(LandXmlRoundTripTest, Profiles) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"rvelm2landxml", "rvelm2nevo", "profile/rasante.velm"},
        {"rvelm2landxml", "rvelm2nevo", "profile/rasante.ispol"},
        {"ristram2landxml", "ristram2nevo", "profile/rasante.istram"},
        {"rispol2landxml", "rispol2nevo", "profile/rasante.ispol"}};
    for (const auto& [writer, nevo, input] : cases) {
        SCOPED_TRACE(std::string(writer) + " " + input);
        std::string document = file("rasante.xml");
        ASSERT_EQ(call(writer, {sample(input), document}), 1);
        checkDocument(document);
        std::string listed = onlyListed("seleccionaRasanteLandXML", document);
        EXPECT_EQ(listed, "rasante: rasante");
        ASSERT_EQ(call("rlandxml2nevo", {listed, document, file("back.txt")}), 1);
        ASSERT_EQ(call(nevo, {sample(input), file("rasante.nev")}), 1);
        expectSameRows(rowsOf(file("back.txt"), " "), rowsOf(file("rasante.nev"), ", "), 3, 0.0005);
    }
    EXPECT_EQ(call("ristram2landxml", {file("missing"), file("none.xml")}), 0);
    EXPECT_EQ(call("rvelm2landxml", {file("missing"), file("none.xml")}), 1);
    EXPECT_FALSE(fs::exists(file("none.xml")));
}

// Cross sections: the points read back are those of the NEVO file of the
// same input, in any order.
TEST_F(LandXmlRoundTripTest, CrossSections) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"travelm2landxml", "traruxo2nevo", "crosssection/eje.csv"},
        {"traistram2landxml", "istram2nevo", "crosssection/eje.istram"},
        {"tramxroad2landxml", "mxroad2nevo", "crosssection/eje.mxroad"},
        {"traclip2landxml", "clip2nevo", "crosssection/eje.ter"},
        {"tracliptrv2landxml", "cliptrv2nevo", "crosssection/eje.trv"},
        {"trahtrazado2lamdxml", "htrazado2nevo", "crosssection/eje.htrazado"}};
    for (const auto& [writer, nevo, input] : cases) {
        SCOPED_TRACE(writer);
        std::string document = file("secciones.xml");
        ASSERT_EQ(call(writer, {sample(input), document}), 1);
        checkDocument(document);
        std::string listed = onlyListed("seleccionaTransverLandXML", document);
        EXPECT_EQ(listed, "secciones: eje");
        ASSERT_EQ(call("tralandxml2nevoWCE", {"secciones", "eje", document, file("back.ruxo")}), 1);
        ASSERT_EQ(call(nevo, {sample(input), file("secciones.nev")}), 1);
        expectSameRows(sortedColumns(rowsOf(file("back.ruxo"), " "), 3),
                       sortedColumns(rowsOf(file("secciones.nev"), ", "), 3), 3, 0.0005);
    }
    test::writeBytes(file("vacio.csv"), "sin puntos\n");
    EXPECT_EQ(call("travelm2landxml", {file("vacio.csv"), file("none.xml")}), 0);
    EXPECT_EQ(call("traistram2landxml", {file("missing"), file("none.xml")}), 0);
    EXPECT_FALSE(fs::exists(file("none.xml")));
}

}  // namespace
}  // namespace quelcnv
