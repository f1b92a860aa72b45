// That a command takes each of its arguments as it is, whatever it looks like.
#include "tests/tools/TolvaneRun.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using Words = std::vector<std::string>;

// In the current folder, so that a path may be a single word.
class TolvaneArguments : public TolvaneRun {
protected:
    TolvaneArguments() { fs::current_path(folder.path("")); }
    ~TolvaneArguments() override { fs::current_path(m_former); }

    static void expectNoSuchFile(const Words& arguments, const std::string& path) {
        const TolvaneProcess process = runTolvane(arguments);
        EXPECT_EQ(process.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(process.errors, "tolvane: " + path + ": there is no such file\n")
            << testing::PrintToString(arguments);
    }

private:
    fs::path m_former = fs::current_path();
};

TEST_F(TolvaneArguments, AreNoCommandsBehindOne) {
    for (const char* name : {"run", "info", "check", "inspect", "trace", "show"})
        expectNoSuchFile({"run", name}, name);
    for (const char* command : {"info", "check", "inspect"})
        expectNoSuchFile({command, "run"}, "run");
    folder.write("check", sampleBvh());
    EXPECT_THAT(runTolvane({"run", rig(), "check", rig()}).output, HasSubstr("\n3 rigs: all "));
    EXPECT_THAT(runTolvane({"info", "check", "run"}).errors, HasSubstr("was not expected: run "));
}

TEST_F(TolvaneArguments, StayWholeInBrackets) {
    for (const char* name : {"[mocap]", "[a,b]", "[]", "[[a]]", "{}", "%%"}) {
        expectNoSuchFile({"run", name}, name);
        expectNoSuchFile({"inspect", name}, name);
        EXPECT_THAT(runTolvane({"inspect", PLUGIN, name}).errors, HasSubstr(name));
    }
    folder.write("[a,b]", sampleBvh());
    const TolvaneProcess process =
        runTolvane({"run", "[a,b]", rig(), "--jobs", "2", "--", "[a,b]"});
    EXPECT_EQ(process.status, 0) << process.errors;
    EXPECT_THAT(process.output, HasSubstr("\n3 rigs: all "));
}

}  // namespace
