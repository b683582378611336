// quelcnv info and quelcnv contenido: what a file is and what it holds,
// from the library's recogniser, without converting anything.
#pragma once

#include <string>

#include "frame/recognition.h"

namespace quelcnv::cli {

// quelcnv info FICHERO [--json]. The exit status: 0 the format was
// recognised, 1 it was not, 3 the file cannot be read.
int runInfo(const std::string& path, bool json);

// quelcnv contenido FICHERO.xml: the names a LandXML document offers. The
// exit status: 0 listed, 1 not a LandXML document or one that breaks off
// (what was found up to there is listed), 3 the file cannot be read.
int showContents(const std::string& path);

}  // namespace quelcnv::cli
