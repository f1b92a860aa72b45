#include "tools/check/MemberAttributes.h"

#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

namespace Tolvane::Tools {
namespace {

using Pelmor::Type;
using Pelmor::TypeKind;

bool isArray(const Type& type) { return type.getTypeKind() == TypeKind::Array; }

bool hasAttribute(const Type& type) {
    const Type element = elementOf(type);
    return element.getTypeKind() != TypeKind::Float && !isArray(element);
}

bool mayBeSingle(const Type& element) {
    switch (element.getTypeKind()) {
        case TypeKind::Bool:
        case TypeKind::Int:
            return true;
        case TypeKind::Struct:
            return element.getFullyQualifiedName() != "Core::Transform::Transform";
        default:
            return false;
    }
}

}  // namespace

Type elementOf(const Type& type) {
    return isArray(type) ? Pelmor::ArrayType(type).getElementType() : type;
}

bool hasAttributes(const Type& type) {
    if (!hasAttribute(type)) return false;
    const Type element = elementOf(type);
    if (element.getTypeKind() != TypeKind::Struct) return true;
    const Pelmor::StructType structure(element);
    for (auto member = structure.begin(); member != structure.end(); ++member)
        if (!hasAttributes((*member).getType())) return false;
    return true;
}

void forEachSingle(DataShape& shape, const Type& type,
                   const std::function<void(DataShape& single)>& work) {
    const Type element = elementOf(type);
    if (element.getTypeKind() != TypeKind::Struct) return;
    const Pelmor::StructType structure(element);
    auto child = shape.children.begin();
    for (auto member = structure.begin(); member != structure.end(); ++member) {
        const Type memberType = (*member).getType();
        if (!hasAttribute(memberType)) continue;
        if (child == shape.children.end()) return;
        if (isArray(memberType) && !child->isArray && mayBeSingle(elementOf(memberType)))
            work(*child);
        forEachSingle(*child++, memberType, work);
    }
}

void noteSingle(Trial& trial, const Type& type, const DataShape& single) {
    trial.note("the attribute \"" + single.name + "\" of " + nameOf(type) +
               " is no array, as the member is, so no values of it can be carried");
}

}  // namespace Tolvane::Tools
