#include "common/file_path.h"

namespace quelcnv {

namespace {

#ifdef _WIN32
constexpr std::string_view folderSeparators = "\\/";

// "C:" at the start of a Windows path.
std::size_t driveLength(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' ? 2 : 0;
}
#else
constexpr std::string_view folderSeparators = "/";

std::size_t driveLength(std::string_view) { return 0; }
#endif

// Where the file name starts (after the drive and the last folder) and where
// its extension starts (the path's end when it has none).
struct NameBounds {
    std::size_t start;
    std::size_t extension;
};

NameBounds nameBounds(std::string_view path) {
    std::size_t nameStart = driveLength(path);
    std::size_t lastSeparator = path.find_last_of(folderSeparators);
    if (lastSeparator != std::string_view::npos && lastSeparator >= nameStart)
        nameStart = lastSeparator + 1;
    std::size_t dot = path.find_last_of('.');
    std::size_t nameEnd = dot != std::string_view::npos && dot >= nameStart ? dot : path.size();
    return {nameStart, nameEnd};
}

}  // namespace

std::string replaceExtension(std::string_view path, std::string_view extension) {
    std::string replaced(path.substr(0, nameBounds(path).extension));
    if (!extension.starts_with('.')) replaced += '.';
    replaced += extension;
    return replaced;
}

std::string baseName(std::string_view path) {
    NameBounds bounds = nameBounds(path);
    return std::string(path.substr(bounds.start, bounds.extension - bounds.start));
}

}  // namespace quelcnv
