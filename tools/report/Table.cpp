#include "tools/report/Table.h"

#include <algorithm>
#include <ostream>

namespace Tolvane::Tools {
namespace {

constexpr const char* kGap = "   ";

// Characters, not bytes: in UTF-8 every byte but the first of a character begins with the bits 10.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
    }));
}

}  // namespace

void Table::print(std::ostream& out) const {
    const std::vector<std::size_t> widths = columnWidths();
    printRow(out, m_rows.front(), widths);
    Row rule;
    for (const std::size_t columnWidth : widths) rule.emplace_back(columnWidth, '-');
    printRow(out, rule, widths);
    for (std::size_t i = 1; i < m_rows.size(); ++i) printRow(out, m_rows[i], widths);
}

std::vector<std::size_t> Table::columnWidths() const {
    std::vector<std::size_t> widths(m_rows.front().size());
    for (const Row& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    return widths;
}

void Table::printRow(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string padding(widths[i] - width(row[i]), ' ');
        out << (i == 0 ? row[i] + padding : kGap + padding + row[i]);
    }
    out << "\n";
}

std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, ",");
    }
    return digits;
}

}  // namespace Tolvane::Tools
