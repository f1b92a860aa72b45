// Holders and records that share arrays, copied and destroyed on many threads at once.
#include "tests/types/SharedValues.h"

#include <Pelmor/AnyValue.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TypesTests;
using Pelmor::AnyValue;

constexpr int kThreads = 4;
constexpr int kRounds = 300;

// Runs `work` on several threads, none of which begins before all are there.
template <typename Work>
void runTogether(const Work& work) {
    std::atomic<int> waiting{kThreads};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) std::this_thread::yield();
            work(i);
        });
    for (std::thread& thread : threads) thread.join();
}

template <typename Held>
class HolderThreads : public testing::Test {
protected:
    SharedValue<Held> shared;
};
TYPED_TEST_SUITE(HolderThreads, HeldTypes, );

TYPED_TEST(HolderThreads, LeaveTheCountsAsTheyWere) {
    const AnyValue holder = AnyValue::holding(this->shared.value);
    runTogether([&](int) {
        for (int round = 0; round < kRounds; ++round) {
            AnyValue copy(holder);
            const AnyValue moved(std::move(copy));
            AnyValue assigned;
            assigned = moved;
            const TypeParam value = *assigned.template getIf<TypeParam>();
            const AnyValue again = AnyValue::holding(value);
        }
    });
    EXPECT_EQ(this->shared.counts(), this->shared.countsOf(2));
    EXPECT_EQ(this->shared.releases(), 0u);
}

// The threads race for the last use of each pointee.
TYPED_TEST(HolderThreads, ReleaseEachPointeeOnce) {
    for (int round = 0; round < 20; ++round) {
        SharedValue<TypeParam> value;
        std::vector<AnyValue> holders;
        for (int i = 0; i < kThreads; ++i) holders.push_back(AnyValue::holding(value.value));
        value.drop();
        std::atomic<std::size_t> releases{0};
        value.onRelease([&] { ++releases; });
        runTogether([&](int i) { holders[static_cast<std::size_t>(i)].reset(); });
        EXPECT_EQ(releases, value.pointees);
        EXPECT_EQ(value.countsOfPointees(), UseCounts(value.pointees, 0));
    }
}

// Nothing but counting, so that a count that is lost anywhere shows.
TEST(SharedArrayThreads, CountEveryCopy) {
    const auto array = Pelmor::makePtr<Pelmor::Array<double>>(1u);
    runTogether([&](int) {
        for (int round = 0; round < 200 * kRounds; ++round) const auto copy = array;
    });
    EXPECT_EQ(array.useCount(), 1u);
}

// Text that is too long to be kept in place is shared as well.
TEST(OutputsThreads, ShareTheName) {
    Rigging::Module::Outputs record;
    record.name = "a name that is too long to be kept in place";
    const AnyValue holder = AnyValue::holding(record);
    record.name = "";
    std::atomic<int> wrong{0};
    runTogether([&](int) {
        for (int round = 0; round < kRounds; ++round) {
            AnyValue copy(holder);
            auto& own = *copy.getIf<Rigging::Module::Outputs>();
            if (own.name != "a name that is too long to be kept in place") ++wrong;
            own.name = "changed";
        }
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(holder.getIf<Rigging::Module::Outputs>()->name,
              "a name that is too long to be kept in place");
}

}  // namespace
