#include "tools/rig/World.h"

#include "tools/rig/SceneTree.h"

#include <cmath>

namespace Tolvane::Tools {
namespace {

constexpr double kMetresPerCentimetre = 0.01;

// The reader of FBX files hands on what they say and turns nothing.
World worldOfFbx(const aiMetadata& properties) {
    World world;
    int upAxis = 1;
    if (properties.Get("UpAxis", upAxis) && upAxis >= 0 && upAxis <= 2)
        world.upAxis = static_cast<unsigned>(upAxis);
    double centimetres = 1;
    float single = 1;
    if (!properties.Get("UnitScaleFactor", centimetres) &&
        properties.Get("UnitScaleFactor", single))
        centimetres = static_cast<double>(single);
    if (std::isfinite(centimetres) && centimetres > 0)
        world.metresPerUnit = centimetres * kMetresPerCentimetre;
    return world;
}

}  // namespace

World worldOf(const aiScene& scene) {
    switch (kindOf(scene)) {
        case FileKind::Fbx:
            return worldOfFbx(*scene.mMetaData);
        case FileKind::Gltf:
        case FileKind::Collada:
            // A glTF is in metres with y up, and the reader of COLLADA turns and scales a scene so.
            return {1, 1};
        case FileKind::Smd:
            return {2, std::nullopt};
        default:
            return {};
    }
}

}  // namespace Tolvane::Tools
