// Horizontal alignments out of a LandXML document: the list of the
// document's alignments for the host to choose from, and the chosen one's
// geometry (Line, Curve and Spiral elements) as a RUXO alignment file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "alignment/alignment_record.h"
#include "common/error_message.h"
#include "common/outcome.h"
#include "landxml/selection_list.h"

namespace quelcnv {

// The alignment at position selec (from 0, in document order) of entrada,
// as key points. Every direction comes from the elements' points; no unit is
// read. The outcome as importLandXmlAlignment gives it before writing:
// rejected for a clothoid from a finite radius (the key points are still
// given), or the reading's failure; wholeDocument says whether the document
// was read to its end. A position past the last alignment gives no key
// point.
struct LandXmlAlignment {
    Outcome outcome;
    bool wholeDocument = false;
    std::vector<AlignmentRecord> records;
};
LandXmlAlignment readLandXmlAlignment(const std::string& entrada, int selec,
                                      const ErrorMessage& showMessage = showErrorMessage);

// Writes the RUXO alignment file of that alignment to ruxoPath, once the
// whole document has been read. Fails with:
// - rejected when a clothoid starts at a finite radius at the start of the
//   alignment or after a line (the message goes to showMessage, and the
//   RUXO file is still written);
// - readerUnavailable when no XML reader could be created (nothing written);
// - outputUnwritable when the RUXO file cannot be written.
// A document that cannot be read to its end (missing, malformed, cut short)
// writes nothing and does not fail. A position past the last alignment
// writes an empty file.
Outcome importLandXmlAlignment(const std::string& entrada, int selec, const std::string& ruxoPath,
                               const ErrorMessage& showMessage = showErrorMessage);

// Writes to listPath the value of the first attribute (normally the name) of
// every Alignment of the document, one a line: line n names the alignment
// that selec n chooses. Fails with readerUnavailable (no list written) or
// outputUnwritable.
Outcome listLandXmlAlignments(const std::string& entrada, const std::string& listPath);

// The handler that gathers the names listLandXmlAlignments writes, for a caller that
// reads the document itself, alone or together with other handlers.
std::unique_ptr<NameLister> makeAlignmentLister();

}  // namespace quelcnv
