#include "tools/report/OutputFile.h"

#include "tools/support/Error.h"

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace Tolvane::Tools {
namespace {

namespace fs = std::filesystem;

std::string temporaryPath(const std::string& path) {
    return path + "." + std::to_string(getpid()) + ".part";
}

}  // namespace

OutputFile::OutputFile(const std::string& path, const std::vector<std::string>& filesRead)
    : m_path(path) {
    std::error_code ignored;
    for (const std::string& read : filesRead)
        if (fs::equivalent(path, read, ignored))
            throw Error(path + ": is read, and will not be written over");
    const fs::file_status status = fs::status(path, ignored);
    if (fs::is_directory(status)) throw Error(path + ": is a folder, not a file to write to");
    // Renaming would replace a device or a pipe by a file.
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw Error(path + ": is not a regular file, and will not be replaced");
    const fs::path folder = fs::path(path).parent_path();
    if (!folder.empty() && !fs::is_directory(folder, ignored))
        throw Error(path + ": cannot be written: there is no such folder");
    if (access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0)
        throw Error(path + ": cannot be written: its folder is not writable");
}

void OutputFile::write(std::string_view text) const {
    const std::string temporary = temporaryPath(m_path);
    std::ofstream file(temporary, std::ios::binary);
    file << text;
    file.close();
    std::error_code failure;
    if (file) fs::rename(temporary, m_path, failure);
    if (file && !failure) return;
    std::error_code ignored;
    fs::remove(temporary, ignored);
    throw Error(m_path + ": cannot be written" + (failure ? ": " + failure.message() : ""));
}

}  // namespace Tolvane::Tools
