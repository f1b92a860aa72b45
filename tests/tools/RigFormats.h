// Rigs in each file format that a test can have one in: the bundled example, where that can be
// written, and some of the known rigs.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct RigFormat {
    enum class Readable { Pose, Motion };

    // The name that Assimp's exporter gives it; BVH and what only known rigs are in have others.
    const char* name;
    const char* extension;
    // What is written. It is only the pose if Assimp cannot read a file that it wrote with motion.
    Readable written;
    // What Assimp reads from that file.
    Readable readAgain;
    // The name of a known rig, without its extension; without one it is the example.
    const char* known = nullptr;
};

inline void PrintTo(const RigFormat& format, std::ostream* out) { *out << format.name; }

const std::vector<RigFormat>& rigFormats();

// Writes the rig into `folder`, with any further files that the format needs. Returns the path
// of the main file.
std::string writeExample(const RigFormat& format, const std::string& folder);
