// Generated data for host attributes, of a kind and size that a case asks for. The same content
// always gives the same data.
#pragma once

#include "tools/node/DataShape.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace Tolvane::Tools {

struct Content {
    enum class Numbers {
        Plain,
        NotNumbers,  // NaNs of either sign, quiet and signalling, with a payload each
        Extreme      // infinities, negative zero, denormals, the largest
    };
    enum class Texts {
        Plain,
        Empty,
        Long,        // 300 characters, and now and then 70,000
        BlankEdged,  // with blanks, tabs and line ends at both ends
        AnyByte      // every byte but the zero, in some order; seldom UTF-8
    };

    std::uint64_t seed = 1;
    // How many elements each array has; of arrays within an array of more than 100, only the first
    // three and the last elements have any, and those have two.
    std::size_t elements = 3;
    // Whether arrays have up to a dozen elements more than that: other numbers for another seed,
    // none twice among the members of one record, and none that is also the number of the records.
    bool isVaried = false;
    // If set, the one array that has so many elements, while the others have three. Counted from 0
    // are, in their order, the arrays that are in no other array.
    std::optional<std::size_t> onlyArray = {};
    // Whether the logical indices of elements have gaps and begin above 0.
    bool sparse = false;
    Numbers numbers = Numbers::Plain;
    Texts texts = Texts::Plain;
};

// "3 elements in each array, with gaps in their indices, texts with blanks at both ends"
std::string inWords(const Content& content);

// How many arrays there are that are in no other array.
std::size_t arraysOf(const DataShape& shape);

// Gives the attribute this content, and arrays in it just these elements.
void fill(const DataPlace& place, const Content& content);

}  // namespace Tolvane::Tools
