// What kind of file an open stream reads or writes.
#pragma once

#include <cstdio>

namespace quelcnv {

bool isDirectory(std::FILE* file);
bool isRegularFile(std::FILE* file);

}  // namespace quelcnv
