// The RUXO alignment file, the pivot of every alignment conversion: one line
// per key point, six numbers: station, x, y, azimuth, parameter, radius.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "alignment/alignment_record.h"
#include "common/line_reader.h"
#include "common/outcome.h"

namespace quelcnv {

// Lines starting with "*": the intersection-point writer skips them as
// comments; the element writer, and the LandXML writer that reads as it
// does, read them as numbers, as their files have always been made.
enum class CommentLines { skipped, readAsNumbers };

struct AlignmentFile {
    Outcome outcome;
    std::vector<AlignmentRecord> records;
    // Room for records: three times the line count, which bounds the records
    // that arc splitting may add.
    std::size_t capacity = 0;
};

// Reads a RUXO alignment file: blanks and tabs between fields, any number of
// decimals. A last line without a line break is ignored, as the NEVO files
// made from RUXO files have always left it out; an empty
// line, and a line with fewer than six numbers, are skipped. The type follows
// from the parameter and the radius. Fails when the file cannot be opened or
// holds no complete record.
AlignmentFile readAlignmentFile(const std::string& path, CommentLines comments);

// What every alignment importer does: reads the records of entrada,
// completes them (lengths, radii, types, as its format needs), and writes them
// as the RUXO file salida. Fails with inputUnreadable, leaving salida
// untouched, when entrada cannot be opened or read, and with
// outputUnwritable.
using RecordReader = std::vector<AlignmentRecord> (*)(LineReader& reader);
using RecordCompletion = void (*)(std::vector<AlignmentRecord>& records);
Outcome importAlignment(const std::string& entrada, const std::string& salida, RecordReader read,
                        RecordCompletion complete);

// Writes the records with "%0.3lf %0.3lf %0.3lf %0.3lf %0.3lf %0.3lf\n":
// station, x, y, azimuth, parameter, radius (the parameter before the radius,
// the other way round from the record).
Outcome writeAlignmentFile(const std::vector<AlignmentRecord>& records, const std::string& path);

}  // namespace quelcnv
