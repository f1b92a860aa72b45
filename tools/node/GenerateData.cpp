#include "tools/node/GenerateData.h"

#include "tools/node/LeafAccess.h"

#include <string>

namespace Tolvane::Tools {
namespace {

// Whole numbers and fractions of either sign, of some ten digits.
double numberOf(std::uint64_t seed) {
    return static_cast<double>(static_cast<std::int64_t>(seed) >> 24) / 1024;
}

// Hexadecimal digits; sixteen of them, or more than strings keep in place.
std::string generatedText(std::uint64_t seed) {
    std::string digits;
    for (unsigned shift = 0; shift < 64; shift += 4)
        digits += "0123456789abcdef"[(seed >> shift) & 15];
    return seed % 2 == 0 ? digits : digits + "-" + digits;
}

VMatrix matrixOf(std::uint64_t seed) {
    VMatrix matrix;
    for (unsigned i = 0; i < 16; ++i) matrix[i / 4][i % 4] = numberOf(seedOf(seed, i));
    return matrix;
}

}  // namespace

// Neighbouring seeds and parts give seeds that have nothing in common.
std::uint64_t seedOf(std::uint64_t seed, std::uint64_t part) {
    std::uint64_t bits = seed * 0x9e3779b97f4a7c15 + part + 1;
    bits = (bits ^ (bits >> 32)) * 0xd6e8feb86659fd93;
    bits = (bits ^ (bits >> 32)) * 0xd6e8feb86659fd93;
    return bits ^ (bits >> 32);
}

std::optional<GeneratedValue> generatedValue(const DataShape& leaf, std::uint64_t seed) {
    switch (leaf.kind) {
        case DataShape::Kind::Matrix:
            return matrixOf(seed);
        case DataShape::Kind::String:
            return VString(generatedText(seed).c_str());
        case DataShape::Kind::Double:
            return numberOf(seed);
        case DataShape::Kind::Bool:
            return seed % 2 == 1;
        case DataShape::Kind::Int:
            return static_cast<int>(static_cast<std::uint32_t>(seed));
        case DataShape::Kind::Enum:
            return leaf.choices.empty() ? short{0} : leaf.choices[seed % leaf.choices.size()];
        case DataShape::Kind::Compound:
        case DataShape::Kind::Empty:
        case DataShape::Kind::Unknown:
            break;
    }
    return std::nullopt;
}

void generateData(const DataPlace& place, std::uint64_t seed) {
    if (const auto generated = generatedValue(place.shape, seed))
        std::visit([&](const auto& value) { put(place.handle, value); }, *generated);
}

}  // namespace Tolvane::Tools
