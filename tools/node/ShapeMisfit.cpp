#include "tools/node/ShapeMisfit.h"

#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

namespace Tolvane::Tools {
namespace {

using Kind = DataShape::Kind;

// Why there is no attribute for the type, whatever the translation makes for it.
const char* whyNoAttribute(const Pelmor::Type& type) {
    const bool isArray = type.getTypeKind() == Pelmor::TypeKind::Array;
    switch ((isArray ? Pelmor::ArrayType(type).getElementType() : type).getTypeKind()) {
        case Pelmor::TypeKind::Float:
            return "a float has no attribute in the host";
        case Pelmor::TypeKind::Array:
            return "an array of arrays has no attribute in the host";
        default:
            return nullptr;
    }
}

Misfit inMember(const std::string& name, const Misfit& misfit) {
    return {name + (misfit.path.empty() ? "" : ".") + misfit.path, misfit.what};
}

std::optional<Misfit> misfitOfMembers(const DataShape& shape, const Pelmor::StructType& type) {
    auto child = shape.children.begin();
    for (auto member = type.begin(); member != type.end(); ++member) {
        std::optional<Misfit> misfit;
        if (const char* why = whyNoAttribute(member->getType()))
            misfit = Misfit{"", why};
        else if (child == shape.children.end())
            misfit = Misfit{"", "is missing"};
        else
            misfit = misfitOf(*child++, member->getType());
        if (misfit) return inMember(member->getName().c_str(), *misfit);
    }
    if (child == shape.children.end()) return std::nullopt;
    return Misfit{child->name,
                  std::string("is no member of ") + type.getFullyQualifiedName().c_str()};
}

Kind kindFor(const Pelmor::Type& type) {
    switch (type.getTypeKind()) {
        case Pelmor::TypeKind::Struct:
            return Kind::Compound;
        case Pelmor::TypeKind::Matrix:
            return Kind::Matrix;
        case Pelmor::TypeKind::String:
            return Kind::String;
        case Pelmor::TypeKind::Double:
            return Kind::Double;
        case Pelmor::TypeKind::Bool:
            return Kind::Bool;
        case Pelmor::TypeKind::Int:
            return Kind::Int;
        case Pelmor::TypeKind::Enum:
            return Kind::Enum;
        case Pelmor::TypeKind::Object:
            return Kind::Empty;
        case Pelmor::TypeKind::Float:
        case Pelmor::TypeKind::Array:
            break;
    }
    return Kind::Unknown;
}

std::string inWords(Kind kind) {
    switch (kind) {
        case Kind::Compound:
            return "a compound";
        case Kind::Matrix:
            return "a matrix";
        case Kind::String:
            return "a string";
        case Kind::Double:
            return "a double";
        case Kind::Bool:
            return "a bool";
        case Kind::Int:
            return "an int";
        case Kind::Enum:
            return "an enum";
        case Kind::Empty:
            return "a generic attribute";
        case Kind::Unknown:
            break;
    }
    return "an attribute of unknown data";
}

}  // namespace

std::optional<Misfit> misfitOf(const DataShape& shape, const Pelmor::Type& type) {
    if (const char* why = whyNoAttribute(type)) return Misfit{"", why};
    const bool isArray = type.getTypeKind() == Pelmor::TypeKind::Array;
    const Pelmor::Type element = isArray ? Pelmor::ArrayType(type).getElementType() : type;
    if (shape.isArray != isArray || shape.kind != kindFor(element) || shape.kind == Kind::Unknown)
        return Misfit{"", "is " + inWords(shape.kind) + (shape.isArray ? " array" : "") + ", not " +
                              type.getFullyQualifiedName().c_str()};
    if (shape.kind != Kind::Compound) return std::nullopt;
    return misfitOfMembers(shape, Pelmor::StructType(element));
}

}  // namespace Tolvane::Tools
