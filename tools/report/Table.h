// Tables and numbers for a terminal.
#pragma once

#include "tools/report/Colours.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// A table whose first column is aligned to the left and whose others, which are numbers, to the
// right. In lines of `kLineColumns`: the first column gets what the others leave, and is shortened
// where that is too little.
class Table {
public:
    using Row = std::vector<std::string>;

    explicit Table(Row head) : m_rows{std::move(head)} {}

    // `row` has as many cells as the head. The colour is that of its last cell.
    void addRow(Row row, Colour colour = Colour::None);
    void print(std::ostream& out, bool inColour = false) const;

private:
    std::vector<std::size_t> columnWidths() const;

    std::vector<Row> m_rows;
    std::vector<Colour> m_colours{Colour::None};
};

}  // namespace Tolvane::Tools
