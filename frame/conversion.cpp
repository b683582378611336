#include "frame/conversion.h"

#include <array>
#include <cstdio>
#include <cstring>

#include "common/numbers.h"

namespace quelcnv {

namespace {

// Longest path the host's 256-byte buffers hold.
constexpr std::size_t maxPathLength = 255;

// The level book's own result for readings that cannot be opened.
constexpr int levelBookInputUnreadable = 21;

// A counted figure of the writer, or else of the importer.
long either(long fromWriter, long fromImporter) {
    return fromWriter != 0 ? fromWriter : fromImporter;
}

Written merged(const Written& writer, const Written& importer) {
    Written written = writer;
    written.sections = either(writer.sections, importer.sections);
    written.points = either(writer.points, importer.points);
    written.records = either(writer.records, importer.records);
    written.vertices = either(writer.vertices, importer.vertices);
    return written;
}

}  // namespace

const Conversion* findConversion(std::string_view name) {
    const std::array families = {frameConversions(),           alignmentConversions(),
                                 crossSectionConversions(),    profileConversions(),
                                 fieldDataConversions(),       landXmlReadingConversions(),
                                 landXmlWritingConversions()};
    for (std::span<const Conversion> family : families)
        for (const Conversion& conversion : family)
            if (conversion.name == name) return &conversion;
    return nullptr;
}

int hostResult(HostResult rule, const Outcome& outcome) {
    switch (rule) {
        case HostResult::doneOrFailed: return outcome.ok() ? 1 : 0;
        case HostResult::alwaysDone: return 1;
        case HostResult::importer: return outcome.ok() || !outcome.inImport ? 1 : 0;
        case HostResult::readerFlag:
            if (outcome.failure == Failure::inputUnreadable || outcome.failure == Failure::malformed)
                return 1;
            return outcome.ok() || !outcome.inImport ? 1 : 0;
        case HostResult::listWritten:
            return outcome.failure == Failure::outputUnwritable ||
                           outcome.failure == Failure::scratchUnavailable
                       ? 0
                       : 1;
        case HostResult::levelBook:
            if (outcome.failure == Failure::inputUnreadable) return levelBookInputUnreadable;
            return outcome.ok() ? 1 : 0;
        case HostResult::none: return 0;
    }
    return 0;
}

EntryArgument pathArgument(const char* path) {
    if (path == nullptr || ::strnlen(path, maxPathLength + 1) > maxPathLength) return {};
    return {std::string(path)};
}

EntryArgument textArgument(const char* text) {
    if (text == nullptr) return {};
    return {std::string(text)};
}

EntryArgument wholeArgument(int value) { return {std::to_string(value)}; }

int enterConversion(std::string_view name, std::initializer_list<EntryArgument> arguments) noexcept {
    try {
        const Conversion* conversion = findConversion(name);
        if (conversion == nullptr) return 0;
        Arguments texts;
        for (const EntryArgument& argument : arguments) {
            if (!argument.text) return 0;
            texts.push_back(*argument.text);
        }
        try {
            return hostResult(conversion->result, conversion->run(texts));
        } catch (...) {
            // A failed allocation, or anything else thrown: the conversion failed.
            return hostResult(conversion->result, Outcome::failed(Failure::tooLarge));
        }
    } catch (...) {
        return 0;
    }
}

Outcome chainThroughScratch(const ScratchStep& importer, const ScratchStep& writer,
                            ScratchAfter after, ScratchFile file) {
    ScratchSession scratch;
    if (!scratch.ready()) {
        Outcome refused = Outcome::failed(Failure::scratchUnavailable);
        refused.inImport = true;
        return refused;
    }
    std::string temp = scratch.path(file);
    std::remove(temp.c_str());
    Outcome imported = importer(temp);
    if (!imported.ok()) {
        // The importer's output is the scratch file.
        if (imported.failure == Failure::outputUnwritable)
            imported.failure = Failure::scratchUnavailable;
        imported.inImport = true;
        std::remove(temp.c_str());
        return imported;
    }
    Outcome written = writer(temp);
    if (after == ScratchAfter::removed) std::remove(temp.c_str());
    written.written = merged(written.written, imported.written);
    return written;
}

int selection(const std::string& selec) { return parseWhole(selec); }

}  // namespace quelcnv
