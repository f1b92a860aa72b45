// What is said of limits that whoever starts the program has set, which are below its own.
#include "tools/process/Child.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

using namespace Tolvane::Tools;

constexpr rlim_t kMiB = rlim_t{1} << 20;

// What `work` returns in a process of its own with that limit.
std::string under(int resource, rlim_t most, const std::function<std::string()>& work) {
    const auto limited = [&](ChildSide&) {
        const rlimit limit{most, most};
        return setrlimit(resource, &limit) == 0 ? work() : "the limit cannot be set";
    };
    Limits wide;
    wide.memory = 0;
    wide.processorTime = 1000;
    wide.written = 1000 * kMiB;
    return runInChild(limited, wide).answer;
}

std::string processorTimeThen() { return std::to_string(withinInherited({}).processorTime); }
std::string sizeThen() { return std::to_string(withinInherited({}).written / kMiB); }

TEST(Limits, AreThoseOfThisProcessWhereTheyAreLower) {
    EXPECT_EQ(under(RLIMIT_CPU, 5, processorTimeThen), "5");
    EXPECT_EQ(under(RLIMIT_FSIZE, 3 * kMiB, sizeThen), "3");
}

TEST(Limits, StayAsTheyAreWhereThoseOfThisProcessAreHigher) {
    EXPECT_EQ(under(RLIMIT_CPU, 500, processorTimeThen), "60");
    EXPECT_EQ(under(RLIMIT_FSIZE, 300 * kMiB, sizeThen), "256");
}

TEST(Limits, HoldWhereNoneWasAskedFor) {
    const auto unlimited = [] {
        Limits limits;
        limits.processorTime = 0;
        return std::to_string(withinInherited(limits).processorTime);
    };
    EXPECT_EQ(under(RLIMIT_CPU, 5, unlimited), "5");
    EXPECT_EQ(unlimited(), "0") << "the tests themselves are limited";
}

// What is left of it, for a child has what its parent has already.
TEST(Limits, OfMemoryAreWhatIsLeftToThisProcess) {
    for (const int resource : {RLIMIT_AS, RLIMIT_DATA}) {
        const MemoryInUse now = memoryNow().value();
        const rlim_t used = resource == RLIMIT_AS ? now.addresses : now.data;
        const auto left = std::stoull(under(resource, used + 100 * kMiB, [] {
            return std::to_string(withinInherited({}).memory);
        }));
        // Some of it may be taken or given back meanwhile.
        EXPECT_LT(left, 120 * kMiB);
        EXPECT_GT(left, 80 * kMiB);
    }
}

// How a child would have ended that got no answer for that reason.
std::string wordsFor(Outcome::End end, const Limits& limits) {
    Outcome outcome = runInChild([](ChildSide&) { return std::string(); }, limits);
    outcome.end = end;
    return inWords(outcome);
}

TEST(Limits, AreSaidAsTheyWere) {
    EXPECT_EQ(under(RLIMIT_CPU, 5, [] { return wordsFor(Outcome::End::OutOfTime, {}); }),
              "takes more than 5 s of processor time");
    EXPECT_EQ(
        under(RLIMIT_FSIZE, 3 * kMiB, [] { return wordsFor(Outcome::End::WrittenTooMuch, {}); }),
        "writes more than 3 MiB");
    Limits limits;
    limits.memory = 0;
    EXPECT_EQ(wordsFor(Outcome::End::OutOfMemory, limits), "takes more memory than there is");
}

}  // namespace
