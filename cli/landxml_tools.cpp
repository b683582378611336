#include "cli/landxml_tools.h"

#include <cstdio>
#include <fstream>
#include <iostream>

#include "cli/report.h"
#include "cli/temp_folder.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "landxml/sax_reader.h"

namespace quelcnv::cli {

namespace {

std::vector<std::string> linesOf(const std::string& path) {
    std::vector<std::string> lines;
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r'))
            line.pop_back();  // the lists end their lines as the platform does
        lines.push_back(line);
    }
    return lines;
}

// Finds the linear unit declared by the document's Metric or Imperial element.
class UnitsReader : public SaxHandler {
public:
    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Metric" && name != "Imperial") return;
        unit = name == "Imperial" ? "Imperial" : "";
        for (const XmlAttribute& attribute : attributes)
            if (attribute.localName == "linearUnit") unit = attribute.value;
    }
    std::string unit;
};

void printNames(const char* title, const std::vector<std::string>& names, bool numbered) {
    std::cout << title << " (" << names.size() << "):\n";
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::cout << "  ";
        if (numbered) std::cout << i << "  ";
        std::cout << names[i] << "\n";
    }
}

}  // namespace

std::optional<LandXmlContents> readContents(const std::string& path) {
    TempFolder lists("contenido");
    if (!lists.ready()) return std::nullopt;
    Outcome read = listLandXmlAlignments(path, lists.file("ejes"));
    if (read.failure == Failure::inputUnreadable || read.failure == Failure::readerUnavailable)
        return std::nullopt;
    listLandXmlProfiles(path, lists.file("rasantes"));
    listLandXmlSurfaces(path, lists.file("superficies"));
    return LandXmlContents{linesOf(lists.file("ejes")), linesOf(lists.file("rasantes")),
                           linesOf(lists.file("superficies"))};
}

int showContents(const std::string& path) {
    std::optional<LandXmlContents> contents = readContents(path);
    if (!contents) {
        std::cerr << "quelcnv: no se puede leer el fichero de entrada: " << path << "\n";
        return exits::exitNoInput;
    }
    printNames("Ejes", contents->alignments, true);
    printNames("Rasantes", contents->profiles, false);
    printNames("Superficies de transversales", contents->surfaces, false);
    warnOfNonMetricUnit(path);
    return exits::exitDone;
}

std::optional<int> alignmentIndex(const std::string& path, const std::string& name) {
    std::optional<LandXmlContents> contents = readContents(path);
    if (!contents) return std::nullopt;
    for (std::size_t i = 0; i < contents->alignments.size(); ++i)
        if (contents->alignments[i] == name) return static_cast<int>(i);
    return std::nullopt;
}

std::optional<std::string> nonMetricUnit(const std::string& path) {
    UnitsReader units;
    runSaxParse(units, path);
    if (units.unit.empty() || units.unit == "meter" || units.unit == "metre") return std::nullopt;
    return units.unit;
}

void warnOfNonMetricUnit(const std::string& path) {
    if (auto unit = nonMetricUnit(path)) {
        std::cerr << "quelcnv: aviso: el documento declara la unidad lineal " << *unit
                  << "; las coordenadas se toman tal cual, como metros\n";
    }
}

}  // namespace quelcnv::cli
