// The bundled example in each file format that it can be written in.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct RigFormat {
    enum class Readable { Nothing, Pose, Motion };

    // The name that Assimp's exporter gives it; there is none for BVH.
    const char* name;
    const char* extension;
    // What is written. It is only the pose if Assimp cannot read a file that it wrote with motion.
    Readable written;
    // What Assimp reads from that file.
    Readable readAgain;
};

inline void PrintTo(const RigFormat& format, std::ostream* out) { *out << format.name; }

// All formats that hold a tree of joints and that Assimp writes.
const std::vector<RigFormat>& rigFormats();

// Writes the example into `folder`, with any further files that the format needs. Returns the path
// of the main file.
std::string writeExample(const RigFormat& format, const std::string& folder);
