#include "tools/support/ReadableFile.h"

#include "tools/support/Error.h"

#include <filesystem>
#include <fstream>

namespace Tolvane::Tools {

void refuseUnreadable(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) throw Error(path + ": there is no such file");
    if (!fs::exists(status)) throw Error(path + ": cannot be read: " + error.message());
    if (fs::is_directory(status)) throw Error(path + ": is a folder, not a file");
    if (!fs::is_regular_file(status)) throw Error(path + ": is not a regular file");
    if (!std::ifstream(path)) throw Error(path + ": cannot be opened for reading");
    if (fs::file_size(path, error) == 0) throw Error(path + ": is empty");
}

}  // namespace Tolvane::Tools
