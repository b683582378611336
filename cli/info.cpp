#include "cli/info.h"

#include <iostream>

#include "cli/report.h"
#include "cli/terminal_text.h"
#include "common/text_format.h"
#include "frame/geojson.h"

namespace quelcnv::cli {

namespace {

using namespace exits;

std::string_view certaintyWord(Certainty certainty) {
    switch (certainty) {
        case Certainty::none: return "ninguna";
        case Certainty::possible: return "posible";
        case Certainty::likely: return "probable";
        case Certainty::certain: return "segura";
    }
    return "";
}

// What the items of a kind of file are called.
std::string_view itemsWord(DataKind kind) {
    switch (kind) {
        case DataKind::alignment: return "puntos de eje";
        case DataKind::profile: return "vértices";
        case DataKind::superelevation: return "filas de peralte";
        case DataKind::crossSections: return "puntos de transversales";
        case DataKind::points: return "puntos";
        case DataKind::levelReadings: return "lecturas";
        case DataKind::survey: return "observaciones";
        case DataKind::roboticReadings: return "registros";
        default: return "elementos";
    }
}

std::string station(double value) { return formatText("%0.3lf"_fmt, value); }

std::string listed(const char* title, const std::vector<std::string>& names, bool numbered) {
    std::string text = std::string(title) + " (" + std::to_string(names.size()) + "):\n";
    for (std::size_t i = 0; i < names.size(); ++i)
        text += "  " + (numbered ? std::to_string(i) + "  " : "") + nameText(names[i]) + "\n";
    return text;
}

std::string contentsText(const LandXmlContents& contents) {
    std::string text = listed("Ejes", contents.alignments, true);
    text += listed("Rasantes", contents.profiles, false);
    text += listed("Superficies de transversales", contents.surfaces, false);
    if (!contents.designSurfaces.empty())
        text += listed("Superficies de diseño, que las conversiones no leen",
                       contents.designSurfaces, false);
    return text;
}

std::string summaryText(const std::string& path, const FileSummary& summary) {
    std::string text = "Fichero: " + pathText(path) + "\n";
    text += "Formato: " + std::string(formatName(summary.format));
    if (summary.format != FileFormat::unknown)
        text += " (" + std::string(kindWord(summary.kind)) + "; certeza " +
                std::string(certaintyWord(summary.certainty)) + ")";
    text += "\nLíneas: " + std::to_string(summary.lines) + "\n";
    if (summary.items > 0)
        text += "Contiene: " + std::to_string(summary.items) + " " +
                std::string(itemsWord(summary.kind)) + "\n";
    if (summary.sections > 0) text += "Secciones: " + std::to_string(summary.sections) + "\n";
    if (summary.firstStation && summary.lastStation)
        text += "PK: de " + station(*summary.firstStation) + " a " + station(*summary.lastStation) +
                "\n";
    if (summary.landXml) {
        const std::string& unit = summary.landXml->linearUnit;
        text += "Unidad lineal: " +
                (unit.empty() ? std::string("no declarada (metros)") : nameText(unit)) + "\n";
        text += contentsText(*summary.landXml);
    }
    if (!summary.problems.empty()) {
        text += "Problemas:\n";
        for (const Problem& problem : summary.problems) text += "  " + problemText(problem) + "\n";
    }
    return text;
}

std::string jsonNames(const std::vector<std::string>& names) {
    std::string text = "[";
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : ", ") + jsonString(nameText(names[i]));
    return text + "]";
}

std::string jsonText(const std::string& path, const FileSummary& summary) {
    std::string text = "{\"fichero\": " + jsonString(pathText(path));
    text += ", \"formato\": " + jsonString(formatName(summary.format));
    text += ", \"tipo\": " + jsonString(kindWord(summary.kind));
    text += ", \"certeza\": " + jsonString(certaintyWord(summary.certainty));
    text += ", \"lineas\": " + std::to_string(summary.lines);
    text += ", \"elementos\": " + std::to_string(summary.items);
    text += ", \"secciones\": " + std::to_string(summary.sections);
    if (summary.firstStation && summary.lastStation)
        text += ", \"pk_inicial\": " + station(*summary.firstStation) +
                ", \"pk_final\": " + station(*summary.lastStation);
    if (const auto& xml = summary.landXml) {
        text += ", \"unidad_lineal\": " + jsonString(nameText(xml->linearUnit));
        text += ", \"ejes\": " + jsonNames(xml->alignments);
        text += ", \"rasantes\": " + jsonNames(xml->profiles);
        text += ", \"superficies\": " + jsonNames(xml->surfaces);
        text += ", \"superficies_diseno\": " + jsonNames(xml->designSurfaces);
    }
    text += ", \"problemas\": [";
    for (std::size_t i = 0; i < summary.problems.size(); ++i)
        text += (i == 0 ? "" : ", ") + jsonString(problemText(summary.problems[i]));
    return text + "]}\n";
}

int unreadable(const std::string& path) {
    say(std::cerr, "quelcnv: no se puede leer el fichero de entrada: " + pathText(path) + "\n");
    return exitNoInput;
}

}  // namespace

int runInfo(const std::string& path, bool json) {
    FileSummary summary = recogniseFile(path);
    if (!summary.opened) return unreadable(path);
    if (json)
        std::cout << jsonText(path, summary);  // JSON is UTF-8 whatever the terminal
    else
        say(std::cout, summaryText(path, summary));
    return summary.format == FileFormat::unknown ? exitFailed : exitDone;
}

int showContents(const std::string& path) {
    FileSummary summary = recogniseFile(path);
    if (!summary.opened) return unreadable(path);
    if (!summary.landXml) {
        say(std::cerr, "quelcnv: no es un documento LandXML: " + pathText(path) + "\n");
        return exitFailed;
    }
    say(std::cout, contentsText(*summary.landXml));
    int status = exitDone;
    for (const Problem& problem : summary.problems) {
        bool broken =
            problem.kind == ProblemKind::malformedXml || problem.kind == ProblemKind::cutShort;
        if (broken) status = exitFailed;
        say(std::cerr, std::string("quelcnv: ") + (broken ? "" : "aviso: ") + pathText(path) +
                           ": " + problemText(problem) + "\n");
    }
    return status;
}

}  // namespace quelcnv::cli
