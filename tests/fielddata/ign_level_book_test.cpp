// The IGN levelling book written from KL500 level readings: the whole book,
// the unit codes, the point number rule, the stamps and the failures.
#include "fielddata/ign_level_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

const LevelBookHeader header{"Topografia del Norte SL", "J. Garcia", "M-101", "M-102",
                             "KL500-123456"};

// A start stamp, so that the sightings after it make lines.
const std::string startStamp = "c,1,KL500,0711160830\n";

class LevelBookTest : public test::FolderTest {
protected:
    Outcome convert(std::string_view readings) {
        test::writeBytes(file("lecturas.txt"), readings);
        return writeIgnLevelBook(file("lecturas.txt"), file("libro.ign"), header);
    }

    // The lines of the book, without their line ends.
    std::vector<std::string> bookLines(std::string_view readings) {
        EXPECT_TRUE(convert(readings).ok()) << readings;
        std::vector<std::string> lines;
        std::string book = test::readBytes(file("libro.ign"));
        for (std::size_t start = 0; start < book.size();) {
            std::size_t end = book.find('\n', start);
            std::string line = book.substr(start, end - start);
            if (!line.empty() && line.back() == '\r') line.pop_back();
            lines.push_back(line);
            if (end == std::string::npos) break;
            start = end + 1;
        }
        return lines;
    }

    // The set-up lines after the ten lines of the header.
    std::vector<std::string> setUps(std::string_view readings) {
        std::vector<std::string> lines = bookLines(readings);
        return std::vector<std::string>(lines.begin() + std::min<std::size_t>(lines.size(), 10),
                                        lines.end());
    }
};

// tests/data/fielddata/level_book/readings.txt: a full set-up, a B1 F1 F2
// and a B1 F1 set-up, a B1 followed by a B1, a full one in unit code 8;
// skipped lines (another letter, upper case, blank, unit code 5); an empty
// field before a point number; and a last stamp without a line break, lost.
// The header is code page 850 and exact to the blank; CR LF readings give
// the same book.
TEST_F(LevelBookTest, WritesTheWholeBook) {
    std::string lf = test::readBytes(test::testData("fielddata/level_book/readings.txt")), crlf;
    for (char c : lf) c == '\n' ? crlf += "\r\n" : crlf += c;
    for (const std::string& readings : {lf, crlf}) {
        ASSERT_TRUE(convert(readings).ok());
        EXPECT_EQ(test::readBytes(file("libro.ign")),
                  test::withPlatformNewlines(
                      test::readBytes(test::testData("fielddata/level_book/book.ign"))));
    }
}

TEST_F(LevelBookTest, LongHeaderTextsWidenTheLineAndAreNeverCut) {
    const std::string company(50, 'E');
    test::writeBytes(file("lecturas.txt"), startStamp + "g,11,1,1\ni,11,1,1\n");
    ASSERT_TRUE(
        writeIgnLevelBook(file("lecturas.txt"), file("libro.ign"), {company, "Ana", "", "", ""})
            .ok());
    std::string book = test::readBytes(file("libro.ign"));
    std::string first = "EMPRESA: " + company;
    first += "OPERADOR: Ana" + std::string(31, ' ');
    EXPECT_EQ(book.substr(0, book.find_first_of("\r\n")), first);
}

TEST_F(LevelBookTest, UnitCodesScaleReadingsAndDistances) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"1", "0         12.34    0.00   12.34500 0.00000   0.00    0.00    0.00000 0.00000  0       "},
        {"2", "0         12.34    0.00    1.23450 0.00000   0.00    0.00    0.00000 0.00000  0       "},
        {"7", "0         12.34    0.00    1.23450 0.00000   0.00    0.00    0.00000 0.00000  0       "},
        {"3", "0          1.23    0.00    0.12345 0.00000   0.00    0.00    0.00000 0.00000  0       "},
        {"8", "0          1.23    0.00    0.12345 0.00000   0.00    0.00    0.00000 0.00000  0       "},
    };
    // clang-format on
    for (auto [code, line] : cases) {
        std::string readings = startStamp;
        readings += "g,1" + std::string(code) + ",12345,1234\nv,0711161200\n";
        EXPECT_EQ(setUps(readings), std::vector<std::string>{line}) << code;
    }
    // Code 5, a code of one character and missing fields reject the line:
    // two records are left, too few for a book.
    for (const char* rejected : {"g,15,12345,1234\n", "g,1,12345,1234\n", "g,11,12345\n"}) {
        std::string readings = startStamp + rejected + "v,0711161200\n";
        EXPECT_EQ(convert(readings).failure, Failure::noData) << rejected;
    }
}

TEST_F(LevelBookTest, PointNumberStandsBetweenTheSeventhAndEighthComma) {
    const std::pair<const char*, std::string> cases[] = {
        {"g,11,1,1,0,0,0,42,0\n", "42      "},
        {"g,11,1,1,,,,42,0\n", "42      "},    // empty fields count here
        {"g,11,,1,1,0,0,0,42\n", "0       "},  // and move the point past the 8th field
        {"g,11,1,1,0,0,0,42\n", "42      "},   // the last field of the line
        {"g,11,1,1,0,0,0,,7\n", "0       "},   // an empty eighth field
        {"g,11,1,1,0,0\n", "0       "},        // fewer than seven commas
        {"g,11,1,1,0,0,0,-17x,0\n", "-17     "},
        {"g,11,1,1,0,0,0, 99999999999\n", "2147483647   0.01"},
    };
    for (const auto& [sighting, point] : cases) {
        std::vector<std::string> lines = setUps(startStamp + sighting + "v,0711161200\n");
        ASSERT_EQ(lines.size(), 1u) << sighting;
        EXPECT_EQ(lines[0].substr(0, point.size()), point) << sighting;
    }
}

TEST_F(LevelBookTest, SetUpsStartAtEveryB1ButTheFirstRecord) {
    // A B1 that is the first record starts no line; the walk goes on one
    // record at a time, so the F1 after it joins no line either.
    std::vector<std::string> lines =
        setUps("g,11,1000,100,0,0,0,1\ni,11,2000,200,0,0,0,2\ng,11,3000,300,0,0,0,3\n");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].substr(0, 15), "3          3.00");
    // A B1 whose next record is no F1 gets no fore sights, whatever follows.
    lines = setUps(startStamp +
                   "g,11,1000,100,0,0,0,1\nj,11,2000,200,0,0,0,2\ni,11,2000,200,0,0,0,2\n");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].substr(42), "   0.00    0.00    0.00000 0.00000  0       ");
}

TEST_F(LevelBookTest, StampsFromStartAndEndRecords) {
    struct Case {
        const char* readings;
        const char* start;  // "FECHA" to "MIRA" of the CLV SAL line
        const char* end;    // the same of the CLV FIN line
    };
    // clang-format off
    const Case cases[] = {
        {"c,1,KL500,07111608,0711160830,0\ng,11,1,1\nv,x,0711161145\n",
         "FECHA:  16/11/07 HORA:    08:30   ", "FECHA:  16/11/07 HORA:    11:45   "},
        // no end stamp: the job ends when it started
        {"c,0711160830\ng,11,1,1\ni,11,1,1\n",
         "FECHA:  16/11/07 HORA:    08:30   ", "FECHA:  16/11/07 HORA:    08:30   "},
        // no start stamp: it starts when it ended
        {"g,11,1,1\ni,11,1,1\nw,1,2,3,0711161145abc\n",
         "FECHA:  16/11/07 HORA:    11:45   ", "FECHA:  16/11/07 HORA:    11:45   "},
        // a later stamp of the same side wins
        {"c,0711160830\nc,0812241015\nv,0711161145\n",
         "FECHA:  24/12/08 HORA:    10:15   ", "FECHA:  16/11/07 HORA:    11:45   "},
        // the end stamp stands beyond its four fields: an empty end date,
        // filled from the start
        {"c,0711160830\ng,11,1,1\nv,1,2,3,4,0711161145\n",
         "FECHA:  16/11/07 HORA:    08:30   ", "FECHA:  16/11/07 HORA:    08:30   "},
        // a start record whose fields run out empties its date but keeps
        // the time, and the end copies both
        {"c,0711160830\nc,1,2\ng,11,1,1\ni,11,1,1\n",
         "FECHA:           HORA:    08:30   ", "FECHA:           HORA:    08:30   "},
        // the eighteenth field after the letter is still looked at
        {"c,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,0711160830\ng,11,1,1\ni,11,1,1\n",
         "FECHA:  16/11/07 HORA:    08:30   ", "FECHA:  16/11/07 HORA:    08:30   "},
        // no stamps at all
        {"g,11,1,1\ni,11,1,1\nj,11,1,1\n",
         "FECHA:           HORA:            ", "FECHA:           HORA:            "},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::vector<std::string> lines = bookLines(c.readings);
        ASSERT_GE(lines.size(), 4u) << c.readings;
        EXPECT_EQ(lines[2].substr(18, 34), c.start) << c.readings;
        EXPECT_EQ(lines[3].substr(18, 34), c.end) << c.readings;
    }
}

TEST_F(LevelBookTest, StampRecordsWhoseFieldsRunOutAreNoRecords) {
    // Eighteen fields without a stamp: still a start record...
    EXPECT_TRUE(
        convert("c,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18\ng,11,1,1\ni,11,1,1\n").ok());
    // ...but one whose fields end before a stamp or its limit is dropped.
    EXPECT_EQ(convert("c,1,2\ng,11,1,1\ni,11,1,1\n").failure, Failure::noData);
    EXPECT_EQ(convert("c\ng,11,1,1\ni,11,1,1\n").failure, Failure::noData);
    EXPECT_EQ(convert("v,1,2,3\ng,11,1,1\ni,11,1,1\n").failure, Failure::noData);
    EXPECT_TRUE(convert("v,1,2,3,4\ng,11,1,1\ni,11,1,1\n").ok());
}

TEST_F(LevelBookTest, SectionCodesOfTheFirstB1AndTheLastF2) {
    std::vector<std::string> lines = bookLines(
        startStamp + "g,11,1,1,0,0,0,7\nj,11,1,1,0,0,0,8\ng,11,1,1,0,0,0,9\nj,11,1,1,0,0,0,10\n");
    EXPECT_EQ(lines[2].substr(0, 18), "CLV SAL: 7        ");
    EXPECT_EQ(lines[3].substr(0, 18), "CLV FIN: 10       ");
    lines = bookLines(startStamp + "g,11,1,1,0,0,0,7\ni,11,1,1,0,0,0,8\n");
    EXPECT_EQ(lines[3].substr(0, 18), "CLV FIN: 0        ");  // no F2
}

TEST_F(LevelBookTest, ThreeRecordsAtLeastAndTheLastUnterminatedLineIsLost) {
    test::writeBytes(file("libro.ign"), "old");
    EXPECT_EQ(convert(startStamp + "g,11,1,1\n").failure, Failure::noData);
    EXPECT_EQ(convert(startStamp + "g,11,1,1\ni,11,1,1").failure, Failure::noData);
    EXPECT_EQ(convert("G,11,1,1\nc,0711160830\nk,1\ng,11,1,1\n").failure, Failure::noData);
    EXPECT_EQ(test::readBytes(file("libro.ign")), "old");  // no book is written
    EXPECT_TRUE(convert(startStamp + "g,11,1,1\ni,11,1,1\n").ok());
}

TEST_F(LevelBookTest, EntryPointResults) {
    const std::string in = file("lecturas.txt"), out = file("libro.ign");
    auto run = [&](const char* entrada, const char* salida, const char* text) {
        return MyDll_anivel2ing(entrada, salida, text, "b", "c", "d", "e");
    };
    EXPECT_EQ(run(file("missing.txt").c_str(), out.c_str(), "a"), 21);
    EXPECT_FALSE(fs::exists(out));
    test::writeBytes(in, startStamp + "g,11,1,1\n");
    EXPECT_EQ(run(in.c_str(), out.c_str(), "a"), 0);
    test::writeBytes(in, startStamp + "g,11,1,1\ni,11,1,1\n");
    EXPECT_EQ(run(in.c_str(), out.c_str(), nullptr), 0);
    EXPECT_EQ(run(nullptr, out.c_str(), "a"), 0);
    EXPECT_EQ(run(in.c_str(), std::string(300, 'x').c_str(), "a"), 0);
    EXPECT_FALSE(fs::exists(out));
    EXPECT_EQ(run(in.c_str(), dir_.string().c_str(), "a"), 0);  // a folder: no book
    EXPECT_EQ(run(in.c_str(), out.c_str(), "a"), 1);
    EXPECT_TRUE(fs::exists(out));
}

}  // namespace
}  // namespace quelcnv
