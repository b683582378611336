#include "crosssection/htrazado_sections.h"

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"

namespace quelcnv {

namespace {

// The station stands after "PK" and two more characters (": ").
constexpr std::size_t stationColumn = 4;

}  // namespace

Outcome importHtrazadoSections(const std::string& entrada, const std::string& ruxoPath) {
    LineReader in;
    if (!in.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    OutputFile out;
    if (!out.open(ruxoPath)) return Outcome::failed(Failure::outputUnwritable);
    double station = 0.0, offset = 0.0, elevation = 0.0;
    std::string line;
    while (readLineBeforeEnd(in, line)) {
        if (line.starts_with("PK")) {
            if (line.size() > stationColumn)
                ValueScanner(line.substr(stationColumn)).number(station);
            continue;
        }
        ValueScanner scan(line);  // "offset , elevation"
        if (scan.number(offset) && scan.literal(',')) scan.number(elevation);
        out.print("%10.3lf %8.3lf %8.3lf\n", station, offset, elevation);
    }
    if (in.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return out.finish() ? Outcome::done() : Outcome::failed(Failure::outputUnwritable);
}

}  // namespace quelcnv
