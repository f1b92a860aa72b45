// A file that is written whole or not at all: the text goes to a temporary file beside it, which is
// then renamed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {

class OutputFile {
public:
    // Throws Error if the file could not be written, or if it is one of `filesRead`, even by
    // another path or through a link. Writes nothing yet.
    explicit OutputFile(const std::string& path, const std::vector<std::string>& filesRead = {});

    // On failure throws Error and leaves the file as it was.
    void write(std::string_view text) const;

private:
    std::string m_path;
};

}  // namespace Tolvane::Tools
