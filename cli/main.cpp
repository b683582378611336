// quelcnv: the command over the library. Every entry point is an operation
// called by its name without "MyDll_", with its arguments in order.
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch.h"
#include "cli/drawing.h"
#include "cli/landxml_tools.h"
#include "cli/operations.h"
#include "cli/report.h"
#include "common/scratch.h"
#include "frame/conversion.h"

namespace {

using quelcnv::cli::Availability;
using quelcnv::cli::Operation;
using namespace quelcnv::cli::exits;

const char usageText[] =
    "Uso: quelcnv [--crlf] [--silencio] [--scratch CARPETA] OPERACION ARGUMENTO...\n"
    "     quelcnv lote OPERACION --salida CARPETA [-j N] [--con NOMBRE=VALOR]... ENTRADA...\n"
    "     quelcnv contenido FICHERO.xml\n"
    "     quelcnv dibujo ENTRADA SALIDA.svg [--eje NOMBRE|N | --rasante NOMBRE |\n"
    "                    --transversales \"EJE: SUPERFICIE\"]\n"
    "     quelcnv lista\n"
    "     quelcnv ayuda OPERACION\n"
    "     quelcnv --help | --version\n";

const char helpText[] =
    "\n"
    "Convierte ficheros de datos de carreteras y de topografia con la biblioteca quelcnv.\n"
    "OPERACION es el nombre de la funcion de la biblioteca sin \"MyDll_\", y los argumentos\n"
    "van en el orden de la funcion (selec es un numero entero), por ejemplo:\n"
    "  quelcnv aistram2nevo eje.txt eje.nev /opt/quelvar\n"
    "\n"
    "Opciones:\n"
    "  --crlf              escribe los finales de linea como CR LF\n"
    "  --silencio          no dice lo que ha escrito una conversion hecha\n"
    "  --scratch CARPETA   usa CARPETA para los ficheros temporales fijos\n"
    "  --help              muestra esta ayuda\n"
    "  --version           muestra la version\n"
    "\n"
    "Estado de salida: 0 conversion hecha, 1 la conversion ha fallado, 2 uso incorrecto,\n"
    "3 no se puede abrir el fichero de entrada.\n";

void setEnvironment(const char* name, const std::string& value) {
#ifdef _WIN32
    _putenv_s(name, value.c_str());
#else
    setenv(name, value.c_str(), 1);
#endif
}

int usageError(const std::string& message) {
    std::cerr << "quelcnv: " << message << "\n" << usageText;
    return exitUsage;
}

int unknownOperation(const std::string& name) {
    return usageError("operacion desconocida: " + name + " (quelcnv lista las muestra todas)");
}

std::string signature(const Operation& op) {
    std::string line(op.name);
    if (!op.arguments.empty()) {
        line += ' ';
        line += op.arguments;
    }
    return line;
}

int listOperations() {
    for (const Operation& op : quelcnv::cli::operations()) {
        std::string line = signature(op);
        if (line.size() < 48) line.resize(48, ' ');
        std::cout << line << "  " << op.help;
        if (op.availability != Availability::built) std::cout << " (no disponible)";
        std::cout << "\n";
    }
    return exitDone;
}

int showHelp(const Operation& op) {
    std::cout << "quelcnv " << signature(op) << "\n" << op.help << "\n";
    if (op.availability != Availability::built) {
        std::cout << "Esta conversion no esta disponible en esta version.\n";
    }
    return exitDone;
}

// A 32-bit whole number and nothing else, as selec must be.
bool isWholeNumber(const std::string& text) {
    const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
    int value = 0;
    auto [end, error] = std::from_chars(first, text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

// Checks the arguments against the operation; an error message, or nothing.
std::optional<std::string> argumentError(const Operation& op,
                                         const std::vector<std::string>& args) {
    auto names = op.argumentNames();
    if (args.size() != names.size()) {
        std::string count =
            names.size() == 1 ? "1 argumento" : std::to_string(names.size()) + " argumentos";
        return "la operacion " + std::string(op.name) + " necesita " + count + ": " +
               std::string(op.arguments);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == "selec" && !isWholeNumber(args[i])) {
            return "selec debe ser un numero entero: " + args[i];
        }
        if (quelcnv::isPathArgument(names[i]) && args[i].size() > quelcnv::maxPathLength) {
            return "la ruta es demasiado larga (mas de 255 caracteres): " + args[i];
        }
    }
    return std::nullopt;
}

std::string selectionListPath() {
    quelcnv::ScratchSession scratch;
    return scratch.ready() ? scratch.path(quelcnv::ScratchFile::selectionList) : std::string();
}

void printSelectionList() {
    std::ifstream list(selectionListPath(), std::ios::binary);
    std::cout << list.rdbuf();
}

bool readsLandXml(const Operation& op) {
    return op.name.starts_with("selecciona") || op.name.starts_with("alandxml") ||
           op.name.starts_with("rlandxml") || op.name.starts_with("tralandxml");
}

// The LandXML conversions as a user types them: an alignment by its name in
// place of selec, a surface as the list shows it ("Eje A: Terreno") in
// place of transver and capa. An error message, or nothing.
std::optional<std::string> takeLandXmlNames(const Operation& op, std::vector<std::string>& args) {
    if (op.name.starts_with("alandxml2nevo") && args.size() == 4 && !isWholeNumber(args[0])) {
        std::optional<int> index = quelcnv::cli::alignmentIndex(args[1], args[0]);
        if (!index)
            return "el documento no tiene ningun eje llamado \"" + args[0] + "\": " + args[1];
        args[0] = std::to_string(*index);
    }
    if (op.name.starts_with("tralandxml2nevo") && args.size() == 3) {
        std::size_t colon = args[0].find(": ");
        if (colon == std::string::npos)
            return "la superficie va como la muestra la lista, \"EJE: SUPERFICIE\": " + args[0];
        args.insert(args.begin() + 1, args[0].substr(colon + 2));
        args[0].resize(colon);
    }
    return std::nullopt;
}

// A LandXML document in feet (or any unit but metres) is converted as it
// stands: the user is told, the result stays the same.
void warnOfUnits(const Operation& op, const std::vector<std::string>& args) {
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size() && i < args.size(); ++i) {
        if (names[i] != "entrada") continue;
        quelcnv::cli::warnOfNonMetricUnit(args[i]);
    }
}

// Runs the operation's conversion and says what came of it.
int runOperation(const Operation& op, std::vector<std::string> args, bool silent) {
    if (auto error = takeLandXmlNames(op, args)) return usageError(*error);
    if (auto error = argumentError(op, args)) return usageError(*error);
    if (readsLandXml(op)) warnOfUnits(op, args);
    const quelcnv::Conversion* conversion = quelcnv::findConversion(op.name);
    if (conversion == nullptr) return unknownOperation(std::string(op.name));
    std::vector<std::string> given = args;
    quelcnv::Outcome outcome = quelcnv::runConversion(*conversion, args);
    if (op.name == "ReverseString") std::cout << args[0] << "\n";
    quelcnv::cli::Report report = quelcnv::cli::reportOf(op, given, outcome);
    if (!report.message.empty() && (report.status != exitDone || !silent))
        std::cerr << "quelcnv: " << report.message << "\n";
    if (report.status == exitDone && op.name.starts_with("selecciona")) printSelectionList();
    return report.status;
}

int run(std::vector<std::string> words) {
    // A command has no window: the library's messages go with its own, to
    // standard error.
    setEnvironment("QUELCNV_MESSAGES", "stderr");
    std::size_t i = 0;
    bool silent = false;
    for (; i < words.size() && words[i].starts_with("--"); ++i) {
        if (words[i] == "--help") {
            std::cout << usageText << helpText;
            return exitDone;
        } else if (words[i] == "--version") {
            std::cout << "quelcnv " << QUELCNV_VERSION << "\n";
            return exitDone;
        } else if (words[i] == "--silencio") {
            silent = true;
        } else if (words[i] == "--crlf") {
            setEnvironment("QUELCNV_NEWLINE", "crlf");
        } else if (words[i] == "--scratch") {
            if (i + 1 == words.size()) return usageError("--scratch necesita una carpeta");
            setEnvironment("QUELCNV_SCRATCH", words[++i]);
        } else {
            return usageError("opcion desconocida: " + words[i]);
        }
    }
    if (i == words.size()) return usageError("falta la operacion");
    std::string name = words[i++];
    std::vector<std::string> args(words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
    if (name == "lote") return quelcnv::cli::runBatch(args);
    if (name == "dibujo") return quelcnv::cli::runDrawing(args);
    if (name == "contenido") {
        if (args.size() != 1) return usageError("contenido necesita un fichero LandXML");
        return quelcnv::cli::showContents(args[0]);
    }
    if (name == "lista")
        return args.empty() ? listOperations() : usageError("lista no lleva argumentos");
    if (name == "ayuda") {
        if (args.size() != 1) return usageError("ayuda necesita el nombre de una operacion");
        const Operation* op = quelcnv::cli::findOperation(args[0]);
        return op == nullptr ? unknownOperation(args[0]) : showHelp(*op);
    }
    const Operation* op = quelcnv::cli::findOperation(name);
    if (op == nullptr) return unknownOperation(name);
    return runOperation(*op, std::move(args), silent);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::cerr << "quelcnv: error interno: " << error.what() << "\n";
        return exitFailed;
    }
}
