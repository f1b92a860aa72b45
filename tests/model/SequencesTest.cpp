// Product and model agree, step by step, on ten thousand sequences of reads and writes.
#include "tests/model/CrashNote.h"
#include "tests/model/Generator.h"
#include "tests/model/Report.h"
#include "tests/model/Trial.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace ModelTests;

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
