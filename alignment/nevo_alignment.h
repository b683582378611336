// The NEVO alignment file that the data collector loads, written from a RUXO
// alignment file in one of two forms: elements (STRAIGHT, SPIRAL, ARC lines)
// or intersection points (PT lines with the curve set into each).
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/arc_splitting.h"
#include "common/outcome.h"

namespace quelcnv {

enum class NevoForm { elements, intersectionPoints };

// The host's settings file in its folder: "quelvar.ini" behind the folder
// and the platform's separator.
std::string hostSettingsPath(const std::string& hostFolder);

// The form the host's settings choose: elements when the first line of the
// settings file quelvar.ini in the host's folder gives, behind its first "=",
// a whole number at least the RUXO file's line count; intersection points
// otherwise (no settings file, another shape, a smaller number).
NevoForm chooseNevoForm(const std::string& ruxoPath, const std::string& hostFolder);

// Both forms fail without creating salida when the RUXO file cannot be read
// or holds no record.
Outcome writeElementForm(const std::string& entrada, const std::string& salida);

struct IntersectionForm {
    Outcome outcome;
    // A curve between a clothoid and a straight without a second clothoid
    // was written: its exit is taken from the next straight.
    bool asymmetricCurve = false;
};
IntersectionForm writeIntersectionForm(const std::string& entrada, const std::string& salida);

// The form the settings choose, written.
Outcome convertRuxoAlignmentToNevo(const std::string& entrada, const std::string& salida,
                                   const std::string& hostFolder);

}  // namespace quelcnv
