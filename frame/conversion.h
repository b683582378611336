// The conversions behind the entry points, one per entry point, run on text
// arguments and reporting what happened. The C entry points turn that into
// the host's integer; the command into its messages; the tests read both.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/outcome.h"
#include "common/scratch.h"
#include "common/settings.h"

namespace quelcnv {

// The arguments in the entry point's order; selec as its decimal text.
using Arguments = std::vector<std::string>;

// One conversion's arguments and its settings; a[i] is the i-th argument.
struct Call {
    Arguments& arguments;
    const Settings& settings;

    std::string& operator[](std::size_t i) { return arguments[i]; }
};
using ConversionRun = Outcome (*)(Call& call);

// How an entry point turns its conversion's outcome into the host's integer.
enum class HostResult {
    doneOrFailed,  // 1 when converted, 0 when not
    alwaysDone,    // 1 whatever happened: the host tells a failure by the missing output
    importer,      // 1 unless the importer, the first step of the chain, failed
    readerFlag,    // the same, but a document the reader could not read to its end gives 1
    listWritten,   // 1 unless the selection list could not be written
    levelBook,     // 1 converted, 21 the readings cannot be read, 0 otherwise
    none,          // the entry point returns nothing
};

struct Conversion {
    std::string_view name;  // the entry point's name without "MyDll_"
    ConversionRun run;
    HostResult result;
    // The scratch file the conversion writes, if any: none of its own files
    // may be that file.
    std::optional<ScratchFile> scratch = std::nullopt;
    // The extension of a second output written beside salida ("cod").
    std::string_view besideOutput = {};
};

// Defines the conversion of the entry point `name`, run by the rest of the
// arguments (run, result, scratch file, file beside the output). The table of
// entry points refers to each conversion by its entry point's name when the
// library is linked: an entry point without its conversion, or a conversion
// named as no entry point is, leaves a name unbound and the build fails.
#define QUELCNV_CONVERSION(name, ...)            \
    extern const Conversion conversionOf_##name; \
    const Conversion conversionOf_##name{#name, __VA_ARGS__};

// entrada, salida: one converter from file to file.
template <FileConversion convert>
Outcome fromFile(Call& a) {
    return convert(a[0], a[1]);
}

// The conversion of the entry point of that name, or nullptr.
const Conversion* findConversion(std::string_view name);

// Two files of one call that are one file: a file the conversion writes (an
// output, the file beside it, its scratch file) that is one of its inputs
// (entrada, lecturas, puntos, the host's settings file in pathAp), or an
// input that is its scratch file. Links and hard links lead to the same
// file; a file that does not exist yet is no input's.
struct FileClash {
    std::string written;
    std::string clashing;
};
std::optional<FileClash> findFileClash(const Conversion& conversion, const Arguments& arguments,
                                       const Settings& settings);

// Runs the conversion with those settings, unless two of its files clash:
// then it fails with sameFile, naming both, and writes nothing.
Outcome runConversion(const Conversion& conversion, Arguments& arguments, const Settings& settings);

// The integer the entry point gives the host: the one place where an outcome
// becomes a result.
int hostResult(HostResult rule, const Outcome& outcome);

// The integers an entry point of that rule may give, and among them those
// that say nothing was converted: after one of those no output file is left.
struct DocumentedResults {
    std::vector<int> possible;
    std::vector<int> failures;
};
DocumentedResults documentedResults(HostResult rule);

// Longest path the host's 256-byte buffers hold.
inline constexpr std::size_t maxPathLength = 255;

// The arguments that name files (or the host's folder): entrada, salida,
// salida1, salida2, pathAp, lecturas, puntos.
bool isPathArgument(std::string_view name);
// The files read (entrada, lecturas, puntos) and written (salida, salida1, salida2).
bool isInputArgument(std::string_view name);
bool isOutputArgument(std::string_view name);

// What the table of entry points says of one.
enum class EntryState { built, readsOnly, unavailable };
struct EntryPoint {
    std::string_view name;       // without "MyDll_"
    bool returnsInteger;         // false for the entry points that return nothing
    std::string_view arguments;  // argument names separated by blanks
    EntryState state;
    std::string_view output;  // the usual extension of salida (".nev"); empty without one
    std::string_view help;    // Spanish, plain ASCII
};

// Every entry point, in the order of the type library.
std::span<const EntryPoint> entryPoints();
// The entry point of that name (exact spelling), or nullptr.
const EntryPoint* findEntryPoint(std::string_view name);
// Its argument names in order; none for an unknown name.
std::vector<std::string_view> entryArgumentNames(std::string_view name);

// An argument of an entry point as the host passes it: nothing for a NULL
// text.
struct EntryArgument {
    std::optional<std::string> text;
};
EntryArgument argumentOf(const char* text);
EntryArgument argumentOf(int value);

// What every entry point does: with an argument it cannot use (NULL, or a
// path over 255 bytes: a path is never cut short) it converts nothing and
// gives 0; otherwise it runs the conversion with the environment's settings
// and gives the host its integer. Nothing escapes from it.
int enterConversion(std::string_view name, std::initializer_list<EntryArgument> arguments) noexcept;

// A conversion chained through a scratch file: importer from the input into
// the scratch file, then, only when it succeeded, writer from the scratch
// file to the output. The scratch file is removed before (a file left by an
// earlier conversion never passes for this one's) and, with `removed`,
// after; `left`, it stays for the next conversion to overwrite. The
// importer's failure, marked as such, or the writer's outcome.
enum class ScratchAfter { removed, left };
using ScratchStep = std::function<Outcome(const std::string& scratchPath)>;
Outcome chainThroughScratch(const Settings& settings, const ScratchStep& importer,
                            const ScratchStep& writer, ScratchAfter after,
                            ScratchFile file = ScratchFile::chainTemp);

// The selec argument, read back as the whole number it was given as.
int selection(const std::string& selec);

}  // namespace quelcnv
