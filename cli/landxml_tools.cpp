#include "cli/landxml_tools.h"

namespace quelcnv::cli {

std::optional<LandXmlContents> readContents(const std::string& path) {
    return recogniseFile(path).landXml;
}

std::optional<int> alignmentIndex(const std::string& path, const std::string& name) {
    std::optional<LandXmlContents> contents = readContents(path);
    if (!contents) return std::nullopt;
    for (std::size_t i = 0; i < contents->alignments.size(); ++i)
        if (contents->alignments[i] == name) return static_cast<int>(i);
    return std::nullopt;
}

}  // namespace quelcnv::cli
