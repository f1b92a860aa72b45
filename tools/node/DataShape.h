// The tree of attributes that a plug stands for, asked of the host once, so that data can be walked
// again and again without asking.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Type.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct DataShape {
    enum class Kind { Compound, Matrix, String, Double, Bool, Int, Enum, Empty };

    // Below an array it leads through element 0; it finds the child in the data of any element.
    VPlug plug;
    std::string name;
    Kind kind;
    bool isArray;
    std::vector<DataShape> children;
};

DataShape shapeOf(VPlug plug);

// The attribute itself and all below it.
std::size_t attributeCount(const DataShape& shape);

// Whether data of `type` fits: arrays for arrays, a child for each member, the right leaves.
bool fits(const DataShape& shape, const Pelmor::Type& type);

// Data, and what it looks like.
struct DataPlace {
    const DataShape& shape;
    VDataHandle handle;

    DataPlace child(std::size_t index) const {
        const DataShape& childShape = shape.children[index];
        return {childShape, handle.child(childShape.plug)};
    }
};

}  // namespace Tolvane::Tools
