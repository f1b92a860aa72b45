// The reason why `tolvane` cannot do what it was asked to: bad usage, or a file that cannot be read
// or written. It is one line for the user, and the program ends with status 2.
#pragma once

#include <stdexcept>

namespace Tolvane::Tools {

class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace Tolvane::Tools
