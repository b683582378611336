// The one place where a conversion's outcome becomes the host's integer.
#include "frame/conversion.h"

#include <gtest/gtest.h>

namespace quelcnv {
namespace {

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
