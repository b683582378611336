#include "cli/operations.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "quelcnv.h"

namespace quelcnv::cli {

namespace {

using Args = std::vector<std::string>;

const char* text(const Args& args, std::size_t i) { return args[i].c_str(); }

// One overload per shape of entry point; a new shape in the table that has
// none here does not compile.
int call(void(QUELCNV_CALL* fn)(char*), Args& a) {
    std::array<char, 256> buffer{};
    std::strncpy(buffer.data(), text(a, 0), buffer.size() - 1);
    fn(buffer.data());
    a[0] = buffer.data();
    return 0;
}

int call(void(QUELCNV_CALL* fn)(const char*), Args& a) {
    fn(text(a, 0));
    return 0;
}

int call(int(QUELCNV_CALL* fn)(const char*), Args& a) { return fn(text(a, 0)); }

int call(int(QUELCNV_CALL* fn)(const char*, const char*), Args& a) {
    return fn(text(a, 0), text(a, 1));
}

int call(int(QUELCNV_CALL* fn)(const char*, const char*, const char*), Args& a) {
    return fn(text(a, 0), text(a, 1), text(a, 2));
}

int call(int(QUELCNV_CALL* fn)(const char*, const char*, const char*, const char*), Args& a) {
    return fn(text(a, 0), text(a, 1), text(a, 2), text(a, 3));
}

int call(int(QUELCNV_CALL* fn)(int, const char*, const char*, const char*), Args& a) {
    return fn(std::atoi(text(a, 0)), text(a, 1), text(a, 2), text(a, 3));
}

int call(int(QUELCNV_CALL* fn)(const char*, const char*, const char*, const char*, const char*,
                               const char*, const char*),
         Args& a) {
    return fn(text(a, 0), text(a, 1), text(a, 2), text(a, 3), text(a, 4), text(a, 5), text(a, 6));
}

int call(int(QUELCNV_CALL* fn)(const char*, const char*, const char*, const char*, const char*,
                               const char*, const char*, const char*, const char*),
         Args& a) {
    return fn(text(a, 0), text(a, 1), text(a, 2), text(a, 3), text(a, 4), text(a, 5), text(a, 6),
              text(a, 7), text(a, 8));
}

template <typename EntryPoint>
int invokeAs(EntryAddress entry, Args& arguments) {
    return call(reinterpret_cast<EntryPoint>(entry), arguments);
}

#define QUELCNV_RESULT_int ResultKind::integer
#define QUELCNV_RESULT_none ResultKind::none
#define QUELCNV_ENTRY(name, result, arguments, state, output, help) \
    Operation{#name,                                                \
              arguments,                                            \
              QUELCNV_RESULT_##result,                              \
              Availability::state,                                  \
              help,                                                 \
              &invokeAs<decltype(&MyDll_##name)>},

const Operation table[] = {
#include "entry_point_table.inc"
};

#undef QUELCNV_ENTRY

}  // namespace

std::vector<std::string_view> Operation::argumentNames() const {
    std::vector<std::string_view> names;
    std::string_view rest = arguments;
    while (!rest.empty()) {
        std::size_t blank = rest.find(' ');
        names.push_back(rest.substr(0, blank));
        rest = blank == std::string_view::npos ? std::string_view() : rest.substr(blank + 1);
    }
    return names;
}

std::span<const Operation> operations() { return table; }

const Operation* findOperation(std::string_view name) {
    auto found = std::find_if(std::begin(table), std::end(table),
                              [&](const Operation& op) { return op.name == name; });
    return found == std::end(table) ? nullptr : &*found;
}

}  // namespace quelcnv::cli
