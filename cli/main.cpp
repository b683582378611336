// quelcnv: the command over the library. Every entry point is an operation
// called by its name without "MyDll_", with its arguments in order.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "cli/operations.h"
#include "common/scratch.h"

namespace {

using quelcnv::cli::Availability;
using quelcnv::cli::Operation;
using quelcnv::cli::ResultKind;

enum ExitStatus { exitDone = 0, exitFailed = 1, exitUsage = 2, exitNoInput = 3 };

constexpr std::size_t maxPathLength = 255;
constexpr int inputUnreadableResult = 21;  // the level book's own result for it

const char usageText[] =
    "Uso: quelcnv [--crlf] [--scratch CARPETA] OPERACION ARGUMENTO...\n"
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
    "  --scratch CARPETA   usa CARPETA para los ficheros temporales fijos\n"
    "  --help              muestra esta ayuda\n"
    "  --version           muestra la version\n"
    "\n"
    "Estado de salida: 0 conversion hecha, 1 la conversion ha fallado, 2 uso incorrecto,\n"
    "3 no se puede abrir el fichero de entrada.\n";

bool isInputArgument(std::string_view name) {
    return name == "entrada" || name == "lecturas" || name == "puntos";
}

bool isOutputArgument(std::string_view name) {
    return name == "salida" || name == "salida1" || name == "salida2";
}

bool isPathArgument(std::string_view name) {
    return isInputArgument(name) || isOutputArgument(name) || name == "pathAp";
}

bool isReadableFile(const std::string& path) {
    std::error_code error;
    return !std::filesystem::is_directory(path, error) &&
           static_cast<bool>(std::ifstream(path, std::ios::binary));
}

bool isSelection(const Operation& op) { return op.name.starts_with("selecciona"); }

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
        if (isPathArgument(names[i]) && args[i].size() > maxPathLength) {
            return "la ruta es demasiado larga (mas de 255 caracteres): " + args[i];
        }
    }
    return std::nullopt;
}

// What the file looks like now, to tell whether a conversion wrote it.
struct FileStamp {
    bool exists = false;
    std::filesystem::file_time_type modified{};
    std::uintmax_t size = 0;
    bool operator==(const FileStamp&) const = default;
};

FileStamp stampOf(const std::string& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.exists = std::filesystem::exists(path, error);
    if (stamp.exists) {
        stamp.modified = std::filesystem::last_write_time(path, error);
        stamp.size = std::filesystem::file_size(path, error);
    }
    return stamp;
}

std::string selectionListPath() {
    quelcnv::ScratchSession scratch;
    return scratch.ready() ? scratch.path(quelcnv::ScratchFile::selectionList) : std::string();
}

// The files the operation must have written: its outputs, or the selection list.
std::vector<std::string> writtenFiles(const Operation& op, const std::vector<std::string>& args) {
    std::vector<std::string> files;
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (isOutputArgument(names[i])) files.push_back(args[i]);
    }
    if (isSelection(op)) files.push_back(selectionListPath());
    return files;
}

// Whether a file could be created at this path: it is no folder, and it lies
// in a folder this user may write in.
bool canCreate(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) return false;
    std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (folder.empty()) folder = ".";
    if (!std::filesystem::is_directory(folder, error)) return false;
#ifdef _WIN32
    return _access(folder.string().c_str(), 2) == 0;
#else
    return access(folder.c_str(), W_OK) == 0;
#endif
}

int reportFailure(const Operation& op, const std::vector<std::string>& args,
                  const std::string& missing) {
    if (!missing.empty() && !canCreate(missing)) {
        std::cerr << "quelcnv: no se puede escribir el fichero de salida: " << missing << "\n";
        return exitFailed;
    }
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (isInputArgument(names[i])) {
            std::cerr << "quelcnv: no se ha podido convertir el fichero de entrada: " << args[i]
                      << "\n";
            return exitFailed;
        }
    }
    std::cerr << "quelcnv: la conversion " << op.name << " ha fallado\n";
    return exitFailed;
}

void printSelectionList() {
    std::ifstream list(selectionListPath(), std::ios::binary);
    std::cout << list.rdbuf();
}

int runOperation(const Operation& op, std::vector<std::string> args) {
    if (auto error = argumentError(op, args)) return usageError(*error);
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (isInputArgument(names[i]) && !isReadableFile(args[i])) {
            std::cerr << "quelcnv: no se puede abrir el fichero de entrada: " << args[i] << "\n";
            return exitNoInput;
        }
    }
    if (op.availability != Availability::built) {
        std::cerr << "quelcnv: la conversion " << op.name
                  << " no esta disponible en esta version\n";
        return exitFailed;
    }
    std::vector<std::string> expected = writtenFiles(op, args);
    std::vector<FileStamp> before;
    for (const std::string& file : expected) before.push_back(stampOf(file));

    int result = op.invoke(args);

    if (op.name == "ReverseString") std::cout << args[0] << "\n";
    if (op.result == ResultKind::integer && result == inputUnreadableResult) {
        std::cerr << "quelcnv: no se puede abrir el fichero de entrada: " << args[0] << "\n";
        return exitNoInput;
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        FileStamp after = stampOf(expected[i]);
        if (!after.exists || after == before[i]) return reportFailure(op, args, expected[i]);
    }
    if (op.result == ResultKind::integer && result == 0) return reportFailure(op, args, "");
    if (isSelection(op)) printSelectionList();
    return exitDone;
}

int run(std::vector<std::string> words) {
    // A command has no window: the library's messages go with its own, to
    // standard error.
    setEnvironment("QUELCNV_MESSAGES", "stderr");
    std::size_t i = 0;
    for (; i < words.size() && words[i].starts_with("--"); ++i) {
        if (words[i] == "--help") {
            std::cout << usageText << helpText;
            return exitDone;
        } else if (words[i] == "--version") {
            std::cout << "quelcnv " << QUELCNV_VERSION << "\n";
            return exitDone;
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
    if (name == "lista")
        return args.empty() ? listOperations() : usageError("lista no lleva argumentos");
    if (name == "ayuda") {
        if (args.size() != 1) return usageError("ayuda necesita el nombre de una operacion");
        const Operation* op = quelcnv::cli::findOperation(args[0]);
        return op == nullptr ? unknownOperation(args[0]) : showHelp(*op);
    }
    const Operation* op = quelcnv::cli::findOperation(name);
    if (op == nullptr) return unknownOperation(name);
    return runOperation(*op, std::move(args));
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
