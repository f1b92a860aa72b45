// Where the system lets nobody have as many processes or files as there are jobs.
#include "tests/tools/Sanitized.h"
#include "tests/tools/TolvaneRun.h"
#include "tools/process/Capture.h"
#include "tools/support/Error.h"

#include <exception>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/resource.h>

namespace {

using testing::EndsWith;
using Json = nlohmann::ordered_json;

class ScarceProcesses : public TolvaneRun {
protected:
    std::vector<std::string> rigs(std::size_t count) const {
        std::vector<std::string> files;
        for (std::size_t i = 0; i < count; ++i)
            files.push_back(folder.write(std::to_string(i) + ".bvh", stillBvh()));
        return files;
    }

    // With no more files open in each process.
    static TolvaneProcess runWithFew(rlim_t files, const std::vector<std::string>& arguments) {
        const TemporaryFolder prints;
        std::string command = "{ ulimit -S -n " + std::to_string(files) + "; exec " TOLVANE;
        for (const std::string& argument : arguments) command += " " + quoted(argument);
        command += "; } >" + quoted(prints.path("out")) + " 2>" + quoted(prints.path("err"));
        const int result = std::system(command.c_str());
        return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, readFile(prints.path("out")),
                readFile(prints.path("err"))};
    }
};

// Each process needs some for itself, whatever those beside it have.
TEST_F(ScarceProcesses, MakeRunsOfManyRigsWaitForOthers) {
    std::vector<std::string> arguments = rigs(12);
    arguments.insert(arguments.begin(), {"run", "--jobs", "12"});
    const TolvaneProcess process = runWithFew(16, arguments);
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, EndsWith("\n12 rigs: all came back as they went in.\n"));
}

TEST_F(ScarceProcesses, GiveARowToEachRigWhereThereAreNone) {
    if (kIsSanitized) GTEST_SKIP() << "a sanitizer needs files itself to look at what is read";
    std::vector<std::string> arguments = rigs(2);
    arguments.insert(arguments.begin(), {"run", "--json"});
    const TolvaneProcess process = runWithFew(5, arguments);
    EXPECT_EQ(process.status, 2);
    std::istringstream lines(process.output);
    for (const char* file : {"0.bvh", "1.bvh"}) {
        std::string line;
        std::getline(lines, line);
        const Json row = Json::parse(line);
        EXPECT_EQ(row["file"], folder.path(file));
        EXPECT_EQ(row["error"]["what"], "no process can be started: Too many open files");
    }
}

TEST_F(ScarceProcesses, MakeCasesOfACheckWaitForOthers) {
    const TolvaneProcess process =
        runWithFew(16, {"check", PLUGIN, "--only", "^ports/", "--jobs", "100"});
    EXPECT_EQ(process.status, 0) << process.output;
    EXPECT_EQ(process.errors, "");
}

TEST_F(ScarceProcesses, AreNamedWhereNothingCanKeepWhatOnePrints) {
    rlimit former{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &former), 0);
    const rlimit none{0, former.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    std::exception_ptr thrown;
    try {
        const Tolvane::Tools::Capture capture;
    } catch (...) {
        thrown = std::current_exception();
    }
    setrlimit(RLIMIT_NOFILE, &former);
    ASSERT_TRUE(thrown);
    try {
        std::rethrow_exception(thrown);
    } catch (const Tolvane::Tools::Error& error) {
        EXPECT_STREQ(error.what(),
                     "what another process prints cannot be kept: Too many open files");
    }
}

}  // namespace
