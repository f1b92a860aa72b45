// The tree of attributes of a port, with all that can be seen of each.
#pragma once

#include "tools/node/DataShape.h"

#include <string>
#include <utility>
#include <vector>

namespace Tolvane::Tools {

struct AttributeTree {
    std::string name;
    // "compound", "matrix", "string", "double", "bool", "int", "enum", "object" for one that the
    // host keeps no data for, or "unknown".
    std::string kind;
    bool isArray;
    bool isReadable;
    bool isWritable;
    bool isKeyable;
    bool enforcesUniqueName;
    // Of an enum, the names and values of its fields.
    std::vector<std::pair<std::string, short>> fields;
    std::vector<AttributeTree> children;
};

bool operator==(const AttributeTree& a, const AttributeTree& b);
inline bool operator!=(const AttributeTree& a, const AttributeTree& b) { return !(a == b); }

AttributeTree treeOf(const DataShape& shape);

// As `AttributeTree` has them.
const char* wordFor(DataShape::Kind kind) noexcept;

}  // namespace Tolvane::Tools
