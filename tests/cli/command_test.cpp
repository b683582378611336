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

#include "cli/help.h"
#include "cli/operations.h"
#include "cli/terminal_text.h"
#include "common/code_page.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

struct CommandRun {
    int status;
    std::string out, err;
};

// What the command prints for a UTF-8 text: the text itself in a UTF-8
// locale, the console's code page on Windows.
std::string shown(const std::string& utf8) {
#ifdef _WIN32
    return cli::terminalText(utf8);
#else
    return utf8;
#endif
}

class CommandTest : public test::FolderTest {
protected:
    // The command speaks to a UTF-8 terminal here, whatever locale the
    // tests run under.
    test::ScopedEnv locale_{"LC_ALL", "C.UTF-8"};

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
}

// Help for every operation and every order, asked for with ayuda, or with
// -h or --help anywhere on the line.
TEST_F(CommandTest, HelpForEveryOperationAndOrder) {
    for (const cli::Operation& op : cli::operations()) {
        std::string name(op.name), help = shown(cli::operationHelp(op));
        EXPECT_EQ(run({"ayuda", name}).out, help) << name;
        CommandRun asked = run({name, "x", "--help"});
        EXPECT_EQ(asked.status, 0) << name;
        EXPECT_EQ(asked.out, help) << name;
    }
    for (const cli::Order& order : cli::orders()) {
        std::string name(order.name), help = shown(cli::orderHelp(order));
        EXPECT_EQ(run({"ayuda", name}).out, help) << name;
        EXPECT_EQ(run({"-h", name}).out, help) << name;
        EXPECT_TRUE(help.starts_with(shown("Uso: quelcnv " + name))) << name;
    }
    EXPECT_EQ(run({"-h"}).out, shown(cli::generalHelp()));
    EXPECT_EQ(run({"ayuda"}).out, shown(cli::generalHelp()));
    EXPECT_NE(run({"ahtrazado2nevo", "-h"}).out.find(shown("no convierte en esta versión")),
              std::string::npos);
}

TEST_F(CommandTest, UsageErrorsExitWithTwo) {
    // clang-format off
    const std::vector<std::vector<std::string>> misuses = {
        {}, {"noexiste", "a", "b"}, {"MyDll_velm2arcview", "a", "b"}, {"velm2arcview", "a"},
        {"alandxml2nevo", "primero", "a", "b", "c"}, {"--nada", "lista"}, {"--scratch"},
        {"ayuda", "noexiste"}, {"velm2arcview", std::string(256, 'x'), "b"},
        {"ruxo2nevo", "a", "b", "--nada"}, {"lote", "ruxo2nevo", "a"}, {"lista", "x"},
        {"lote", "ruxo2nevo", "--salida", "d", "-j", "0", "a"}, {"dibujo", "a", "b.png"},
        {"dibujo", "a", "b.svg", "--tipo", "nada"}, {"info"},
    };
    // clang-format on
    for (const auto& arguments : misuses) {
        CommandRun misuse = run(arguments);
        EXPECT_EQ(misuse.status, 2) << (arguments.empty() ? "" : arguments[0]);
        EXPECT_NE(misuse.err.find("Uso:"), std::string::npos);
    }
    EXPECT_NE(run({"velm2arcview", "a"}).err.find("necesita 2 argumentos"), std::string::npos);
    EXPECT_NE(run({"ruxo2nevo", "a", "--nada", "b"}).err.find(shown("opción desconocida: --nada")),
              std::string::npos);
}

// The options go anywhere on the line, before or after the operation and
// among its arguments.
TEST_F(CommandTest, OptionsGoAnywhere) {
    const std::string ruxo = test::testData("crosssection/eje.ruxo").string();
    CommandRun quiet = run({"ruxo2nevo", ruxo, "--crlf", file("crlf.nev"), "--silencio"});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_EQ(quiet.err, "");
    std::string written = test::readBytes(file("crlf.nev"));
    EXPECT_NE(written.find("\r\n"), std::string::npos);
    EXPECT_EQ(run({"--version"}).out,
              "quelcnv " QUELCNV_VERSION " (biblioteca quelcnv " QUELCNV_VERSION ")\n");
    EXPECT_EQ(run({"lista", "--version"}).out, run({"--version"}).out);
}

// No run harms a file: an output that is one of the inputs, under whatever
// name, makes the command write nothing, name both files and exit 1.
TEST_F(CommandTest, AnOutputThatIsAnInputIsNeverWritten) {
    const std::string ruxo = test::readBytes(test::testData("crosssection/eje.ruxo"));
    const std::string istram =
        test::readBytes(std::string(QUELCNV_SAMPLES) + "/alignment/eje.istram");
    test::writeBytes(file("eje.ruxo"), ruxo);
    test::writeBytes(file("e.istram"), istram);
    std::filesystem::create_directories(file("dir"));
    test::writeBytes(file("dir/a.nev"), istram);
    struct Case {
        std::vector<std::string> words;
        std::string kept, written, input;
    };
    const Case cases[] = {
        {{"ruxo2nevo", file("eje.ruxo"), file("eje.ruxo")},
         file("eje.ruxo"),
         file("eje.ruxo"),
         file("eje.ruxo")},
        {{"ruxo2nevo", file("eje.ruxo"), dir_.string() + "/./eje.ruxo"},
         file("eje.ruxo"),
         dir_.string() + "/./eje.ruxo",
         file("eje.ruxo")},
        {{"aistram2ruxo", file("e.istram"), file("e.istram")},
         file("e.istram"),
         file("e.istram"),
         file("e.istram")},
        {{"lote", "aistram2nevo", "--salida", file("dir"), "--con", "pathAp=" + dir_.string(),
          file("dir/a.nev")},
         file("dir/a.nev"),
         (std::filesystem::path(file("dir")) / "a.nev").string(),
         file("dir/a.nev")},
    };
    for (const Case& c : cases) {
        std::string before = test::readBytes(c.kept);
        CommandRun ran = run(c.words);
        EXPECT_EQ(ran.status, 1) << c.words[0];
        EXPECT_NE(ran.err.find(shown("no se ha escrito nada: " + c.written +
                                     " es el mismo fichero que " + c.input)),
                  std::string::npos)
            << ran.err;
        EXPECT_EQ(test::readBytes(c.kept), before) << c.words[0];
    }
}

// Names with ñ and accents, typed in the terminal's encoding, choose an
// alignment, a profile and a surface; the lists print in that encoding, and
// the selection file the host reads keeps the library's windows-1252.
TEST_F(CommandTest, NamesAsTheUserTypesThem) {
    auto typed = [](const std::string& utf8) {
#ifdef _WIN32
        return codePageText(*utf8Characters(utf8));  // the ANSI code page of argv
#else
        return utf8;
#endif
    };
    const std::string doc = file("obra.xml");
    test::writeBytes(
        doc,
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><LandXML><Alignments>"
        "<Alignment name=\"Otro\"/><Alignment name=\"Eje Ñandú 1\">"
        "<CoordGeom><Line><Start>0 0</Start><End>100 0</End></Line></CoordGeom>"
        "<Profile><ProfAlign name=\"Rasante Peñón\"><PVI>0 10</PVI><PVI>100 12</PVI>"
        "</ProfAlign></Profile><CrossSects><CrossSect sta=\"10\"><CrossSectSurf name=\"Terreno\">"
        "<PntList2D>-5 1 5 2</PntList2D></CrossSectSurf></CrossSect></CrossSects></Alignment>"
        "</Alignments></LandXML>");
    const std::string alignment = "Eje Ñandú 1", profile = "Eje Ñandú 1: Rasante Peñón";
    CommandRun chosen = run({"alandxml2nevoWCE", typed(alignment), doc, file("eje.ruxo"), "x"});
    EXPECT_EQ(chosen.status, 0) << chosen.err;
    EXPECT_EQ(run({"--silencio", "alandxml2nevoWCE", "1", doc, file("uno.ruxo"), "x"}).status, 0);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), test::readBytes(file("uno.ruxo")));
    EXPECT_EQ(run({"rlandxml2nevo", typed(profile), doc, file("r.txt")}).status, 0);
    EXPECT_NE(test::readBytes(file("r.txt")).find("100.000"), std::string::npos);
    EXPECT_EQ(
        run({"tralandxml2nevoWCE", typed("Eje Ñandú 1: Terreno"), doc, file("t.ruxo")}).status, 0);
    EXPECT_NE(test::readBytes(file("t.ruxo")).find("10.000"), std::string::npos);

    CommandRun contents = run({"contenido", doc});
    EXPECT_EQ(contents.out,
              shown("Ejes (2):\n  0  Otro\n  1  " + alignment + "\nRasantes (1):\n  " + profile +
                    "\nSuperficies de transversales (1):\n  " + alignment + ": Terreno\n"));
    CommandRun listed = run({"seleccionaEjeLandXML", doc});
    EXPECT_EQ(listed.out, shown("Otro\n" + alignment + "\n"));
    std::string list = test::readBytes(scratchFile("$$$$.EJE"));
    EXPECT_NE(list.find("Eje \xD1"
                        "and\xFA 1"),
              std::string::npos);
}

// Every message comes from the conversion's outcome: the reason, the file it
// concerns, the line where the converter found it, or what was written. A
// failure leaves no output that the run created.
TEST_F(CommandTest, SaysWhyNamingTheFile) {
    const std::string ruxo = test::testData("crosssection/eje.ruxo").string();
    const std::string host = test::testData("alignment/host").string();
    test::writeBytes(file("commas.txt"), ",,,,\n,, ,\n");
    test::writeBytes(file("blanks.txt"), " \t \n\n");
    test::writeBytes(file("counts.istram"), "4 1 0 0 100 0\n0 0 0 -1 2\n");
    const std::string commas = file("commas.txt"), out = file("out.txt");
    const std::string samples = QUELCNV_SAMPLES;
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
         "no se ha reconocido ningún dato en el fichero de entrada: " + commas},
        {{"istram2nevo", commas, out},
         1,
         "no se ha reconocido ningún dato en el fichero de entrada: " + commas},
        {{"rvelm2nevo", file("blanks.txt"), out},
         1,
         "no se ha reconocido ningún dato en el fichero de entrada: " + file("blanks.txt")},
        {{"puntos2nevo", commas, out},
         1,
         "no se ha reconocido ningún dato en el fichero de entrada: " + commas},
#ifdef _WIN32  // Wine's MSXML does not say where
        {{"seleccionaEjeLandXML", commas}, 1, "el documento XML no está bien formado: " + commas},
#else
        {{"seleccionaEjeLandXML", commas},
         1,
         "el documento XML no está bien formado (línea 1): " + commas},
#endif
        {{"istram2nevo", file("counts.istram"), out},
         1,
         "el fichero de entrada no tiene el formato esperado (línea 2): " + file("counts.istram")},
        {{"alandxml2nevo", "-1", commas, out, host}, 2, "selec no puede ser negativo"},
        {{"velm2arcview", file("missing"), out},
         1,
         "la conversión velm2arcview no está disponible en esta versión"},
        {{"clipST2ruxo", commas, out, file("out2.txt")},
         1,
         "la conversión clipST2ruxo no está disponible en esta versión"},
        {{"ahtrazado2nevo", samples + "/alignment/eje.htr", out, host},
         1,
         "esta versión lee " + samples +
             "/alignment/eje.htr pero no lo convierte: no se ha "
             "escrito nada"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove(out);
        CommandRun ran = run(c.words);
        EXPECT_EQ(ran.status, c.status) << c.words[0] << " " << ran.err;
        EXPECT_EQ(ran.err, shown("quelcnv: " + c.says + "\n")) << c.words[0];
        if (c.status != 0) {
            EXPECT_FALSE(std::filesystem::exists(out)) << c.words[0];
        }
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
        EXPECT_EQ(summary,
                  shown("Hechos: 2. Fallidos: 2.\n  " + file("entradas/falta.ruxo") +
                        ": no se puede leer el fichero de entrada: " + file("entradas/falta.ruxo") +
                        "\n  " + file("entradas/vacio.ruxo") +
                        ": no se ha reconocido ningún dato en el fichero de entrada: " +
                        file("entradas/vacio.ruxo") + "\n"));
        EXPECT_FALSE(std::filesystem::exists(out + "/vacio.nev"));
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
    EXPECT_NE(unknown.err.find(shown("ningún eje llamado \"Nadie\"")), std::string::npos);

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
    EXPECT_NE(warned.err.find(
                  shown("aviso: " + file("pies.xml") + ": declara la unidad lineal USSurveyFoot")),
              std::string::npos)
        << warned.err;
    EXPECT_EQ(test::readBytes(file("pies.ruxo")), test::readBytes(file("indice.ruxo")));
}

// A file that looks like another format than the operation reads, or whose
// numbers are all zero: a warning, and the conversion as the host has it.
TEST_F(CommandTest, WarnsOfAnotherFormatAndOfZeros) {
    const std::string samples = QUELCNV_SAMPLES;
    test::writeBytes(file("ceros.ruxo"), "0 0 0\n0 0 0\n0 0 0\n");
    test::writeBytes(file("separadores.txt"), " ,\t;\n ,\t;\n ,\t;\n");
    struct Case {
        std::vector<std::string> words;
        std::string warning;
    };
    const Case cases[] = {
        {{"ruxo2nevo", samples + "/crosssection/eje.istram", file("a.nev")},
         "aviso: " + samples +
             "/crosssection/eje.istram: parece un fichero ISTRAM/ISPOL de transversales, y "
             "ruxo2nevo lee RUXO de transversales"},
        {{"ruxo2nevo", file("ceros.ruxo"), file("b.nev")},
         "aviso: " + file("ceros.ruxo") + ": todos los números leídos son cero"},
        {{"htrazado2nevo", file("separadores.txt"), file("c.nev")},
         "aviso: " + file("c.nev") + ": solo tiene ceros"},
    };
    for (const Case& c : cases) {
        CommandRun ran = run(c.words);
        EXPECT_EQ(ran.status, 0) << c.words[1] << ": " << ran.err;
        EXPECT_NE(ran.err.find(shown(c.warning)), std::string::npos) << ran.err;
    }
    CommandRun right = run({"ruxo2nevo", samples + "/crosssection/eje.ruxo", file("d.nev")});
    EXPECT_EQ(right.err.find("aviso"), std::string::npos) << right.err;
}

// info says what a file is and holds, in text or JSON; contenido lists a
// LandXML document's names, the design surfaces apart, and fails on a
// document that breaks off after listing what it holds up to there.
TEST_F(CommandTest, InfoAndContenidoSayWhatAFileHolds) {
    const std::string samples = QUELCNV_SAMPLES;
    CommandRun text = run({"info", samples + "/profile/peralte.ispol"});
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.out.find(shown("Formato: ISPOL de peralte (peralte; certeza segura)")),
              std::string::npos)
        << text.out;
    EXPECT_NE(text.out.find("PK: de 0.000 a 250.000"), std::string::npos) << text.out;
    CommandRun json = run({"info", "--json", samples + "/alignment/eje.istram"});
    EXPECT_TRUE(json.out.starts_with("{\"fichero\": \"" + samples +
                                     "/alignment/eje.istram\", "
                                     "\"formato\": \"ISTRAM de eje\", \"tipo\": \"eje\""))
        << json.out;
    test::writeBytes(file("basura.bin"), std::string("\x01\x02\x00\xff\x7f", 5));
    EXPECT_EQ(run({"info", file("basura.bin")}).status, 1);
    EXPECT_EQ(run({"info", file("no-existe")}).status, 3);

    CommandRun corridor = run({"contenido", test::testData("recognition/corridor.xml").string()});
    EXPECT_EQ(corridor.status, 0);
    EXPECT_NE(corridor.out.find(shown("Superficies de diseño, que las conversiones no leen (3):\n"
                                      "  Camino: Firme\n")),
              std::string::npos)
        << corridor.out;
    EXPECT_NE(corridor.err.find("declara la unidad lineal foot"), std::string::npos);
    CommandRun cut = run({"contenido", test::testData("landxml/cut.xml").string()});
    EXPECT_EQ(cut.status, 1);
    EXPECT_TRUE(cut.out.starts_with("Ejes (2):\n  0  Recta\n  1  Curvas\n")) << cut.out;
    EXPECT_NE(cut.err.find(shown("se acaba antes de cerrarse")), std::string::npos) << cut.err;
    EXPECT_EQ(run({"contenido", file("basura.bin")}).status, 1);
}

TEST_F(CommandTest, DibujoDrawsWhatTheFileHoldsAndRefusesWhatItCannot) {
    struct Case {
        std::vector<std::string> words;
        int status;
        std::string says;
    };
    const std::string samples = QUELCNV_SAMPLES, svg = file("dibujo.svg");
    const std::string obra = samples + "/landxml/obra.xml";
    const std::string feet = std::string(QUELCNV_TEST_DATA) + "/drawing/pies.xml";
    test::writeBytes(file("texto.txt"), "hola\nmundo\n");
    const Case cases[] = {
        {{"dibujo", samples + "/alignment/eje.ruxo", svg}, 0, "eje en planta, 5 elementos"},
        {{"dibujo", obra, svg}, 0, "eje en planta, 9 elementos"},
        {{"dibujo", obra, svg, "--eje", "Eje 2"}, 0, "eje en planta, 4 elementos"},
        {{"dibujo", obra, svg, "--rasante", "Eje 1: Rasante 1"}, 0, shown("rasante, 4 vértices")},
        {{"dibujo", "--transversales", "Eje 1: Terreno", obra, svg}, 0, "2 secciones"},
        {{"dibujo", samples + "/profile/rasante.velm", svg}, 0, shown("rasante, 4 vértices")},
        {{"dibujo", samples + "/profile/peralte.clip", svg}, 0, "peralte, 5 filas"},
        {{"dibujo", samples + "/fielddata/puntos.txt", svg}, 0, "dibujo.svg: 5 puntos"},
        {{"dibujo", samples + "/crosssection/eje.istram", svg}, 0, "2 secciones transversales"},
        {{"dibujo", samples + "/fielddata/puntos.txt", svg, "--tipo", "transversales"},
         0,
         "5 secciones transversales"},
        {{"dibujo", obra, svg, "--eje", "Nadie"}, 1, "no tiene el eje \"Nadie\""},
        {{"dibujo", obra, svg, "--rasante", "Eje 1: Nada"}, 1, "no tiene la rasante"},
        {{"dibujo", obra, svg, "--tipo", "peralte"}, 1, "no peralte"},
        {{"dibujo", file("texto.txt"), svg},
         1,
         shown("no se sabe qué es " + file("texto.txt") +
               ": dígalo con --tipo eje|rasante|peralte|transversales|puntos")},
        {{"dibujo", samples + "/fielddata/nivelacion.dat", svg},
         1,
         shown("nivelacion.dat es un fichero KL500 de nivelación, que no se dibuja")},
        {{"dibujo", samples + "/alignment/eje.htr", svg}, 1, "HTRAZADO"},
        {{"dibujo", samples + "/fielddata/puntos.txt", svg, "--tipo", "eje"},
         1,
         shown("leído como eje, no hay ningún elemento de eje")},
        {{"dibujo", samples + "/alignment/eje.ruxo", svg, "--eje", "1"},
         1,
         "solo valen para LandXML"},
        {{"dibujo", file("falta.txt"), svg}, 3, "no se puede abrir"},
        {{"dibujo", samples + "/alignment/eje.ruxo"}, 2, "Uso: quelcnv dibujo"},
        {{"dibujo", obra, svg, "--eje", "0", "--rasante", "x"}, 2, "no van juntas"},
        {{"dibujo", obra, svg, "--tipo", "eje", "--rasante", "Eje 1: Rasante 1"},
         2,
         "--tipo eje y --rasante piden dos tipos distintos"},
        {{"dibujo", obra, file("dibujo.png")}, 2, ".svg"},
        // A document in feet: warned of once, drawn in feet.
        {{"dibujo", feet, svg}, 0, "aviso: " + feet + ": declara la unidad lineal USSurveyFoot; "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.words[1]);
        std::filesystem::remove(svg);
        CommandRun drawing = run(c.words);
        EXPECT_EQ(drawing.status, c.status);
        EXPECT_NE(drawing.err.find(c.says), std::string::npos) << drawing.err;
        EXPECT_EQ(std::filesystem::exists(svg), c.status == 0);
    }
    CommandRun inFeet = run({"dibujo", feet, svg});
    EXPECT_EQ(inFeet.err.find("aviso"), inFeet.err.rfind("aviso")) << inFeet.err;
    EXPECT_NE(test::readBytes(svg).find("PK cada 100 pies"), std::string::npos);
}

TEST_F(CommandTest, ReverseStringPrintsItsBufferAndUsesTheScratchOption) {
    CommandRun sample = run({"--crlf", "--scratch", file("elsewhere"), "ReverseString", "abc"});
    EXPECT_EQ(sample.status, 0);
    EXPECT_EQ(sample.out, "salva\n");
    EXPECT_EQ(test::readBytes(file("elsewhere/prueba.$$$")), "salva");
}

}  // namespace
}  // namespace quelcnv
