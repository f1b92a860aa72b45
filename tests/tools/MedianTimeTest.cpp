#include "tools/node/MedianTime.h"
#include "tools/node/TimedTranslation.h"

#include <thread>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using std::chrono::nanoseconds;
using namespace std::chrono_literals;

nanoseconds medianOf(const std::vector<int>& times) {
    MedianTime median;
    for (const int time : times) median.add(nanoseconds(time));
    return median.median();
}

TEST(MedianTime, IsTheOneInTheMiddleOrTheMeanOfTwo) {
    EXPECT_EQ(medianOf({}), nanoseconds(0));
    EXPECT_EQ(medianOf({7}), nanoseconds(7));
    EXPECT_EQ(medianOf({9'000'000, 1, 3}), nanoseconds(3));
    EXPECT_EQ(medianOf({8, 2, 100, 4}), nanoseconds(6));
}

TEST(MedianTime, StaysCloseWhateverTheNumberOfTimes) {
    for (const int count : {512, 513, 10'000, 100'000, 1'000'000}) {
        std::vector<int> times(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < times.size(); ++i) times[i] = static_cast<int>(i);
        EXPECT_NEAR(static_cast<double>(medianOf(times).count()), count / 2.0, count / 200.0);
    }
}

// One in four is long, as under churn, where one in four has all joints.
TEST(MedianTime, KeepsTimesOfAllKindsThatComeInTurn) {
    std::vector<int> times;
    for (int i = 0; i < 100'000; ++i) times.push_back(i % 4 == 0 ? 1000 : i % 4);
    EXPECT_LE(medianOf(times), nanoseconds(3));
    EXPECT_GE(medianOf(times), nanoseconds(2));
}

TEST(ProcessorTime, GoesOnWhileTheThreadWorksAndNoOther) {
    auto before = processorTime();
    while (processorTime() <= before) continue;

    before = processorTime();
    std::thread([] {
        const auto start = processorTime();
        while (processorTime() < start + 50ms) continue;
    }).join();
    EXPECT_LT(processorTime() - before, 10ms);
}

}  // namespace
