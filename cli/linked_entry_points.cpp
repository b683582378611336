// The entry points of the library the command is linked with. Kept apart
// from the operation table, which a program that loads the library itself
// uses without linking with it.
#include <iterator>

#include "cli/operations.h"
#include "quelcnv.h"

namespace quelcnv::cli {

namespace {

#define QUELCNV_ENTRY(name, result, arguments, state, output, help) \
    reinterpret_cast<EntryAddress>(&MyDll_##name),

const EntryAddress linked[] = {
#include "entry_point_table.inc"
};

#undef QUELCNV_ENTRY

}  // namespace

int Operation::invoke(std::vector<std::string>& values) const {
    static_assert(std::size(linked) == 60);
    return invokeAt(linked[this - operations().data()], values);
}

}  // namespace quelcnv::cli
