#include "tools/check/Fault.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

std::vector<std::size_t> firstCalls(const std::vector<Fault>& faults) {
    std::vector<std::size_t> calls;
    for (const Fault& fault : faults) calls.push_back(fault.first);
    return calls;
}

TEST(Faults, AreSpreadEvenlyWhereThereAreTooMany) {
    EXPECT_THAT(firstCalls(spread(singleFaults(10), 4)), testing::ElementsAre(0, 2, 5, 7));
    EXPECT_THAT(firstCalls(spread(singleFaults(100'000), 2)), testing::ElementsAre(0, 50'000));
    EXPECT_THAT(firstCalls(spread(singleFaults(3), 3)), testing::ElementsAre(0, 1, 2));
    EXPECT_THAT(firstCalls(spread(singleFaults(2), 9)), testing::ElementsAre(0, 1));
    EXPECT_TRUE(spread({}, 5).empty());
}

}  // namespace
