#include "tools/rig/RigFiles.h"

#include <algorithm>
#include <filesystem>

#include <assimp/Importer.hpp>

namespace Tolvane::Tools {
namespace {

namespace fs = std::filesystem;

// The others are gone through where one cannot be read.
void addRigs(std::vector<FoundRig>& rigs, const std::string& folder,
             const Assimp::Importer& importer) {
    std::error_code failure, ignored;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string path = entry->path().string();
        const std::string extension = entry->path().extension().string();
        if (fs::is_directory(entry->symlink_status(ignored)))
            addRigs(rigs, path, importer);
        else if (extension.size() > 1 && entry->is_regular_file(ignored) &&
                 importer.IsExtensionSupported(extension.c_str()))
            rigs.push_back({path});
    }
    if (failure)
        rigs.push_back({folder, Error(Stage::Reading, folder,
                                      folder + ": cannot be read: " + failure.message())});
}

}  // namespace

std::vector<FoundRig> rigsIn(const std::string& folder) {
    std::vector<FoundRig> rigs;
    addRigs(rigs, folder, Assimp::Importer());
    if (rigs.empty())
        rigs.push_back({folder, Error(Stage::Reading, folder,
                                      folder + ": holds no file with the name of a rig")});
    std::sort(rigs.begin(), rigs.end(),
              [](const FoundRig& a, const FoundRig& b) { return a.path < b.path; });
    return rigs;
}

}  // namespace Tolvane::Tools
