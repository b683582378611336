#include "crosssection/htrazado_sections.h"

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"

namespace quelcnv {

namespace {

// The station stands after "PK" and two more characters (": ").
constexpr std::size_t stationColumn = 4;

}  // namespace

Outcome importHtrazadoSections(const std::string& entrada, const std::string& ruxoPath) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, ruxoPath);
    if (!opened.ok()) return opened;
    double station = 0.0, offset = 0.0, elevation = 0.0;
    std::string line;
    while (readLineBeforeEnd(files.in, line)) {
        if (line.starts_with("PK")) {
            if (line.size() > stationColumn)
                ValueScanner(line.substr(stationColumn)).number(station);
            continue;
        }
        ValueScanner scan(line);  // "offset , elevation"
        if (scan.number(offset) && scan.literal(',')) scan.number(elevation);
        files.out.print("%10.3lf %8.3lf %8.3lf\n"_fmt, station, offset, elevation);
    }
    return files.finish();
}

}  // namespace quelcnv
