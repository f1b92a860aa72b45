#include "tools/rig/World.h"

#include "tools/rig/SceneTree.h"

#include <cmath>
#include <string>

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

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

}  // namespace

World worldOf(const aiScene& scene) {
    const std::string format = formatOf(scene);
    if (format == "Autodesk FBX Importer") return worldOfFbx(*scene.mMetaData);
    // A glTF is in metres with y up, and the reader of COLLADA files turns and scales theirs so.
    if (startsWith(format, "glTF") || startsWith(format, "Collada")) return {1, 1};
    if (format == "Valve SMD Importer") return {2, std::nullopt};
    return {};
}

}  // namespace Tolvane::Tools
