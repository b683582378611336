#include "frame/conversion.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "alignment/nevo_alignment.h"
#include "common/file_path.h"
#include "common/file_status.h"
#include "common/numbers.h"

namespace quelcnv {

namespace {

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

// Every entry point's conversion, bound by name when the library is linked.
#define QUELCNV_ENTRY(name, result, arguments, state, output, help) \
    extern const Conversion conversionOf_##name;
#include "entry_point_table.inc"
#undef QUELCNV_ENTRY

namespace {

#define QUELCNV_ENTRY(name, result, arguments, state, output, help) &conversionOf_##name,
const Conversion* const boundConversions[] = {
#include "entry_point_table.inc"
};
#undef QUELCNV_ENTRY

}  // namespace

const Conversion* findConversion(std::string_view name) {
    for (const Conversion* conversion : boundConversions)
        if (conversion->name == name) return conversion;
    return nullptr;
}

DocumentedResults documentedResults(HostResult rule) {
    switch (rule) {
        case HostResult::doneOrFailed:
        case HostResult::importer: return {{0, 1}, {0}};
        // The LandXML alignment's RUXO file is written even when its result
        // flag is 0; the host reads both.
        case HostResult::readerFlag:
        case HostResult::listWritten: return {{0, 1}, {}};
        case HostResult::alwaysDone: return {{1}, {}};
        case HostResult::levelBook:
            return {{0, 1, levelBookInputUnreadable}, {0, levelBookInputUnreadable}};
        case HostResult::none: return {{0}, {}};
    }
    return {};
}

int hostResult(HostResult rule, const Outcome& outcome) {
    switch (rule) {
        case HostResult::doneOrFailed: return outcome.ok() ? 1 : 0;
        case HostResult::alwaysDone: return 1;
        case HostResult::importer: return outcome.ok() || !outcome.inImport ? 1 : 0;
        // The reader's flag: a document it could not read to the end leaves
        // the flag as the reading had left it.
        case HostResult::readerFlag:
            if ((outcome.failure == Failure::inputUnreadable ||
                 outcome.failure == Failure::malformed) &&
                !outcome.refusedBefore)
                return 1;
            return outcome.ok() || !outcome.inImport ? 1 : 0;
        case HostResult::listWritten:
            return outcome.failure == Failure::outputUnwritable ||
                           outcome.failure == Failure::scratchUnavailable ||
                           outcome.failure == Failure::sameFile
                       ? 0
                       : 1;
        case HostResult::levelBook:
            if (outcome.failure == Failure::inputUnreadable) return levelBookInputUnreadable;
            return outcome.ok() ? 1 : 0;
        case HostResult::none: return 0;
    }
    return 0;
}

bool isPathArgument(std::string_view name) {
    return name == "entrada" || name == "salida" || name == "salida1" || name == "salida2" ||
           name == "pathAp" || name == "lecturas" || name == "puntos";
}

bool isInputArgument(std::string_view name) {
    return name == "entrada" || name == "lecturas" || name == "puntos";
}

bool isOutputArgument(std::string_view name) {
    return name == "salida" || name == "salida1" || name == "salida2";
}

namespace {

constexpr bool returnsInteger_int = true;
constexpr bool returnsInteger_none = false;

#define QUELCNV_ENTRY(name, result, arguments, state, output, help) \
    {#name, returnsInteger_##result, arguments, EntryState::state, output, help},
constexpr EntryPoint entryTable[] = {
#include "entry_point_table.inc"
};
#undef QUELCNV_ENTRY

}  // namespace

std::span<const EntryPoint> entryPoints() { return entryTable; }

const EntryPoint* findEntryPoint(std::string_view name) {
    for (const EntryPoint& entry : entryTable)
        if (entry.name == name) return &entry;
    return nullptr;
}

std::vector<std::string_view> entryArgumentNames(std::string_view name) {
    const EntryPoint* entry = findEntryPoint(name);
    std::string_view names = entry != nullptr ? entry->arguments : std::string_view();
    std::vector<std::string_view> list;
    while (!names.empty()) {
        list.push_back(names.substr(0, names.find(' ')));
        names.remove_prefix(std::min(names.size(), list.back().size() + 1));
    }
    return list;
}

EntryArgument argumentOf(const char* text) {
    if (text == nullptr) return {};
    return {std::string(text)};
}

EntryArgument argumentOf(int value) { return {std::to_string(value)}; }

namespace {

// Whether the host's buffers could have held every argument.
bool areUsable(std::string_view name, const Arguments& texts) {
    std::vector<std::string_view> names = entryArgumentNames(name);
    for (std::size_t i = 0; i < texts.size() && i < names.size(); ++i)
        if (isPathArgument(names[i]) && texts[i].size() > maxPathLength) return false;
    return true;
}

// The files one call reads and those it writes.
struct CallFiles {
    std::vector<std::string> read, written;
};

// Whether the path leads to the scratch file, which may not exist yet: the
// same file, or the same path once "." and ".." and the links of the
// folders that exist are resolved.
bool isScratchFile(const std::string& path, const std::string& scratchPath) {
    if (isSameFile(path, scratchPath)) return true;
    std::error_code error;
    std::filesystem::path a = std::filesystem::weakly_canonical(path, error);
    if (error) return false;
    std::filesystem::path b = std::filesystem::weakly_canonical(scratchPath, error);
    return !error && a == b;
}

CallFiles filesOf(const Conversion& conversion, const Arguments& arguments) {
    CallFiles files;
    std::vector<std::string_view> names = entryArgumentNames(conversion.name);
    for (std::size_t i = 0; i < names.size() && i < arguments.size(); ++i) {
        if (isInputArgument(names[i])) files.read.push_back(arguments[i]);
        if (names[i] == "pathAp") files.read.push_back(hostSettingsPath(arguments[i]));
        if (isOutputArgument(names[i])) files.written.push_back(arguments[i]);
        if (names[i] == "salida" && !conversion.besideOutput.empty())
            files.written.push_back(replaceExtension(arguments[i], conversion.besideOutput));
    }
    return files;
}

}  // namespace

std::optional<FileClash> findFileClash(const Conversion& conversion, const Arguments& arguments,
                                       const Settings& settings) {
    std::string scratchPath;
    if (conversion.scratch) {
        ScratchSession scratch(settings.scratchFolder);
        if (scratch.ready()) scratchPath = scratch.path(*conversion.scratch);
    }
    CallFiles files = filesOf(conversion, arguments);
    for (const std::string& written : files.written) {
        for (const std::string& read : files.read)
            if (isSameFile(written, read)) return FileClash{written, read};
        if (!scratchPath.empty() && isScratchFile(written, scratchPath))
            return FileClash{written, scratchPath};
    }
    for (const std::string& read : files.read)
        if (!scratchPath.empty() && isSameFile(scratchPath, read))
            return FileClash{scratchPath, read};
    return std::nullopt;
}

Outcome runConversion(const Conversion& conversion, Arguments& arguments,
                      const Settings& settings) {
    // A conversion with a scratch file holds the scratch lock from the check
    // to its end, so no other process puts a file there in between.
    std::optional<ScratchSession> scratch;
    if (conversion.scratch) scratch.emplace(settings.scratchFolder);
    if (auto clash = findFileClash(conversion, arguments, settings)) {
        Outcome refused = Outcome::failed(Failure::sameFile);
        refused.inImport = true;
        refused.writtenFile = clash->written;
        refused.clashingFile = clash->clashing;
        return refused;
    }
    Call call{arguments, settings};
    return conversion.run(call);
}

int enterConversion(std::string_view name,
                    std::initializer_list<EntryArgument> arguments) noexcept {
    try {
        const Conversion* conversion = findConversion(name);
        if (conversion == nullptr) return 0;
        Arguments texts;
        for (const EntryArgument& argument : arguments) {
            if (!argument.text) return 0;
            texts.push_back(*argument.text);
        }
        if (!areUsable(name, texts)) return 0;
        try {
            Settings settings = environmentSettings();
            return hostResult(conversion->result, runConversion(*conversion, texts, settings));
        } catch (...) {
            // A failed allocation, or anything else thrown: the conversion failed.
            return hostResult(conversion->result, Outcome::failed(Failure::tooLarge));
        }
    } catch (...) {
        return 0;
    }
}

Outcome chainThroughScratch(const Settings& settings, const ScratchStep& importer,
                            const ScratchStep& writer, ScratchAfter after, ScratchFile file) {
    ScratchSession scratch(settings.scratchFolder);
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
