#include "graph/src/TypeDescription.h"

#include <Pelmor/ArrayType.h>

#include <stdexcept>

namespace Pelmor {
namespace {

const Type& ofKind(const Type& type, TypeKind kind, const char* what) {
    if (type.getTypeKind() == kind) return type;
    throw std::invalid_argument(std::string(type.getFullyQualifiedName().c_str()) + " is no " +
                                what);
}

}  // namespace

String NamedEntity::getFullyQualifiedName() const { return m_description->name; }

TypeKind Type::getTypeKind() const noexcept { return m_description->kind; }

ArrayType::ArrayType(const Type& type) : Type(ofKind(type, TypeKind::Array, "array type")) {}

Type ArrayType::getElementType() const { return *m_description->elementType; }

StructType::StructType(const Type& type) : Type(ofKind(type, TypeKind::Struct, "struct type")) {}

StructType::MemberIterator StructType::begin() const { return {m_description->members.data(), 0}; }

StructType::MemberIterator StructType::end() const {
    return {m_description->members.data(), m_description->members.size()};
}

EnumType::EnumType(const Type& type) : Type(ofKind(type, TypeKind::Enum, "enum type")) {}

EnumType::EnumerationIterator EnumType::begin() const {
    return {m_description->enumerations.data(), 0};
}

EnumType::EnumerationIterator EnumType::end() const {
    return {m_description->enumerations.data(), m_description->enumerations.size()};
}

}  // namespace Pelmor
