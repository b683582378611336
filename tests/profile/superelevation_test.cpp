// The ISPOL and CLIP superelevation tables to the superelevation file.
#include <gtest/gtest.h>

#include <filesystem>

#include "profile/clip_superelevation.h"
#include "profile/ispol_superelevation.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

using Converter = Outcome (*)(const std::string&, const std::string&);

class SuperelevationTest : public test::FolderTest {
protected:
    std::string convert(Converter converter, std::string_view table) {
        test::writeBytes(file("peralte.txt"), table);
        EXPECT_TRUE(converter(file("peralte.txt"), file("peralte.out")).ok()) << table;
        return test::readBytes(file("peralte.out"));
    }
    void check(Converter converter, const std::pair<const char*, const char*>& c) {
        EXPECT_EQ(convert(converter, c.first), test::withPlatformNewlines(c.second)) << c.first;
    }
};

TEST_F(SuperelevationTest, IspolFirstCrossFallIsFieldFiveElseFourElseZero) {
    const std::pair<const char*, const char*> cases[] = {
        {"T\n1\t100.000\t2.5\t-2.0\t-3.0\n", " 100.000 -3.000 -2.500\n"},
        {"T\n1\t100.000\t2.5\t-2.0\n", " 100.000 -2.000 -2.500\n"},
        {"T\n1\t100.000\t2.5\n", " 100.000  0.000 -2.500\n"},
        {"T\n1\t100.000\n", ""},
        // blanks separate too; a sixth field is not used; field 1 is not used
        {"T\nx 100 -1 2 3 4\n", " 100.000  3.000  1.000\n"},
        // wider numbers widen their field
        {"T\n1 12345.6789 -123.4567 0 0\n", "12345.679  0.000 123.457\n"},
    };
    for (const auto& c : cases) check(ispolSuperelevationToFile, c);
}

TEST_F(SuperelevationTest, IspolTitleCommentsAndLastLine) {
    const std::pair<const char*, const char*> cases[] = {
        // the title is skipped, comments too; a last line without a line
        // break is taken, and the rows keep the file's order
        {"1 2 3 4 5\n# 1 2 3 4 5\n1 20 1 1\n\n1 10 2 2",
         "  20.000  1.000 -1.000\n  10.000  2.000 -2.000\n"},
        // a title alone, ended by a line break, is read once more as a row
        // when it has three words or more
        {"PERALTES DEL EJE\n", "   0.000  0.000 -0.000\n"},
        {"PERALTES 7 -2.5 4\n", "   7.000  4.000  2.500\n"},
        {"PERALTES EJE\n", ""},
        {"# PERALTES DEL EJE\n", ""},
        // without its line break, it is not
        {"PERALTES DEL EJE", ""},
        {"", ""},
    };
    for (const auto& c : cases) check(ispolSuperelevationToFile, c);
}

TEST_F(SuperelevationTest, ClipRows) {
    const std::pair<const char*, const char*> cases[] = {
        {"250.5 2 -2\n", " 250.500  2.000  2.000\n"},
        // a title line of three words is a row, its words reading as 0
        {"PK PERALTE1 PERALTE2\n0\t-3.5\t3.5\n",
         "   0.000  0.000 -0.000\n   0.000 -3.500 -3.500\n"},
        // short lines give no row; a last line without a line break does
        {"PK PERALTES\n\n10 1\n20 1 2 extra\n30 -1 -2",
         "  20.000  1.000 -2.000\n  30.000 -1.000  2.000\n"},
        {"", ""},
    };
    for (const auto& c : cases) check(clipSuperelevationToFile, c);
}

}  // namespace
}  // namespace quelcnv
