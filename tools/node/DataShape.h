// The tree of attributes that a plug stands for. It is read from the host once, so that data can be
// walked many times without asking for attributes again.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct DataShape {
    // Empty is an attribute without data in the host, as objects of the graph have. Unknown is one
    // whose data this program cannot read; it fits no type.
    enum class Kind { Compound, Matrix, String, Double, Bool, Int, Enum, Empty, Unknown };

    // Below an array this plug leads through element 0. It serves for every element, because a
    // child's data is found by its attribute alone.
    VPlug plug;
    std::string name;
    Kind kind;
    bool isArray;
    std::vector<DataShape> children;
    // The values that an enum has fields for.
    std::vector<short> choices = {};
};

DataShape shapeOf(VPlug plug);

// The number of attributes: this one and all below it.
std::size_t attributeCount(const DataShape& shape);

// Data, together with its shape.
struct DataPlace {
    const DataShape& shape;
    VDataHandle handle;

    DataPlace child(std::size_t index) const {
        const DataShape& childShape = shape.children[index];
        return {childShape, handle.child(childShape.plug)};
    }
};

}  // namespace Tolvane::Tools
