#include "fielddata/ign_level_book.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

enum class RecordKind {
    backFirst,   // g: back sight, first reading (B1)
    backSecond,  // h: back sight, second reading (B2)
    foreFirst,   // i: fore sight, first reading (F1)
    foreSecond,  // j: fore sight, second reading (F2)
    startStamp,  // c
    endStamp,    // v or w
};

// One accepted line of the reading file. Stamp records keep only their kind.
struct LevelRecord {
    RecordKind kind = RecordKind::startStamp;
    char unitCode = '\0';
    double reading = 0.0;   // staff reading, m
    double distance = 0.0;  // horizontal distance to the staff, m
    std::int32_t point = 0;
};

struct Stamp {
    std::string date;  // "dd/mm/yy" as the level writes the stamp, or empty
    std::string time;  // "hh:mm"
};

struct LevelReadings {
    std::vector<LevelRecord> records;
    Stamp start;
    Stamp end;
};

// How many fields after the letter of a c (start) and of a v or w (end)
// record are looked at for the stamp, and the length that makes one.
constexpr int startStampFields = 18;
constexpr int endStampFields = 4;
constexpr std::size_t stampLength = 10;

// The comma before the point number of a sighting line.
constexpr int commasBeforePoint = 7;

constexpr std::size_t bookWidth = 86;

struct UnitFactors {
    double reading;
    double distance;
};

// What turns the level's integers into metres. Codes 2 and 7, and codes 3
// and 8, scale alike: the level writes either of each pair.
std::optional<UnitFactors> unitFactors(char code) {
    switch (code) {
        case '1': return UnitFactors{0.001, 0.01};
        case '2':
        case '7': return UnitFactors{0.0001, 0.01};
        case '3':
        case '8': return UnitFactors{0.00001, 0.001};
        default: return std::nullopt;
    }
}

std::optional<RecordKind> sightingKind(char letter) {
    switch (letter) {
        case 'g': return RecordKind::backFirst;
        case 'h': return RecordKind::backSecond;
        case 'i': return RecordKind::foreFirst;
        case 'j': return RecordKind::foreSecond;
        default: return std::nullopt;
    }
}

// The point number stands between the 7th and the 8th comma of the raw line;
// here every comma counts, empty fields too, unlike the split of the other
// fields. Fewer than seven commas, or an empty field, give 0.
std::int32_t pointNumber(std::string_view line) {
    std::size_t start = 0;
    for (int comma = 0; comma < commasBeforePoint; ++comma) {
        std::size_t found = line.find(',', start);
        if (found == std::string_view::npos) return 0;
        start = found + 1;
    }
    std::string_view field = line.substr(start);
    return parseWhole(field.substr(0, field.find_first_of(",\n")));
}

// Code (its second character is the unit code), reading and distance, split
// at commas with runs of commas as one separator. Nothing when a field is
// missing or the unit code is unknown.
std::optional<LevelRecord> parseSighting(RecordKind kind, std::string_view line,
                                         Tokenizer& fields) {
    auto code = fields.next(",");
    if (!code || code->size() < 2) return std::nullopt;
    auto reading = fields.next(",");
    if (!reading) return std::nullopt;
    auto distance = fields.next(",");
    if (!distance) return std::nullopt;
    std::optional<UnitFactors> factors = unitFactors((*code)[1]);
    if (!factors) return std::nullopt;
    LevelRecord record;
    record.kind = kind;
    record.unitCode = (*code)[1];
    record.reading = parseWhole(*reading) * factors->reading;
    record.distance = parseWhole(*distance) * factors->distance;
    record.point = pointNumber(line);
    return record;
}

// The stamp is the first of at most `limit` fields that holds ten characters
// or more: year, month, day, hour and minute in two digits each. The side's
// date is emptied first, so a stamp record without a stamp leaves it empty
// (the time keeps its value). False when the fields run out first.
bool readStamp(Tokenizer& fields, int limit, Stamp& stamp) {
    stamp.date.clear();
    for (int i = 0; i < limit; ++i) {
        auto field = fields.next(",");
        if (!field) return false;
        if (field->size() < stampLength) continue;
        std::string_view p = *field;
        stamp.date = formatText("%s/%s/%s"_fmt, p.substr(4, 2), p.substr(2, 2), p.substr(0, 2));
        stamp.time = formatText("%s:%s"_fmt, p.substr(6, 2), p.substr(8, 2));
        return true;
    }
    return true;
}

std::optional<LevelRecord> stampRecord(RecordKind kind, bool accepted) {
    if (!accepted) return std::nullopt;
    LevelRecord record;
    record.kind = kind;
    return record;
}

// One line as a record; nothing for lines of other letters and for lines
// that break the rules of their letter. Stamp records set the job's stamps.
std::optional<LevelRecord> parseRecord(std::string_view line, LevelReadings& readings) {
    Tokenizer fields(line);
    if (!fields.next(",")) return std::nullopt;  // the field of the letter
    char letter = line.front();
    if (std::optional<RecordKind> kind = sightingKind(letter))
        return parseSighting(*kind, line, fields);
    if (letter == 'c')
        return stampRecord(RecordKind::startStamp,
                           readStamp(fields, startStampFields, readings.start));
    if (letter == 'v' || letter == 'w')
        return stampRecord(RecordKind::endStamp, readStamp(fields, endStampFields, readings.end));
    return std::nullopt;
}

// Reads every line before the one that meets the end of the file: a last
// line without a line break is left out, deliberately, as the book has
// always been made. The count of lines bounds the records; reaching it (the
// file grew while being read) fails.
Outcome readRecords(const std::string& entrada, LevelReadings& readings) {
    std::size_t capacity = static_cast<std::size_t>(countLines(entrada));
    LineReader reader;
    if (!reader.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    std::string line;
    long number = 0;
    while (readLineBeforeEnd(reader, line)) {
        ++number;
        if (line.empty()) continue;
        std::optional<LevelRecord> record = parseRecord(line, readings);
        if (!record) continue;
        readings.records.push_back(*record);
        if (readings.records.size() >= capacity) return Outcome::failed(Failure::tooLarge, number);
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable, number + 1);
    return Outcome::done();
}

// A job without an end stamp ends when it started, and one without a start
// stamp starts when it ended.
void fillMissingStamp(LevelReadings& readings) {
    if (readings.end.date.empty())
        readings.end = readings.start;
    else if (readings.start.date.empty())
        readings.start = readings.end;
}

// The section runs from the point of the first B1 to that of the last F2.
std::int32_t startCode(const std::vector<LevelRecord>& records) {
    for (const LevelRecord& record : records)
        if (record.kind == RecordKind::backFirst) return record.point;
    return 0;
}

std::int32_t endCode(const std::vector<LevelRecord>& records) {
    for (auto record = records.rbegin(); record != records.rend(); ++record)
        if (record->kind == RecordKind::foreSecond) return record->point;
    return 0;
}

std::string repeatedLine(char c) {
    std::string line(bookWidth, c);
    line += '\n';
    return line;
}

// The header, exact to the blank. The book is code page 850: 0xA5 is the
// letter N with tilde of "CUNA" (the wedge) and 0xEE the overline.
void writeHeader(OutputFile& out, const LevelBookHeader& header, const LevelReadings& readings) {
    std::string company = "EMPRESA: ";
    company += header.empresa;
    std::string observer = "OPERADOR: ";
    observer += header.operador;
    out.print("%-44s%-44s\n"_fmt, company, observer);
    out.print(
        "NIVEL:   KELDAR   MODELO: KL500             N/S:    %s CU\xA5"
        "A: \n"_fmt,
        header.nserie);
    out.print("CLV SAL: %-6d   FECHA:  %-8s HORA:    %-8sMIRA1: %s\n"_fmt,
              startCode(readings.records), readings.start.date, readings.start.time, header.mira1);
    out.print("CLV FIN: %-6d   FECHA:  %-8s HORA:    %-8sMIRA2: %s\n\n"_fmt,
              endCode(readings.records), readings.end.date, readings.end.time, header.mira2);
    out.write(repeatedLine('_'));
    out.write(
        "00000000011111111112222222222333333333344444444445555555555666666666677777777778888888\n");
    out.write(
        "12345678901234567890123456789012345678901234567890123456789012345678901234567890123456\n");
    out.write(
        "EEEEEEEE  d1.ee   d2.ee    1.eeeee 2.eeeee  d1.ff   d2.ff    1.fffff 2.fffff  FFFFFFFF\n");
    out.write(repeatedLine('\xEE'));
}

// The record at index when it is of that kind, else nothing.
const LevelRecord* recordOfKind(const std::vector<LevelRecord>& records, std::size_t index,
                                RecordKind kind) {
    return index < records.size() && records[index].kind == kind ? &records[index] : nullptr;
}

double readingOf(const LevelRecord* record) { return record ? record->reading : 0.0; }
double distanceOf(const LevelRecord* record) { return record ? record->distance : 0.0; }

// The set up that starts with the B1 at index k: F1, F2 and B2 follow it in
// that order as far as they do; the sightings missing from it are 0.
void writeSetUp(OutputFile& out, const std::vector<LevelRecord>& records, std::size_t k) {
    const LevelRecord& b1 = records[k];
    const LevelRecord* f1 = recordOfKind(records, k + 1, RecordKind::foreFirst);
    const LevelRecord* f2 = f1 ? recordOfKind(records, k + 2, RecordKind::foreSecond) : nullptr;
    const LevelRecord* b2 = f2 ? recordOfKind(records, k + 3, RecordKind::backSecond) : nullptr;
    out.print("%-8d%7.2lf%8.2lf%11.5lf%8.5lf%7.2lf%8.2lf%11.5lf%8.5lf  %-8d\n"_fmt, b1.point,
              b1.distance, distanceOf(b2), b1.reading, readingOf(b2), distanceOf(f1),
              distanceOf(f2), readingOf(f1), readingOf(f2), f1 ? f1->point : 0);
}

// One line per B1. The first record never starts a line, even a B1: it is
// the job's start stamp in the level's files, and the book has always
// skipped it.
void writeSetUps(OutputFile& out, const std::vector<LevelRecord>& records) {
    for (std::size_t k = 1; k < records.size(); ++k)
        if (records[k].kind == RecordKind::backFirst) writeSetUp(out, records, k);
}

}  // namespace

Outcome convertLevelBook(const std::string& entrada, const std::string& salida,
                         const LevelBookHeader& header) {
    LevelReadings readings;
    Outcome read = readRecords(entrada, readings);
    if (!read.ok()) return read;
    if (readings.records.size() < 3) return Outcome::failed(Failure::noData);
    fillMissingStamp(readings);
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    writeHeader(out, header, readings);
    writeSetUps(out, readings.records);
    return out.complete();
}

}  // namespace quelcnv
