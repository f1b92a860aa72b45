#include "tools/inspect/AttributeTree.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnEnumAttribute.h>

#include <tuple>

namespace Tolvane::Tools {
namespace {

auto partsOf(const AttributeTree& tree) {
    return std::tie(tree.name, tree.kind, tree.isArray, tree.isReadable, tree.isWritable,
                    tree.isKeyable, tree.enforcesUniqueName, tree.fields, tree.children);
}

std::vector<std::pair<std::string, short>> fieldsOf(const VObject& attribute) {
    const VFnEnumAttribute functions(attribute);
    std::vector<std::pair<std::string, short>> fields;
    for (unsigned i = 0; i < functions.numFields(); ++i)
        fields.emplace_back(functions.fieldName(i).asChar(), functions.fieldValue(i));
    return fields;
}

}  // namespace

bool operator==(const AttributeTree& a, const AttributeTree& b) { return partsOf(a) == partsOf(b); }

AttributeTree treeOf(const DataShape& shape) {
    const VObject attribute = shape.plug.attribute();
    const VFnAttribute functions(attribute);
    AttributeTree tree{shape.name,
                       wordFor(shape.kind),
                       shape.isArray,
                       functions.isReadable(),
                       functions.isWritable(),
                       functions.isKeyable(),
                       functions.isEnforcingUniqueName(),
                       {},
                       {}};
    if (shape.kind == DataShape::Kind::Enum) tree.fields = fieldsOf(attribute);
    for (const DataShape& child : shape.children) tree.children.push_back(treeOf(child));
    return tree;
}

const char* wordFor(DataShape::Kind kind) noexcept {
    switch (kind) {
        case DataShape::Kind::Compound:
            return "compound";
        case DataShape::Kind::Matrix:
            return "matrix";
        case DataShape::Kind::String:
            return "string";
        case DataShape::Kind::Double:
            return "double";
        case DataShape::Kind::Bool:
            return "bool";
        case DataShape::Kind::Int:
            return "int";
        case DataShape::Kind::Enum:
            return "enum";
        case DataShape::Kind::Empty:
            return "object";
        case DataShape::Kind::Unknown:
            break;
    }
    return "unknown";
}

}  // namespace Tolvane::Tools
