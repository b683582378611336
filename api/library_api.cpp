// The version, the table of operations and the recogniser, for callers of
// the public API.
#include "api/context.h"
#include "frame/conversion.h"
#include "frame/library_version.h"
#include "frame/recognition.h"
#include "frame/report_text.h"

struct quelcnv_summary {
    quelcnv::FileSummary summary;
    std::string format, kind;
    std::vector<std::string> names[4];
    std::vector<std::string> problems;
};

namespace quelcnv::api {

namespace {

// The version as a static text.
const std::string& versionText() {
    static const std::string text(libraryVersion());
    return text;
}

quelcnv_summary* summaryOf(const quelcnv_context& context, FileSummary summary) {
    auto* made = new quelcnv_summary;
    made->format = summary.format == FileFormat::unknown ? "" : formatName(summary.format);
    made->kind = kindWord(summary.kind);
    if (const auto& xml = summary.landXml) {
        const std::vector<std::string>* lists[] = {&xml->alignments, &xml->profiles, &xml->surfaces,
                                                   &xml->designSurfaces};
        for (int list = 0; list < 4; ++list)
            for (const std::string& name : *lists[list])
                made->names[list].push_back(fromCodePage(context, name));
    }
    for (const Problem& problem : summary.problems)
        made->problems.push_back(fromUtf8(context, problemText(problem)));
    made->summary = std::move(summary);
    return made;
}

const char* item(const std::vector<std::string>& items, std::size_t index) {
    return index < items.size() ? items[index].c_str() : nullptr;
}

bool validList(quelcnv_name_list list) {
    return list >= QUELCNV_ALIGNMENTS && list <= QUELCNV_DESIGN_SURFACES;
}

}  // namespace

}  // namespace quelcnv::api

using namespace quelcnv;

extern "C" {

QUELCNV_PUBLIC const char* quelcnv_version(void) { return api::versionText().c_str(); }

QUELCNV_PUBLIC int quelcnv_api_version(void) { return 1; }

QUELCNV_PUBLIC size_t quelcnv_operation_count(void) { return entryPoints().size(); }

QUELCNV_PUBLIC const char* quelcnv_operation_name(size_t index) {
    // The table's names are the literal texts of its rows, each zero-terminated.
    return index < entryPoints().size() ? entryPoints()[index].name.data() : nullptr;
}

QUELCNV_PUBLIC const char* quelcnv_operation_arguments(const char* operation) {
    const EntryPoint* entry = operation == nullptr ? nullptr : findEntryPoint(operation);
    return entry == nullptr ? nullptr : entry->arguments.data();
}

QUELCNV_PUBLIC quelcnv_availability quelcnv_operation_availability(const char* operation) {
    const EntryPoint* entry = operation == nullptr ? nullptr : findEntryPoint(operation);
    if (entry == nullptr) return QUELCNV_UNKNOWN_OPERATION;
    switch (entry->state) {
        case EntryState::built: return QUELCNV_BUILT;
        case EntryState::readsOnly: return QUELCNV_READS_ONLY;
        case EntryState::unavailable: return QUELCNV_UNAVAILABLE;
    }
    return QUELCNV_UNKNOWN_OPERATION;
}

QUELCNV_PUBLIC const char* quelcnv_operation_output(const char* operation) {
    const EntryPoint* entry = operation == nullptr ? nullptr : findEntryPoint(operation);
    return entry == nullptr ? nullptr : entry->output.data();
}

QUELCNV_PUBLIC const char* quelcnv_operation_help(const char* operation) {
    const EntryPoint* entry = operation == nullptr ? nullptr : findEntryPoint(operation);
    return entry == nullptr ? nullptr : entry->help.data();
}

QUELCNV_PUBLIC quelcnv_summary* quelcnv_recognise(quelcnv_context* context, const char* path) {
    try {
        if (context == nullptr || path == nullptr) return nullptr;
        return api::summaryOf(*context, recogniseFile(api::pathFromCaller(*context, path)));
    } catch (...) {
        return nullptr;
    }
}

QUELCNV_PUBLIC void quelcnv_summary_free(quelcnv_summary* summary) { delete summary; }

QUELCNV_PUBLIC int quelcnv_summary_opened(const quelcnv_summary* summary) {
    return summary != nullptr && summary->summary.opened ? 1 : 0;
}

QUELCNV_PUBLIC const char* quelcnv_summary_format(const quelcnv_summary* summary) {
    return summary == nullptr ? "" : summary->format.c_str();
}

QUELCNV_PUBLIC const char* quelcnv_summary_kind(const quelcnv_summary* summary) {
    return summary == nullptr ? "desconocido" : summary->kind.c_str();
}

QUELCNV_PUBLIC quelcnv_certainty quelcnv_summary_certainty(const quelcnv_summary* summary) {
    if (summary == nullptr) return QUELCNV_NO_FORMAT;
    switch (summary->summary.certainty) {
        case Certainty::none: return QUELCNV_NO_FORMAT;
        case Certainty::possible: return QUELCNV_POSSIBLE;
        case Certainty::likely: return QUELCNV_LIKELY;
        case Certainty::certain: return QUELCNV_CERTAIN;
    }
    return QUELCNV_NO_FORMAT;
}

QUELCNV_PUBLIC long quelcnv_summary_lines(const quelcnv_summary* summary) {
    return summary == nullptr ? 0 : summary->summary.lines;
}

QUELCNV_PUBLIC long quelcnv_summary_items(const quelcnv_summary* summary) {
    return summary == nullptr ? 0 : summary->summary.items;
}

QUELCNV_PUBLIC long quelcnv_summary_sections(const quelcnv_summary* summary) {
    return summary == nullptr ? 0 : summary->summary.sections;
}

QUELCNV_PUBLIC int quelcnv_summary_first_station(const quelcnv_summary* summary, double* station) {
    if (summary == nullptr || station == nullptr || !summary->summary.firstStation) return 0;
    *station = *summary->summary.firstStation;
    return 1;
}

QUELCNV_PUBLIC int quelcnv_summary_last_station(const quelcnv_summary* summary, double* station) {
    if (summary == nullptr || station == nullptr || !summary->summary.lastStation) return 0;
    *station = *summary->summary.lastStation;
    return 1;
}

QUELCNV_PUBLIC size_t quelcnv_summary_name_count(const quelcnv_summary* summary,
                                                 quelcnv_name_list list) {
    if (summary == nullptr || !api::validList(list)) return 0;
    return summary->names[list].size();
}

QUELCNV_PUBLIC const char* quelcnv_summary_name(const quelcnv_summary* summary,
                                                quelcnv_name_list list, size_t index) {
    if (summary == nullptr || !api::validList(list)) return nullptr;
    return api::item(summary->names[list], index);
}

QUELCNV_PUBLIC size_t quelcnv_summary_problem_count(const quelcnv_summary* summary) {
    return summary == nullptr ? 0 : summary->problems.size();
}

QUELCNV_PUBLIC const char* quelcnv_summary_problem(const quelcnv_summary* summary, size_t index) {
    return summary == nullptr ? nullptr : api::item(summary->problems, index);
}

}  // extern "C"
