#include "tools/view/ScaleBar.h"

#include <array>
#include <cmath>
#include <sstream>

namespace Tolvane::Tools {
namespace {

// The greatest of 1, 2 or 5 times a power of ten that is at most `most`.
double roundLength(double most) {
    const double power = std::pow(10, std::floor(std::log10(most)));
    // What has to be equal may differ in the last bit.
    const double digit = most / power * (1 + 1e-12);
    return power * (digit >= 5 ? 5 : digit >= 2 ? 2 : 1);
}

std::string text(double number, const std::string& unit) {
    std::ostringstream out;
    out << number << ' ' << unit;
    return out.str();
}

std::string metres(double length) {
    struct Unit {
        double metres;
        const char* name;
    };
    constexpr std::array<Unit, 5> kUnits{
        {{1000, "km"}, {1, "m"}, {0.01, "cm"}, {0.001, "mm"}, {1e-6, "µm"}}};
    for (const Unit& unit : kUnits)
        if (length >= unit.metres * (1 - 1e-12)) return text(length / unit.metres, unit.name);
    return text(length, "m");
}

bool isLength(double value) { return std::isfinite(value) && value > 0; }

}  // namespace

std::optional<ScaleBar> scaleBar(double mostUnits, std::optional<double> metresPerUnit) {
    if (metresPerUnit && !isLength(*metresPerUnit)) metresPerUnit.reset();
    const double factor = metresPerUnit.value_or(1);
    if (!isLength(mostUnits) || !isLength(mostUnits * factor)) return std::nullopt;
    const double length = roundLength(mostUnits * factor);
    if (!isLength(length)) return std::nullopt;
    if (metresPerUnit) return ScaleBar{length / factor, metres(length)};
    return ScaleBar{length, text(length, length == 1 ? "unit" : "units")};
}

}  // namespace Tolvane::Tools
