// Which mistake of a library each case of `tolvane check` finds.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct FaultyLibrary {
    // The case that is to find the mistake.
    std::string tried;
    // Of those that are built for these tests, or empty if it cannot be built here; and the fault
    // that it is asked to have, which mostly has the name of the case.
    std::string library;
    std::string fault;
    std::string verdict = "failed";
    // A regular expression: which other cases may find it as well, because what it breaks is a
    // condition of theirs. This one is of none.
    std::string also = "^$";
    // What the case says of what it found, in part.
    std::string says = "";
    // A regular expression: which other cases cannot be tried on it, as the one that is for
    // libraries built with the sanitizer.
    std::string untried = "^threads/sanitizer$";
    // What the program needs in its environment to load the library, as NAME=VALUE.
    std::string environment = "";
};

inline std::ostream& operator<<(std::ostream& out, const FaultyLibrary& row) {
    return out << row.tried;
}

const std::vector<FaultyLibrary>& faultyLibraries();
