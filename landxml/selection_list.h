// The selection list: the names a LandXML selection offers the host, one a
// line, in the scratch file "$$$$.EJE".
#pragma once

#include <string>
#include <vector>

#include "common/outcome.h"
#include "landxml/sax_reader.h"

namespace quelcnv {

// A handler that gathers, from the events of one document, the names a
// selection list holds, in the order the list gives them.
class NameLister : public SaxHandler {
public:
    std::vector<std::string> names;
};

// Writes each name with "%s\n". Fails with outputUnwritable.
Outcome writeSelectionList(const std::vector<std::string>& names, const std::string& path);

// Whether a selection writes its list when no XML reader can be created.
enum class WithoutReader { listWritten, listNotWritten };

// Reads the document with a lister that gathers names, and writes them to
// listPath. Fails with readerUnavailable, outputUnwritable, or the reading's
// failure when the document could not be read to its end (the names found
// up to there are listed all the same); done otherwise, the names counted.
Outcome listNames(SaxHandler& lister, const std::vector<std::string>& names,
                  const std::string& entrada, const std::string& listPath,
                  WithoutReader withoutReader);

}  // namespace quelcnv
