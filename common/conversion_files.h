// The input and the output of a conversion that writes as it reads.
#pragma once

#include <string>

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

}  // namespace quelcnv
