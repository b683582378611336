#include "crosssection/ruxo_sections.h"

#include <array>
#include <optional>
#include <string_view>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

void writeNevoPoint(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    auto values = nextNumbers<3>(tokens, blanksTabsAndNewlines);
    if (!values) return;
    auto [station, offset, elevation] = *values;
    auto code = tokens.next(blanksTabsAndNewlines);
    if (code) {
        out.print("%0.3lf,%0.3lf,%0.3lf,%s\n", station, offset, elevation, *code);
    } else {
        out.print("%0.3lf,%0.3lf,%0.3lf\n", station, offset, elevation);
    }
}

void writeFixedWidthPoint(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    auto values = nextNumbers<3>(tokens, ",");
    if (!values) return;
    auto [station, offset, elevation] = *values;
    std::string code(tokens.rest());
    if (!code.empty()) code.pop_back();  // the line break, or the code's own last character
    out.print("%8.3lf %8.3lf %8.3lf %s\n", station, offset, elevation, code);
}

}  // namespace

Outcome ruxoSectionsToNevo(const std::string& entrada, const std::string& salida) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, salida);
    if (!opened.ok()) return opened;
    std::string line;
    while (readLineBeforeEnd(files.in, line)) {
        if (!line.empty()) writeNevoPoint(files.out, line);
    }
    return files.finish();
}

Outcome commaSectionsToFixedWidth(const std::string& entrada, const std::string& salida) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, salida);
    if (!opened.ok()) return opened;
    std::string line;
    while (readLineThroughEnd(files.in, line)) writeFixedWidthPoint(files.out, line);
    return files.finish();
}

}  // namespace quelcnv
