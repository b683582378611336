// Conversions on eight contexts from eight threads at once give the files a
// serial run gives: each context keeps its scratch files in its own folder.
// Built also with ThreadSanitizer, which watches the library's shared state.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "quelcnv_api.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

constexpr int threadCount = 8;
constexpr int conversionsPerThread = 50;

struct Job {
    const char* operation;
    std::vector<std::string> arguments;  // "@" is the output, "&" the host's folder
};

std::string sample(const std::string& relative) { return QUELCNV_SAMPLES "/" + relative; }

// A mix of plain conversions and conversions chained through the scratch
// file, in both folders the LandXML alignment uses.
std::vector<Job> jobs() {
    return {
        {"aistram2nevo", {sample("alignment/eje.istram"), "@", "&"}},
        {"aclipplt2nevo", {sample("alignment/eje.plt"), "@", "&"}},
        {"aispol2nevo", {sample("alignment/eje.ispol"), "@", "&"}},
        {"alandxml2nevo", {"0", sample("landxml/obra.xml"), "@", "&"}},
        {"istram2nevo", {sample("crosssection/eje.istram"), "@"}},
        {"ruxo2nevo", {sample("crosssection/eje.ruxo"), "@"}},
        {"rvelm2nevo", {sample("profile/rasante.velm"), "@"}},
        {"puntos2nevo", {sample("fielddata/puntos.txt"), "@"}},
        {"seleccionaEjeLandXML", {sample("landxml/obra.xml")}},
    };
}

// Runs conversion n of a thread's share on the context; the bytes it wrote
// (the selection list for a selection).
std::string runJob(quelcnv_context* context, const Job& job, const std::string& output) {
    std::vector<std::string> arguments;
    for (const std::string& argument : job.arguments)
        arguments.push_back(argument == "@"   ? output
                            : argument == "&" ? std::string(QUELCNV_SAMPLES)
                                              : argument);
    std::vector<const char*> texts;
    for (const std::string& argument : arguments) texts.push_back(argument.c_str());
    quelcnv_report* report = quelcnv_convert(context, job.operation, texts.size(), texts.data());
    std::string written;
    if (quelcnv_report_reason(report) == QUELCNV_DONE && quelcnv_report_file_count(report) == 1)
        written = test::readBytes(quelcnv_report_file(report, 0));
    else
        written = std::string("failed: ") + quelcnv_report_text(report);
    quelcnv_report_free(report);
    return written;
}

class ApiThreadsTest : public test::FolderTest {};

TEST_F(ApiThreadsTest, EightContextsConvertAtOnceAsOneDoesAlone) {
    const std::vector<Job> all = jobs();
    std::vector<std::string> expected;
    {
        quelcnv_context* context = quelcnv_context_new();
        ASSERT_NE(context, nullptr);
        for (std::size_t j = 0; j < all.size(); ++j)
            expected.push_back(runJob(context, all[j], file("serial-" + std::to_string(j))));
        quelcnv_context_free(context);
    }
    for (const std::string& bytes : expected) ASSERT_FALSE(bytes.starts_with("failed")) << bytes;

    std::vector<std::vector<std::string>> results(threadCount);
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&, t] {
            quelcnv_context* context = quelcnv_context_new();
            for (int n = 0; n < conversionsPerThread; ++n) {
                std::string output = file(std::to_string(t) + "-" + std::to_string(n));
                results[t].push_back(runJob(context, all[(t + n) % all.size()], output));
            }
            quelcnv_context_free(context);
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (int t = 0; t < threadCount; ++t)
        for (int n = 0; n < conversionsPerThread; ++n)
            EXPECT_EQ(results[t][n], expected[(t + n) % all.size()])
                << "thread " << t << ", conversion " << n;
}

}  // namespace
}  // namespace quelcnv
