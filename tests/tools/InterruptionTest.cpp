// What is left when somebody ends `tolvane`: nothing.
#include "tests/tools/TolvaneRun.h"
#include "tools/process/Child.h"
#include "tools/process/Interruption.h"
#include "tools/report/OutputFile.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace Tolvane::Tools;

// A shell ignores some of them in what it runs in the background or for longer than itself.
void ignoreNoSignal() {
    for (const int each : {SIGINT, SIGTERM, SIGHUP}) std::signal(each, SIG_DFL);
}

// `tolvane` on a terminal of its own.
class OnTerminal {
public:
    OnTerminal(std::vector<std::string> arguments, const char* fault) {
        arguments.insert(arguments.begin(), TOLVANE);
        std::vector<char*> words;
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        m_process = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_process != 0) return;
        ignoreNoSignal();
        setenv("TOLVANE_TEST_FAULT", fault, 1);
        execv(TOLVANE, words.data());
        _exit(127);
    }
    OnTerminal(const OnTerminal&) = delete;
    OnTerminal& operator=(const OnTerminal&) = delete;
    ~OnTerminal() { close(m_terminal); }

    pid_t process() const { return m_process; }
    void type(char key) const { EXPECT_EQ(write(m_terminal, &key, 1), 1); }
    // Everything up to `text`, or up to the end.
    std::string readTo(const std::string& text) {
        std::string all;
        char byte = 0;
        while (all.find(text) == std::string::npos && read(m_terminal, &byte, 1) == 1) all += byte;
        return all;
    }
    int wait() const {
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        return status;
    }

private:
    int m_terminal = -1;
    pid_t m_process = -1;
};

// Those that have `word` among their arguments, which a fork has from its parent.
std::size_t processesWith(const std::string& word) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator("/proc"))
        if (readFile(entry.path() / "cmdline").find(word) != std::string::npos) ++count;
    return count;
}

// Whether there come to be so many and stay. Those that read the rigs come and go before.
bool settleAt(std::size_t count, const std::string& word) {
    int settled = 0;
    for (int i = 0; i < 2000 && settled < 50; ++i) {
        settled = processesWith(word) == count ? settled + 1 : 0;
        std::this_thread::sleep_for(5ms);
    }
    return settled == 50;
}

void expectNoProcessWith(const std::string& word) {
    for (int i = 0; i < 200 && processesWith(word) > 0; ++i) std::this_thread::sleep_for(10ms);
    EXPECT_EQ(processesWith(word), 0U);
}

class Interrupted : public TolvaneRun, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(EachSignal, Interrupted, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_P(Interrupted, EndsByTheSignalAndLeavesACleanLine) {
    const std::string picture = folder.write("out.svg", "<svg>the picture of another run</svg>");
    OnTerminal tolvane({"run", rig(), "--plugin", MISBEHAVING_LIBRARY, "--svg", picture},
                       "sleeps writing");
    tolvane.readTo("%");
    EXPECT_GE(processesWith(picture), 2U);
    kill(tolvane.process(), GetParam());
    EXPECT_EQ(tolvane.readTo("nothing of that kind"), "\r\033[K");
    const int status = tolvane.wait();
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    expectNoProcessWith(picture);
    EXPECT_EQ(readFile(picture), "<svg>the picture of another run</svg>");
    EXPECT_EQ(folder.fileCount(), 2U);
}

TEST_F(Interrupted, ByCtrlCEndsAllRunsOfManyRigs) {
    const std::string other = folder.write("other.bvh", sampleBvh());
    OnTerminal tolvane({"run", rig(), other, rig(), "--jobs", "2", "--plugin", MISBEHAVING_LIBRARY},
                       "starts-another-and-sleeps writing");
    tolvane.readTo("%");
    EXPECT_TRUE(settleAt(7, other))
        << "one, one for each job, those of the libraries, and what these have started";
    tolvane.type('\3');
    EXPECT_THAT(tolvane.readTo("nothing of that kind"), testing::EndsWith("\r\033[K"));
    EXPECT_EQ(WTERMSIG(tolvane.wait()), SIGINT);
    expectNoProcessWith(other);
}

TEST_F(Interrupted, LeavesAFileThatIsBeingWrittenAsItWas) {
    const std::string path = folder.write("file", "<svg>former</svg>");
    const InterruptionGuard guard;
    std::raise(SIGTERM);
    try {
        OutputFile(path).write("new");
        ADD_FAILURE();
    } catch (const Tolvane::Tools::Interrupted& interrupted) {
        EXPECT_EQ(interrupted.signal, SIGTERM);
    }
    EXPECT_EQ(readFile(path), "<svg>former</svg>");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(Interrupted, EndsAChildThatNotesTheSignalByIt) {
    const auto work = [](ChildSide&) {
        const InterruptionGuard guard;
        std::raise(SIGTERM);
        throwIfInterrupted();
        return std::string();
    };
    EXPECT_EQ(inWords(runInChild(work, Limits())), "is ended by signal 15");
}

TEST_F(Interrupted, EndsAChildThatIgnoresTheSignalAllTheSame) {
    const auto ignoring = [&](ChildSide&) {
        std::signal(SIGTERM, SIG_IGN);
        folder.write("number", std::to_string(getpid()));
        folder.write("is written", "");
        while (true) sleep(1000);
        return std::string();
    };
    {
        const Child child(ignoring, Limits());
        while (folder.fileCount() < 2) std::this_thread::sleep_for(1ms);
    }
    EXPECT_EQ(kill(std::stoi(readFile(folder.path("number"))), 0), -1);
}

TEST_F(Interrupted, TakesItsCourseWhereNobodyHasAskedForTheSignal) {
    EXPECT_EXIT(
        {
            ignoreNoSignal();
            {
                const InterruptionGuard guard;
                std::raise(SIGHUP);
            }
            std::_Exit(0);
        },
        testing::KilledBySignal(SIGHUP), "");
}

TEST_F(Interrupted, StaysIgnoredWhereItWasIgnored) {
    const auto former = std::signal(SIGHUP, SIG_IGN);
    {
        const InterruptionGuard guard;
        std::raise(SIGHUP);
        EXPECT_NO_THROW(throwIfInterrupted());
    }
    std::signal(SIGHUP, former);
}

}  // namespace
