// A length that is good to read distances off: 1, 2 or 5 times a power of ten.
#pragma once

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct ScaleBar {
    // In the units of the world.
    double length;
    // Such as "50 cm"; "20 units" where the metres are not known.
    std::string label;
};

// The longest one of at most `mostUnits`. Nothing if that is no length that could be shown.
std::optional<ScaleBar> scaleBar(double mostUnits, std::optional<double> metresPerUnit);

}  // namespace Tolvane::Tools
