#include "tests/support/Leaves.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

namespace TestSupport {
namespace {

// The shortest text that gives the same number again; numbers without one are told by their bits.
std::string textOf(double value) {
    std::array<char, 40> text{};
    char* const end = text.data() + text.size() - 1;
    if (std::isnan(value)) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        std::to_chars(text.data(), end, bits, 16);
        return std::string("nan ") + text.data();
    }
    std::to_chars(text.data(), end, value);
    return text.data();
}

}  // namespace

void Leaves::addNumber(double value) { m_lines.push_back(textOf(value)); }

void Leaves::addText(const char* text) { m_lines.push_back('"' + std::string(text) + '"'); }

void Leaves::addMatrix(const double (&rows)[4][4]) {
    std::string line = "matrix";
    for (const auto& row : rows)
        for (const double element : row) line += ' ' + textOf(element);
    m_lines.push_back(line);
}

void Leaves::addLength(std::uint64_t length) {
    m_lines.push_back(std::to_string(length) + " elements");
}

std::ostream& operator<<(std::ostream& out, const Leaves& leaves) {
    for (const std::string& line : leaves.m_lines) out << "\n  " << line;
    return out;
}

}  // namespace TestSupport
