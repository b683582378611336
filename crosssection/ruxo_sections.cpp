#include "crosssection/ruxo_sections.h"

#include <array>
#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// Opens both files; the outcome says which one failed.
Outcome openBoth(LineReader& in, const std::string& entrada, OutputFile& out,
                 const std::string& salida) {
    if (!in.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    return Outcome::done();
}

Outcome finish(LineReader& in, OutputFile& out) {
    if (in.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return out.finish() ? Outcome::done() : Outcome::failed(Failure::outputUnwritable);
}

void writeNevoPoint(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    std::array<double, 3> values{};
    for (double& value : values) {
        auto token = tokens.next(blanksTabsAndNewlines);
        if (!token) return;
        value = parseNumber(*token);
    }
    auto code = tokens.next(blanksTabsAndNewlines);
    if (code) {
        out.print("%0.3lf,%0.3lf,%0.3lf,%s\n", values[0], values[1], values[2], *code);
    } else {
        out.print("%0.3lf,%0.3lf,%0.3lf\n", values[0], values[1], values[2]);
    }
}

void writeFixedWidthPoint(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    std::array<double, 3> values{};
    for (double& value : values) {
        auto token = tokens.next(",");
        if (!token) return;
        value = parseNumber(*token);
    }
    std::string code(tokens.rest());
    if (!code.empty()) code.pop_back();  // the line break, or the code's own last character
    out.print("%8.3lf %8.3lf %8.3lf %s\n", values[0], values[1], values[2], code);
}

}  // namespace

Outcome ruxoSectionsToNevo(const std::string& entrada, const std::string& salida) {
    LineReader in;
    OutputFile out;
    Outcome opened = openBoth(in, entrada, out, salida);
    if (!opened.ok()) return opened;
    std::string line;
    while (readLineBeforeEnd(in, line)) {
        if (!line.empty()) writeNevoPoint(out, line);
    }
    return finish(in, out);
}

Outcome commaSectionsToFixedWidth(const std::string& entrada, const std::string& salida) {
    LineReader in;
    OutputFile out;
    Outcome opened = openBoth(in, entrada, out, salida);
    if (!opened.ok()) return opened;
    std::string line;
    while (readLineThroughEnd(in, line)) writeFixedWidthPoint(out, line);
    return finish(in, out);
}

}  // namespace quelcnv
