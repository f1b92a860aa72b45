// Why `tolvane` cannot do what it was asked for: bad usage, or a file that cannot be read or
// written. One line for the user; the program ends with status 2.
#pragma once

#include <stdexcept>

namespace Tolvane::Tools {

class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace Tolvane::Tools
