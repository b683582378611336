#include "fielddata/lea_medrix.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

#include "common/file_path.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// Grads to radians: pi / 200.
constexpr double gradsToRadians = 0.015707963267948967;

struct Station {
    std::string name;
    double instrumentHeight = 0.0;
    bool complete = false;  // a station line with its height has been read
};

struct Observation {
    std::string station;
    std::string point;
    double horizontal = 0.0;  // grads
    double vertical = 0.0;    // zenith angle, grads
    double distance = 0.0;    // horizontal as read, then slope
    double targetHeight = 0.0;
    double instrumentHeight = 0.0;
    std::string code;  // empty when the line has none
};

// "S name height": the name changes at once; only a line with its height
// makes the station one that observations may come from.
void readStation(std::string_view line, Station& station) {
    Tokenizer tokens(line);
    tokens.next(blanksAndTabs);  // the field of the kind letter
    auto name = tokens.next(blanksAndTabs);
    if (!name) return;
    station.name = *name;
    if (auto height = tokens.next(blanksAndTabs)) {
        station.instrumentHeight = parseNumber(*height);
        station.complete = true;
    }
}

// "E|P point horizontal vertical distance target [code]". Nothing when one
// of the five values is missing.
std::optional<Observation> parseObservation(std::string_view line, const Station& station) {
    Tokenizer tokens(line);
    tokens.next(blanksAndTabs);  // the field of the kind letter
    auto read = nextTokens<5>(tokens, blanksAndTabs);
    if (!read) return std::nullopt;
    const auto& fields = *read;
    Observation observation;
    observation.station = station.name;
    observation.point = fields[0];
    observation.horizontal = parseNumber(fields[1]);
    observation.vertical = parseNumber(fields[2]);
    observation.distance = parseNumber(fields[3]);
    observation.targetHeight = parseNumber(fields[4]);
    observation.instrumentHeight = station.instrumentHeight;
    if (auto code = tokens.next(blanksTabsAndNewlines)) observation.code = *code;
    return observation;
}

// Every line is used, an unterminated last one too. Observations before the
// first complete station line, and lines of other kinds, are passed over.
Outcome readObservations(const std::string& entrada, std::vector<Observation>& observations) {
    LineReader reader;
    if (!reader.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    Station station;
    std::string line;
    while (readLineThroughEnd(reader, line)) {
        if (line.empty()) continue;
        if (line.front() == 'S') {
            readStation(line, station);
        } else if ((line.front() == 'E' || line.front() == 'P') && station.complete) {
            if (auto observation = parseObservation(line, station))
                observations.push_back(std::move(*observation));
        }
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return Outcome::done();
}

// Horizontal to slope distance through the zenith angle. A sine of exactly
// zero (a zenith angle of 0) makes the distance 0 / 0, not a number, and the
// observation is still written: deliberately kept, as the Medrix files
// have always shown such a sight.
double slopeDistance(double horizontal, double vertical) {
    double sine = std::sin(vertical * gradsToRadians);
    double distance = horizontal;
    if (sine == 0.0) distance = 0.0;
    return distance / sine;
}

Outcome writeObservations(const std::string& salida, const std::vector<Observation>& observations) {
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    for (const Observation& o : observations) {
        out.print("%5s%6s%9.4lf%9.4lf%10.3lf%8.3lf%8.3lf\n"_fmt, o.station, o.point, o.horizontal,
                  o.vertical, o.distance, o.targetHeight, o.instrumentHeight);
    }
    return out.complete();
}

// The code file: point name and code (blanks when it has none).
void writeCodes(const std::string& path, const std::vector<Observation>& observations) {
    OutputFile out;
    if (!out.open(path)) return;
    for (const Observation& o : observations) out.print("%6s %8s\n"_fmt, o.point, o.code);
    out.finish();
}

}  // namespace

Outcome convertLeaToMedrix(const std::string& entrada, const std::string& salida) {
    std::vector<Observation> observations;
    Outcome read = readObservations(entrada, observations);
    if (!read.ok()) return read;
    if (observations.empty()) return Outcome::failed(Failure::noData);
    for (Observation& o : observations) o.distance = slopeDistance(o.distance, o.vertical);
    Outcome written = writeObservations(salida, observations);
    if (written.ok()) writeCodes(replaceExtension(salida, "cod"), observations);
    return withCount(written, &Written::points, observations.size());
}

}  // namespace quelcnv
