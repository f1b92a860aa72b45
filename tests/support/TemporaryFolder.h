// A folder of a test's own. The destructor removes it with everything in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <stdlib.h>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tolvane.XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        m_path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string path(const std::string& name) const { return (m_path / name).string(); }

    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }

    std::size_t fileCount() const {
        const std::filesystem::directory_iterator files(m_path);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    std::filesystem::path m_path;
};

// Nothing if it cannot be read: the files of a process end with it, even where they are open
// already.
inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    try {
        return {std::istreambuf_iterator<char>(file), {}};
    } catch (const std::ios_base::failure&) {
        return "";
    }
}
