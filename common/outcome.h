// What a converter reports: done, or why it failed and at which input line,
// and what it wrote. Only the entry points in frame/ turn an outcome into the
// host's integer; the command turns it into its messages.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quelcnv {

enum class Failure {
    none,
    inputUnreadable,     // the input could not be opened or read
    outputUnwritable,    // the output could not be created or written
    noData,              // the input holds nothing to convert
    rejected,            // the input breaks a rule of its format
    malformed,           // an XML document that is not well-formed
    tooLarge,            // a count in the input would need an absurd allocation
    scratchUnavailable,  // the scratch directory is refused or cannot be locked
    readerUnavailable,   // the XML reader could not be created
    invalidArgument,     // an argument that is no file is out of its range (a negative index)
    notProvided,         // the conversion is declared but not provided in this version
    sameFile,            // a file the conversion would write is one of its inputs: nothing written
};

// What a conversion wrote, as far as it counts it: every output the lines it
// holds, and the conversions that know them their sections, points, key
// points, vertices or listed names.
struct Written {
    long lines = 0;
    long sections = 0;
    long points = 0;
    long records = 0;  // key points of an alignment
    long vertices = 0;
    long names = 0;  // names in a selection list
};

struct Outcome {
    Failure failure = Failure::none;
    long line = 0;  // 1-based input line where the failure was found; 0 when none applies
    // In a conversion chained through a scratch file: the failure is the
    // importer's (the first step), not the writer's.
    bool inImport = false;
    // A reader had already refused its input by a rule of its own (the
    // LandXML alignment reader's clothoid checks) when the reading stopped
    // for the failure above: its result flag was cleared before the end.
    bool refusedBefore = false;
    // With sameFile: the file that would have been written, and the input
    // (or the scratch file the conversion writes) that it is.
    std::string writtenFile, clashingFile;
    Written written;

    bool ok() const { return failure == Failure::none; }
    static Outcome done() { return {}; }
    static Outcome failed(Failure why, long atLine = 0) {
        Outcome outcome;
        outcome.failure = why;
        outcome.line = atLine;
        return outcome;
    }
};

// The outcome with one figure of what was written set, when it is done.
inline Outcome withCount(Outcome outcome, long Written::*figure, std::size_t count) {
    if (outcome.ok()) outcome.written.*figure = static_cast<long>(count);
    return outcome;
}

// A converter from one file into another: every importer, converter and
// writer of a file from a file has this shape.
using FileConversion = Outcome (*)(const std::string& entrada, const std::string& salida);

// Spanish text of a failure, as the command shows it.
std::string_view describe(Failure failure);

}  // namespace quelcnv
