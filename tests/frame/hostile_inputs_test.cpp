// Every entry point against what a hostile or broken file system hands it:
// empty files, garbage, a line of 10 MB, numbers and counts past every
// limit, special files, outputs that cannot be written. Each run is a child
// process with a time limit. (Documents built against the XML parser, bombs
// and external entities, are in tests/landxml/landxml_readers_test.cpp.) Every run must give one of
// the entry point's documented results; a run that says it failed leaves no output; an output left
// is the whole output.
#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <random>
#include <regex>
#include <sstream>
#include <utility>

#include "cli/operations.h"
#include "frame/conversion.h"
#include "tests/frame/child_process.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using test::ChildRun;
using test::runInChild;
using test::sampleArguments;

std::string withEveryLine(std::string_view text, const std::function<std::string(std::string)>& f) {
    std::string out;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) out += f(line) + "\n";
    return out;
}

// The text with every number (every whole number, with `wholeOnly`) replaced;
// an XML declaration keeps its version.
std::string replaceNumbers(std::string_view text, const std::string& by, bool wholeOnly) {
    static const std::regex number(R"((^|[^\w.])[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?(?![\w.]))");
    static const std::regex whole(R"((^|[^\w.])-?\d+(?![\w.]))");
    std::string head;
    std::string body(text);
    if (body.starts_with("<?xml")) {
        std::size_t end = body.find("?>");
        end = end == std::string::npos ? 0 : end + 2;
        head = body.substr(0, end);
        body.erase(0, end);
    }
    return head + std::regex_replace(body, wholeOnly ? whole : number, "$1" + by);
}

// A file made from the sample input.
using Maker = std::function<std::string(const std::string& sample)>;

struct ContentCase {
    std::string name;
    Maker make;
    std::string selec;  // the selection number the case gives, where there is one
};

std::string garbage() {
    std::mt19937 random(16);
    std::string bytes(64 * 1024, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
}

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string text;
    text.reserve(bytes + piece.size());
    while (text.size() < bytes) text += piece;
    return text;
}

const std::vector<ContentCase>& contentCases() {
    static const std::vector<ContentCase> cases = {
        {"vacio", [](auto&) { return std::string(); }, "0"},
        {"basura binaria", [](auto&) { return garbage(); }, "0"},
        {"una linea de 10 MB", [](auto&) { return repeated("12345.678 ", 10 << 20); }, "0"},
        {"solo separadores", [](auto&) { return repeated(" ,\t;\r\n", 16 * 1024); }, "0"},
        {"NUL dentro de las lineas",
         [](const std::string& s) {
             return withEveryLine(
                 s, [](std::string line) { return line.insert(line.size() / 2, 1, '\0'); });
         },
         "0"},
        {"1e400", [](auto& s) { return replaceNumbers(s, "1e400", false); }, "0"},
        {"-1e400", [](auto& s) { return replaceNumbers(s, "-1e400", false); }, "0"},
        {"99999999999999999999",
         [](auto& s) { return replaceNumbers(s, "99999999999999999999", false); }, "0"},
        {"cuentas de 2^31-1", [](auto& s) { return replaceNumbers(s, "2147483647", true); },
         "2147483647"},
        {"cuentas negativas", [](auto& s) { return replaceNumbers(s, "-1", true); }, "-1"},
        {"cuentas de -2^31", [](auto& s) { return replaceNumbers(s, "-2147483648", true); },
         "-2147483648"},
    };
    return cases;
}

class HostileInputsTest : public test::FolderTest,
                          public testing::WithParamInterface<const cli::Operation*> {
protected:
    const cli::Operation& op() const { return *GetParam(); }
    DocumentedResults documented() const {
        return documentedResults(findConversion(op().name)->result);
    }
    // The arguments of a run: the sample's, with the input and the output
    // (and selec) replaced where given.
    std::vector<std::string> arguments(const std::optional<std::string>& input,
                                       const std::string& output,
                                       const std::string& selec = "") const {
        std::vector<std::string> values = sampleArguments(op().name);
        std::vector<std::string_view> names = op().argumentNames();
        values.resize(names.size(), file("x"));
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (names[i] == "salida" || names[i].starts_with("salida")) values[i] = output;
            if (input && (names[i] == "entrada" || names[i] == "lecturas")) values[i] = *input;
            if (names[i] == "selec" && !selec.empty()) values[i] = selec;
        }
        return values;
    }

    std::string sampleInput() const {
        std::vector<std::string> values = sampleArguments(op().name);
        std::vector<std::string_view> names = op().argumentNames();
        for (std::size_t i = 0; i < names.size() && i < values.size(); ++i)
            if (names[i] == "entrada" || names[i] == "lecturas") return test::readBytes(values[i]);
        return "";
    }

    // Runs once and checks what every run must give; the result, when it
    // finished.
    std::optional<int> check(const std::string& what, const std::vector<std::string>& values,
                             const std::string& output) {
        std::error_code ignored;
        if (fs::is_regular_file(fs::symlink_status(output, ignored))) fs::remove(output, ignored);
        ChildRun run = runInChild(op(), values);
        if (!run.finished) {
            ADD_FAILURE() << what << ": " << run.ending;
            return std::nullopt;
        }
        DocumentedResults results = documented();
        EXPECT_TRUE(std::ranges::count(results.possible, run.result) == 1)
            << what << ": resultado " << run.result;
        bool failed = std::ranges::count(results.failures, run.result) == 1;
        EXPECT_FALSE(failed && fs::exists(output) && fs::is_regular_file(output))
            << what << ": fallo (" << run.result << ") y dejo una salida";
        return run.result;
    }

    // What the rule gives for an input that cannot be opened: its failure
    // result where it has one.
    void checkRefused(const std::string& what, const std::string& input) {
        std::string output = file("salida-rechazada");
        std::optional<int> result = check(what, arguments(input, output), output);
        if (!result || op().availability == cli::Availability::unavailable) return;
        DocumentedResults results = documented();
        if (!results.failures.empty()) {
            EXPECT_TRUE(std::ranges::count(results.failures, *result) == 1)
                << what << ": dio " << *result << " con una entrada que no se puede leer";
        }
        EXPECT_FALSE(fs::exists(output)) << what;
    }
};

TEST_P(HostileInputsTest, BadContentGetsADocumentedResultInTime) {
    std::string sample = sampleInput();
    for (const ContentCase& c : contentCases()) {
        test::writeBytes(file("hostil"), c.make(sample));
        std::string output = file("salida");
        check(c.name, arguments(file("hostil"), output, c.selec), output);
    }
}

TEST_P(HostileInputsTest, SpecialFilesAsInputAreRefusedAtOnce) {
    checkRefused("no existe", file("no-existe"));
    fs::create_directory(file("carpeta"));
    checkRefused("una carpeta", file("carpeta"));
    ASSERT_EQ(mkfifo(file("fifo").c_str(), 0600), 0);
    checkRefused("un FIFO que nadie escribe", file("fifo"));
    checkRefused("un dispositivo sin fin", "/dev/zero");
    checkRefused("un dispositivo vacio", "/dev/null");

    int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string socketPath = file("socket");
    if (socketPath.size() < sizeof(address.sun_path)) {
        std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
        ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        listen(listening, 1);
        checkRefused("un socket", socketPath);
    }
    close(listening);
}

// Outputs that cannot be written: the sample input, converted into a folder
// that does not exist, onto a full device and onto a full file system.
TEST_P(HostileInputsTest, UnwritableOutputsNeverPassForDone) {
    std::vector<std::string_view> names = op().argumentNames();
    if (std::ranges::count(names, "salida") == 0 || sampleArguments(op().name).empty())
        GTEST_SKIP() << "no escribe un fichero de salida";
    std::string reference = file("referencia");
    check("referencia", arguments(std::nullopt, reference), reference);
    std::string whole = fs::exists(reference) ? test::readBytes(reference) : "";

    std::string missing = file("no-existe/salida");
    check("carpeta que no existe", arguments(std::nullopt, missing), missing);
    EXPECT_FALSE(fs::exists(file("no-existe")));
    fs::create_directory(file("carpeta"));
    check("una carpeta como salida", arguments(std::nullopt, file("carpeta")), file("carpeta"));
    EXPECT_TRUE(fs::is_empty(file("carpeta")));

    std::optional<int> full = check("/dev/full", arguments(std::nullopt, "/dev/full"), "/dev/full");
    // Where the result stands for the written output; a chain that returns
    // its importer's result tells the host by the missing output alone.
    HostResult rule = findConversion(op().name)->result;
    if (full && !whole.empty() &&
        (rule == HostResult::doneOrFailed || rule == HostResult::levelBook)) {
        EXPECT_TRUE(std::ranges::count(documented().failures, *full) == 1)
            << "/dev/full: dio " << *full;
    }

    fs::create_directory(file("lleno"));
    if (mount("tmpfs", file("lleno").c_str(), "tmpfs", 0, "size=16k") != 0) return;
    {
        std::ofstream filler(file("lleno/relleno"), std::ios::binary);
        std::string block(4096, 'x');
        while (filler.write(block.data(), std::streamsize(block.size())) && filler.flush()) {
        }
    }
    std::string onFull = file("lleno/salida");
    std::optional<int> result = check("tmpfs lleno", arguments(std::nullopt, onFull), onFull);
    if (result && fs::exists(onFull)) {
        EXPECT_EQ(test::readBytes(onFull), whole) << "tmpfs lleno: salida a medias";
    }
    umount(file("lleno").c_str());
}

// The scratch file each scratch use names in the scratch folder.
std::string_view scratchName(ScratchFile file) {
    switch (file) {
        case ScratchFile::chainTemp:
        case ScratchFile::localTemp: return "temp.$$$";
        case ScratchFile::selectionList: return "$$$$.EJE";
        case ScratchFile::sampleText: return "prueba.$$$";
    }
    return "";
}

// No run harms one of its inputs. An output that is the input under another
// name (the same path, a "./" in it, a symbolic link, a hard link), the
// host's settings file, the file written beside the output, or the scratch
// file the conversion writes; an input that is that scratch file: the run
// writes nothing, gives its failure result, and the input keeps every byte.
TEST_P(HostileInputsTest, FilesThatAreAnInputAreNeverWritten) {
    std::vector<std::string_view> names = op().argumentNames();
    const Conversion& conversion = *findConversion(op().name);
    std::vector<std::string> sample = sampleArguments(op().name);
    if (sample.empty() || op().availability == cli::Availability::unavailable)
        GTEST_SKIP() << "no lee ningun fichero";
    const std::string original = sampleInput();
    std::vector<std::string> values = arguments(file("entrada"), file("salida"));
    auto index = [&](std::string_view name) {
        return static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
    };
    std::vector<std::pair<std::string, std::string>> harmed;  // what, the file to keep
    auto run = [&](const std::string& what, const std::string& kept,
                   const std::vector<std::string>& given) {
        test::writeBytes(kept, original);
        ChildRun child = runInChild(op(), given);
        ASSERT_TRUE(child.finished) << what << ": " << child.ending;
        DocumentedResults results = documented();
        if (!results.failures.empty()) {
            EXPECT_TRUE(std::ranges::count(results.failures, child.result) == 1)
                << what << ": dio " << child.result;
        }
        EXPECT_EQ(test::readBytes(kept), original) << what << ": la entrada ha cambiado";
    };
    std::string input = file("entrada");
    test::writeBytes(input, original);
    fs::create_symlink(input, file("enlace"));
    fs::create_hard_link(input, file("duro"));
    if (index("salida") < names.size()) {
        for (auto [what, output] : {std::pair{"la misma ruta", input},
                                    {"con ./", (dir_ / "." / "entrada").string()},
                                    {"enlace simbolico", file("enlace")},
                                    {"enlace duro", file("duro")}}) {
            std::vector<std::string> given = values;
            given[index("salida")] = output;
            run(what, input, given);
        }
    }
    if (index("pathAp") < names.size() && index("salida") < names.size()) {
        fs::create_directory(file("anfitrion"));
        std::vector<std::string> given = values;
        given[index("pathAp")] = file("anfitrion");
        given[index("salida")] = file("anfitrion/quelvar.ini");
        run("el fichero de ajustes", file("anfitrion/quelvar.ini"), given);
    }
    if (!conversion.besideOutput.empty()) {
        std::vector<std::string> given = values;
        given[index("salida")] = file("junto.txt");
        given[index("entrada")] = file("junto." + std::string(conversion.besideOutput));
        run("la entrada junto a la salida", given[index("entrada")], given);
    }
    if (!conversion.scratch) return;
    std::string scratch = scratchFile(scratchName(*conversion.scratch));
    fs::create_directories(fs::path(scratch).parent_path());
    std::vector<std::string> given = values;
    given[std::min(index("entrada"), index("lecturas"))] = scratch;
    run("el fichero temporal como entrada", scratch, given);
    if (index("salida") < names.size()) {
        fs::remove(scratch);
        given = values;
        given[index("salida")] = scratch;
        run("el fichero temporal como salida", input, given);
        EXPECT_FALSE(fs::exists(scratch)) << "el fichero temporal como salida";
    }
}

template <std::size_t... i>
int enterWith(std::string_view name, const std::vector<EntryArgument>& values,
              std::index_sequence<i...>) {
    return enterConversion(name, {values[i]...});
}

// enterConversion with as many arguments as given (up to nine).
int enterWith(std::string_view name, const std::vector<EntryArgument>& values) {
    switch (values.size()) {
        case 1: return enterWith(name, values, std::make_index_sequence<1>());
        case 2: return enterWith(name, values, std::make_index_sequence<2>());
        case 3: return enterWith(name, values, std::make_index_sequence<3>());
        case 4: return enterWith(name, values, std::make_index_sequence<4>());
        case 7: return enterWith(name, values, std::make_index_sequence<7>());
        case 9: return enterWith(name, values, std::make_index_sequence<9>());
        default: ADD_FAILURE() << values.size() << " argumentos"; return -1;
    }
}

// A NULL argument, or a path of 300 bytes, in any place: 0, and nothing
// written. Called as every exported entry point calls its conversion.
TEST_P(HostileInputsTest, ArgumentsItCannotUseGiveZero) {
    std::vector<std::string_view> names = op().argumentNames();
    std::vector<std::string> sample = arguments(std::nullopt, file("salida"));
    std::string longPath = file(std::string(300 - dir_.string().size() - 1, 'x'));
    for (std::size_t place = 0; place < names.size(); ++place) {
        for (bool null : {true, false}) {
            if (!null && !isPathArgument(names[place])) continue;
            std::vector<EntryArgument> values;
            for (std::size_t i = 0; i < names.size(); ++i) {
                if (i == place) {
                    values.push_back(null ? argumentOf(static_cast<const char*>(nullptr))
                                          : argumentOf(longPath.c_str()));
                } else if (names[i] == "selec") {
                    values.push_back(argumentOf(std::stoi(sample[i])));
                } else {
                    values.push_back(argumentOf(sample[i].c_str()));
                }
            }
            int result = enterWith(op().name, values);
            EXPECT_EQ(result, 0) << names[place] << (null ? " NULL" : " de 300 bytes");
            EXPECT_FALSE(fs::exists(file("salida"))) << names[place];
        }
    }
}

std::vector<const cli::Operation*> everyOperation() {
    std::vector<const cli::Operation*> ops;
    for (const cli::Operation& op : cli::operations())
        if (op.name != "ReverseString") ops.push_back(&op);
    return ops;
}

INSTANTIATE_TEST_SUITE_P(EveryEntryPoint, HostileInputsTest, testing::ValuesIn(everyOperation()),
                         [](const auto& param) { return std::string(param.param->name); });

}  // namespace
}  // namespace quelcnv
