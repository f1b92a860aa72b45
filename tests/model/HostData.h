// The host's attributes and their data, in plain containers.
#pragma once

#include "tests/model/GraphValue.h"

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace Model {

struct HostNode;
using Compound = std::vector<HostNode>;
// By logical index.
using HostArray = std::map<unsigned, HostNode>;

// Nothing at all is what an attribute for objects holds.
struct HostNode {
    std::variant<std::monostate, Number, std::string, Matrix, Compound, HostArray> content;
};

struct HostAttribute {
    // Of one element, where the attribute is an array.
    const Shape* shape = nullptr;
    bool isArray = false;
    bool isClean = false;
    HostAttribute* parent = nullptr;
    unsigned position = 0;
    std::vector<std::unique_ptr<HostAttribute>> children;
};

// One port of the node: its attribute with all below it, and its data.
struct Port {
    std::unique_ptr<HostAttribute> attribute;
    bool isInput;
    HostNode data;
};

Port makePort(const std::string& type, bool isInput);

// What data holds at first: 0, the empty text, the identity.
template <typename T>
T hostDefault() {
    return T();
}
template <>
Matrix hostDefault();

// The defaults of one element of an array attribute, or of any other attribute.
HostNode newElement(const HostAttribute& attribute);
HostNode newNode(const HostAttribute& attribute);

// Down from a port: the logical index of an element, or the index of a child, whichever is due.
struct Place {
    unsigned port = 0;
    std::vector<unsigned> path;
};

}  // namespace Model
