#include "tools/view/ScaleBar.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(ScaleBar, IsTheLongestRoundLengthThatFits) {
    struct Case {
        double mostUnits;
        std::optional<double> metresPerUnit;
        double length;
        const char* label;
    };
    for (const Case& test : {Case{130, std::nullopt, 100, "100 units"},
                             {1, std::nullopt, 1, "1 unit"},
                             {0.06, std::nullopt, 0.05, "0.05 units"},
                             {99, 0.01, 50, "50 cm"},
                             {100, 0.01, 100, "1 m"},
                             {130, 0.01, 100, "1 m"},
                             {3, 1.0, 2, "2 m"},
                             {0.03, 1.0, 0.02, "2 cm"},
                             {0.009, 1.0, 0.005, "5 mm"},
                             {2e-5, 1.0, 2e-5, "20 µm"},
                             {7e-9, 1.0, 5e-9, "5e-09 m"},
                             {4500, 1.0, 2000, "2 km"},
                             {10, 0.0254, 5 / 0.0254 / 25, "20 cm"},
                             {6, -1.0, 5, "5 units"},
                             {6, std::numeric_limits<double>::infinity(), 5, "5 units"}}) {
        const auto bar = scaleBar(test.mostUnits, test.metresPerUnit);
        ASSERT_TRUE(bar) << test.label;
        EXPECT_EQ(bar->label, test.label);
        EXPECT_NEAR(bar->length, test.length, 1e-9 * test.length);
    }
}

TEST(ScaleBar, IsNoneWithoutALength) {
    for (const double most : {0.0, -1.0, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(), 5e-324}) {
        EXPECT_FALSE(scaleBar(most, 1e-9)) << most;
    }
}

}  // namespace
