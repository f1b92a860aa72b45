#include "tools/rig/ImportScene.h"

#include "tools/rig/MendScene.h"
#include "tools/support/Error.h"
#include "tools/support/ReadableFile.h"

#include <new>
#include <string_view>

#include <assimp/DefaultIOSystem.h>
#include <assimp/config.h>

namespace Tolvane::Tools {
namespace {

// Opens files and notes their names, for a rig may refer to other files.
class NotedFiles : public Assimp::DefaultIOSystem {
public:
    explicit NotedFiles(std::vector<std::string>& files) : m_files(files) {}

    Assimp::IOStream* Open(const char* file, const char* mode) override {
        Assimp::IOStream* stream = DefaultIOSystem::Open(file, mode);
        if (stream) m_files.emplace_back(file);
        return stream;
    }

private:
    std::vector<std::string>& m_files;
};

// Assimp's message, without the path that it may begin with.
std::string causeOf(std::string_view message, std::string_view path) {
    if (message.substr(0, 18) == "No suitable reader")
        return "is not a rig file, or too damaged to recognise its format";
    if (message.substr(0, path.size()) == path && message.size() > path.size() + 1) {
        message.remove_prefix(path.size() + 1);
        return "cannot be read: line " + std::string(message);
    }
    return "cannot be read: " +
           std::string(message.empty() ? "the reader gives no cause" : message);
}

}  // namespace

const aiScene& importScene(Assimp::Importer& importer, const std::string& path,
                           std::vector<std::string>& filesRead) {
    refuseUnreadable(path);
    importer.SetIOHandler(new NotedFiles(filesRead));  // The importer owns it.
    // By default the importer makes up a mesh for a file that has joints only.
    importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
    // A node of an FBX file that turns about a pivot is split into several nodes, which SceneTree
    // puts together again. Left whole it would lose its channels.
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, true);

    try {
        const aiScene* scene = importer.ReadFile(path, 0);
        if (scene && scene->mRootNode) {
            // It is the importer's own, which no one else has seen yet.
            auto& own = const_cast<aiScene&>(*scene);
            separateSharedBones(own);
            turnTimeForward(own);
            takeStatedRate(own, filesRead);
            return own;
        }
    } catch (const std::exception& exception) {
        throw Error(path + ": cannot be read: " + exception.what());
    }
    throw Error(path + ": " + causeOf(importer.GetErrorString(), path));
}

}  // namespace Tolvane::Tools
