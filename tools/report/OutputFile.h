// A file that is written whole or not at all: the text goes to a file beside it, which then takes
// its name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {

class OutputFile {
public:
    // Throws Error where the file could not be written as things stand, or is one of `filesRead`,
    // by whatever path or link.
    explicit OutputFile(const std::string& path, const std::vector<std::string>& filesRead = {});

    // Throws Error, and leaves the file as it was.
    void write(std::string_view text) const;

private:
    std::string m_path;
};

}  // namespace Tolvane::Tools
