// What only the functions, or only the RUXO file they write, tell of the RUXO
// alignment file and its importers; conversions: tests/data/alignment/cases.txt.
#include "alignment/ruxo_alignment_file.h"

#include <gtest/gtest.h>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

std::string sample(const std::string& name) { return test::testData("alignment/" + name).string(); }

class RuxoAlignmentFileTest : public test::FolderTest {};

TEST_F(RuxoAlignmentFileTest, RoomForRecordsAndFailures) {
    for (CommentLines comments : {CommentLines::skipped, CommentLines::readAsNumbers}) {
        EXPECT_EQ(readAlignmentFile(sample("ruxo/eje.ruxo"), comments).capacity,
                  3u * 9u);  // 3 x 9 lines
        for (std::string name : {"missing", "failing/empty.txt", "failing/unterminated.ruxo",
                                 "failing/no_record.ruxo"})
            EXPECT_EQ(readAlignmentFile(sample(name), comments).outcome.failure,
                      name == "missing" ? Failure::inputUnreadable : Failure::noData)
                << name;
    }
    EXPECT_EQ(writeAlignmentFile({AlignmentRecord()}, file("missing/out.ruxo")).failure,
              Failure::outputUnwritable);
}

TEST_F(RuxoAlignmentFileTest, ImportersFailLeavingSalidaAsItWas) {
    for (FileConversion import :
         {importClipPltAlignment, importHtrazadoAlignment, importIspolAlignment,
          importIstramAlignment, importIstramListingAlignment}) {
        test::writeBytes(file("eje.ruxo"), "old");
        EXPECT_EQ(import(file("missing"), file("eje.ruxo")).failure, Failure::inputUnreadable);
        EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
        EXPECT_EQ(import(sample("htrazado/eje.htr"), file("missing/eje.ruxo")).failure,
                  Failure::outputUnwritable);
    }
}

// HTRAZADO: whatever is read, an empty RUXO file. ISPOL: a clothoid into a
// curve as the last record keeps radius 0.
TEST_F(RuxoAlignmentFileTest, WhatOnlyTheRuxoFileShows) {
    const std::tuple<FileConversion, const char*, const char*> cases[] = {
        {importHtrazadoAlignment, "htrazado/eje.htr", ""},
        {importHtrazadoAlignment, "failing/empty.txt", ""},
        {importIspolAlignment, "ispol/last_clothoid.ispol",
         "0.000 0.000 0.000 0.000 0.000 300.000\n10.000 1.000 1.000 0.000 80.000 0.000\n"},
    };
    for (auto [import, input, expected] : cases) {
        test::writeBytes(file("eje.ruxo"), "old");
        ASSERT_TRUE(import(sample(input), file("eje.ruxo")).ok()) << input;
        EXPECT_EQ(test::readBytes(file("eje.ruxo")), test::withPlatformNewlines(expected)) << input;
    }
}

}  // namespace
}  // namespace quelcnv
