#include "tools/report/StandardOutput.h"

#include "tools/support/Error.h"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace Tolvane::Tools {

void print(std::string_view text) {
    errno = 0;
    if (!(std::cout << text).flush()) failToWrite("standard output", errno);
}

void failToWrite(const std::string& path, int error) {
    const std::string cause = error == ENOSPC ? "no space left on device" : std::strerror(error);
    throw Error(Stage::Writing, path,
                path + ": cannot be written" + (error == 0 ? "" : ": " + cause));
}

}  // namespace Tolvane::Tools
