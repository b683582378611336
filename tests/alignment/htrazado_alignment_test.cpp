#include "alignment/htrazado_alignment.h"

#include <gtest/gtest.h>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class HtrazadoAlignmentTest : public test::FolderTest {};

// The conversion is not provided: any readable input gives an empty RUXO file,
// replacing what salida held.
TEST_F(HtrazadoAlignmentTest, WritesAnEmptyAlignmentFile) {
    for (const char* htrazado : {"", "2 0\n0,1000,2000,50,0,0\n100,1090,2040,50,0,0"}) {
        test::writeBytes(file("eje.htr"), htrazado);
        test::writeBytes(file("eje.ruxo"), "old");
        ASSERT_TRUE(importHtrazadoAlignment(file("eje.htr"), file("eje.ruxo")).ok());
        EXPECT_EQ(test::readBytes(file("eje.ruxo")), "") << htrazado;
    }
}

TEST_F(HtrazadoAlignmentTest, MissingInputLeavesOutputUntouched) {
    test::writeBytes(file("eje.ruxo"), "old");
    EXPECT_EQ(importHtrazadoAlignment(file("missing.htr"), file("eje.ruxo")).failure,
              Failure::inputUnreadable);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
}

}  // namespace
}  // namespace quelcnv
