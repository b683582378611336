// What kind of file an open stream reads or writes.
#pragma once

#include <cstdint>
#include <cstdio>

namespace quelcnv {

bool isDirectory(std::FILE* file);
bool isRegularFile(std::FILE* file);
// The size in bytes of a regular file; 0 for any other kind, or when unknown.
std::uint64_t regularFileSize(std::FILE* file);

}  // namespace quelcnv
