// What every entry point does around its converter: refuse unusable paths
// and let nothing cross the library's boundary.
#pragma once

#include <cstring>
#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Longest path the host's 256-byte buffers hold.
inline constexpr std::size_t maxPathLength = 255;

// A path argument is usable when it is not NULL and fits the host's buffers;
// a longer path is refused, never truncated.
inline bool isUsablePath(const char* path) {
    return path != nullptr && ::strnlen(path, maxPathLength + 1) <= maxPathLength;
}

template <typename... Paths>
bool areUsablePaths(const Paths*... paths) {
    return (isUsablePath(paths) && ...);
}

// Runs the body of an entry point that returns an integer; whatever escapes
// from it (an exception, a failed allocation) becomes the failure result.
template <typename Body>
int guarded(int failureResult, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failureResult;
    }
}

// The same for the entry points that return nothing.
template <typename Body>
void guardedVoid(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

// A converter from one file into another.
using FileConverter = Outcome (*)(const std::string& entrada, const std::string& salida);

// The entry point of a single converter: 1 when it converted, 0 when it
// failed or a path cannot be used.
inline int convertFile(FileConverter convert, const char* entrada, const char* salida) noexcept {
    return guarded(0, [&] {
        return areUsablePaths(entrada, salida) && convert(entrada, salida).ok() ? 1 : 0;
    });
}

}  // namespace quelcnv
