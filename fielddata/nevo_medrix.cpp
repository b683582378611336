#include "fielddata/nevo_medrix.h"

#include <array>
#include <string_view>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/text_case.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

constexpr Separators observationSeparators = " ,\t\n";

// The bare word "ruxo", in any letter case, is the collector's placeholder,
// no point code for Medrix, and is written blank; only the bare word
// ("ruxo12" is a code and stays).
bool isRuxoCode(std::string_view code) { return equalsIgnoringCase(code, "ruxo"); }

// Station, point and five numbers, then an optional code; a line with fewer
// fields is passed over.
void writeObservation(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    std::array<std::string_view, 7> fields;
    for (std::string_view& field : fields) {
        auto token = tokens.next(observationSeparators);
        if (!token) return;
        field = *token;
    }
    std::string_view code = tokens.next(observationSeparators).value_or("");
    if (isRuxoCode(code)) code = {};
    out.print("%9s%9s%11.4lf%10.4lf%10.3lf%7.3lf%7.3lf%7s\n"_fmt, fields[0], fields[1],
              parseNumber(fields[2]), parseNumber(fields[3]), parseNumber(fields[4]),
              parseNumber(fields[5]), parseNumber(fields[6]), code);
}

}  // namespace

// Streams line by line; the read that meets the end of the file is not
// used, so a last line without a line break is not converted.
Outcome convertNevoToMedrix(const std::string& entrada, const std::string& salida) {
    return convertLineByLine(entrada, salida, readLineBeforeEnd, writeObservation);
}

}  // namespace quelcnv
