// The readings of a KELDAR KL500 digital level written as a levelling book in
// the fixed-column layout of the IGN book.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// The texts the host fills the book's header with.
struct LevelBookHeader {
    std::string empresa;   // company
    std::string operador;  // observer
    std::string mira1;     // first staff
    std::string mira2;     // second staff
    std::string nserie;    // the level's serial number
};

// Reads the level's reading file entrada and writes the book salida. Fails
// with inputUnreadable when entrada cannot be opened or read, with noData
// (and no book) when fewer than three of its lines are records, and with
// outputUnwritable when the book cannot be written.
Outcome convertLevelBook(const std::string& entrada, const std::string& salida,
                         const LevelBookHeader& header);

}  // namespace quelcnv
