// Feeds arbitrary bytes to every LandXML reader: the three selection lists,
// the alignment reader for the first alignments, the profile and the
// cross-section readers for the names the document lists. Built with
// libFuzzer by the fuzz preset, and as a plain test that replays tests/data
// (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz/fuzz_files.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"

namespace {

std::vector<std::string> linesOf(const std::string& path) {
    std::vector<std::string> lines;
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line) && lines.size() < 4;) lines.push_back(line);
    return lines;
}

void ignoreMessage(std::string_view) {}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::FuzzFiles files(data, size);
    const std::string& input = files.input();
    const std::string& output = files.output();
    using namespace quelcnv;
    for (int selec : {0, 1}) importLandXmlAlignment(input, selec, output, ignoreMessage);
    listLandXmlProfiles(input, output);
    for (const std::string& name : linesOf(output)) {
        convertLandXmlProfile(name, input, output, ProfileColumns::fiveColumns);
        convertLandXmlProfile(name, input, output, ProfileColumns::curveLengths);
    }
    listLandXmlSurfaces(input, output);
    for (const std::string& name : linesOf(output)) {
        std::size_t colon = name.find(": ");
        if (colon != std::string::npos)
            importLandXmlSections(name.substr(0, colon), name.substr(colon + 2), input, output);
    }
    listLandXmlAlignments(input, output);
    return 0;
}
