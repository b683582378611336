// The LandXML documents the library writes: the serializer's escaping and
// short forms, the frame with its date rule, the alignment writer against
// whole expected documents (tests/data/landxml/writer) and against geometry
// computed here, the same documents through a chained importer, and the
// clothoid tangents against a numerical integration.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <regex>

#include "cli/operations.h"
#include "common/file_path.h"
#include "landxml/alignment_writer.h"
#include "landxml/landxml_document.h"
#include "landxml/xml_writer.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

std::tm at(int year, int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

std::tm fixedClock() { return at(2007, 3, 5, 9, 4, 7); }

class LandXmlWriterTest : public test::FolderTest {
protected:
    // What the writing puts in a file, line ends as written.
    std::string written(const std::function<void(XmlWriter&)>& write) {
        {
            OutputFile out;
            EXPECT_TRUE(out.open(file("out.xml")));
            XmlWriter writer(out);
            write(writer);
            writer.flush();
            EXPECT_TRUE(out.finish());
        }
        return test::readBytes(file("out.xml"));
    }
};

TEST_F(LandXmlWriterTest, EscapesMarkupAndWritesOtherCharactersAsReferences) {
    std::string text = written([](XmlWriter& w) {
        w.addTextAttribute("a", "x&y<z>\"q\" \xF1\x80");
        w.addNumberAttribute("n", -0.00049, 3);
        w.writeStartElement("E");
        w.writeText("1 & 2 < 3 > \"4\"");
        w.clearAttributes();
        w.writeStartElement("Empty");
        w.writeText("");
        w.writeEndElement("Empty");
        w.writeEndElement("E");
    });
    EXPECT_EQ(text,
              "<E a=\"x&amp;y&lt;z&gt;&quot;q&quot; &#241;&#8364;\" n=\"-0.000\">"
              "1 &amp; 2 &lt; 3 &gt; \"4\"<Empty/></E>");
}

// A name from a file name: UTF-8 where it is that, elsewhere than on Windows.
TEST_F(LandXmlWriterTest, FileNamesInTheFileSystemsEncoding) {
    std::string text = written([](XmlWriter& w) {
        w.addTextAttribute("utf8",
                           "e\xC3\xB1"
                           "e",
                           TextSource::fileName);
        w.addTextAttribute("latin",
                           "e\xF1"
                           "e",
                           TextSource::fileName);
        w.writeStartElement("A");
        w.writeEndElement("A");
    });
#ifdef _WIN32
    EXPECT_EQ(text, "<A utf8=\"e&#195;&#177;e\" latin=\"e&#241;e\"/>");
#else
    EXPECT_EQ(text, "<A utf8=\"e&#241;e\" latin=\"e&#241;e\"/>");
#endif
}

// The year is "200" and the years since 1900, less 100 once they reach 100.
TEST(LandXmlDate, TheFixedYearRuleAndTwoDigitFields) {
    const std::pair<std::tm, const char*> dates[] = {{at(2007, 3, 5, 0, 0, 0), "2007-03-05"},
                                                     {at(2010, 12, 31, 0, 0, 0), "20010-12-31"},
                                                     {at(2026, 11, 23, 0, 0, 0), "20026-11-23"},
                                                     {at(2000, 1, 1, 0, 0, 0), "2000-01-01"},
                                                     {at(1999, 7, 9, 0, 0, 0), "20099-07-09"}};
    for (const auto& [time, text] : dates) EXPECT_EQ(landxmlDate(time), text);
    EXPECT_EQ(landxmlTime(at(2007, 3, 5, 9, 4, 7)), "09:04:07");
    EXPECT_EQ(landxmlTime(at(2007, 3, 5, 23, 59, 10)), "23:59:10");
}

const char frame2007[] =
    "<?xml version=\"1.0\"?><LandXML version=\"1.0\" date=\"2007-03-05\" time=\"09:04:07\">"
    "<Project name=\"Prueba\"/><Units><Metric areaUnit=\"squareMeter\" linearUnit=\"meter\" "
    "volumeUnit=\"cubicMeter\" temperatureUnit=\"celsius\" pressureUnit=\"mmHG\" "
    "angularUnit=\"grads\" directionUnit=\"grads\"/></Units><Application name=\"VELM\" "
    "version=\"4.0\" manufacturerURL=\"http://x.example/\"><Author "
    "createdByEmail=\"obra@x.example\" company=\"Almadet\" companyURL=\"http://x.example/\"/>"
    "</Application><Alignments/></LandXML>\n";

TEST_F(LandXmlWriterTest, FrameOfEveryDocument) {
    test::ScopedEnv url("QUELCNV_MAKER_URL", "http://x.example/");
    test::ScopedEnv email("QUELCNV_MAKER_EMAIL", "obra@x.example");
    auto content = [](XmlWriter& w) {
        w.clearAttributes();
        w.writeStartElement("Alignments");
        w.writeEndElement("Alignments");
    };
    ASSERT_TRUE(writeLandXmlDocument(file("doc.xml"), content, fixedClock).ok());
    EXPECT_EQ(test::readBytes(file("doc.xml")), test::withPlatformNewlines(frame2007));
    ASSERT_TRUE(writeLandXmlDocument(file("doc.xml"), content, [] {
                    return at(2026, 11, 23, 18, 0, 5);
                }).ok());
    EXPECT_NE(test::readBytes(file("doc.xml")).find("date=\"20026-11-23\" time=\"18:00:05\""),
              std::string::npos);
}

// Whole documents for RUXO files under tests/data/landxml/writer, on the
// fixed clock; QUELCNV_WRITE_EXPECTED=landxml writes them anew.
TEST_F(LandXmlWriterTest, AlignmentDocuments) {
    for (const char* name :
         {"straight", "curves", "clothoids", "single", "back_to_back", "commented"}) {
        fs::path input = test::testData("landxml/writer") / (std::string(name) + ".ruxo");
        fs::path expected = test::testData("landxml/writer") / (std::string(name) + ".xml");
        std::string output = file(std::string(name) + ".xml");
        ASSERT_TRUE(convertRuxoAlignmentToLandXml(input.string(), output, fixedClock).ok()) << name;
        const char* family = std::getenv("QUELCNV_WRITE_EXPECTED");
        if (family != nullptr && std::string_view(family) == "landxml") {
            std::string text = test::readBytes(output);
            if (text.ends_with("\r\n")) text.erase(text.size() - 2, 1);
            test::writeBytes(expected, text);
        }
        EXPECT_EQ(test::readBytes(output), test::withPlatformNewlines(test::readBytes(expected)))
            << name;
    }
    EXPECT_EQ(convertRuxoAlignmentToLandXml(file("missing.ruxo"), file("none.xml")).failure,
              Failure::inputUnreadable);
    EXPECT_FALSE(fs::exists(file("none.xml")));
}

// A chained importer hands the writer the same key points: the CLIP PLT
// form of back_to_back.ruxo gives the same document, its date and time aside.
TEST_F(LandXmlWriterTest, ChainedImporterWritesTheSameDocument) {
    const cli::Operation* op = cli::findOperation("aclipplt2LandXML");
    ASSERT_NE(op, nullptr);
    std::string plt = test::testData("landxml/writer/back_to_back.plt").string();
    std::vector<std::string> arguments = {plt, file("back_to_back.xml")};
    ASSERT_EQ(op->invoke(arguments), 1);
    std::string text = std::regex_replace(test::readBytes(file("back_to_back.xml")),
                                          std::regex(" date=\"[0-9-]+\" time=\"[0-9:]+\""),
                                          " date=\"2007-03-05\" time=\"09:04:07\"");
    fs::path expected = test::testData("landxml/writer/back_to_back.xml");
    EXPECT_EQ(text, test::withPlatformNewlines(test::readBytes(expected)));
}

// The alignment's name is the output file's base name, by the platform's
// path rules.
TEST(AlignmentName, BaseNameOfTheOutputPath) {
    // clang-format off
    const std::pair<const char*, const char*> paths[] = {
        {"eje1.xml", "eje1"}, {"obras/eje1.xml", "eje1"}, {"obras/eje.v1.xml", "eje.v1"},
        {"obras.v2/eje", "eje"},
#ifdef _WIN32
        {"D:\\obras\\eje1.xml", "eje1"}, {"D:eje1.xml", "eje1"},
#else
        {"/obras/eje1.xml", "eje1"}, {"/obras\\eje1.xml", "obras\\eje1"},
#endif
    };
    // clang-format on
    for (auto [path, name] : paths) EXPECT_EQ(baseName(path), name) << path;
}

// The numbers of the first element of that name's point child.
std::pair<double, double> pointIn(const std::string& text, const std::string& element,
                                  const std::string& child, int which = 0) {
    std::regex pattern("<" + element + " [^>]*>[\\s\\S]*?<" + child + ">([^ ]+) ([^<]+)<");
    auto match = std::sregex_iterator(text.begin(), text.end(), pattern);
    for (int i = 0; i < which; ++i) ++match;
    return {test::cStrtod((*match)[1].str().c_str()), test::cStrtod((*match)[2].str().c_str())};
}

// Centre and PI of both arcs of curves.ruxo, from the start point, the
// radius and the turned angle, against what the writer works out from its
// normals and tangents.
TEST_F(LandXmlWriterTest, ArcCentresAndPointsOfIntersection) {
    const double gradsToRadians = 3.14159265358979323846 / 200.0;
    struct Arc {
        double x, y, azimuth, radius, length;
    };
    const Arc arcs[] = {{5027.23942998, 7053.46039145, 30.0, 200.0, 100.0},
                        {5092.58530516, 7127.77937722, 61.83098862, -150.0, 90.0}};
    std::string input = test::testData("landxml/writer/curves.ruxo").string();
    ASSERT_TRUE(convertRuxoAlignmentToLandXml(input, file("curves.xml"), fixedClock).ok());
    std::string text = test::readBytes(file("curves.xml"));
    for (int i = 0; i < 2; ++i) {
        const Arc& a = arcs[i];
        double side = (a.azimuth + (a.radius > 0 ? 100.0 : -100.0)) * gradsToRadians;
        double r = std::fabs(a.radius);
        auto [cy, cx] = pointIn(text, "Curve", "Center", i);
        EXPECT_NEAR(cx, a.x + r * std::sin(side), 1e-5) << i;
        EXPECT_NEAR(cy, a.y + r * std::cos(side), 1e-5) << i;
        double tangent = r * std::tan(a.length / r / 2.0);
        double along = a.azimuth * gradsToRadians;
        auto [py, px] = pointIn(text, "Curve", "PI", i);
        EXPECT_NEAR(px, a.x + tangent * std::sin(along), 1e-5) << i;
        EXPECT_NEAR(py, a.y + tangent * std::cos(along), 1e-5) << i;
    }
}

// The clothoid's end in its own axes, integrated with Simpson's rule.
std::pair<double, double> integratedEnd(double length, double parameter) {
    const int steps = 20000;
    double h = length / steps, x = 0.0, y = 0.0;
    for (int i = 0; i <= steps; ++i) {
        double s = i * h;
        double weight = i == 0 || i == steps ? 1.0 : (i % 2 == 1 ? 4.0 : 2.0);
        double angle = s * s / (2.0 * parameter * parameter);
        x += weight * std::cos(angle);
        y += weight * std::sin(angle);
    }
    return {x * h / 3.0, y * h / 3.0};
}

// The series is cut after its sixth term of X and fifth of Y, and its last
// divisor of X is 7620480 where the true series has 76204800: X, and so
// tanLong, come out short by L * tau^10 * (1/7620480 - 1/76204800), about
// 1.2e-7 * L * tau^10 (2.4e-5 m for a clothoid of 200 m as long as twice its
// radius). With that known amount added back, what is left is the dropped
// terms, below 1e-8 * L for tau up to 1; the integration is good to 1e-9.
TEST(ClothoidTangents, AgreeWithANumericalIntegration) {
    const std::pair<double, double> clothoids[] = {{48, 300}, {100, 250}, {60, 60}, {200, 100}};
    for (auto [length, radius] : clothoids) {
        double parameter = std::sqrt(length * radius);
        double tau = length / (2.0 * radius);
        auto [x, y] = integratedEnd(length, parameter);
        double tanShort = y / std::sin(tau);
        double tanLong = x - y / std::tan(tau);
        double shortBy = length * std::pow(tau, 10) * (1.0 / 7620480.0 - 1.0 / 76204800.0);
        ClothoidTangents series = clothoidTangents(length, parameter, radius);
        EXPECT_NEAR(series.tanShort, tanShort, 1e-8 * length) << length << " " << radius;
        EXPECT_NEAR(series.tanLong + shortBy, tanLong, 1e-8 * length) << length << " " << radius;
        // The sign of the radius, the turning direction, changes nothing.
        ClothoidTangents left = clothoidTangents(length, parameter, -radius);
        EXPECT_DOUBLE_EQ(left.tanShort, series.tanShort);
        EXPECT_DOUBLE_EQ(left.tanLong, series.tanLong);
    }
}

}  // namespace
}  // namespace quelcnv
