#include "landxml/selection_list.h"

#include "common/output_file.h"

namespace quelcnv {

Outcome writeSelectionList(const std::vector<std::string>& names, const std::string& path) {
    return writeWholeFile(path, [&](OutputFile& out) {
        for (const std::string& name : names) out.print("%s\n"_fmt, name);
    });
}

Outcome listNames(SaxHandler& lister, const std::vector<std::string>& names,
                  const std::string& entrada, const std::string& listPath,
                  WithoutReader withoutReader) {
    SaxResult read = runSaxParse(lister, entrada);
    if (!read.created && withoutReader == WithoutReader::listNotWritten)
        return readingOutcome(read);
    Outcome written = writeSelectionList(names, listPath);
    if (!written.ok()) return written;
    Outcome outcome = readingOutcome(read);
    outcome.written = written.written;
    outcome.written.names = static_cast<long>(names.size());
    return outcome;
}

}  // namespace quelcnv
