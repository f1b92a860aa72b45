// Text laid out for a terminal: tables, numbers and paragraphs.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// A table whose first column is aligned to the left and whose others, which are numbers, to the
// right.
class Table {
public:
    using Row = std::vector<std::string>;

    explicit Table(Row head) : m_rows{std::move(head)} {}

    // `row` has as many cells as the head.
    void addRow(Row row) { m_rows.push_back(std::move(row)); }
    void print(std::ostream& out) const;

private:
    std::vector<std::size_t> columnWidths() const;
    static void printRow(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths);

    std::vector<Row> m_rows;
};

// 1234567 as "1,234,567".
std::string grouped(std::size_t number);

}  // namespace Tolvane::Tools
