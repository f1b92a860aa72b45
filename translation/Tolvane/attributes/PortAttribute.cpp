#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <Pelmor/ArrayType.h>
#include <Tolvane/attributes/LeafAttributes.h>
#include <Tolvane/attributes/PortAttribute.h>
#include <Tolvane/attributes/UnwrapArrayType.h>

#include <cstdint>
#include <optional>

namespace Tolvane {
namespace {

void setPortFlags(VFnAttribute& attribute, bool isInput, bool isArray) {
    attribute.setReadable(!isInput);
    attribute.setWritable(isInput);
    attribute.setKeyable(isInput);
    attribute.setArray(isArray);
}

// Nothing for a type that has no attribute. What the host failed to create is a null object and is
// left to the host to refuse.
std::optional<VObject> createMemberAttribute(const Pelmor::Type& memberType, const VString& name,
                                             bool isInput) {
    using Pelmor::TypeKind;
    const bool isArray = memberType.getTypeKind() == TypeKind::Array;
    const Pelmor::Type type = isArray ? Pelmor::ArrayType(memberType).getElementType() : memberType;
    const Pelmor::String typeName = type.getFullyQualifiedName();
    const TypeKind kind = type.getTypeKind();

    if (typeName == "string") return createStringAttribute(name, isArray);
    if (typeName == "Math::double4x4") return createMatrixAttribute(name, isArray);
    if (typeName == "Core::Transform::Transform")
        return createCompoundAttribute(Pelmor::StructType(type), name, isInput, isArray);
    if (typeName == "double") return createDoubleAttribute(name, isArray);
    if (typeName == "Object") return createObjectAttribute(name, isArray);
    // Transforms are the only structs that members hold in arrays. An array of any other struct
    // gets a compound that is no array, and cannot be carried.
    if (kind == TypeKind::Struct)
        return createCompoundAttribute(Pelmor::StructType(type), name, isInput, false);
    if (kind == TypeKind::Enum)
        return createEnumAttribute(Pelmor::EnumType(type), name, isInput, isArray);
    if (typeName == "bool") return createBoolAttribute(name);
    if (typeName == "int") return createIntAttribute(name);
    return std::nullopt;
}

}  // namespace

VObject createPortAttribute(const Pelmor::Type& type, const VString& name, bool isInput) {
    const auto [innermost, arrayLevels] = unwrapArrayType(type);
    const bool isArray = arrayLevels == 1;
    switch (innermost.getTypeKind()) {
        case Pelmor::TypeKind::Enum:
            return createEnumAttribute(Pelmor::EnumType(innermost), name, isInput, isArray);
        case Pelmor::TypeKind::Struct:
            return createCompoundAttribute(Pelmor::StructType(innermost), name, isInput, isArray);
        default:
            return VObject::kNullObj;
    }
}

VObject createCompoundAttribute(const Pelmor::StructType& type, const VString& name, bool isInput,
                                bool isArray) {
    VFnCompoundAttribute compound;
    VObject object = compound.create(name, name);
    setPortFlags(compound, isInput, isArray);
    for (auto member = type.begin(), end = type.end(); member != end; ++member) {
        VString childName((*member).getName().asChar());
        if (childName == "weights") childName = "weights_A";
        const auto child = createMemberAttribute((*member).getType(), childName, isInput);
        if (child) compound.addChild(*child);
    }
    for (unsigned i = 0; i < compound.numChildren(); ++i)
        VFnAttribute(compound.child(i)).setEnforcingUniqueName(false);
    return object;
}

VObject createEnumAttribute(const Pelmor::EnumType& type, const VString& name, bool isInput,
                            bool isArray) {
    VFnEnumAttribute attribute;
    VObject object = attribute.create(name, name, 0);
    setPortFlags(attribute, isInput, isArray);
    for (auto enumeration = type.begin(), end = type.end(); enumeration != end; ++enumeration) {
        const auto lowBits = static_cast<std::uint16_t>((*enumeration).getValue());
        attribute.addField(VString((*enumeration).getName().asChar()), static_cast<short>(lowBits));
    }
    return object;
}

}  // namespace Tolvane
