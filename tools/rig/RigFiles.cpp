#include "tools/rig/RigFiles.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <filesystem>

#include <assimp/Importer.hpp>

namespace Tolvane::Tools {

std::vector<std::string> rigFilesIn(const std::string& folder) {
    namespace fs = std::filesystem;
    const Assimp::Importer importer;
    std::vector<std::string> files;
    std::error_code failure;
    for (fs::recursive_directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string extension = entry->path().extension().string();
        std::error_code ignored;
        if (extension.size() > 1 && entry->is_regular_file(ignored) &&
            importer.IsExtensionSupported(extension.c_str()))
            files.push_back(entry->path().string());
    }
    if (failure)
        throw Error(Stage::Reading, folder, folder + ": cannot be read: " + failure.message());
    if (files.empty())
        throw Error(Stage::Reading, folder, folder + ": holds no file with the name of a rig");
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace Tolvane::Tools
