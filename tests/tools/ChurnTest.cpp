#include "tools/node/Churn.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

std::vector<std::size_t> countsOf(std::size_t total) {
    std::vector<std::size_t> counts;
    for (std::size_t evaluation = 0; evaluation < 5; ++evaluation)
        counts.push_back(countOf(churnShare(evaluation), total));
    return counts;
}

TEST(Churn, GoesThroughAllNoneHalfAndOneMoreAndBeginsAgain) {
    EXPECT_EQ(countsOf(31), (std::vector<std::size_t>{31, 0, 15, 16, 31}));
    EXPECT_EQ(countsOf(2), (std::vector<std::size_t>{2, 0, 1, 2, 2}));
    EXPECT_EQ(countsOf(1), (std::vector<std::size_t>{1, 0, 0, 1, 1}));
}

}  // namespace
