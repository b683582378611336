// The command's view of the library: one operation per entry point, taken
// from the table of entry points, with a way to call it from text arguments.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelcnv::cli {

enum class ResultKind { none, integer };
// built: converts; readsOnly: reads its input but converts nothing in this
// version (and says it is done, as the host expects); unavailable: kept for
// the host, reads and converts nothing.
enum class Availability { built, readsOnly, unavailable };

// The address of an entry point, whatever its signature, as a program that
// loads the library finds it; each operation knows the signature to call.
using EntryAddress = void (*)();

// Calls the entry point at that address with the arguments in its order; a
// selec argument must already have been checked to be a whole number. The
// sample entry point's buffer comes back in place of its argument. Returns
// the entry point's result, or 0 when it returns nothing.
using Invoker = int (*)(EntryAddress entry, std::vector<std::string>& arguments);

struct Operation {
    std::string_view name;       // the entry point's name without "MyDll_"
    std::string_view arguments;  // argument names separated by blanks
    ResultKind result;
    Availability availability;
    std::string_view help;  // Spanish help text
    Invoker invokeAt;

    std::vector<std::string_view> argumentNames() const;
    // Calls the entry point of the library the program is linked with.
    int invoke(std::vector<std::string>& values) const;
};

// All operations, in the order of the type library.
std::span<const Operation> operations();

// The operation of that name (exact spelling), or nullptr.
const Operation* findOperation(std::string_view name);

}  // namespace quelcnv::cli
