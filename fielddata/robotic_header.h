// The job name, date and time of a NEVO-800 robotic station's readings file,
// and the blank shifter that tidies such values.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Moves the blanks (spaces only) at the start of the text to its end, so the
// text keeps its length: " 10:20" becomes "10:20 ". Blanks already at the end
// stay where they are.
void shiftLeadingBlanks(std::string& text);

// Reads the JOB and DATE records of lecturas and writes the job name, the
// date and the time to salida, one a line. Fails with inputUnreadable
// (writing nothing) when lecturas cannot be opened or read, with
// outputUnwritable when salida cannot be written.
Outcome convertRoboticHeader(const std::string& lecturas, const std::string& salida);

}  // namespace quelcnv
