// Pictures and pages, which are written whole or not at all, never over anything that is read, and
// over nothing but others of them.
//
// A text goes to a temporary file beside its target, which is then renamed. A symbolic link stays
// one: what it leads to is replaced. An existing file passes its permissions on.
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

    // Throws Error if it is one of these, which may have become known since.
    void refuseToReplace(const std::vector<std::string>& filesRead) const;
    bool isSameFileAs(const OutputFile& other) const;
    const std::string& path() const noexcept { return m_path; }

    // On failure, and where it is interrupted, leaves the file as it was, and throws Error or
    // Interrupted. Who may meet a limit on the size of files has to ignore its signal.
    void write(std::string_view text) const;

private:
    std::string m_path;
    // Where links lead to.
    std::string m_target;
};

// All files that one run writes.
class OutputFiles {
public:
    explicit OutputFiles(std::vector<std::string> filesRead) : m_filesRead(std::move(filesRead)) {}

    // Throws Error where OutputFile does, and if the same file was added before.
    void add(const std::string& path);
    void refuseToReplace(const std::vector<std::string>& filesRead) const;
    // `path` was added.
    void write(const std::string& path, std::string_view text) const;

private:
    std::vector<std::string> m_filesRead;
    std::vector<OutputFile> m_files;
};

}  // namespace Tolvane::Tools
