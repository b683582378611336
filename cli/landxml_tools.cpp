#include "cli/landxml_tools.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>

#include "cli/report.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "landxml/sax_reader.h"

namespace quelcnv::cli {

namespace {

namespace fs = std::filesystem;

// A private folder for the lists, removed with it.
class ListFolder {
public:
    ListFolder() {
        std::error_code error;
        fs::path base = fs::temp_directory_path(error);
        for (int attempt = 0; attempt < 100 && folder_.empty(); ++attempt) {
            fs::path candidate = base / ("quelcnv-contenido-" + std::to_string(random()));
            if (fs::create_directory(candidate, error)) folder_ = candidate;
        }
    }
    ~ListFolder() {
        std::error_code ignored;
        if (!folder_.empty()) fs::remove_all(folder_, ignored);
    }
    ListFolder(const ListFolder&) = delete;
    ListFolder& operator=(const ListFolder&) = delete;
    std::string file(const char* name) const { return (folder_ / name).string(); }
    bool ready() const { return !folder_.empty(); }

private:
    std::random_device random;
    fs::path folder_;
};

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
    ListFolder lists;
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
    if (auto unit = nonMetricUnit(path)) {
        std::cerr << "quelcnv: aviso: el documento declara la unidad lineal " << *unit
                  << "; las coordenadas se toman tal cual, como metros\n";
    }
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

}  // namespace quelcnv::cli
