#include "tools/report/Words.h"

#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <ios>
#include <ostream>
#include <sstream>

namespace Tolvane::Tools {

void printFact(std::ostream& out, const std::string& head, const std::string& name, bool whole,
               std::size_t column) {
    const std::string line = oneLine(name);
    out << head << std::string(column - head.size(), ' ')
        << (whole ? wrapped(line, column).substr(column) : shortened(line, kLineColumns - column))
        << "\n";
}

std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, ",");
    }
    return digits;
}

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
    return grouped(count) + " " + (count == 1 ? one : many);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

std::string withDigits(double number, int digits) {
    std::ostringstream text;
    text.precision(digits);
    text << std::fixed << number;
    return text.str();
}

std::string shortText(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

std::string inWords(std::chrono::nanoseconds time) {
    const auto count = static_cast<double>(time.count());
    if (count < 1e3) return std::to_string(time.count()) + " ns";
    if (count < 999'950) return withDigits(count / 1e3, 1) + " µs";
    if (count < 999'950'000) return withDigits(count / 1e6, 1) + " ms";
    return withDigits(count / 1e9, 1) + " s";
}

}  // namespace Tolvane::Tools
