#include "tests/tools/RigFormats.h"

#include <filesystem>
#include <stdexcept>

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/scene.h>

namespace {

namespace fs = std::filesystem;

void exportExample(const RigFormat& format, const std::string& path) {
    Assimp::Importer importer;
    importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
    importer.ReadFile(WALK, 0);
    if (!importer.GetScene()) throw std::runtime_error(importer.GetErrorString());

    const aiScene& scene = *importer.GetScene();
    aiScene still;
    still.mRootNode = scene.mRootNode;  // Borrowed: taken back before `still` deletes it.
    const bool moves = format.written == RigFormat::Readable::Motion;
    Assimp::Exporter exporter;
    const aiReturn result = exporter.Export(moves ? &scene : &still, format.name, path);
    still.mRootNode = nullptr;
    if (result != aiReturn_SUCCESS) throw std::runtime_error(exporter.GetErrorString());
}

}  // namespace

const std::vector<RigFormat>& rigFormats() {
    using Readable = RigFormat::Readable;
    static const std::vector<RigFormat> s_formats{
        {"bvh", "bvh", Readable::Motion, Readable::Motion},
        {"gltf2", "gltf", Readable::Motion, Readable::Motion},
        {"glb2", "glb", Readable::Motion, Readable::Motion},
        {"assbin", "assbin", Readable::Motion, Readable::Motion},
        {"fbxa", "fbx", Readable::Motion, Readable::Motion},
        {"gltf", "gltf", Readable::Motion, Readable::Pose},
        {"glb", "glb", Readable::Motion, Readable::Pose},
        {"x", "x", Readable::Motion, Readable::Pose},
        {"x3d", "x3d", Readable::Motion, Readable::Pose},
        {"3mf", "3mf", Readable::Motion, Readable::Pose},
        {"collada", "dae", Readable::Pose, Readable::Pose},
        {"fbxb", "fbx", Readable::Motion, Readable::Motion, "in_binary"},
        {"b3d", "b3d", Readable::Motion, Readable::Motion, "unstated_frames"},
        {"md5mesh", "md5mesh", Readable::Motion, Readable::Motion, "two_files"},
        {"md5anim", "md5anim", Readable::Motion, Readable::Motion, "two_files"},
        {"smd", "smd", Readable::Motion, Readable::Motion, "unstated_rate"},
        {"obj", "obj", Readable::Pose, Readable::Pose, "no_skeleton"},
        {"skinnedX", "x", Readable::Motion, Readable::Motion, "unstated_ticks"},
        {"skinnedCollada", "dae", Readable::Motion, Readable::Motion, "centimetres"},
        {"skinnedGltf", "gltf", Readable::Motion, Readable::Motion, "objects_among_bones"},
    };
    return s_formats;
}

std::string writeExample(const RigFormat& format, const std::string& folder) {
    const std::string path = (fs::path(folder) / "walk.").string() + format.extension;
    if (format.known) {
        for (const auto& entry : fs::directory_iterator(KNOWN_RIGS))
            if (entry.path().stem() == format.known)
                fs::copy_file(entry.path(),
                              fs::path(path).replace_extension(entry.path().extension()));
    } else if (fs::path(WALK).extension().string() == std::string(".") + format.extension) {
        fs::copy_file(WALK, path);
    } else {
        exportExample(format, path);
    }
    return path;
}
