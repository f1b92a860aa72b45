#include "tests/support/TemporaryFolder.h"
#include "tests/tools/Sanitized.h"
#include "tools/process/Child.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace Tolvane::Tools;
using namespace std::chrono_literals;
using End = Outcome::End;
using testing::HasSubstr;

Limits shortLimits() {
    Limits limits;
    limits.memory = std::size_t{256} << 20;
    limits.processorTime = 1;
    limits.silence = 30;
    limits.written = std::size_t{1} << 20;
    limits.answer = std::size_t{32} << 20;
    return limits;
}

Outcome run(const Work& work) { return runInChild(work, shortLimits()); }

// How it ended, in words; nothing if it answered.
std::string ending(const Work& work) {
    const Outcome outcome = run(work);
    return outcome.end == End::Answered ? "" : inWords(outcome);
}

Work doing(const std::function<void()>& something) {
    return [something](ChildSide&) {
        something();
        return std::string();
    };
}

// One that has ended and that nobody has noticed yet does not run.
bool runs(pid_t process) {
    const std::string status = readFile("/proc/" + std::to_string(process) + "/stat");
    return !status.empty() && status.find(") Z ") == std::string::npos;
}

void expectToEnd(pid_t process) {
    for (int i = 0; i < 200 && runs(process); ++i) std::this_thread::sleep_for(10ms);
    EXPECT_FALSE(runs(process));
}

TEST(Child, GivesBackTheAnswerOfItsWork) {
    for (const std::size_t size : {0U, 1U, 65'536U, 20'000'000U}) {
        std::string answer(size, '\0');
        for (std::size_t i = 0; i < size; ++i) answer[i] = static_cast<char>(i * i);
        const Outcome outcome = run([&](ChildSide&) { return answer; });
        EXPECT_EQ(outcome.end, End::Answered);
        EXPECT_TRUE(outcome.answer == answer) << size;
    }
}

TEST(Child, SeesWhatItsParentHasAndChangesNothingOfIt) {
    int number = 7;
    const Outcome outcome = run([&](ChildSide&) { return std::to_string(number++); });
    EXPECT_EQ(outcome.answer, "7");
    EXPECT_EQ(number, 7);
}

TEST(Child, GivesBackAnErrorWithAllThatItSays) {
    const Outcome outcome = run([](ChildSide&) -> std::string {
        throw Error(Stage::Names, "a file", "a file: is\nwrong", 1);
    });
    ASSERT_EQ(outcome.end, End::Failed);
    EXPECT_EQ(outcome.error->stage(), Stage::Names);
    EXPECT_EQ(outcome.error->file(), "a file");
    EXPECT_STREQ(outcome.error->what(), "a file: is\nwrong");
    EXPECT_EQ(outcome.error->status(), 1);
}

struct BadEnd {
    const char* name;
    std::function<void()> work;
    const char* words;
};

void throwSomething() { throw std::runtime_error("it would not do"); }
void throwNothingOut() noexcept { throwSomething(); }

int overflow(int depth) {
    volatile char frame[10'000];
    frame[0] = static_cast<char>(depth);
    return depth == -1 ? 0 : overflow(depth + 1) + frame[0];
}

const std::string kLongThrown = "throws \"" + std::string(900, 'p') + ": why\"";

const std::vector<BadEnd> kBadEnds{
    {"Throws", [] { throw std::runtime_error("it\nwould not do"); }, "throws \"it would not do\""},
    {"ThrowsALot", [] { throw std::runtime_error(std::string(5000, 'a')); }, "throws \"aaa"},
    {"ThrowsAPathAndItsCause", [] { throw std::runtime_error(std::string(900, 'p') + ": why"); },
     kLongThrown.c_str()},
    {"ThrowsANumber", [] { throw 7; }, "throws something that is no exception"},
    {"ThrowsOutOfWhereNothingMayBeThrown", &throwNothingOut, "throws \"it would not do\""},
    {"Terminates", [] { std::terminate(); }, "calls std::terminate"},
    {"Exits", [] { std::exit(0); }, "ends the process with status 0"},
    {"ExitsAtOnce", [] { _exit(42); }, "ends the process with status 42"},
    {"Aborts", [] { std::abort(); }, "aborts"},
    {"Crashes", [] { std::raise(SIGSEGV); }, "crashes (segmentation fault)"},
    {"ReadsBeyondAFile", [] { std::raise(SIGBUS); }, "crashes (bus error)"},
    {"DividesByZero", [] { std::raise(SIGFPE); }, "crashes (arithmetic error)"},
    {"IsKilled", [] { std::raise(SIGKILL); }, "is ended by signal 9"},
    {"ClosesAllFilesAndCrashes",
     [] {
         for (int file = 0; file < 100; ++file) close(file);
         std::raise(SIGSEGV);
     },
     "crashes (segmentation fault)"},
    {"ComputesForEver",
     [] {
         for (volatile bool forever = true; forever;) continue;
     },
     "takes more than 1 s of processor time"},
    {"ComputesForEverAndIgnoresTheSignal",
     [] {
         std::signal(SIGXCPU, SIG_IGN);
         for (volatile bool forever = true; forever;) continue;
     },
     "takes more than 1 s of processor time"},
    {"PrintsForEver",
     [] {
         while (true) std::cout << "a line that is printed again and again" << std::endl;
     },
     "writes more than 1 MiB"},
};

class ChildThatEndsBadly : public testing::TestWithParam<BadEnd> {};

INSTANTIATE_TEST_SUITE_P(EachWay, ChildThatEndsBadly, testing::ValuesIn(kBadEnds),
                         [](const auto& end) { return std::string(end.param.name); });

TEST_P(ChildThatEndsBadly, IsToldInWords) {
    const Outcome outcome = run(doing(GetParam().work));
    EXPECT_THAT(inWords(outcome), testing::StartsWith(GetParam().words));
    EXPECT_EQ(outcome.answer, "");
}

TEST(Child, IsToldToHaveWaitedTooLong) {
    Limits limits = shortLimits();
    limits.silence = 1;
    const Outcome outcome = runInChild(doing([] { sleep(1000); }), limits);
    EXPECT_EQ(inWords(outcome), "makes no progress for 1 s");
}

// A sanitizer reports it as something else.
TEST(Child, IsToldToHaveOverflownItsStack) {
    const Work work = doing([] { overflow(0); });
    if (kIsSanitized)
        EXPECT_NE(run(work).end, End::Answered);
    else
        EXPECT_EQ(ending(work), "crashes (segmentation fault)");
}

// The machine keeps its memory in any case. A sanitizer ends the process itself when it gets none.
TEST(Child, IsToldToHaveTakenTooMuchMemory) {
    const auto inSmallPieces = doing([] {
        for (std::vector<std::string> all;; all.emplace_back(1000, 'a')) continue;
    });
    const auto atOnce = doing([] { EXPECT_NE(std::string(std::size_t{1} << 30, 'a'), ""); });
    const auto andCopes = doing([] {
        try {
            EXPECT_NE(std::string(std::size_t{1} << 30, 'a'), "");
        } catch (const std::bad_alloc&) {
            throw Error("there is too little");
        }
    });
    for (const Work& work : {inSmallPieces, atOnce, andCopes}) {
        if (kIsSanitized)
            EXPECT_NE(run(work).end, End::Answered);
        else
            EXPECT_EQ(ending(work), "takes more than 256 MiB of memory");
    }
}

// And not what it does to clean up.
TEST(Child, NotesAtWhatItTookTooMuchMemory) {
    struct Cleaner {
        ~Cleaner() { self.enter(Stage::Unloading); }
        ChildSide& self;
    };
    if (kIsSanitized) GTEST_SKIP() << "a sanitizer ends the process itself";
    const Outcome outcome = run([](ChildSide& self) {
        const Cleaner cleaner{self};
        self.enter(Stage::Ports);
        return std::string(std::size_t{1} << 30, 'a');
    });
    EXPECT_EQ(outcome.end, End::OutOfMemory);
    EXPECT_EQ(outcome.place.stage, Stage::Ports);
}

TEST(Child, MayTakeWhatItIsAllowed) {
    const auto work = [](ChildSide&) {
        return std::to_string(std::string(100'000'000, 'a').size());
    };
    EXPECT_EQ(run(work).answer, "100000000");
}

TEST(Child, IsToldToHaveWrittenTooLongAFile) {
    const TemporaryFolder folder;
    const auto work = doing([&] { folder.write("file", std::string(2'000'000, 'a')); });
    EXPECT_EQ(ending(work), "writes more than 1 MiB");
}

TEST(Child, IsToldToHaveGivenTooLongAnAnswer) {
    Limits limits = shortLimits();
    limits.answer = 1000;
    EXPECT_EQ(runInChild([](ChildSide&) { return std::string(1000, 'a'); }, limits).end,
              End::Answered);
    const Outcome outcome =
        runInChild([](ChildSide&) { return std::string(100'000, 'a'); }, limits);
    EXPECT_EQ(outcome.end, End::AnsweredTooMuch);
    EXPECT_EQ(outcome.answer, "");
}

TEST(Child, MayTakeAnyTimeAsLongAsItShowsProgress) {
    Limits limits = shortLimits();
    limits.silence = 1;
    const auto work = [](ChildSide& self) {
        for (std::size_t i = 1; i <= 8; ++i) {
            self.progress(i, 8);
            std::this_thread::sleep_for(200ms);
        }
        return std::string("done");
    };
    std::size_t most = 0;
    const Outcome outcome = runInChild(work, limits, [&](const Child& child) {
        EXPECT_TRUE(child.total() == 0 || child.total() == 8);
        EXPECT_GE(child.done(), most);
        most = child.done();
    });
    EXPECT_EQ(outcome.answer, "done");
    EXPECT_GE(most, 7U);
}

TEST(Child, TellsWhatItWasAt) {
    const Outcome outcome = run([](ChildSide& self) -> std::string {
        self.enter(Stage::Ports);
        self.enter(Stage::Evaluating);
        self.atFrame(12);
        self.atPort(std::string(1000, 'p'));
        self.atPort("inPins");
        std::abort();
    });
    EXPECT_EQ(outcome.place.stage, Stage::Evaluating);
    EXPECT_EQ(outcome.place.port, "inPins");
    EXPECT_EQ(outcome.place.frame, 12U);
    EXPECT_EQ(inWords(outcome.place), "while port inPins is evaluated in frame 12");
}

TEST(Child, KeepsItsPrintsFromItsParent) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::printf("from the parent ");
    const auto work = doing([] {
        std::puts("out");
        std::cout << "out" << std::endl;
        std::cerr << "err" << std::endl;
        std::system("echo out; echo err >&2");
    });
    EXPECT_EQ(ending(work), "");
    EXPECT_EQ(ending(doing([] { std::exit(1); })), "ends the process with status 1");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "from the parent ");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Child, LearnsWhatWasPrintedFirstAndWhere) {
    const Outcome outcome = run([](ChildSide& self) {
        self.enter(Stage::Loading);
        std::printf("allowed");
        self.allowPrints();
        self.noticePrints();
        self.enter(Stage::Names);
        std::printf("first\n");
        self.noticePrints();
        self.enter(Stage::Ports);
        std::printf("second\n");
        self.noticePrints();
        const auto& print = *self.firstPrint();
        return self.allowedPrints() + "|" + print.text + "|" + wordFor(print.place.stage);
    });
    EXPECT_EQ(outcome.answer, "allowed|first\n|names");
}

TEST(Child, HasNothingToRead) {
    const Outcome outcome =
        run([](ChildSide&) { return std::to_string(std::fgetc(stdin) == EOF); });
    EXPECT_EQ(outcome.answer, "1");
}

// Then nobody can tell how it ended, but what it has sent is there.
TEST(Child, EndsAlsoWhereTheSystemBuriesIt) {
    const auto former = std::signal(SIGCHLD, SIG_IGN);
    const Outcome answered = run([](ChildSide&) { return "answer"; });
    const Outcome killed = run(doing([] { std::raise(SIGKILL); }));
    std::signal(SIGCHLD, former);
    EXPECT_EQ(answered.answer, "answer");
    EXPECT_EQ(killed.end, End::Exited);
}

TEST(Child, IsEndedWithItsOwner) {
    pid_t process = -1;
    {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const Child child(doing([&] {
                              const pid_t self = getpid();
                              [[maybe_unused]] auto written = write(ends[1], &self, sizeof self);
                              sleep(1000);
                          }),
                          shortLimits());
        ASSERT_EQ(read(ends[0], &process, sizeof process), ssize_t{sizeof process});
        EXPECT_TRUE(runs(process));
        close(ends[0]);
        close(ends[1]);
    }
    EXPECT_FALSE(runs(process));
}

// A process that is killed cannot end what it has started.
TEST(Child, DoesNotOutliveItsParent) {
    const TemporaryFolder folder;
    const auto work = doing([&] {
        const Child inner(doing([&] {
                              folder.write("inner", std::to_string(getpid()));
                              folder.write("written", "");
                              sleep(1000);
                          }),
                          shortLimits());
        while (readFile(folder.path("inner")).empty() || folder.fileCount() < 2)
            std::this_thread::sleep_for(1ms);
        std::raise(SIGKILL);
    });
    EXPECT_EQ(ending(work), "is ended by signal 9");
    expectToEnd(std::stoi(readFile(folder.path("inner"))));
}

TEST(Child, EndsWithWhatItHasStarted) {
    const TemporaryFolder folder;
    const auto work = [&](ChildSide&) {
        const pid_t started = fork();
        if (started == 0) sleep(1000);
        return std::to_string(started);
    };
    expectToEnd(std::stoi(run(work).answer));
}

TEST(Child, RunsBesideOthers) {
    std::vector<std::unique_ptr<Child>> children;
    for (int i = 0; i < 5; ++i)
        children.push_back(std::make_unique<Child>(
            [i](ChildSide&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10 * (5 - i)));
                return std::to_string(i);
            },
            shortLimits()));
    for (bool all = false; !all;) {
        std::vector<Child*> running;
        for (const auto& child : children)
            if (!child->advance()) running.push_back(child.get());
        all = running.empty();
        if (!all) Child::wait(running);
    }
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(children[i]->outcome().answer, std::to_string(i));
}

}  // namespace
