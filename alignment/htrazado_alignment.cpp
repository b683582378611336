#include "alignment/htrazado_alignment.h"

#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"

namespace quelcnv {

// The HTRAZADO conversion is declared but not provided in this version: the
// file (a line of two numbers, then lines of six) is read through and none of
// its values is kept, so the RUXO file is empty and the NEVO writer chained
// after it finds no record. The host still gets success.
Outcome importHtrazadoAlignment(const std::string& entrada, const std::string& salida) {
    LineReader reader;
    if (!reader.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    std::string line;
    while (readLineThroughEnd(reader, line)) {
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    reader.close();
    return writeAlignmentFile({}, salida);
}

}  // namespace quelcnv
