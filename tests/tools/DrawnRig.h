// Rigs and snapshots of them that are made by hand, for the tests of what is drawn.
#pragma once

#include "tools/node/Snapshot.h"
#include "tools/rig/Rig.h"

#include <optional>
#include <string>

struct DrawnRig {
    static VMatrix at(double x, double y, double z) {
        VMatrix matrix;
        matrix[3][0] = x;
        matrix[3][1] = y;
        matrix[3][2] = z;
        return matrix;
    }

    // The same place is taken in the rest pose and in the snapshot.
    void add(const VMatrix& world, std::optional<std::size_t> parent,
             const std::string& name = "") {
        rig.joints.emplace_back();
        rig.joints.back().name = name;
        rig.joints.back().parent = parent;
        rig.joints.back().restWorld = world;
        pose.worlds.push_back(world);
    }

    // Hips at (0, 4, 0), a hand of each side at (+-3, 4, 0), a head at (0, 9, 0).
    void addBody() {
        add(at(0, 4, 0), std::nullopt);
        add(at(3, 4, 0), 0);
        add(at(-3, 4, 0), 0);
        add(at(0, 9, 0), 0);
    }

    Tolvane::Tools::Rig rig;
    Tolvane::Tools::Snapshot pose{7, {}};
};
