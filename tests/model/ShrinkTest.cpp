#include "tests/model/Report.h"
#include "tests/model/Shrink.h"

#include <algorithm>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using namespace ModelTests;

std::vector<std::size_t> noParts(const Bytes& choices) { return {0, choices.size()}; }

TEST(Shrink, KeepsWhatTheFailureNeedsAndNothingElse) {
    const auto fails = [](const Bytes& choices) {
        const auto seven = std::find(choices.begin(), choices.end(), 7);
        return std::any_of(seven, choices.end(), [](unsigned choice) { return choice >= 90; });
    };
    const Bytes choices{1, 2, 7, 3, 250, 9, 7, 1, 1, 1, 91, 200, 4};
    EXPECT_EQ(shrink(choices, {fails, noParts}), (Bytes{7, 90}));
}

TEST(Shrink, LeavesOutWholeParts) {
    const auto hasWholeParts = [](const Bytes& choices) {
        return choices.size() % 3 == 0 && std::count(choices.begin(), choices.end(), 5) > 0;
    };
    const auto partsOfThree = [](const Bytes& choices) {
        std::vector<std::size_t> parts;
        for (std::size_t i = 0; i <= choices.size(); i += 3) parts.push_back(i);
        return parts;
    };
    const Bytes choices{1, 1, 1, 2, 5, 2, 3, 3, 3, 4, 4, 4};
    EXPECT_EQ(shrink(choices, {hasWholeParts, partsOfThree}), (Bytes{0, 5, 0}));
}

TEST(Shrink, ChangesNothingWhereNothingFails) {
    const auto never = [](const Bytes&) { return false; };
    EXPECT_EQ(shrink({3, 2, 1}, {never, noParts}), (Bytes{3, 2, 1}));
}

TEST(Choices, AreReadAsTheyAreTold) {
    const Bytes choices{0x00, 0x9f, 0xff};
    EXPECT_EQ(hexOf(choices), "009fff");
    EXPECT_EQ(bytesOf("009fff"), choices);
    EXPECT_EQ(bytesOf(""), Bytes());
    EXPECT_THROW(bytesOf("009"), std::invalid_argument);
    EXPECT_THROW(bytesOf("0x"), std::invalid_argument);
}

}  // namespace
