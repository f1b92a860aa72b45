// The bundled example as a file of each format that it can be written in.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct RigFormat {
    enum class Readable { Nothing, Pose, Motion };

    // Its name, which is that of Assimp's exporter where one writes it.
    const char* name;
    const char* extension;
    // Without the motion where the exporter writes it so that no reader takes the file.
    Readable written;
    Readable readAgain;
};

inline void PrintTo(const RigFormat& format, std::ostream* out) { *out << format.name; }

// Of the formats that hold a tree of joints, all that Assimp writes.
const std::vector<RigFormat>& rigFormats();

// Writes the example into `folder`, beside what the format keeps in files of their own. Returns the
// file's path.
std::string writeExample(const RigFormat& format, const std::string& folder);
