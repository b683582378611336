// What is said of a conversion and of a recognised file, in Spanish (UTF-8):
// the one line after a conversion, the warnings about its inputs, a problem
// found in a file. The command and the public API say the same.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/outcome.h"
#include "frame/conversion.h"
#include "frame/recognition.h"

namespace quelcnv {

// An operation's call as the texts need it: its name, its argument names in
// order, the arguments given, and whether it only reads in this version.
struct CallDescription {
    std::string_view operation;
    std::vector<std::string_view> argumentNames;
    const std::vector<std::string>& arguments;
    bool readsOnly = false;
};

// What the conversion came to.
enum class Verdict {
    done,         // converted, and wrote what it counted (or nothing needed counting)
    failed,       // the outcome's failure, or it wrote nothing it recognised
    noInput,      // the input could not be read
    badArgument,  // an argument out of its range
};

struct ConversionText {
    Verdict verdict = Verdict::done;
    std::string text;  // empty when there is nothing to say
};

// The line said of the outcome of the call. A conversion that ends well but
// wrote nothing it recognised has failed for whoever reads the line, though
// the host's result stays what the host expects.
ConversionText conversionText(const CallDescription& call, const Outcome& outcome);

// "12 secciones, 340 puntos", or "5 líneas" when nothing more is counted;
// empty when nothing was written.
std::string describeWritten(const Written& written);

// A problem found in a file, as a sentence.
std::string problemText(const Problem& problem);

// What looks wrong with the call's input files, "path: what" each: the
// first input looking like another format than the operation reads; any
// input that is not text, has only zeros, or declares a unit other than
// metres. allZero says whether one had only zeros.
struct InputWarnings {
    std::vector<std::string> texts;
    bool allZero = false;
};
InputWarnings inputWarnings(const CallDescription& call);

// After a good conversion: the outputs whose numbers are all zero, "path:
// what" each, where the inputs did not show it (a file of separators reads
// as points of zeros).
std::vector<std::string> zeroOutputWarnings(const CallDescription& call);

// UTF-8 for a message: a file name as the file system holds it, a name in
// the library's code page.
std::string pathText(std::string_view path);
std::string nameText(std::string_view codePageName);

}  // namespace quelcnv
