// Product and model agree, step by step, on ten thousand sequences of reads and writes.
#include "tests/model/Generator.h"
#include "tests/model/Report.h"
#include "tests/model/Trial.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace ModelTests;

constexpr std::array kSignals{SIGABRT, SIGSEGV, SIGBUS};

std::string s_line;
std::array<struct sigaction, kSignals.size()> s_before;

void restore() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &s_before[i], nullptr);
}

// Returning lets what raised the signal raise it again, for whoever handled it before.
void tell(int) {
    [[maybe_unused]] const ssize_t size = write(STDERR_FILENO, s_line.data(), s_line.size());
    restore();
}

// Says on standard error what was under way when the process crashes. One at a time.
class CrashNote {
public:
    explicit CrashNote(const std::string& line) {
        s_line = line;
        struct sigaction action = {};
        action.sa_handler = tell;
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &action, &s_before[i]);
    }
    CrashNote(const CrashNote&) = delete;
    CrashNote& operator=(const CrashNote&) = delete;
    ~CrashNote() { restore(); }
};

constexpr std::uint64_t kShards = 10;

// The environment may ask for fewer where each takes longer, as under a sanitizer.
std::uint64_t sequencesPerShard() {
    const char* wanted = std::getenv("TOLVANE_MODEL_SEQUENCES");
    return (wanted ? std::stoul(wanted) : 10000) / kShards;
}

class ProductAndModel : public testing::TestWithParam<std::uint64_t> {};

INSTANTIATE_TEST_SUITE_P(Shard, ProductAndModel, testing::Range<std::uint64_t>(0, kShards));

TEST_P(ProductAndModel, AgreeAfterEveryStep) {
    const std::uint64_t count = sequencesPerShard();
    ASSERT_GT(count, 0u);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t seed = 1 + GetParam() * count + i;
        const CrashNote note("It happened in: " + commandFor(seed) + '\n');
        Choices choices(seed);
        if (disagreement(makeSequence(choices)))
            FAIL() << "Seed " << seed << ": " << report(choices.taken());
    }
}

}  // namespace
