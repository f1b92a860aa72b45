// How much room text takes in a line of a terminal. Texts are UTF-8; a byte that is none counts as
// a character of its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tolvane::Tools {

// A report is made for terminals of this width.
constexpr std::size_t kLineColumns = 80;

struct Character {
    std::size_t bytes;
    // 0 for marks that combine with the character before, 2 for most of East Asia's characters and
    // for pictures, else 1.
    std::size_t columns;
    // Not a control character, and no byte that is no UTF-8.
    bool isPrintable;
};

// `text` is not empty.
Character firstCharacter(std::string_view text);

std::size_t columnsOf(std::string_view text);

// The longest beginning that takes no more than `columns`, in bytes; at least one character, if
// there is one.
std::size_t bytesWithin(std::string_view text, std::size_t columns);

// Text that takes more than `columns`, which are at least 5, loses its middle: "Rigging::...Pins".
std::string shortened(std::string_view text, std::size_t columns);

// Text that takes more loses its beginning: "...legs/walk.bvh". What tells files of one folder
// apart is at their ends.
std::string endOf(std::string_view text, std::size_t columns);

// Breaks text at blanks into lines of at most `columns`, indent included. A word that is longer is
// broken anywhere.
std::string wrapped(std::string_view text, std::size_t indent, std::size_t columns = kLineColumns);

// The same with the lines from the second on indented a little more.
std::string hanging(std::string_view text, std::size_t indent, std::size_t columns = kLineColumns);

}  // namespace Tolvane::Tools
