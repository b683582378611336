// The public API: reports that say why, the same files as the host's entry
// points, the context's scratch folder, messages and code page, the
// recogniser, and calls that make no sense.
#include "quelcnv_api.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

struct ContextFree {
    void operator()(quelcnv_context* context) const { quelcnv_context_free(context); }
};
struct ReportFree {
    void operator()(quelcnv_report* report) const { quelcnv_report_free(report); }
};
struct SummaryFree {
    void operator()(quelcnv_summary* summary) const { quelcnv_summary_free(summary); }
};
using Context = std::unique_ptr<quelcnv_context, ContextFree>;
using Report = std::unique_ptr<quelcnv_report, ReportFree>;
using Summary = std::unique_ptr<quelcnv_summary, SummaryFree>;

std::string sample(const std::string& relative) { return QUELCNV_SAMPLES "/" + relative; }

class ApiTest : public test::FolderTest {
protected:
    ApiTest() : context_(quelcnv_context_new()) {}

    Report convert(const std::string& operation, const std::vector<std::string>& arguments) {
        std::vector<const char*> texts;
        for (const std::string& argument : arguments) texts.push_back(argument.c_str());
        return Report(
            quelcnv_convert(context_.get(), operation.c_str(), texts.size(), texts.data()));
    }

    static std::vector<std::string> warnings(const quelcnv_report* report) {
        std::vector<std::string> texts;
        for (size_t i = 0; i < quelcnv_report_warning_count(report); ++i)
            texts.emplace_back(quelcnv_report_warning(report, i));
        return texts;
    }

    static std::vector<std::string> files(const quelcnv_report* report) {
        std::vector<std::string> paths;
        for (size_t i = 0; i < quelcnv_report_file_count(report); ++i)
            paths.emplace_back(quelcnv_report_file(report, i));
        return paths;
    }

    Context context_;
};

struct ReasonCase {
    const char* what;
    std::string operation;
    std::vector<std::string> arguments;  // "@name" is a file of the test's folder
    quelcnv_reason reason;
    std::string text;  // the report's text
    long line = 0;
    int hostResult = 0;
    bool leavesOutput = false;  // an output the failure leaves, as the host finds it
};

TEST_F(ApiTest, EveryFailureHasItsReasonTextAndLine) {
    test::writeBytes(file("vacio.ruxo"), "");
    // Broken on its first line, where every XML reader places the fault.
    test::writeBytes(file("roto.xml"), "<LandXML><Alignments></x>\n");
    std::string ruxo = sample("crosssection/eje.ruxo");
    std::string clothoids = test::testData("landxml/clothoids.xml").string();
    const ReasonCase cases[] = {
        {"missing input",
         "ruxo2nevo",
         {"@no.ruxo", "@a.nev"},
         QUELCNV_INPUT_UNREADABLE,
         "no se puede leer el fichero de entrada: @no.ruxo"},
        {"output folder missing",
         "ruxo2nevo",
         {ruxo, "@no/a.nev"},
         QUELCNV_OUTPUT_UNWRITABLE,
         "no se puede escribir el fichero de salida: @no/a.nev"},
        {"empty input",
         "ruxo2nevo",
         {"@vacio.ruxo", "@a.nev"},
         QUELCNV_NO_DATA,
         "no se ha reconocido ningún dato en el fichero de entrada: @vacio.ruxo",
         0,
         1,
         true},
        {"clothoid refused",
         "alandxml2nevoWCE",
         {"0", clothoids, "@a.ruxo", "@"},
         QUELCNV_REJECTED,
         "el fichero de entrada no tiene el formato esperado: " + clothoids,
         0,
         0,
         true},
        {"not well-formed",
         "alandxml2nevoWCE",
         {"0", "@roto.xml", "@a.ruxo", "@"},
         QUELCNV_MALFORMED,
         "el documento XML no está bien formado (línea 1): @roto.xml",
         1,
         1},
        {"negative selec",
         "alandxml2nevoWCE",
         {"-1", clothoids, "@a.ruxo", "@"},
         QUELCNV_INVALID_ARGUMENT,
         "selec no puede ser negativo"},
        {"selec not a number",
         "alandxml2nevoWCE",
         {"uno", clothoids, "@a.ruxo", "@"},
         QUELCNV_INVALID_ARGUMENT,
         "selec debe ser un número entero"},
        {"not provided",
         "amxroad2nevo",
         {ruxo, "@a.nev", "@"},
         QUELCNV_NOT_PROVIDED,
         "la conversión amxroad2nevo no está disponible en esta versión",
         0,
         1},
        {"output is the input",
         "ruxo2nevo",
         {"@vacio.ruxo", "@vacio.ruxo"},
         QUELCNV_SAME_FILE,
         "no se ha escrito nada: @vacio.ruxo es el mismo fichero que @vacio.ruxo"},
        {"unknown operation",
         "ruxo2nevoo",
         {ruxo, "@a.nev"},
         QUELCNV_UNKNOWN,
         "no existe la operación ruxo2nevoo"},
        {"argument missing",
         "ruxo2nevo",
         {ruxo},
         QUELCNV_BAD_ARGUMENTS,
         "ruxo2nevo lleva 2 argumentos: entrada salida"},
    };
    for (const ReasonCase& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<std::string> arguments;
        for (const std::string& argument : c.arguments)
            arguments.push_back(argument.starts_with("@") ? file(argument.substr(1)) : argument);
        Report report = convert(c.operation, arguments);
        ASSERT_NE(report, nullptr);
        std::string text = c.text;
        for (std::size_t at; (at = text.find('@')) != std::string::npos;) {
            std::size_t end = text.find_first_of(" ", at);
            text.replace(at, end - at, file(text.substr(at + 1, end - at - 1)));
        }
        EXPECT_EQ(quelcnv_report_reason(report.get()), c.reason);
        EXPECT_EQ(quelcnv_report_text(report.get()), text);
        EXPECT_EQ(quelcnv_report_line(report.get()), c.line);
        EXPECT_EQ(quelcnv_report_host_result(report.get()), c.hostResult);
        EXPECT_EQ(files(report.get()).size(), c.leavesOutput ? 1u : 0u);
    }
}

TEST_F(ApiTest, AConversionWritesWhatTheEntryPointWritesAndCountsIt) {
    std::string input = sample("crosssection/eje.ruxo");
    Report report = convert("ruxo2nevo", {input, file("api.nev")});
    ASSERT_EQ(quelcnv_report_reason(report.get()), QUELCNV_DONE);
    EXPECT_EQ(quelcnv_report_host_result(report.get()), 1);
    EXPECT_EQ(MyDll_ruxo2nevo(input.c_str(), file("host.nev").c_str()), 1);
    EXPECT_EQ(test::readBytes(file("api.nev")), test::readBytes(file("host.nev")));
    EXPECT_GT(quelcnv_report_count(report.get(), QUELCNV_SECTIONS), 0);
    EXPECT_GT(quelcnv_report_count(report.get(), QUELCNV_POINTS), 0);
    std::string counted = std::to_string(quelcnv_report_count(report.get(), QUELCNV_SECTIONS)) +
                          " secciones, " +
                          std::to_string(quelcnv_report_count(report.get(), QUELCNV_POINTS)) +
                          " puntos -> " + file("api.nev");
    EXPECT_EQ(quelcnv_report_text(report.get()), counted);
    EXPECT_EQ(files(report.get()), std::vector<std::string>{file("api.nev")});
    EXPECT_TRUE(warnings(report.get()).empty());
}

TEST_F(ApiTest, ScratchFilesStayInTheContextsFolderAndGoWithIt) {
    std::string folder = quelcnv_context_scratch_folder(context_.get());
    ASSERT_TRUE(fs::is_directory(folder));
    EXPECT_NE(folder, scratchFile(""));
    Report listed = convert("seleccionaEjeLandXML", {sample("landxml/obra.xml")});
    ASSERT_EQ(quelcnv_report_reason(listed.get()), QUELCNV_DONE);
    std::string list = (fs::path(folder) / "$$$$.EJE").string();
    EXPECT_EQ(files(listed.get()), std::vector<std::string>{list});
    EXPECT_TRUE(fs::exists(list));
    EXPECT_FALSE(fs::exists(scratchFile("$$$$.EJE")));  // the host's folder is left alone
    context_.reset();
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(ApiTest, AnUnsafeScratchFolderIsRefusedAndOneSpoiledLaterFailsTheConversion) {
    fs::create_directory(file("propia"));
    ASSERT_EQ(quelcnv_context_set_scratch_folder(context_.get(), file("propia/").c_str()), 1);
    EXPECT_EQ(quelcnv_context_scratch_folder(context_.get()), file("propia"));
#ifndef _WIN32
    fs::create_directory(file("comun"));
    fs::permissions(file("comun"), fs::perms::all);
    EXPECT_EQ(quelcnv_context_set_scratch_folder(context_.get(), file("comun").c_str()), 0);
    EXPECT_EQ(quelcnv_context_scratch_folder(context_.get()), file("propia"));
    fs::permissions(file("propia"), fs::perms::all);
    Report report =
        convert("aistram2nevo", {sample("alignment/eje.istram"), file("eje.nev"), QUELCNV_SAMPLES});
    EXPECT_EQ(quelcnv_report_reason(report.get()), QUELCNV_SCRATCH_UNAVAILABLE);
    EXPECT_EQ(quelcnv_report_text(report.get()),
              std::string("no se puede usar la carpeta de ficheros temporales"));
#endif
}

TEST_F(ApiTest, MessagesGoToTheSinkAndTheWarningsNeverToTheTerminal) {
    std::vector<std::string> received;
    quelcnv_context_set_message_sink(
        context_.get(),
        [](const char* text, void* data) {
            static_cast<std::vector<std::string>*>(data)->emplace_back(text);
        },
        &received);
    std::string clothoids = test::testData("landxml/clothoids.xml").string();
    testing::internal::CaptureStderr();
    Report report = convert("alandxml2nevoWCE", {"0", clothoids, file("a.ruxo"), dir_.string()});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    ASSERT_EQ(received.size(), 2u);
    EXPECT_TRUE(received[0].starts_with("El eje no puede empezar con una clotoide"));
    EXPECT_EQ(warnings(report.get()), received);
    EXPECT_EQ(files(report.get()), std::vector<std::string>{file("a.ruxo")});
}

TEST_F(ApiTest, NamesAndTextsInTheContextsCodePage) {
    // An alignment named in windows-1252 ("Eje Añil"), chosen by its UTF-8 name
    // or by its 8-bit one.
    test::writeBytes(file("acentos.xml"),
                     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LandXML><Alignments>"
                     "<Alignment name=\"Eje A\xC3\xB1il\"><Profile name=\"R\"><ProfAlign "
                     "name=\"Ra\xC3\xADz\"><PVI>0 100</PVI><PVI>50 101</PVI></ProfAlign>"
                     "</Profile></Alignment></Alignments></LandXML>\n");
    Summary summary(quelcnv_recognise(context_.get(), file("acentos.xml").c_str()));
    ASSERT_EQ(quelcnv_summary_name_count(summary.get(), QUELCNV_PROFILES), 1u);
    EXPECT_EQ(quelcnv_summary_name(summary.get(), QUELCNV_PROFILES, 0),
              std::string("Eje A\xC3\xB1il: Ra\xC3\xADz"));
    Report utf8 = convert("rlandxml2nevo",
                          {"Eje A\xC3\xB1il: Ra\xC3\xADz", file("acentos.xml"), file("utf8.txt")});
    EXPECT_EQ(quelcnv_report_reason(utf8.get()), QUELCNV_DONE);

    ASSERT_EQ(quelcnv_context_set_code_page(context_.get(), QUELCNV_LIBRARY_8BIT), 1);
    Summary eight(quelcnv_recognise(context_.get(), file("acentos.xml").c_str()));
    EXPECT_EQ(quelcnv_summary_name(eight.get(), QUELCNV_PROFILES, 0),
              std::string("Eje A\xF1il: Ra\xEDz"));
    Report bytes =
        convert("rlandxml2nevo", {"Eje A\xF1il: Ra\xEDz", file("acentos.xml"), file("8bit.txt")});
    EXPECT_EQ(quelcnv_report_reason(bytes.get()), QUELCNV_DONE);
    EXPECT_EQ(test::readBytes(file("8bit.txt")), test::readBytes(file("utf8.txt")));
    Report failed = convert("ruxo2nevo", {file("no.ruxo"), file("a.nev")});
    EXPECT_EQ(quelcnv_report_text(failed.get()),
              "no se puede leer el fichero de entrada: " + file("no.ruxo"));
    EXPECT_EQ(quelcnv_context_set_code_page(context_.get(), static_cast<quelcnv_code_page>(7)), 0);
}

TEST_F(ApiTest, InputsThatLookWrongAreWarnedOf) {
    Report report = convert("ruxo2nevo", {sample("alignment/eje.istram"), file("a.nev")});
    std::vector<std::string> said = warnings(report.get());
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said[0], sample("alignment/eje.istram") +
                           ": parece un fichero ISTRAM de eje, y ruxo2nevo lee RUXO de "
                           "transversales");
}

TEST_F(ApiTest, TheRecogniserSummarisesAFile) {
    Summary summary(quelcnv_recognise(context_.get(), sample("landxml/obra.xml").c_str()));
    EXPECT_EQ(quelcnv_summary_opened(summary.get()), 1);
    EXPECT_EQ(quelcnv_summary_format(summary.get()), std::string("LandXML"));
    EXPECT_EQ(quelcnv_summary_kind(summary.get()), std::string("landxml"));
    EXPECT_EQ(quelcnv_summary_certainty(summary.get()), QUELCNV_CERTAIN);
    EXPECT_GT(quelcnv_summary_name_count(summary.get(), QUELCNV_ALIGNMENTS), 0u);
    EXPECT_EQ(quelcnv_summary_name(summary.get(), QUELCNV_ALIGNMENTS, 99), nullptr);

    Summary ruxo(quelcnv_recognise(context_.get(), sample("alignment/eje.ruxo").c_str()));
    EXPECT_EQ(quelcnv_summary_kind(ruxo.get()), std::string("eje"));
    double first = -1;
    EXPECT_EQ(quelcnv_summary_first_station(ruxo.get(), &first), 1);
    EXPECT_GT(quelcnv_summary_items(ruxo.get()), 1);

    Summary missing(quelcnv_recognise(context_.get(), file("no.txt").c_str()));
    EXPECT_EQ(quelcnv_summary_opened(missing.get()), 0);
    EXPECT_EQ(quelcnv_summary_format(missing.get()), std::string(""));
}

TEST_F(ApiTest, TheOperationsAreTheEntryPointsTable) {
    ASSERT_EQ(quelcnv_operation_count(), 60u);
    EXPECT_EQ(quelcnv_operation_name(60), nullptr);
    EXPECT_EQ(quelcnv_operation_name(0), std::string("ReverseString"));
    EXPECT_EQ(quelcnv_operation_arguments("alandxml2nevo"),
              std::string("selec entrada salida pathAp"));
    EXPECT_EQ(quelcnv_operation_availability("ruxo2nevo"), QUELCNV_BUILT);
    EXPECT_EQ(quelcnv_operation_availability("ahtrazado2nevo"), QUELCNV_READS_ONLY);
    EXPECT_EQ(quelcnv_operation_availability("amxroad2nevo"), QUELCNV_UNAVAILABLE);
    EXPECT_EQ(quelcnv_operation_availability("nada"), QUELCNV_UNKNOWN_OPERATION);
    EXPECT_EQ(quelcnv_operation_help("nada"), nullptr);
    EXPECT_STREQ(quelcnv_operation_output("trahtrazado2lamdxml"), ".xml");
    EXPECT_STREQ(quelcnv_operation_output("topoLea2Medrix"), ".med");
    EXPECT_STREQ(quelcnv_operation_output("seleccionaEjeLandXML"), "");
    EXPECT_EQ(quelcnv_version(), std::string(QUELCNV_VERSION));
    EXPECT_EQ(quelcnv_api_version(), 1);
}

TEST_F(ApiTest, NullHandlesAreHarmless) {
    EXPECT_EQ(quelcnv_report_reason(nullptr), QUELCNV_BAD_ARGUMENTS);
    Report noContext(quelcnv_convert(nullptr, "ruxo2nevo", 0, nullptr));
    EXPECT_EQ(quelcnv_report_reason(noContext.get()), QUELCNV_BAD_ARGUMENTS);
    Report noArguments(quelcnv_convert(context_.get(), "ruxo2nevo", 2, nullptr));
    EXPECT_EQ(quelcnv_report_reason(noArguments.get()), QUELCNV_BAD_ARGUMENTS);
    const char* withNull[] = {"a", nullptr};
    Report nullArgument(quelcnv_convert(context_.get(), "ruxo2nevo", 2, withNull));
    EXPECT_EQ(quelcnv_report_reason(nullArgument.get()), QUELCNV_BAD_ARGUMENTS);
    EXPECT_EQ(quelcnv_recognise(nullptr, "a"), nullptr);
    EXPECT_EQ(quelcnv_context_set_scratch_folder(nullptr, "a"), 0);
    quelcnv_context_free(nullptr);
    quelcnv_report_free(nullptr);
    quelcnv_summary_free(nullptr);
}

}  // namespace
}  // namespace quelcnv
