// The command quelcnv, run as a separate process.
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

struct CommandRun {
    int status;
    std::string out, err;
};

class CommandTest : public test::FolderTest {
protected:
    // Runs the command with these arguments, capturing both output streams.
    CommandRun run(const std::vector<std::string>& arguments) {
        std::string command = quoted(commandPath());
        for (const std::string& argument : arguments) {
            command += ' ';
            command += quoted(argument);
        }
        command += " >";
        command += quoted(file("out"));
        command += " 2>";
        command += quoted(file("err"));
        int status = std::system(shellLine(command).c_str());
        return {exitStatus(status), consoleText(file("out")), consoleText(file("err"))};
    }

    // What the command printed, with the console's newlines read as LF.
    static std::string consoleText(const std::string& path) {
        std::string text = test::readBytes(path);
        for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) text.erase(at, 1);
        return text;
    }

    static std::string enclosed(const std::string& text, char quote) {
        std::string out(1, quote);
        out += text;
        out += quote;
        return out;
    }

#ifdef _WIN32
    // The command beside the test program, and the shell's quoting and status.
    static std::string commandPath() {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        return (std::filesystem::path(path).parent_path() / "quelcnv.exe").string();
    }
    static std::string quoted(const std::string& text) { return enclosed(text, '"'); }
    static int exitStatus(int status) { return status; }
    // cmd /c drops the first and the last quote of a line that starts with one.
    static std::string shellLine(const std::string& command) { return enclosed(command, '"'); }
#else
    static std::string commandPath() { return QUELCNV_COMMAND; }
    static std::string quoted(const std::string& text) { return enclosed(text, '\''); }
    static int exitStatus(int status) { return WEXITSTATUS(status); }
    static std::string shellLine(const std::string& command) { return command; }
#endif
};

TEST_F(CommandTest, ListaShowsTheSixtyOperationsAndAyudaOne) {
    CommandRun list = run({"lista"});
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), 60);
    EXPECT_TRUE(list.out.starts_with("ReverseString sMyString "));
    EXPECT_NE(list.out.find("\naruxo2nevo entrada salida pathAp "), std::string::npos);

    CommandRun help = run({"ayuda", "procesaCabecera"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.substr(0, help.out.find('\n')), "quelcnv procesaCabecera lecturas salida");
    EXPECT_NE(help.out.find("Procesamiento cabecera  de Robotizada NEVO-800"), std::string::npos);
    EXPECT_EQ(run({"--version"}).out, "quelcnv " QUELCNV_VERSION "\n");
}

TEST_F(CommandTest, UsageErrorsExitWithTwo) {
    // clang-format off
    const std::vector<std::vector<std::string>> misuses = {
        {}, {"noexiste", "a", "b"}, {"MyDll_velm2arcview", "a", "b"}, {"velm2arcview", "a"},
        {"alandxml2nevo", "primero", "a", "b", "c"}, {"--nada", "lista"}, {"--scratch"},
        {"ayuda", "noexiste"}, {"velm2arcview", std::string(256, 'x'), "b"},
    };
    // clang-format on
    for (const auto& arguments : misuses) {
        CommandRun misuse = run(arguments);
        EXPECT_EQ(misuse.status, 2) << (arguments.empty() ? "" : arguments[0]);
        EXPECT_NE(misuse.err.find("Uso:"), std::string::npos);
    }
    EXPECT_NE(run({"velm2arcview", "a"}).err.find("necesita 2 argumentos"), std::string::npos);
}

// Every message comes from the conversion's outcome: the reason, the file it
// concerns, the line where the converter found it, or what was written.
TEST_F(CommandTest, SaysWhyNamingTheFile) {
    const std::string ruxo = test::testData("crosssection/eje.ruxo").string();
    const std::string host = test::testData("alignment/host").string();
    test::writeBytes(file("commas.txt"), ",,,,\n,, ,\n");
    test::writeBytes(file("blanks.txt"), " \t \n\n");
    test::writeBytes(file("counts.istram"), "4 1 0 0 100 0\n0 0 0 -1 2\n");
    const std::string commas = file("commas.txt"), out = file("out.txt");
    struct Case {
        std::vector<std::string> words;
        int status;
        std::string says;
    };
    const std::vector<Case> cases = {
        {{"ruxo2nevo", ruxo, out}, 0, "2 secciones, 4 puntos -> " + out},
        {{"ruxo2nevo", file("missing"), out},
         3,
         "no se puede leer el fichero de entrada: " + file("missing")},
        {{"ruxo2nevo", ruxo, file("no/such/folder.nev")},
         1,
         "no se puede escribir el fichero de salida: " + file("no/such/folder.nev")},
        {{"aistram2nevo", commas, out, host},
         1,
         "no se ha reconocido ningun dato en el fichero de entrada: " + commas},
        {{"istram2nevo", commas, out},
         1,
         "no se ha reconocido ningun dato en el fichero de entrada: " + commas},
        {{"rvelm2nevo", file("blanks.txt"), out},
         1,
         "no se ha reconocido ningun dato en el fichero de entrada: " + file("blanks.txt")},
        {{"puntos2nevo", commas, out},
         1,
         "no se ha reconocido ningun dato en el fichero de entrada: " + commas},
#ifdef _WIN32  // Wine's MSXML does not say where
        {{"seleccionaEjeLandXML", commas}, 1, "el documento XML no esta bien formado: " + commas},
#else
        {{"seleccionaEjeLandXML", commas},
         1,
         "el documento XML no esta bien formado (linea 1): " + commas},
#endif
        {{"istram2nevo", file("counts.istram"), out},
         1,
         "el fichero de entrada no tiene el formato esperado (linea 2): " + file("counts.istram")},
        {{"alandxml2nevo", "-1", commas, out, host}, 2, "selec no puede ser negativo"},
        {{"velm2arcview", file("missing"), out},
         1,
         "la conversion velm2arcview no esta disponible en esta version"},
        {{"clipST2ruxo", commas, out, file("out2.txt")},
         1,
         "la conversion clipST2ruxo no esta disponible en esta version"},
    };
    for (const Case& c : cases) {
        CommandRun ran = run(c.words);
        EXPECT_EQ(ran.status, c.status) << c.words[0] << " " << ran.err;
        EXPECT_EQ(ran.err, "quelcnv: " + c.says + "\n") << c.words[0];
    }
    EXPECT_EQ(run({"--silencio", "ruxo2nevo", ruxo, out}).err, "");
}

#ifndef _WIN32
// A device that takes no byte more, and a pipe: the command reads its input
// once, as the converter does, and says which file failed.
TEST_F(CommandTest, FullDeviceFailsAndAPipedInputIsRefused) {
    const std::string ruxo = test::testData("crosssection/eje.ruxo").string();
    CommandRun full = run({"ruxo2nevo", ruxo, "/dev/full"});
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.err, "quelcnv: no se puede escribir el fichero de salida: /dev/full\n");
    // Converters may read their input twice, which a pipe cannot give.
    std::string command = "cat '" + ruxo + "' | '" + std::string(QUELCNV_COMMAND) +
                          "' --silencio ruxo2nevo /dev/stdin '" + file("piped.nev") + "'";
    int status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3) << status;
    EXPECT_FALSE(std::filesystem::exists(file("piped.nev")));
}
#endif

// A batch over good and bad files goes on after each failure, names every
// output after its input, and ends with the failed files and their reasons;
// in two processes it gives the same outputs.
TEST_F(CommandTest, BatchConvertsEveryFileAndListsTheFailures) {
    const std::string ruxo = test::readBytes(test::testData("crosssection/eje.ruxo"));
    std::filesystem::create_directories(file("entradas"));
    test::writeBytes(file("entradas/uno.ruxo"), ruxo);
    test::writeBytes(file("entradas/dos.txt"), ruxo);
    test::writeBytes(file("entradas/vacio.ruxo"), "");
    CommandRun direct =
        run({"--silencio", "ruxo2nevo", file("entradas/uno.ruxo"), file("directo.nev")});
    ASSERT_EQ(direct.status, 0);
    for (const char* processes : {"1", "2"}) {
        std::string out = file(std::string("salidas-") + processes);
        CommandRun batch = run({"lote", "ruxo2nevo", "--salida", out, "-j", processes,
                                file("entradas/uno.ruxo"), file("entradas/falta.ruxo"),
                                file("entradas/dos.txt"), file("entradas/vacio.ruxo")});
        EXPECT_EQ(batch.status, 1) << processes;
        EXPECT_EQ(test::readBytes(out + "/uno.nev"), test::readBytes(file("directo.nev")));
        EXPECT_EQ(test::readBytes(out + "/dos.nev"), test::readBytes(file("directo.nev")));
        EXPECT_FALSE(std::filesystem::exists(out + "/falta.nev"));
        EXPECT_NE(batch.err.find("[4/4]"), std::string::npos) << batch.err;
        std::string summary = batch.err.substr(batch.err.find("Hechos: "));
        EXPECT_EQ(summary, "Hechos: 2. Fallidos: 2.\n  " + file("entradas/falta.ruxo") +
                               ": no se puede leer el fichero de entrada: " +
                               file("entradas/falta.ruxo") + "\n  " + file("entradas/vacio.ruxo") +
                               ": no se ha reconocido ningun dato en el fichero de entrada: " +
                               file("entradas/vacio.ruxo") + "\n");
    }
    EXPECT_EQ(run({"lote", "aruxo2nevo", "--salida", file("x"), file("entradas/uno.ruxo")}).status,
              2);
    test::writeBytes(file("entradas/eje.ruxo"),
                     test::readBytes(test::testData("alignment/nevo/left_curve.ruxo")));
    EXPECT_EQ(run({"lote", "aruxo2nevo", "--salida", file("ejes"), "--con",
                   "pathAp=" + dir_.string(), file("entradas/eje.ruxo")})
                  .status,
              0);
    EXPECT_TRUE(std::filesystem::exists(file("ejes/eje.nev")));
}

// The LandXML conversions as a user types them: the alignment by name, the
// surface as the list shows it; the contents without converting; a warning
// on feet that changes nothing.
TEST_F(CommandTest, LandXmlByNameContentsAndUnits) {
    const std::string doc = test::testData("landxml/alignments.xml").string();
    ASSERT_EQ(run({"--silencio", "alandxml2nevoWCE", "1", doc, file("indice.ruxo"), dir_.string()})
                  .status,
              0);
    EXPECT_EQ(
        run({"--silencio", "alandxml2nevoWCE", "Curvas", doc, file("nombre.ruxo"), dir_.string()})
            .status,
        0);
    EXPECT_EQ(test::readBytes(file("nombre.ruxo")), test::readBytes(file("indice.ruxo")));
    CommandRun unknown = run({"alandxml2nevoWCE", "Nadie", doc, file("nadie.ruxo"), dir_.string()});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.err.find("ningun eje llamado \"Nadie\""), std::string::npos);

    const std::string sections = test::testData("landxml/sections.xml").string();
    ASSERT_EQ(run({"--silencio", "tralandxml2nevo", "Eje A", "Rasante", sections, file("dos.nev")})
                  .status,
              0);
    EXPECT_EQ(
        run({"--silencio", "tralandxml2nevo", "Eje A: Rasante", sections, file("una.nev")}).status,
        0);
    EXPECT_EQ(test::readBytes(file("una.nev")), test::readBytes(file("dos.nev")));

    CommandRun contents = run({"contenido", sections});
    EXPECT_EQ(contents.status, 0);
    EXPECT_EQ(contents.out,
              "Ejes (3):\n  0  Eje A\n  1  Eje B\n  2  Eje A\nRasantes (0):\n"
              "Superficies de transversales (3):\n  Eje A: Terreno\n  Eje A: Rasante\n  Eje B: "
              "Terreno\n");
    EXPECT_EQ(run({"contenido", file("no-existe.xml")}).status, 3);

    std::string feet = test::readBytes(doc);
    std::size_t metric = feet.find("<Metric");
    ASSERT_NE(metric, std::string::npos);
    feet.insert(metric, "<Imperial linearUnit=\"USSurveyFoot\"/>");
    feet.erase(feet.find("<Metric"),
               feet.find('>', feet.find("<Metric")) - feet.find("<Metric") + 1);
    test::writeBytes(file("pies.xml"), feet);
    CommandRun warned = run({"--silencio", "alandxml2nevoWCE", "1", file("pies.xml"),
                             file("pies.ruxo"), dir_.string()});
    EXPECT_EQ(warned.status, 0);
    EXPECT_NE(warned.err.find("aviso: el documento declara la unidad lineal USSurveyFoot"),
              std::string::npos)
        << warned.err;
    EXPECT_EQ(test::readBytes(file("pies.ruxo")), test::readBytes(file("indice.ruxo")));
}

TEST_F(CommandTest, DibujoDrawsWhatTheFileHoldsAndRefusesWhatItCannot) {
    struct Case {
        std::vector<std::string> words;
        int status;
        std::string says;
    };
    const std::string samples = QUELCNV_SAMPLES, svg = file("dibujo.svg");
    const std::string obra = samples + "/landxml/obra.xml";
    test::writeBytes(file("texto.txt"), "hola\nmundo\n");
    const Case cases[] = {
        {{"dibujo", samples + "/alignment/eje.ruxo", svg}, 0, "eje en planta, 5 elementos"},
        {{"dibujo", obra, svg}, 0, "eje en planta, 9 elementos"},
        {{"dibujo", obra, svg, "--eje", "Eje 2"}, 0, "eje en planta, 4 elementos"},
        {{"dibujo", obra, svg, "--rasante", "Eje 1: Rasante 1"}, 0, "rasante, 4 vertices"},
        {{"dibujo", "--transversales", "Eje 1: Terreno", obra, svg}, 0, "2 secciones"},
        {{"dibujo", samples + "/profile/rasante.velm", svg}, 0, "rasante, 4 vertices"},
        {{"dibujo", obra, svg, "--eje", "Nadie"}, 1, "no tiene el eje \"Nadie\""},
        {{"dibujo", obra, svg, "--rasante", "Eje 1: Nada"}, 1, "no tiene la rasante"},
        {{"dibujo", file("texto.txt"), svg}, 1, "nada que dibujar"},
        {{"dibujo", samples + "/alignment/eje.ruxo", svg, "--eje", "1"},
         1,
         "solo valen para LandXML"},
        {{"dibujo", file("falta.txt"), svg}, 3, "no se puede abrir"},
        {{"dibujo", samples + "/alignment/eje.ruxo"}, 2, "Uso: quelcnv dibujo"},
        {{"dibujo", obra, svg, "--eje", "0", "--rasante", "x"}, 2, "no van juntas"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.words[1]);
        std::filesystem::remove(svg);
        CommandRun drawing = run(c.words);
        EXPECT_EQ(drawing.status, c.status);
        EXPECT_NE(drawing.err.find(c.says), std::string::npos) << drawing.err;
        EXPECT_EQ(std::filesystem::exists(svg), c.status == 0);
    }
}

TEST_F(CommandTest, ReverseStringPrintsItsBufferAndUsesTheScratchOption) {
    CommandRun sample = run({"--crlf", "--scratch", file("elsewhere"), "ReverseString", "abc"});
    EXPECT_EQ(sample.status, 0);
    EXPECT_EQ(sample.out, "salva\n");
    EXPECT_EQ(test::readBytes(file("elsewhere/prueba.$$$")), "salva");
}

}  // namespace
}  // namespace quelcnv
