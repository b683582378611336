// The input and the output of a conversion that writes as it reads.
#pragma once

#include <string>
#include <string_view>

#include "common/line_reader.h"
#include "common/outcome.h"
#include "common/output_file.h"

namespace quelcnv {

struct ConversionFiles {
    LineReader in;
    OutputFile out;

    // Opens entrada, then creates salida: inputUnreadable or outputUnwritable
    // for the one that failed (salida is not created when entrada failed).
    Outcome open(const std::string& entrada, const std::string& salida);
    // After the reading: a read error, a write error, or done. Closes the
    // output, which is removed on failure.
    Outcome finish();
};

// Converts line by line: every line the read rule lets through goes to
// convert, which writes what it makes of it. Memory does not grow with the
// input. Fails as ConversionFiles does.
using LineRule = bool (*)(LineReader& reader, std::string_view& line);
template <typename Convert>
Outcome convertLineByLine(const std::string& entrada, const std::string& salida, LineRule readLine,
                          Convert&& convert) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, salida);
    if (!opened.ok()) return opened;
    std::string_view line;
    while (readLine(files.in, line)) convert(files.out, line);
    return files.finish();
}

}  // namespace quelcnv
