// The table of conversions behind the entry points, and the one place where
// an outcome becomes the host's integer.
#include "frame/conversion.h"

#include <gtest/gtest.h>

#include <map>

#include "cli/operations.h"

namespace quelcnv {
namespace {

// The entry points that do not simply give 1 when converted and 0 when not.
const std::map<std::string_view, HostResult> otherResults = {
    {"ReverseString", HostResult::none},
    {"seleccionaTransverLandXML", HostResult::none},
    {"seleccionaRasanteLandXML", HostResult::none},
    {"seleccionaEjeLandXML", HostResult::listWritten},
    {"anivel2ing", HostResult::levelBook},
    {"aclipplt2nevo", HostResult::importer},
    {"alandxml2nevo", HostResult::readerFlag},
    {"alandxml2nevoWCE", HostResult::readerFlag},
    // 1 whatever happened: the host tells a failure by the missing output.
    {"istram2nevo", HostResult::alwaysDone},
    {"mxroad2nevo", HostResult::alwaysDone},
    {"htrazado2nevo", HostResult::alwaysDone},
    {"clip2nevo", HostResult::alwaysDone},
    {"cliptrv2nevo", HostResult::alwaysDone},
    {"tralandxml2nevo", HostResult::alwaysDone},
    {"tralandxml2nevoWCE", HostResult::alwaysDone},
    {"aruxo2nevo", HostResult::alwaysDone},
    {"aruxo2nevoWCE", HostResult::alwaysDone},
    {"aistram2nevo", HostResult::alwaysDone},
    {"amxroad2nevo", HostResult::alwaysDone},
    {"ahtrazado2nevo", HostResult::alwaysDone},
    {"aistramList2nevo", HostResult::alwaysDone},
    {"aispol2nevo", HostResult::alwaysDone},
    {"aVELM2LandXML", HostResult::alwaysDone},
    {"aistram2LandXML", HostResult::alwaysDone},
    {"ahtrazado2LandXML", HostResult::alwaysDone},
    {"aclipplt2LandXML", HostResult::alwaysDone},
    {"aistramList2LandXML", HostResult::alwaysDone},
    {"aispol2LandXML", HostResult::alwaysDone},
    {"rlandxml2nevo", HostResult::alwaysDone},
    {"rlandxml2nevoWCE", HostResult::alwaysDone},
    {"rvelm2landxml", HostResult::alwaysDone},
};

TEST(ConversionTable, EveryEntryPointHasItsConversionAndRule) {
    int found = 0;
    for (const cli::Operation& op : cli::operations()) {
        const Conversion* conversion = findConversion(op.name);
        ASSERT_NE(conversion, nullptr) << op.name;
        auto other = otherResults.find(op.name);
        HostResult expected =
            other == otherResults.end() ? HostResult::doneOrFailed : other->second;
        EXPECT_EQ(conversion->result, expected) << op.name;
        EXPECT_EQ(conversion->result == HostResult::none, op.result == cli::ResultKind::none)
            << op.name;
        ++found;
    }
    EXPECT_EQ(found, 60);
    EXPECT_EQ(findConversion("MyDll_aruxo2nevo"), nullptr);
}

Outcome failedIn(Failure failure, bool inImport) {
    Outcome outcome = Outcome::failed(failure);
    outcome.inImport = inImport;
    return outcome;
}

TEST(ConversionTable, OutcomesBecomeTheHostsIntegers) {
    const Outcome done = Outcome::done();
    const Outcome noData = failedIn(Failure::noData, false);
    const Outcome importFailed = failedIn(Failure::inputUnreadable, true);
    const Outcome clothoid = failedIn(Failure::rejected, true);
    const Outcome cutShort = failedIn(Failure::malformed, true);
    const Outcome listUnwritable = failedIn(Failure::outputUnwritable, false);
    const Outcome noReader = failedIn(Failure::readerUnavailable, false);
    struct Row {
        HostResult rule;
        const Outcome& outcome;
        int result;
    };
    const Row rows[] = {
        {HostResult::doneOrFailed, done, 1},
        {HostResult::doneOrFailed, noData, 0},
        {HostResult::alwaysDone, noData, 1},
        {HostResult::alwaysDone, importFailed, 1},
        {HostResult::importer, done, 1},
        {HostResult::importer, noData, 1},
        {HostResult::importer, importFailed, 0},
        {HostResult::readerFlag, clothoid, 0},
        {HostResult::readerFlag, cutShort, 1},
        {HostResult::readerFlag, importFailed, 1},
        {HostResult::readerFlag, noData, 1},
        {HostResult::listWritten, noReader, 1},
        {HostResult::listWritten, listUnwritable, 0},
        {HostResult::levelBook, done, 1},
        {HostResult::levelBook, importFailed, 21},
        {HostResult::levelBook, noData, 0},
        {HostResult::none, done, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(hostResult(row.rule, row.outcome), row.result)
            << static_cast<int>(row.rule) << " " << static_cast<int>(row.outcome.failure);
}

}  // namespace
}  // namespace quelcnv
