// The converters that write the NEVO profile file: the VELM file (five
// columns or ISPOL listing), the ISPOL listing and the ISTRAM listing.
#include <gtest/gtest.h>

#include <filesystem>

#include "profile/ispol_profile.h"
#include "profile/istram_profile.h"
#include "profile/velm_profile.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

using Converter = Outcome (*)(const std::string&, const std::string&);

struct Case {
    const char* input;
    const char* nevo;  // "" when nothing is written
};

class NevoProfileTest : public test::FolderTest {
protected:
    void check(Converter convert, const Case& c) {
        std::filesystem::remove(file("out.nev"));
        test::writeBytes(file("in.txt"), c.input);
        Outcome outcome = convert(file("in.txt"), file("out.nev"));
        if (*c.nevo == '\0') {
            EXPECT_EQ(outcome.failure, Failure::noData) << c.input;
            EXPECT_FALSE(std::filesystem::exists(file("out.nev"))) << c.input;
        } else {
            EXPECT_TRUE(outcome.ok()) << c.input;
            EXPECT_EQ(test::readBytes(file("out.nev")), test::withPlatformNewlines(c.nevo))
                << c.input;
        }
    }
};

TEST_F(NevoProfileTest, FiveColumnFile) {
    const Case cases[] = {
        // one vertex is written twice, as first and as last
        {"5 100 0 0 0\n", "5.000, 100.000, 0.000\n5.000, 100.000, 0.000"},
        // two vertices: no curve is written, whatever their tangents
        {"0 100 1 2 3\n50 101 1 20 3\n", "0.000, 100.000, 0.000\n50.000, 101.000, 0.000"},
        // comments after the first line, empty and short lines are skipped;
        // only the tangent of the inner vertex is used; extra fields too
        {"0 100 0 0 0\n# 1 2 3 4 5\n\n100\t102\t9\t40.0004\t9\textra\n1 2 3 4\n200 101 0 0 0\n",
         "0.000, 100.000, 0.000\n100.000, 102.000, 80.001\n200.000, 101.000, 0.000"},
        // the last line without a line break is lost
        {"0 100 0 0 0\n100 102 0 40 0\n200 101 0 0 0",
         "0.000, 100.000, 0.000\n100.000, 102.000, 0.000"},
        {"0 x 0 0 0\n", "0.000, 0.000, 0.000\n0.000, 0.000, 0.000"},  // text reads 0
        {"0 100 0 0 0", ""},
        {"", ""},
        {"1 2 3 4\n\n", ""},
    };
    for (const Case& c : cases) check(velmProfileToNevo, c);
}

TEST_F(NevoProfileTest, IspolListing) {
    const std::string v0 = "0 100 a b c d 0 0\n", v1 = "100 102 a b c d 2 2666.667\n",
                      v2 = "200 101 a b c d -1 0\n";
    const std::string three =
        "0.000, 100.000, 0.000\n100.000, 102.000, 80.000\n"
        "200.000, 101.000, 0.000";
    const std::string two = "0.000, 100.000, 0.000\n100.000, 102.000, 0.000";
    const std::string cases[][2] = {
        {"# h1\n# h2\n" + v0 + v1 + v2, three},
        // the block ends at a comment line, at a line of fewer than eight
        // fields (an empty one too) and at a last line without a line break
        {"#\n" + v0 + v1 + "# end\n" + v2, two},
        {"#\n" + v0 + v1 + "1 2 3 4 5 6 7\n" + v2, two},
        {"#\n" + v0 + v1 + "\n" + v2, two},
        {"#\n" + v0 + v1 + "200 101 a b c d -1 0", two},
        // a vertex line ended by a line break is kept, the last one too
        {"#\n" + v0, "0.000, 100.000, 0.000\n0.000, 100.000, 0.000"},
        {"# header\n# only\n", ""},
        {"#\n1 2 3\n" + v0, ""},
        {"#\n" + v0.substr(0, v0.size() - 1), ""},
    };
    for (const auto& [input, nevo] : cases) {
        check(velmProfileToNevo, {input.c_str(), nevo.c_str()});
        check(ispolProfileToNevo, {input.c_str(), nevo.c_str()});
    }
    // Called directly, a file without a header is a listing all the same.
    check(ispolProfileToNevo, {(v0 + v1 + v2).c_str(), three.c_str()});
}

TEST_F(NevoProfileTest, IstramListing) {
    const Case cases[] = {
        // a line of seven fields is skipped; comments and empty lines anywhere
        {"# h\n0 100 a b c d 2 0\n\n100 102 a b c d -1\n# mid\n100 102 a b c d -1 2666.667\n"
         "200 101 a b c d 0 0\n",
         "0.000, 100.000, 0.000\n100.000, 102.000, 80.000\n200.000, 101.000, 0.000"},
        // the change of grade's sign does not matter: the length is absolute
        {"0 100 a b c d -2 0\n100 98 a b c d 1 2000\n200 99 a b c d 0 0\n",
         "0.000, 100.000, 0.000\n100.000, 98.000, 60.000\n200.000, 99.000, 0.000"},
        {"0 100 a b c d 2 0\n100 102 a b c d -1 2666.667\n200 101 a b c d 0 0",
         "0.000, 100.000, 0.000\n100.000, 102.000, 0.000"},
        {"0 100 a b c d 2 0", ""},
        {"# h\n0 100 a b c d 2\n", ""},
    };
    for (const Case& c : cases) check(istramProfileToNevo, c);
}

}  // namespace
}  // namespace quelcnv
