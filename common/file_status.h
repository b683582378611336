// What kind of file an open stream reads or writes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace quelcnv {

// Opens a file to read, in binary mode. Anything but a regular file is
// refused at once (nullptr): a directory, a device, a socket, or a FIFO that
// nobody may ever write, which would otherwise block the host for good.
std::FILE* openInputFile(const std::string& path);

// Opens (creates or empties) a file to write, in binary mode, without
// waiting: a FIFO that nobody reads is refused at once (nullptr) instead of
// blocking. A device such as /dev/null is written as usual.
std::FILE* openOutputFile(const std::string& path);

bool isRegularFile(std::FILE* file);

// Whether two paths name one existing file, whatever links lead to it: the
// same device and inode on POSIX (so hard links too), the same volume and
// file index on Windows. False when either cannot be found.
bool isSameFile(const std::string& a, const std::string& b);

// The size in bytes of a regular file; 0 for any other kind, or when unknown.
std::uint64_t regularFileSize(std::FILE* file);

}  // namespace quelcnv
