// quelcnv_convert and its report: the host's conversions run on a context's
// settings, with what the host's integer keeps to itself.
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "api/context.h"
#include "common/file_path.h"
#include "frame/conversion.h"
#include "frame/report_text.h"

struct quelcnv_report {
    quelcnv_reason reason = QUELCNV_DONE;
    std::string text;
    long line = 0;
    int hostResult = 0;
    quelcnv::Written written;
    std::vector<std::string> warnings;
    std::vector<std::string> files;
};

namespace quelcnv::api {

namespace {

namespace fs = std::filesystem;

quelcnv_reason reasonOf(Failure failure) {
    switch (failure) {
        case Failure::none: return QUELCNV_DONE;
        case Failure::inputUnreadable: return QUELCNV_INPUT_UNREADABLE;
        case Failure::outputUnwritable: return QUELCNV_OUTPUT_UNWRITABLE;
        case Failure::noData: return QUELCNV_NO_DATA;
        case Failure::rejected: return QUELCNV_REJECTED;
        case Failure::malformed: return QUELCNV_MALFORMED;
        case Failure::tooLarge: return QUELCNV_TOO_LARGE;
        case Failure::scratchUnavailable: return QUELCNV_SCRATCH_UNAVAILABLE;
        case Failure::readerUnavailable: return QUELCNV_READER_UNAVAILABLE;
        case Failure::invalidArgument: return QUELCNV_INVALID_ARGUMENT;
        case Failure::notProvided: return QUELCNV_NOT_PROVIDED;
        case Failure::sameFile: return QUELCNV_SAME_FILE;
    }
    return QUELCNV_NOT_PROVIDED;
}

bool isNameArgument(std::string_view name) {
    return name == "transver" || name == "capa" || name == "nombreRas";
}

// A whole number that fits an int, as selec must be.
bool isWholeNumber(const std::string& text) {
    if (text.empty()) return false;
    errno = 0;
    char* end = nullptr;
    long value = std::strtol(text.c_str(), &end, 10);
    return *end == '\0' && errno == 0 && value >= INT_MIN && value <= INT_MAX &&
           text.find_first_of(" \t\n\r\f\v") == std::string::npos;
}

// What a file was before the call, to tell whether the call wrote it.
struct FileState {
    std::string path;
    std::optional<fs::file_time_type> time;
    std::uintmax_t size = 0;
};

FileState stateOf(const std::string& path) {
    FileState state{path, std::nullopt, 0};
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return state;
    auto time = fs::last_write_time(path, error);
    if (!error) state.time = time;
    state.size = fs::file_size(path, error);
    return state;
}

bool wasWritten(const FileState& before) {
    FileState after = stateOf(before.path);
    return after.time && (!before.time || *after.time != *before.time || after.size != before.size);
}

// The files the call may write: its outputs, the file beside one, and the
// selection list of a selection.
std::vector<std::string> writableFiles(const Conversion& conversion, const CallDescription& call,
                                       const Settings& settings) {
    std::vector<std::string> files;
    for (std::size_t i = 0; i < call.argumentNames.size(); ++i) {
        if (!isOutputArgument(call.argumentNames[i])) continue;
        files.push_back(call.arguments[i]);
        if (call.argumentNames[i] == "salida" && !conversion.besideOutput.empty())
            files.push_back(replaceExtension(call.arguments[i], conversion.besideOutput));
    }
    if (call.operation.starts_with("selecciona"))
        files.push_back((fs::path(settings.scratchFolder) / "$$$$.EJE").string());
    return files;
}

quelcnv_report* refused(quelcnv_reason reason, std::string text) {
    auto* report = new quelcnv_report;
    report->reason = reason;
    report->text = std::move(text);
    return report;
}

// The arguments as the conversion takes them, or the reason they cannot be.
std::optional<quelcnv_reason> takeArguments(const quelcnv_context& context,
                                            const std::vector<std::string_view>& names,
                                            std::size_t count, const char* const* given,
                                            Arguments& arguments) {
    if (count != names.size() || (count > 0 && given == nullptr)) return QUELCNV_BAD_ARGUMENTS;
    for (std::size_t i = 0; i < count; ++i) {
        if (given[i] == nullptr) return QUELCNV_BAD_ARGUMENTS;
        if (isPathArgument(names[i]))
            arguments.push_back(pathFromCaller(context, given[i]));
        else if (isNameArgument(names[i]))
            arguments.push_back(nameFromCaller(context, given[i]));
        else
            arguments.emplace_back(given[i]);
        if (names[i] == "selec" && !isWholeNumber(arguments.back()))
            return QUELCNV_INVALID_ARGUMENT;
    }
    return std::nullopt;
}

quelcnv_report* convert(quelcnv_context& context, std::string_view operation, std::size_t count,
                        const char* const* given) {
    const EntryPoint* entry = findEntryPoint(operation);
    const Conversion* conversion = findConversion(operation);
    if (entry == nullptr || conversion == nullptr)
        return refused(QUELCNV_UNKNOWN, "no existe la operación " + std::string(operation));
    std::vector<std::string_view> names = entryArgumentNames(operation);
    Arguments arguments;
    if (auto reason = takeArguments(context, names, count, given, arguments))
        return refused(*reason, *reason == QUELCNV_INVALID_ARGUMENT
                                    ? "selec debe ser un número entero"
                                    : std::string(operation) + " lleva " +
                                          std::to_string(names.size()) +
                                          " argumentos: " + std::string(entry->arguments));
    Arguments given_ = arguments;  // the sample entry point writes over its argument
    CallDescription call{operation, names, given_, entry->state == EntryState::readsOnly};

    auto report = std::make_unique<quelcnv_report>();
    InputWarnings warnings = inputWarnings(call);
    std::vector<FileState> before;
    std::vector<std::string> shown;
    Settings settings = callSettings(context, shown);
    for (const std::string& file : writableFiles(*conversion, call, settings))
        before.push_back(stateOf(file));

    Outcome outcome;
    try {
        outcome = runConversion(*conversion, arguments, settings);
    } catch (...) {
        outcome = Outcome::failed(Failure::tooLarge);
    }
    ConversionText said = conversionText(call, outcome);
    report->reason = reasonOf(outcome.failure);
    if (outcome.ok() && said.verdict == Verdict::failed)
        report->reason = call.readsOnly ? QUELCNV_NOT_PROVIDED : QUELCNV_NO_DATA;
    report->text = fromUtf8(context, said.text);
    report->line = outcome.line;
    report->hostResult = hostResult(conversion->result, outcome);
    report->written = outcome.written;
    if (report->reason == QUELCNV_DONE && !warnings.allZero)
        for (std::string& text : zeroOutputWarnings(call)) warnings.texts.push_back(text);
    for (const std::string& text : warnings.texts)
        report->warnings.push_back(fromUtf8(context, text));
    for (const std::string& text : shown) report->warnings.push_back(fromCodePage(context, text));
    for (const FileState& file : before)
        if (wasWritten(file)) report->files.push_back(pathForCaller(context, file.path));
    return report.release();
}

const std::string* itemOf(const std::vector<std::string>& items, std::size_t index) {
    return index < items.size() ? &items[index] : nullptr;
}

}  // namespace

}  // namespace quelcnv::api

using namespace quelcnv;

extern "C" {

QUELCNV_PUBLIC quelcnv_report* quelcnv_convert(quelcnv_context* context, const char* operation,
                                               size_t argument_count,
                                               const char* const* arguments) {
    try {
        if (context == nullptr || operation == nullptr)
            return api::refused(QUELCNV_BAD_ARGUMENTS, "falta el contexto o la operación");
        return api::convert(*context, operation, argument_count, arguments);
    } catch (...) {
        return nullptr;
    }
}

QUELCNV_PUBLIC void quelcnv_report_free(quelcnv_report* report) { delete report; }

QUELCNV_PUBLIC quelcnv_reason quelcnv_report_reason(const quelcnv_report* report) {
    return report == nullptr ? QUELCNV_BAD_ARGUMENTS : report->reason;
}

QUELCNV_PUBLIC const char* quelcnv_report_text(const quelcnv_report* report) {
    return report == nullptr ? "" : report->text.c_str();
}

QUELCNV_PUBLIC long quelcnv_report_line(const quelcnv_report* report) {
    return report == nullptr ? 0 : report->line;
}

QUELCNV_PUBLIC int quelcnv_report_host_result(const quelcnv_report* report) {
    return report == nullptr ? 0 : report->hostResult;
}

QUELCNV_PUBLIC long quelcnv_report_count(const quelcnv_report* report, quelcnv_count which) {
    if (report == nullptr) return 0;
    const Written& written = report->written;
    switch (which) {
        case QUELCNV_LINES: return written.lines;
        case QUELCNV_SECTIONS: return written.sections;
        case QUELCNV_POINTS: return written.points;
        case QUELCNV_RECORDS: return written.records;
        case QUELCNV_VERTICES: return written.vertices;
        case QUELCNV_NAMES: return written.names;
    }
    return 0;
}

QUELCNV_PUBLIC size_t quelcnv_report_warning_count(const quelcnv_report* report) {
    return report == nullptr ? 0 : report->warnings.size();
}

QUELCNV_PUBLIC const char* quelcnv_report_warning(const quelcnv_report* report, size_t index) {
    if (report == nullptr) return nullptr;
    const std::string* text = api::itemOf(report->warnings, index);
    return text == nullptr ? nullptr : text->c_str();
}

QUELCNV_PUBLIC size_t quelcnv_report_file_count(const quelcnv_report* report) {
    return report == nullptr ? 0 : report->files.size();
}

QUELCNV_PUBLIC const char* quelcnv_report_file(const quelcnv_report* report, size_t index) {
    if (report == nullptr) return nullptr;
    const std::string* text = api::itemOf(report->files, index);
    return text == nullptr ? nullptr : text->c_str();
}

}  // extern "C"
