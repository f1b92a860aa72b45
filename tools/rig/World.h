// The world that a scene is in: which way is up, and how long its unit is.
#pragma once

#include <optional>

#include <assimp/scene.h>

namespace Tolvane::Tools {

struct World {
    // 0, 1 or 2 for x, y or z.
    unsigned upAxis = 1;
    // Nothing if neither the file nor its kind says.
    std::optional<double> metresPerUnit = {};
};

World worldOf(const aiScene& scene);

}  // namespace Tolvane::Tools
