#include "tools/report/Table.h"

#include "tools/support/Columns.h"

#include <algorithm>
#include <ostream>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kLeastFirstColumn = 12;

void printRow(std::ostream& out, const Table::Row& row, const std::vector<std::size_t>& widths,
              Colour colour, bool inColour) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string cell = i == 0 ? shortened(row[i], widths[i]) : row[i];
        const std::string padding(widths[i] - columnsOf(cell), ' ');
        if (i == 0)
            out << cell << padding;
        else
            out << std::string(kGap, ' ') << padding
                << coloured(i + 1 == row.size() ? colour : Colour::None, cell, inColour);
    }
    out << "\n";
}

}  // namespace

void Table::addRow(Row row, Colour colour) {
    m_rows.push_back(std::move(row));
    m_colours.push_back(colour);
}

void Table::print(std::ostream& out, bool inColour) const {
    const std::vector<std::size_t> widths = columnWidths();
    Row rule;
    for (const std::size_t columnWidth : widths) rule.emplace_back(columnWidth, '-');
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        printRow(out, m_rows[i], widths, m_colours[i], inColour);
        if (i == 0) printRow(out, rule, widths, Colour::None, inColour);
    }
}

std::vector<std::size_t> Table::columnWidths() const {
    std::vector<std::size_t> widths(m_rows.front().size());
    for (const Row& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], columnsOf(row[i]));
    std::size_t others = 0;
    for (std::size_t i = 1; i < widths.size(); ++i) others += kGap + widths[i];
    const std::size_t left = kLineColumns - std::min(others, kLineColumns - kLeastFirstColumn);
    widths[0] = std::min(widths[0], left);
    return widths;
}

}  // namespace Tolvane::Tools
