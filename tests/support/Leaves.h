// What a record or the host's data holds, leaf by leaf, as text that is equal only where the values
// are equal to the bit.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace TestSupport {

class Leaves {
public:
    void addNumber(double value);
    void addText(const char* text);
    void addMatrix(const double (&rows)[4][4]);
    // Precedes the elements of an array.
    void addLength(std::uint64_t length);

    const std::vector<std::string>& lines() const noexcept { return m_lines; }

    friend bool operator==(const Leaves& a, const Leaves& b) { return a.m_lines == b.m_lines; }
    friend bool operator!=(const Leaves& a, const Leaves& b) { return !(a == b); }
    friend std::ostream& operator<<(std::ostream& out, const Leaves& leaves);

private:
    std::vector<std::string> m_lines;
};

}  // namespace TestSupport
