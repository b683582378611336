#include "fielddata/lea_medrix.h"

#include <array>
#include <cmath>
#include <cstdint>
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

// The texts of the observations (station and point names, codes), one after
// another in one buffer reserved from the size of the input: no string per
// observation. A text is its place in the buffer and its length (at most
// 255: a line holds no more), packed in one word.
class Texts {
public:
    using Ref = std::uint64_t;

    void reserve(std::uint64_t bytes) {
        if (bytes < maxReserve) chars_.reserve(static_cast<std::size_t>(bytes));
    }
    Ref keep(std::string_view text) {
        text = text.substr(0, 255);
        Ref ref = (std::uint64_t{chars_.size()} << 8) | text.size();
        chars_.append(text);
        return ref;
    }
    std::string_view operator[](Ref ref) const {
        return {chars_.data() + (ref >> 8), static_cast<std::size_t>(ref & 0xFF)};
    }

private:
    static constexpr std::uint64_t maxReserve = std::uint64_t{1} << 30;
    std::string chars_;
};

// The current station: its name changes with every station line, and only a
// line with its height makes it one that observations may come from. Each
// name and height that observations use is kept once.
struct Station {
    std::string name;
    double instrumentHeight = 0.0;
    bool complete = false;
    bool kept = false;  // the name and height are in the table as they stand
};

struct KeptStation {
    Texts::Ref name;
    double instrumentHeight;
};

struct Observation {
    double horizontal = 0.0;  // grads
    double vertical = 0.0;    // zenith angle, grads
    double distance = 0.0;    // horizontal as read, then slope
    double targetHeight = 0.0;
    std::uint32_t station = 0;  // in the table of kept stations
    Texts::Ref point = 0;
    Texts::Ref code = 0;  // empty when the line has none
};

struct Survey {
    Texts texts;
    std::vector<KeptStation> stations;
    std::vector<Observation> observations;
};

// "S name height": the name changes at once; only a line with its height
// makes the station one that observations may come from.
void readStation(std::string_view line, Station& station) {
    Tokenizer tokens(line);
    tokens.next(blanksAndTabs);  // the field of the kind letter
    auto name = tokens.next(blanksAndTabs);
    if (!name) return;
    station.name = *name;
    station.kept = false;
    if (auto height = tokens.next(blanksAndTabs)) {
        station.instrumentHeight = parseNumber(*height);
        station.complete = true;
    }
}

// "E|P point horizontal vertical distance target [code]". False when one of
// the five values is missing.
bool readObservation(std::string_view line, Station& station, Survey& survey) {
    Tokenizer tokens(line);
    tokens.next(blanksAndTabs);  // the field of the kind letter
    auto read = nextTokens<5>(tokens, blanksAndTabs);
    if (!read) return false;
    const auto& fields = *read;
    if (!station.kept) {
        survey.stations.push_back({survey.texts.keep(station.name), station.instrumentHeight});
        station.kept = true;
    }
    Observation observation;
    observation.station = static_cast<std::uint32_t>(survey.stations.size() - 1);
    observation.point = survey.texts.keep(fields[0]);
    observation.horizontal = parseNumber(fields[1]);
    observation.vertical = parseNumber(fields[2]);
    observation.distance = parseNumber(fields[3]);
    observation.targetHeight = parseNumber(fields[4]);
    if (auto code = tokens.next(blanksTabsAndNewlines)) observation.code = survey.texts.keep(*code);
    survey.observations.push_back(observation);
    return true;
}

// Every line is used, an unterminated last one too. Observations before the
// first complete station line, and lines of other kinds, are passed over.
// The tables are reserved from the size of the file: one observation at most
// per line, the texts no longer than the file.
Outcome readObservations(const std::string& entrada, Survey& survey) {
    LineReader reader;
    if (!reader.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    survey.observations.reserve(static_cast<std::size_t>(countLines(entrada)));
    survey.texts.reserve(reader.fileSize());
    Station station;
    std::string_view line;
    while (readLineThroughEnd(reader, line)) {
        if (line.empty()) continue;
        if (line.front() == 'S') {
            readStation(line, station);
        } else if ((line.front() == 'E' || line.front() == 'P') && station.complete) {
            readObservation(line, station, survey);
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

Outcome writeObservations(const std::string& salida, const Survey& survey) {
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    for (const Observation& o : survey.observations) {
        const KeptStation& station = survey.stations[o.station];
        out.print("%5s%6s%9.4lf%9.4lf%10.3lf%8.3lf%8.3lf\n"_fmt, survey.texts[station.name],
                  survey.texts[o.point], o.horizontal, o.vertical, o.distance, o.targetHeight,
                  station.instrumentHeight);
    }
    return out.complete();
}

// The code file: point name and code (blanks when it has none).
void writeCodes(const std::string& path, const Survey& survey) {
    OutputFile out;
    if (!out.open(path)) return;
    for (const Observation& o : survey.observations)
        out.print("%6s %8s\n"_fmt, survey.texts[o.point], survey.texts[o.code]);
    out.finish();
}

}  // namespace

Outcome convertLeaToMedrix(const std::string& entrada, const std::string& salida) {
    Survey survey;
    Outcome read = readObservations(entrada, survey);
    if (!read.ok()) return read;
    if (survey.observations.empty()) return Outcome::failed(Failure::noData);
    for (Observation& o : survey.observations) o.distance = slopeDistance(o.distance, o.vertical);
    Outcome written = writeObservations(salida, survey);
    if (written.ok()) writeCodes(replaceExtension(salida, "cod"), survey);
    return withCount(written, &Written::points, survey.observations.size());
}

}  // namespace quelcnv
