#include "profile/superelevation_file.h"

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

Outcome writeSuperelevationFile(const std::vector<SuperelevationRow>& rows,
                                const std::string& salida) {
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    for (const SuperelevationRow& row : rows)
        out.print("%8.3lf %6.3lf %6.3lf\n"_fmt, row.station, row.firstFall, row.secondFall);
    return out.complete();
}

std::optional<std::vector<SuperelevationRow>> readSuperelevationFile(const std::string& path) {
    return readWhole(path, [](LineReader& reader) {
        std::vector<SuperelevationRow> rows;
        std::string_view line;
        while (readLineThroughEnd(reader, line)) {
            std::vector<std::string_view> fields = leadingFields(line, blanksTabsAndNewlines, 3);
            if (fields.size() == 3)
                rows.push_back(
                    {parseNumber(fields[0]), parseNumber(fields[1]), parseNumber(fields[2])});
        }
        return rows;
    });
}

}  // namespace quelcnv
