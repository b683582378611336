// The frame of every LandXML document the library writes: the declaration,
// the LandXML root with its version, date and time, and the Project, Units
// and Application headers; the content writers put their elements inside.
#pragma once

#include <ctime>
#include <functional>
#include <string>

#include "common/outcome.h"
#include "landxml/xml_writer.h"

namespace quelcnv {

// The local time a document is stamped with; tests fix it.
using Clock = std::function<std::tm()>;

// The current local time.
std::tm localNow();

// The date as the documents have always carried it: "200" followed by the
// years since 1900, less 100 once they reach 100 (2007 gives "2007", but 2010
// gives "20010" and 2026 "20026"), then the month and the day with two
// digits: "2007-03-05". Kept as it is: the host and the collectors read it so.
std::string landxmlDate(const std::tm& time);

// "09:04:07".
std::string landxmlTime(const std::tm& time);

// Opens Alignments and within it the one Alignment of a written document,
// named after a file: its staStart and length with three decimals; and
// closes both.
void writeAlignmentStart(XmlWriter& writer, const std::string& name, double staStart,
                         double length);
void writeAlignmentEnd(XmlWriter& writer);

// Creates salida and writes a whole document: the frame, then what content
// writes inside the root, then the end of the root and a line feed. The
// declaration is "<?xml version=\"1.0\"?>", naming no encoding. The maker's
// web address and e-mail come from the build's configuration
// (QUELCNV_MAKER_URL, QUELCNV_MAKER_EMAIL), overridden by the environment
// variables of the same names. Fails with outputUnwritable.
Outcome writeLandXmlDocument(const std::string& salida,
                             const std::function<void(XmlWriter&)>& content,
                             const Clock& clock = localNow);

}  // namespace quelcnv
